#include "platform/codecs/MetafileCanvas.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace vellumry::codecs {

namespace {

// Deeper saves than this are ignored, so that a file can't grow the stack without bound.
constexpr size_t kMaxSavedStates = 1024;
// Text larger than this many output pixels is left out: it can't be legible in the picture, and
// Qt would rasterise its glyphs at that size.
constexpr double kMaxTextPixels = 4096;

// Millimetres a logical unit of the fixed mapping modes measures.
double MillimetresPerUnit(int mapMode) {
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

double ExtentRatio(double viewport, double window) { return window == 0 ? 1 : viewport / window; }

// The angle of `point` on the ellipse in `box`, in Qt's degrees (counter-clockwise on screen).
double EllipseAngle(const QRectF& box, QPointF point) {
  const QPointF centre = box.center();
  const double rx = box.width() / 2, ry = box.height() / 2;
  const double x = rx == 0 ? 0 : (point.x() - centre.x()) / rx;
  const double y = ry == 0 ? 0 : (point.y() - centre.y()) / ry;
  return std::atan2(-y, x) * 180 / std::numbers::pi;
}

std::optional<QPainter::CompositionMode> SourceMode(uint32_t rasterOp) {
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
  ApplyClip();
}

void MetafileCanvas::Select(const GdiObject& object) {
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

QTransform MetafileCanvas::LogicalToDevice() const {
  double sx = 1, sy = 1;
  if (const double mm = MillimetresPerUnit(dc_.mapMode); mm > 0) {
    sx = mm * pixelsPerMm_.width();
    sy = -mm * pixelsPerMm_.height();
  } else if (dc_.mapMode == 7 || dc_.mapMode == 8) {
    sx = ExtentRatio(dc_.viewportExt.width(), dc_.windowExt.width());
    sy = ExtentRatio(dc_.viewportExt.height(), dc_.windowExt.height());
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

QPen MetafileCanvas::OutputPen() const {
  const int style = dc_.pen.style & 0xF;
  if (style == 5) return Qt::NoPen;
  QPen pen(dc_.pen.color);
  const double scale = std::sqrt(std::abs(LogicalToOutput().determinant()));
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

void MetafileCanvas::Emit(const QPainterPath& shape, bool fill, bool stroke) {
  if (pathOpen_) {
    path_.addPath(shape);
    return;
  }
  QPainterPath filled = shape;
  filled.setFillRule(dc_.fillRule);
  painter_.setTransform(LogicalToOutput());
  const bool hatched =
      dc_.brush.style() >= Qt::HorPattern && dc_.brush.style() <= Qt::DiagCrossPattern;
  if (fill && hatched && dc_.opaqueBackground) painter_.fillPath(filled, dc_.bkColor);
  painter_.setPen(stroke ? OutputPen() : QPen(Qt::NoPen));
  painter_.setBrush(fill ? dc_.brush : QBrush(Qt::NoBrush));
  // Qt's anti-aliasing rasteriser takes seconds over edges that run far beyond the picture;
  // such shapes are drawn without it.
  const QRectF reach = LogicalToOutput().mapRect(filled.controlPointRect());
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
    Emit(line, false, true);
  }
  dc_.position = to;
}

void MetafileCanvas::Polyline(const QPolygonF& points) {
  if (points.size() < 2) return;
  QPainterPath line;
  line.addPolygon(points);
  Emit(line, false, true);
}

void MetafileCanvas::Polygon(const QPolygonF& points) {
  if (points.size() < 2) return;
  QPainterPath shape;
  shape.addPolygon(points);
  shape.closeSubpath();
  Emit(shape, true, true);
}

void MetafileCanvas::PolyPolygon(std::span<const QPolygonF> polygons) {
  QPainterPath shape;
  for (const QPolygonF& points : polygons) {
    shape.addPolygon(points);
    shape.closeSubpath();
  }
  Emit(shape, true, true);
}

void MetafileCanvas::PolyPolyline(std::span<const QPolygonF> polylines) {
  QPainterPath lines;
  for (const QPolygonF& points : polylines) lines.addPolygon(points);
  Emit(lines, false, true);
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
    Emit(curve, false, true);
  }
  if (fromPosition) dc_.position = curve.currentPosition();
}

void MetafileCanvas::Rectangle(const QRectF& box) {
  QPainterPath shape;
  shape.addRect(box.normalized());
  Emit(shape, true, true);
}

void MetafileCanvas::RoundRect(const QRectF& box, QSizeF corner) {
  QPainterPath shape;
  shape.addRoundedRect(box.normalized(), std::abs(corner.width()) / 2,
                       std::abs(corner.height()) / 2);
  Emit(shape, true, true);
}

void MetafileCanvas::Ellipse(const QRectF& box) {
  QPainterPath shape;
  shape.addEllipse(box.normalized());
  Emit(shape, true, true);
}

void MetafileCanvas::Arc(ArcKind kind, const QRectF& rawBox, QPointF start, QPointF end) {
  const QRectF box = rawBox.normalized();
  const double from = EllipseAngle(box, start);
  double sweep = EllipseAngle(box, end) - from;
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
  Emit(shape, closed, true);
}

void MetafileCanvas::AngleArc(QPointF centre, double radius, double start, double sweep) {
  const QRectF box(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  QPainterPath arc(dc_.position);
  QPainterPath startOfArc;
  startOfArc.arcMoveTo(box, start);
  arc.lineTo(startOfArc.currentPosition());
  arc.arcTo(box, start, sweep);
  dc_.position = arc.currentPosition();
  Emit(arc, false, true);
}

void MetafileCanvas::SetPixel(QPointF at, QColor color) {
  painter_.resetTransform();
  const QPointF pixel = LogicalToOutput().map(at);
  painter_.fillRect(QRectF(std::floor(pixel.x()), std::floor(pixel.y()), 1, 1), color);
}

void MetafileCanvas::FillRegion(const QPainterPath& region, const QTransform& toOutput,
                                const QBrush& brush) {
  painter_.setTransform(toOutput);
  painter_.fillPath(region, brush);
}

void MetafileCanvas::DrawText(const Text& text) {
  // Fonts come from the application's font database: a program without one draws no text.
  if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return;
  if (text.text.isEmpty() && !text.box) return;
  const QTransform toOutput = LogicalToOutput();
  const double scaleX = std::hypot(toOutput.m11(), toOutput.m12());
  const double scaleY = std::hypot(toOutput.m21(), toOutput.m22());
  const FontSpec& asked = dc_.font;
  QFont font(asked.face);
  font.setItalic(asked.italic);
  font.setUnderline(asked.underline);
  font.setStrikeOut(asked.strikeOut);
  font.setWeight(
      static_cast<QFont::Weight>(std::clamp(asked.weight == 0 ? 400 : asked.weight, 1, 1000)));
  double pixels = (asked.height == 0 ? 12 : std::abs(asked.height)) * scaleY;
  if (pixels > kMaxTextPixels || !std::isfinite(pixels)) return;
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
  if (asked.height > 0) {
    // A positive height is the cell: ascent and descent together.
    const QFontMetricsF cell(font);
    const double em = pixels * pixels / std::max(1.0, cell.ascent() + cell.descent());
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(em))));
  }
  const QFontMetricsF metrics(font);

  const bool updatePosition = dc_.textAlign & 1;
  const QPointF anchor = updatePosition ? dc_.position : text.at;
  std::vector<double> offsets;  // output pixels from the start of each character
  double width = 0;
  if (text.advances.size() >= static_cast<size_t>(text.text.size())) {
    for (qsizetype i = 0; i < text.text.size(); ++i) {
      offsets.push_back(width);
      width += text.advances[static_cast<size_t>(i)] * scaleX;
    }
  } else {
    width = metrics.horizontalAdvance(text.text);
  }
  double x = 0;
  const uint32_t horizontal = dc_.textAlign & 6, vertical = dc_.textAlign & 24;
  if (horizontal == 6) x = -width / 2;
  if (horizontal == 2) x = -width;
  const double y = vertical == 24 ? 0 : vertical == 8 ? -metrics.descent() : metrics.ascent();
  if (updatePosition) {
    const double advance = horizontal == 2 ? -width : horizontal == 6 ? 0 : width;
    dc_.position = anchor + QPointF(scaleX == 0 ? 0 : advance / scaleX, 0);
  }

  painter_.resetTransform();
  if (text.box && (text.options & 2)) {
    painter_.setTransform(toOutput);
    painter_.fillRect(text.box->normalized(), dc_.bkColor);
  }
  painter_.save();
  if (text.box && (text.options & 4)) {
    painter_.setTransform(toOutput);
    painter_.setClipRect(text.box->normalized(), Qt::IntersectClip);
  }
  const QPointF origin = toOutput.map(anchor);
  const double flip = toOutput.m22() < 0 ? -1 : 1;
  painter_.setTransform(QTransform::fromTranslate(origin.x(), origin.y()));
  painter_.rotate(-asked.escapement / 10.0 * flip);
  if (dc_.opaqueBackground && !(text.options & 2)) {
    painter_.fillRect(QRectF(x, y - metrics.ascent(), width, metrics.height()), dc_.bkColor);
  }
  painter_.setFont(font);
  painter_.setPen(dc_.textColor);
  if (offsets.empty()) {
    painter_.drawText(QPointF(x, y), text.text);
  } else {
    for (qsizetype i = 0; i < text.text.size(); ++i) {
      painter_.drawText(QPointF(x + offsets[static_cast<size_t>(i)], y), QString(text.text[i]));
    }
  }
  painter_.restore();
}

void MetafileCanvas::Blit(const QRectF& dest, const gdi::Surface* bitmap, const QRectF& source,
                          uint32_t rasterOp) {
  const auto mode = SourceMode(rasterOp);
  painter_.setTransform(LogicalToOutput());
  if (bitmap && !bitmap->Empty() && mode && source.width() != 0 && source.height() != 0) {
    const double sx = dest.width() / source.width(), sy = dest.height() / source.height();
    painter_.setTransform(
        QTransform(sx, 0, 0, sy, dest.x() - source.x() * sx, dest.y() - source.y() * sy) *
        LogicalToOutput());
    painter_.setCompositionMode(*mode);
    painter_.drawImage(source, bitmap->View(), source);
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

void MetafileCanvas::IntersectClip(const QRectF& box) {
  QPainterPath area;
  area.addRect(box.normalized());
  const QPainterPath mapped = LogicalToOutput().map(area);
  dc_.clip = dc_.clip ? dc_.clip->intersected(mapped) : mapped;
  ApplyClip();
}

void MetafileCanvas::ExcludeClip(const QRectF& box) {
  QPainterPath area;
  area.addRect(box.normalized());
  QPainterPath whole;
  whole.addRect(QRectF(0, 0, painter_.device()->width(), painter_.device()->height()));
  dc_.clip = dc_.clip.value_or(whole).subtracted(LogicalToOutput().map(area));
  ApplyClip();
}

void MetafileCanvas::SelectClip(const std::optional<QPainterPath>& deviceRegion, RegionMode mode) {
  if (!deviceRegion) {
    if (mode == RegionMode::kCopy) dc_.clip.reset();
    ApplyClip();
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
  ApplyClip();
}

void MetafileCanvas::OffsetClip(QPointF by) {
  if (!dc_.clip) return;
  const QPointF zero = LogicalToOutput().map(QPointF(0, 0));
  const QPointF moved = LogicalToOutput().map(by) - zero;
  dc_.clip->translate(moved);
  ApplyClip();
}

void MetafileCanvas::ApplyClip() {
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

void MetafileCanvas::DrawPath(bool fill, bool stroke) {
  pathOpen_ = false;
  QPainterPath path = std::exchange(path_, QPainterPath());
  if (fill) path.closeSubpath();
  Emit(path, fill, stroke);
}

void MetafileCanvas::SelectClipPath(RegionMode mode) {
  pathOpen_ = false;
  const QPainterPath path = std::exchange(path_, QPainterPath());
  SelectClip(LogicalToDevice().map(path), mode);
}

}  // namespace vellumry::codecs
