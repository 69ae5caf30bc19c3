#include "platform/metafile/MetafileCanvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vellumry::metafile {

namespace {

// Deeper saves than this are ignored, so that a file can't grow the stack without bound.
constexpr size_t kMaxSavedStates = 1024;

// Millimetres a logical unit of the fixed mapping modes measures.
double millimetresPerUnit(int mapMode) {
  switch (mapMode) {
    case 2:  // tenths of a millimetre
      return 0.1;
    case 3:  // hundredths of a millimetre
      return 0.01;
    case 4:  // hundredths of an inch
      return 0.254;
    case 5:  // thousandths of an inch
      return 0.0254;
    case 6:  // twips
      return 25.4 / 1440;
    default:
      return 0;
  }
}

double extentRatio(double viewport, double window) { return window == 0 ? 1 : viewport / window; }

// The angle of `point` on the ellipse in `box`, in Qt's degrees (counter-clockwise on screen).
double ellipseAngle(const QRectF& box, QPointF point) {
  const QPointF centre = box.center();
  const double rx = box.width() / 2, ry = box.height() / 2;
  const double x = rx == 0 ? 0 : (point.x() - centre.x()) / rx;
  const double y = ry == 0 ? 0 : (point.y() - centre.y()) / ry;
  return std::atan2(-y, x) * 180 / std::numbers::pi;
}

std::optional<QPainter::CompositionMode> sourceMode(uint32_t rasterOp) {
  switch (rasterOp) {
    case 0x00CC0020:  // source copy
      return QPainter::CompositionMode_SourceOver;
    case 0x008800C6:  // source and destination
      return QPainter::RasterOp_SourceAndDestination;
    case 0x00EE0086:  // source or destination
      return QPainter::RasterOp_SourceOrDestination;
    case 0x00660046:  // source xor destination
      return QPainter::RasterOp_SourceXorDestination;
    case 0x00330008:  // not source
      return QPainter::RasterOp_NotSource;
    case 0x00440328:  // source and not destination
      return QPainter::RasterOp_SourceAndNotDestination;
    case 0x001100A6:  // not (source or destination)
      return QPainter::RasterOp_NotSourceAndNotDestination;
    case 0x00BB0226:  // not source or destination
      return QPainter::RasterOp_NotSourceOrDestination;
    default:
      return std::nullopt;
  }
}

}  // namespace

MetafileCanvas::MetafileCanvas(QPainter& painter, QTransform deviceToOutput, QSizeF pixelsPerMm)
    : painter_(painter), deviceToOutput_(deviceToOutput), pixelsPerMm_(pixelsPerMm) {
  dc_.pen.color = Qt::black;
  dc_.font.face = QStringLiteral("Sans Serif");
}

void MetafileCanvas::SaveDc() {
  if (saved_.size() < kMaxSavedStates) saved_.push_back(dc_);
}

void MetafileCanvas::RestoreDc(int which) {
  const int64_t depth = static_cast<int64_t>(saved_.size());
  const int64_t keep = which < 0 ? depth + which : int64_t{which} - 1;
  if (keep < 0 || keep >= depth) return;
  dc_ = saved_[static_cast<size_t>(keep)];
  saved_.resize(static_cast<size_t>(keep));
  applyClip();
}

void MetafileCanvas::select(const GdiObject& object) {
  switch (object.kind) {
    case GdiObject::Kind::kPen:
      dc_.pen = object.pen;
      break;
    case GdiObject::Kind::kBrush:
      dc_.brush = object.brush;
      break;
    case GdiObject::Kind::kFont:
      dc_.font = object.font;
      break;
    default:
      break;
  }
}

QTransform MetafileCanvas::logicalToDevice() const {
  double sx = 1, sy = 1;
  if (const double mm = millimetresPerUnit(dc_.mapMode); mm > 0) {
    sx = mm * pixelsPerMm_.width();
    sy = -mm * pixelsPerMm_.height();
  } else if (dc_.mapMode == 7 || dc_.mapMode == 8) {
    sx = extentRatio(dc_.viewportExt.width(), dc_.windowExt.width());
    sy = extentRatio(dc_.viewportExt.height(), dc_.windowExt.height());
    if (dc_.mapMode == 7) {
      const double scale = std::min(std::abs(sx), std::abs(sy));
      sx = std::copysign(scale, sx);
      sy = std::copysign(scale, sy);
    }
  }
  const QTransform page(sx, 0, 0, sy, dc_.viewportOrg.x() - dc_.windowOrg.x() * sx,
                        dc_.viewportOrg.y() - dc_.windowOrg.y() * sy);
  return dc_.world * page;
}

QPen MetafileCanvas::outputPen() const {
  const int style = dc_.pen.style & 0xF;
  if (style == 5) return Qt::NoPen;
  QPen pen(dc_.pen.color);
  const double scale = std::sqrt(std::abs(logicalToOutput().determinant()));
  const double limit = std::max(painter_.device()->width(), painter_.device()->height());
  const double pixels = std::min(dc_.pen.width * scale, limit);
  if (pixels < 1.5) {
    pen.setCosmetic(true);
    pen.setWidthF(1);
  } else {
    pen.setWidthF(pixels / scale);
  }
  static constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine,
                                             Qt::DashDotLine, Qt::DashDotDotLine};
  pen.setStyle(style < 5 ? kStyles[style] : Qt::SolidLine);
  const int cap = dc_.pen.style & 0xF00, join = dc_.pen.style & 0xF000;
  pen.setCapStyle(cap == 0x100 ? Qt::SquareCap : cap == 0x200 ? Qt::FlatCap : Qt::RoundCap);
  pen.setJoinStyle(join == 0x1000 ? Qt::BevelJoin : join == 0x2000 ? Qt::MiterJoin : Qt::RoundJoin);
  return pen;
}

void MetafileCanvas::drawShape(const QPainterPath& shape, bool fill, bool stroke) {
  if (pathOpen_) {
    path_.addPath(shape);
    return;
  }
  QPainterPath filled = shape;
  filled.setFillRule(dc_.fillRule);
  painter_.setTransform(logicalToOutput());
  const bool hatched =
      dc_.brush.style() >= Qt::HorPattern && dc_.brush.style() <= Qt::DiagCrossPattern;
  if (fill && hatched && dc_.opaqueBackground) painter_.fillPath(filled, dc_.bkColor);
  painter_.setPen(stroke ? outputPen() : QPen(Qt::NoPen));
  painter_.setBrush(fill ? dc_.brush : QBrush(Qt::NoBrush));
  // Qt's anti-aliasing rasteriser takes seconds over edges that run far beyond the picture;
  // such shapes are drawn without it.
  const QRectF reach = logicalToOutput().mapRect(filled.controlPointRect());
  const double limit = 16.0 * std::max(painter_.device()->width(), painter_.device()->height());
  const bool farReaching = reach.width() > limit || reach.height() > limit;
  painter_.setRenderHint(QPainter::Antialiasing, !farReaching);
  painter_.drawPath(filled);
  painter_.setRenderHint(QPainter::Antialiasing, true);
}

void MetafileCanvas::LineTo(QPointF to) {
  if (pathOpen_) {
    if (path_.elementCount() == 0 || path_.currentPosition() != dc_.position) {
      path_.moveTo(dc_.position);
    }
    path_.lineTo(to);
  } else {
    QPainterPath line(dc_.position);
    line.lineTo(to);
    drawShape(line, false, true);
  }
  dc_.position = to;
}

void MetafileCanvas::Polyline(const QPolygonF& points) {
  if (points.size() < 2) return;
  QPainterPath line;
  line.addPolygon(points);
  drawShape(line, false, true);
}

void MetafileCanvas::Polygon(const QPolygonF& points) {
  if (points.size() < 2) return;
  QPainterPath shape;
  shape.addPolygon(points);
  shape.closeSubpath();
  drawShape(shape, true, true);
}

void MetafileCanvas::PolyPolygon(std::span<const QPolygonF> polygons) {
  QPainterPath shape;
  for (const QPolygonF& points : polygons) {
    shape.addPolygon(points);
    shape.closeSubpath();
  }
  drawShape(shape, true, true);
}

void MetafileCanvas::PolyPolyline(std::span<const QPolygonF> polylines) {
  QPainterPath lines;
  for (const QPolygonF& points : polylines) lines.addPolygon(points);
  drawShape(lines, false, true);
}

void MetafileCanvas::PolyBezier(const QPolygonF& points, bool fromPosition) {
  QPainterPath curve;
  qsizetype i = 0;
  if (fromPosition) {
    curve.moveTo(dc_.position);
  } else if (!points.isEmpty()) {
    curve.moveTo(points[i++]);
  }
  for (; i + 2 < points.size(); i += 3) curve.cubicTo(points[i], points[i + 1], points[i + 2]);
  if (fromPosition && pathOpen_ && path_.elementCount() > 0 &&
      path_.currentPosition() == dc_.position) {
    path_.connectPath(curve);
  } else {
    drawShape(curve, false, true);
  }
  if (fromPosition) dc_.position = curve.currentPosition();
}

void MetafileCanvas::Rectangle(const QRectF& box) {
  QPainterPath shape;
  shape.addRect(box.normalized());
  drawShape(shape, true, true);
}

void MetafileCanvas::RoundRect(const QRectF& box, QSizeF corner) {
  QPainterPath shape;
  shape.addRoundedRect(box.normalized(), std::abs(corner.width()) / 2,
                       std::abs(corner.height()) / 2);
  drawShape(shape, true, true);
}

void MetafileCanvas::Ellipse(const QRectF& box) {
  QPainterPath shape;
  shape.addEllipse(box.normalized());
  drawShape(shape, true, true);
}

void MetafileCanvas::Arc(ArcKind kind, const QRectF& rawBox, QPointF start, QPointF end) {
  const QRectF box = rawBox.normalized();
  const double from = ellipseAngle(box, start);
  double sweep = ellipseAngle(box, end) - from;
  if (dc_.clockwiseArcs) {
    if (sweep >= 0) sweep -= 360;
  } else if (sweep <= 0) {
    sweep += 360;
  }
  QPainterPath shape;
  if (kind == ArcKind::kPie) {
    shape.moveTo(box.center());
    shape.arcTo(box, from, sweep);
    shape.closeSubpath();
  } else {
    shape.arcMoveTo(box, from);
    if (kind == ArcKind::kArcTo) {
      QPainterPath joined(dc_.position);
      joined.lineTo(shape.currentPosition());
      shape = joined;
    }
    shape.arcTo(box, from, sweep);
    if (kind == ArcKind::kChord) shape.closeSubpath();
  }
  if (kind == ArcKind::kArcTo) dc_.position = shape.currentPosition();
  const bool closed = kind == ArcKind::kChord || kind == ArcKind::kPie;
  drawShape(shape, closed, true);
}

void MetafileCanvas::AngleArc(QPointF centre, double radius, double start, double sweep) {
  const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  QPainterPath arc(dc_.position);
  QPainterPath startOfArc;
  startOfArc.arcMoveTo(box, start);
  arc.lineTo(startOfArc.currentPosition());
  arc.arcTo(box, start, sweep);
  dc_.position = arc.currentPosition();
  drawShape(arc, false, true);
}

void MetafileCanvas::setPixel(QPointF at, QColor color) {
  painter_.resetTransform();
  const QPointF pixel = logicalToOutput().map(at);
  painter_.fillRect(QRectF(std::floor(pixel.x()), std::floor(pixel.y()), 1, 1), color);
}

void MetafileCanvas::FillRegion(const QPainterPath& region, const QTransform& toOutput,
                                const QBrush& brush) {
  painter_.setTransform(toOutput);
  painter_.fillPath(region, brush);
}

void MetafileCanvas::blit(const QRectF& dest, const gdi::Surface* bitmap, const QRectF& source,
                          uint32_t rasterOp) {
  const auto mode = sourceMode(rasterOp);
  painter_.setTransform(logicalToOutput());
  if (bitmap && !bitmap->empty() && mode && source.width() != 0 && source.height() != 0) {
    const double sx = dest.width() / source.width(), sy = dest.height() / source.height();
    painter_.setTransform(
        QTransform(sx, 0, 0, sy, dest.x() - source.x() * sx, dest.y() - source.y() * sy) *
        logicalToOutput());
    painter_.setCompositionMode(*mode);
    painter_.drawImage(source, bitmap->view(), source);
  } else {
    QBrush brush = dc_.brush;
    QPainter::CompositionMode composition = QPainter::CompositionMode_SourceOver;
    switch (rasterOp) {
      case 0x00000042:  // blackness
        brush = Qt::black;
        break;
      case 0x00FF0062:  // whiteness
        brush = Qt::white;
        break;
      case 0x005A0049:  // pattern xor destination
        composition = QPainter::RasterOp_SourceXorDestination;
        break;
      case 0x00550009:  // not destination
        composition = QPainter::RasterOp_NotDestination;
        break;
      case 0x00F00021:  // pattern copy
        break;
      default:  // a source operation without its bitmap, or one left unplayed
        return;
    }
    painter_.setCompositionMode(composition);
    painter_.fillRect(dest.normalized(), brush);
  }
  painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

}  // namespace vellumry::metafile
