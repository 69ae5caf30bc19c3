#include "platform/codecs/EmfPlayer.h"

#include <cmath>
#include <vector>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/MetafileBitmaps.h"
#include "platform/codecs/MetafileCanvas.h"
#include "platform/codecs/MetafileParams.h"

namespace vellumry::codecs {

namespace {

constexpr uint32_t kEof = 14;
constexpr uint32_t kStockObject = 0x80000000;
constexpr uint64_t kRecordHead = 8;

QPointF Point32(const Params& p, uint64_t at) { return QPointF(p.S32(at), p.S32(at + 4)); }
QRectF Box32(const Params& p, uint64_t at) { return QRectF(Point32(p, at), Point32(p, at + 8)); }
QSizeF Size32(const Params& p, uint64_t at) { return QSizeF(p.S32(at), p.S32(at + 4)); }

// `count` points at `at`, of 16 or 32 bits a coordinate; none when they don't fit the record.
QPolygonF Points(const Params& p, uint64_t at, uint64_t count, bool small) {
  const uint64_t step = small ? 4 : 8;
  QPolygonF points;
  if (count > p.size() / step || !p.Has(at, count * step)) return points;
  points.reserve(static_cast<qsizetype>(count));
  for (uint64_t i = 0; i < count; ++i) {
    const uint64_t point = at + i * step;
    points << (small ? QPointF(p.S16(point), p.S16(point + 2)) : Point32(p, point));
  }
  return points;
}

// The polygons of a poly-poly record: their count, the total of points, the counts, the points.
std::vector<QPolygonF> Polygons(const Params& p, bool small) {
  const uint32_t count = p.U32(24);
  std::vector<QPolygonF> polygons;
  if (count > p.size() / 4) return polygons;
  uint64_t at = 32 + uint64_t{count} * 4;
  for (uint32_t i = 0; i < count; ++i) {
    const uint32_t points = p.U32(32 + uint64_t{i} * 4);
    polygons.push_back(Points(p, at, points, small));
    at += uint64_t{points} * (small ? 4 : 8);
  }
  return polygons;
}

// Region data: a header of 32 bytes, then its rectangles, in device pixels.
std::optional<QPainterPath> Region(const Params& p, uint64_t at, uint32_t size) {
  if (size < 32 || !p.Has(at, size)) return std::nullopt;
  QPainterPath region;
  region.setFillRule(Qt::WindingFill);
  const uint64_t count = std::min<uint64_t>(p.U32(at + 8), (size - 32) / 16);
  for (uint64_t i = 0; i < count; ++i) region.addRect(Box32(p, at + 32 + i * 16).normalized());
  return region;
}

GdiObject StockObject(uint32_t which) {
  switch (which) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4: {
      static constexpr int kGreys[] = {255, 192, 128, 64, 0};
      return {
          GdiObject::Kind::kBrush, {}, QBrush(QColor(kGreys[which], kGreys[which], kGreys[which]))};
    }
    case 5:
      return {GdiObject::Kind::kBrush, {}, QBrush(Qt::NoBrush)};
    case 6:
      return {GdiObject::Kind::kPen, {0, 0, Qt::white}};
    case 7:
      return {GdiObject::Kind::kPen, {0, 0, Qt::black}};
    case 8:
      return {GdiObject::Kind::kPen, {5, 0, Qt::black}};
    case 10:
    case 11:
    case 12:
    case 13:
    case 14:
    case 16:
    case 17: {
      GdiObject font{GdiObject::Kind::kFont};
      font.font.face = which == 10 || which == 11 || which == 16 ? QStringLiteral("Monospace")
                                                                 : QStringLiteral("Sans Serif");
      return font;
    }
    default:
      return {};
  }
}

GdiObject Font(const Params& p) {
  GdiObject object{GdiObject::Kind::kFont};
  FontSpec& font = object.font;
  font.height = p.S32(12);
  font.escapement = p.S32(20);
  font.weight = p.S32(28);
  font.italic = p.U8(32);
  font.underline = p.U8(33);
  font.strikeOut = p.U8(34);
  font.charset = p.U8(35);
  for (uint64_t i = 0; i < 32; ++i) {
    const uint16_t unit = p.U16(40 + i * 2);
    if (unit == 0) break;
    font.face += QChar(unit);
  }
  return object;
}

class EmfPlayer {
 public:
  EmfPlayer(const EmfFrame& frame, QPainter& painter, QTransform deviceToOutput, QSizeF perMm)
      : canvas_(painter, deviceToOutput, perMm), objects_(frame.handleCount) {}

  void Play(const Params& p, uint32_t type);

 private:
  void Select(uint32_t index);
  void Text(const Params& p, bool wide);
  // A bitmap of a blit record, whose header and pixels are given by offsets and sizes at `at`.
  std::optional<gdi::Surface> Bitmap(const Params& p, uint64_t at);
  void Blit(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t bitmapAt);

  MetafileCanvas canvas_;
  ObjectTable objects_;
};

void EmfPlayer::Select(uint32_t index) {
  const GdiObject stock = index & kStockObject ? StockObject(index & ~kStockObject) : GdiObject{};
  const GdiObject* object = index & kStockObject ? &stock : objects_.Get(index);
  if (object) canvas_.Select(*object);
}

void EmfPlayer::Text(const Params& p, bool wide) {
  const uint32_t length = p.U32(44), offset = p.U32(48), options = p.U32(52), advances = p.U32(72);
  MetafileCanvas::Text text{Point32(p, 36), {}, {}, options, std::nullopt};
  const QRectF box = Box32(p, 56);
  if (!box.isEmpty()) text.box = box;
  const uint64_t unit = wide ? 2 : 1;
  if (!p.Has(offset, uint64_t{length} * unit)) return;
  for (uint32_t i = 0; i < length; ++i) {
    text.text += wide ? QChar(p.U16(offset + i * 2)) : QChar(p.U8(offset + i));
  }
  if (advances && p.Has(advances, uint64_t{length} * 4)) {
    for (uint32_t i = 0; i < length; ++i) text.advances.push_back(p.S32(advances + i * 4));
  }
  canvas_.DrawText(text);
}

std::optional<gdi::Surface> EmfPlayer::Bitmap(const Params& p, uint64_t at) {
  const uint32_t headerAt = p.U32(at), headerSize = p.U32(at + 4);
  const uint32_t bitsAt = p.U32(at + 8), bitsSize = p.U32(at + 12);
  if (headerSize == 0 || bitsSize == 0) return std::nullopt;
  return RecordBitmap(p, headerAt, bitsAt, bitsSize);
}

void EmfPlayer::Blit(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t bitmapAt) {
  const auto bitmap = Bitmap(p, bitmapAt);
  if (bitmap) source.moveTop(bitmap->Height() - source.top() - source.height());
  canvas_.Blit(dest, bitmap ? &*bitmap : nullptr, source, rop);
}

void EmfPlayer::Play(const Params& p, uint32_t type) {
  DcState& dc = canvas_.dc();
  switch (type) {
    case 2:
    case 85:
      canvas_.PolyBezier(Points(p, 28, p.U32(24), type == 85), false);
      break;
    case 3:
    case 86:
      canvas_.Polygon(Points(p, 28, p.U32(24), type == 86));
      break;
    case 4:
    case 87:
      canvas_.Polyline(Points(p, 28, p.U32(24), type == 87));
      break;
    case 5:
    case 88:
      canvas_.PolyBezier(Points(p, 28, p.U32(24), type == 88), true);
      break;
    case 6:
    case 89:
      for (const QPointF point : Points(p, 28, p.U32(24), type == 89)) canvas_.LineTo(point);
      break;
    case 7:
    case 90:
      canvas_.PolyPolyline(Polygons(p, type == 90));
      break;
    case 8:
    case 91:
      canvas_.PolyPolygon(Polygons(p, type == 91));
      break;
    case 9:
      dc.windowExt = Size32(p, 8);
      break;
    case 10:
      dc.windowOrg = Point32(p, 8);
      break;
    case 11:
      dc.viewportExt = Size32(p, 8);
      break;
    case 12:
      dc.viewportOrg = Point32(p, 8);
      break;
    case 15:
      canvas_.SetPixel(Point32(p, 8), ColorRef(p.U32(16)));
      break;
    case 17:
      dc.mapMode = p.S32(8);
      break;
    case 18:
      dc.opaqueBackground = p.U32(8) == 2;
      break;
    case 19:
      dc.fillRule = p.U32(8) == 2 ? Qt::WindingFill : Qt::OddEvenFill;
      break;
    case 22:
      dc.textAlign = p.U32(8);
      break;
    case 24:
      dc.textColor = ColorRef(p.U32(8));
      break;
    case 25:
      dc.bkColor = ColorRef(p.U32(8));
      break;
    case 26:
      canvas_.OffsetClip(Point32(p, 8));
      break;
    case 27:
      canvas_.MoveTo(Point32(p, 8));
      break;
    case 29:
      canvas_.ExcludeClip(Box32(p, 8));
      break;
    case 30:
      canvas_.IntersectClip(Box32(p, 8));
      break;
    case 31:
    case 32: {  // scale an extent: x numerator, x denominator, y numerator, y denominator
      if (p.S32(12) == 0 || p.S32(20) == 0) break;
      QSizeF& extent = type == 31 ? dc.viewportExt : dc.windowExt;
      extent =
          QSizeF(extent.width() * p.S32(8) / p.S32(12), extent.height() * p.S32(16) / p.S32(20));
      break;
    }
    case 33:
      canvas_.SaveDc();
      break;
    case 34:
      canvas_.RestoreDc(p.S32(8));
      break;
    case 35:
    case 36: {
      const QTransform given(p.F32(8), p.F32(12), p.F32(16), p.F32(20), p.F32(24), p.F32(28));
      if (!given.isInvertible() || !std::isfinite(given.determinant())) break;
      const uint32_t mode = type == 35 ? 4 : p.U32(32);
      if (mode == 1) dc.world = QTransform();
      if (mode == 2) dc.world = given * dc.world;
      if (mode == 3) dc.world = dc.world * given;
      if (mode == 4) dc.world = given;
      break;
    }
    case 37:
      Select(p.U32(8));
      break;
    case 38: {
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {static_cast<int>(p.U32(12)), static_cast<double>(p.S32(16)), ColorRef(p.U32(24))};
      objects_.Put(p.U32(8), pen);
      break;
    }
    case 95: {  // a pen with its brush described in place
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {static_cast<int>(p.U32(28)), static_cast<double>(p.U32(32)), ColorRef(p.U32(40))};
      if (p.U32(36) == 1) pen.pen.style = 5;  // a hollow brush draws nothing
      objects_.Put(p.U32(8), pen);
      break;
    }
    case 39: {
      GdiObject brush{GdiObject::Kind::kBrush};
      brush.brush = StyledBrush(p.U32(12), ColorRef(p.U32(16)), p.U32(20));
      objects_.Put(p.U32(8), brush);
      break;
    }
    case 93:
    case 94: {
      GdiObject brush{GdiObject::Kind::kBrush};
      const auto pattern = RecordBitmap(p, p.U32(16), p.U32(24), p.U32(28));
      brush.brush = pattern ? PatternBrush(*pattern) : QBrush(Qt::gray);
      objects_.Put(p.U32(8), brush);
      break;
    }
    case 82:
      objects_.Put(p.U32(8), Font(p));
      break;
    case 49:
      objects_.Put(p.U32(8), {GdiObject::Kind::kPalette});
      break;
    case 40:
      objects_.Delete(p.U32(8));
      break;
    case 42:
      canvas_.Ellipse(Box32(p, 8));
      break;
    case 43:
      canvas_.Rectangle(Box32(p, 8));
      break;
    case 44:
      canvas_.RoundRect(Box32(p, 8), Size32(p, 24));
      break;
    case 45:
    case 46:
    case 47:
    case 55: {
      const auto kind = type == 45   ? MetafileCanvas::ArcKind::kArc
                        : type == 46 ? MetafileCanvas::ArcKind::kChord
                        : type == 47 ? MetafileCanvas::ArcKind::kPie
                                     : MetafileCanvas::ArcKind::kArcTo;
      canvas_.Arc(kind, Box32(p, 8), Point32(p, 24), Point32(p, 32));
      break;
    }
    case 54:
      canvas_.LineTo(Point32(p, 8));
      break;
    case 41:
      if (std::isfinite(p.F32(20)) && std::isfinite(p.F32(24))) {
        canvas_.AngleArc(Point32(p, 8), p.U32(16), p.F32(20), p.F32(24));
      }
      break;
    case 57:
      dc.clockwiseArcs = p.U32(8) == 2;
      break;
    case 59:
      canvas_.BeginPath();
      break;
    case 60:
      canvas_.EndPath();
      break;
    case 61:
      canvas_.CloseFigure();
      break;
    case 62:
      canvas_.FillPath();
      break;
    case 63:
      canvas_.StrokeAndFillPath();
      break;
    case 64:
      canvas_.StrokePath();
      break;
    case 67:
      canvas_.SelectClipPath(
          static_cast<MetafileCanvas::RegionMode>(std::clamp<uint32_t>(p.U32(8), 1, 5)));
      break;
    case 68:
      canvas_.AbortPath();
      break;
    case 71:
      if (const GdiObject* brush = objects_.Get(p.U32(28))) {
        if (auto region = Region(p, 32, p.U32(24))) {
          canvas_.FillRegion(*region, canvas_.DeviceToOutput(), brush->brush);
        }
      }
      break;
    case 74:
      if (auto region = Region(p, 28, p.U32(24))) {
        canvas_.FillRegion(*region, canvas_.DeviceToOutput(), dc.brush);
      }
      break;
    case 75:
      canvas_.SelectClip(Region(p, 16, p.U32(8)), static_cast<MetafileCanvas::RegionMode>(
                                                      std::clamp<uint32_t>(p.U32(12), 1, 5)));
      break;
    case 76:
    case 77: {
      const QRectF dest(Point32(p, 24), Size32(p, 32));
      const QSizeF source = type == 77 ? Size32(p, 100) : dest.size();
      Blit(p, dest, QRectF(Point32(p, 44), source), p.U32(40), 84);
      break;
    }
    case 80: {
      const QSizeF size = Size32(p, 40);
      Blit(p, QRectF(Point32(p, 24), size), QRectF(Point32(p, 32), size), 0x00CC0020, 48);
      break;
    }
    case 81:
      Blit(p, QRectF(Point32(p, 24), Size32(p, 72)), QRectF(Point32(p, 32), Size32(p, 40)),
           p.U32(68), 48);
      break;
    case 114: {  // alpha blend: premultiplied source pixels when its alpha format says so
      auto bitmap = Bitmap(p, 84);
      if (!bitmap) break;
      if (p.U8(43) == 1) bitmap->SetAlpha(gdi::AlphaMode::kPremultiplied);
      QRectF source(Point32(p, 44), Size32(p, 100));
      source.moveTop(bitmap->Height() - source.top() - source.height());
      canvas_.Blit(QRectF(Point32(p, 24), Size32(p, 32)), &*bitmap, source, 0x00CC0020);
      break;
    }
    case 83:
    case 84:
      Text(p, type == 84);
      break;
    default:
      break;  // comments (EMF+ among them), records without a drawing, and those left unplayed
  }
}

}  // namespace

void PlayEmf(std::span<const uint8_t> bytes, const EmfFrame& frame, QPainter& painter) {
  // Device pixels to hundredths of a millimetre to the output, through the frame; the bounds in
  // pixels when the header gives no usable frame or device size.
  const double width = painter.device()->width(), height = painter.device()->height();
  QTransform deviceToOutput;
  QSizeF perMm(96 / 25.4, 96 / 25.4);
  const bool device = frame.deviceWidth > 0 && frame.deviceHeight > 0 && frame.deviceWidthMm > 0 &&
                      frame.deviceHeightMm > 0;
  if (device) {
    perMm = QSizeF(static_cast<double>(frame.deviceWidth) / frame.deviceWidthMm,
                   static_cast<double>(frame.deviceHeight) / frame.deviceHeightMm);
  }
  if (device && frame.frame.Width() > 0 && frame.frame.Height() > 0) {
    const double sx = width / static_cast<double>(frame.frame.Width()) * 100 / perMm.width();
    const double sy = height / static_cast<double>(frame.frame.Height()) * 100 / perMm.height();
    deviceToOutput = QTransform(sx, 0, 0, sy, -frame.frame.left * width / frame.frame.Width(),
                                -frame.frame.top * height / frame.frame.Height());
  } else if (frame.bounds.Width() >= 0 && frame.bounds.Height() >= 0) {
    const double sx = width / (static_cast<double>(frame.bounds.Width()) + 1);
    const double sy = height / (static_cast<double>(frame.bounds.Height()) + 1);
    deviceToOutput = QTransform(sx, 0, 0, sy, -frame.bounds.left * sx, -frame.bounds.top * sy);
  }
  EmfPlayer player(frame, painter, deviceToOutput, perMm);
  const ByteReader in(bytes);
  uint64_t at = 0;
  while (const auto type = in.Le32(at)) {
    const uint64_t size = in.Le32(at + 4).value_or(0);
    if (size < kRecordHead || size % 4 != 0 || !in.Has(at, size) || *type == kEof) break;
    player.Play(Params(bytes.subspan(at, size)), *type);
    at += size;
  }
}

}  // namespace vellumry::codecs
