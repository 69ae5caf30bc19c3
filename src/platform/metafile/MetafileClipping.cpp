// The clipping and the paths of a metafile's canvas.
#include "platform/metafile/MetafileCanvas.h"

namespace vellumry::metafile {

void MetafileCanvas::IntersectClip(const QRectF& box) {
  QPainterPath area;
  area.addRect(box.normalized());
  const QPainterPath mapped = logicalToOutput().map(area);
  dc_.clip = dc_.clip ? dc_.clip->intersected(mapped) : mapped;
  applyClip();
}

void MetafileCanvas::ExcludeClip(const QRectF& box) {
  QPainterPath area;
  area.addRect(box.normalized());
  QPainterPath whole;
  whole.addRect(QRectF(0, 0, painter_.device()->width(), painter_.device()->height()));
  dc_.clip = dc_.clip.value_or(whole).subtracted(logicalToOutput().map(area));
  applyClip();
}

void MetafileCanvas::SelectClip(const std::optional<QPainterPath>& deviceRegion, RegionMode mode) {
  if (!deviceRegion) {
    if (mode == RegionMode::kCopy) dc_.clip.reset();
    applyClip();
    return;
  }
  const QPainterPath region = deviceToOutput_.map(*deviceRegion);
  QPainterPath whole;
  whole.addRect(QRectF(0, 0, painter_.device()->width(), painter_.device()->height()));
  const QPainterPath current = dc_.clip.value_or(whole);
  switch (mode) {
    case RegionMode::kAnd:
      dc_.clip = current.intersected(region);
      break;
    case RegionMode::kOr:
      dc_.clip = current.united(region);
      break;
    case RegionMode::kXor:
      dc_.clip = current.united(region).subtracted(current.intersected(region));
      break;
    case RegionMode::kDiff:
      dc_.clip = current.subtracted(region);
      break;
    case RegionMode::kCopy:
      dc_.clip = region;
      break;
  }
  applyClip();
}

void MetafileCanvas::OffsetClip(QPointF by) {
  if (!dc_.clip) return;
  const QPointF zero = logicalToOutput().map(QPointF(0, 0));
  const QPointF moved = logicalToOutput().map(by) - zero;
  dc_.clip->translate(moved);
  applyClip();
}

void MetafileCanvas::applyClip() {
  painter_.resetTransform();
  if (dc_.clip) {
    painter_.setClipPath(*dc_.clip);
  } else {
    painter_.setClipping(false);
  }
}

void MetafileCanvas::BeginPath() {
  path_ = QPainterPath();
  pathOpen_ = true;
}

void MetafileCanvas::AbortPath() {
  path_ = QPainterPath();
  pathOpen_ = false;
}

void MetafileCanvas::CloseFigure() {
  if (pathOpen_) path_.closeSubpath();
}

void MetafileCanvas::drawPath(bool fill, bool stroke) {
  pathOpen_ = false;
  QPainterPath path = std::exchange(path_, QPainterPath());
  if (fill) path.closeSubpath();
  drawShape(path, fill, stroke);
}

void MetafileCanvas::SelectClipPath(RegionMode mode) {
  pathOpen_ = false;
  const QPainterPath path = std::exchange(path_, QPainterPath());
  SelectClip(logicalToDevice().map(path), mode);
}

}  // namespace vellumry::metafile
