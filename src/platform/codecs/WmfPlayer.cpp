#include "platform/codecs/WmfPlayer.h"

#include <vector>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/MetafileBitmaps.h"
#include "platform/codecs/MetafileCanvas.h"
#include "platform/codecs/MetafileParams.h"

namespace vellumry::codecs {

namespace {

// Slots when the header names none: the format's own limit on object indexes.
constexpr size_t kMaxObjects = 65535;
constexpr uint16_t kEof = 0x0000;

// The records' parameters are words; points come y first in most of them.
QPointF PointYX(const Params& p, uint64_t at) { return QPointF(p.S16(at + 2), p.S16(at)); }
QPointF PointXY(const Params& p, uint64_t at) { return QPointF(p.S16(at), p.S16(at + 2)); }
// A box stored bottom, right, top, left.
QRectF BoxBRTL(const Params& p, uint64_t at) {
  return QRectF(QPointF(p.S16(at + 6), p.S16(at + 4)), QPointF(p.S16(at + 2), p.S16(at)));
}

QPolygonF Points(const Params& p, uint64_t at, uint64_t count) {
  QPolygonF points;
  if (!p.Has(at, count * 4)) return points;
  points.reserve(static_cast<qsizetype>(count));
  for (uint64_t i = 0; i < count; ++i) points << PointXY(p, at + i * 4);
  return points;
}

// A region record: its scans of rectangles, in logical units.
QPainterPath Region(const Params& p) {
  QPainterPath region;
  region.setFillRule(Qt::WindingFill);
  const uint16_t scans = p.U16(10);
  uint64_t at = 22;
  for (uint16_t scan = 0; scan < scans && p.Has(at, 6); ++scan) {
    const uint16_t count = p.U16(at);
    const int16_t top = p.S16(at + 2), bottom = p.S16(at + 4);
    for (uint16_t i = 0; i + 1 < count && p.Has(at + 6 + i * 2, 4); i += 2) {
      const int16_t left = p.S16(at + 6 + i * 2), right = p.S16(at + 8 + i * 2);
      region.addRect(QRectF(QPointF(left, top), QPointF(right, bottom)));
    }
    at += 6 + uint64_t{count} * 2 + 2;
  }
  return region;
}

GdiObject Font(const Params& p) {
  GdiObject object{GdiObject::Kind::kFont};
  FontSpec& font = object.font;
  font.height = p.S16(0);
  font.escapement = p.S16(4);
  font.weight = p.S16(8);
  font.italic = p.U8(10);
  font.underline = p.U8(11);
  font.strikeOut = p.U8(12);
  font.charset = p.U8(13);
  const auto name = p.Slice(18, std::min<uint64_t>(32, p.size() > 18 ? p.size() - 18 : 0));
  QByteArray face(reinterpret_cast<const char*>(name.data()), static_cast<qsizetype>(name.size()));
  if (const auto end = face.indexOf('\0'); end >= 0) face.truncate(end);
  font.face = QString::fromLatin1(face);
  return object;
}

class WmfPlayer {
 public:
  WmfPlayer(const WmfFrame& frame, QPainter& painter)
      : canvas_(painter, QTransform(), QSizeF(1, 1)),
        objects_(frame.objectCount ? frame.objectCount : kMaxObjects) {
    // The box fills the output: the file's window maps onto a viewport of the whole device.
    DcState& dc = canvas_.dc();
    dc.mapMode = 8;
    dc.windowOrg = QPointF(frame.box.left, frame.box.top);
    dc.windowExt = QSizeF(frame.box.Width(), frame.box.Height());
    dc.viewportExt = QSizeF(painter.device()->width(), painter.device()->height());
  }

  void Play(const Params& p, uint16_t function);

 private:
  void Create(GdiObject object) { objects_.AddToFreeSlot(std::move(object)); }
  void Select(uint16_t index);
  void Text(QPointF at, std::span<const uint8_t> text, const Params& p, uint64_t advancesAt,
            uint32_t options, std::optional<QRectF> box);
  void Bitmap(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t dibAt);

  MetafileCanvas canvas_;
  ObjectTable objects_;
};

void WmfPlayer::Select(uint16_t index) {
  const GdiObject* object = objects_.Get(index);
  if (!object) return;
  if (object->kind == GdiObject::Kind::kRegion) {
    canvas_.SelectClip(canvas_.LogicalToDevice().map(object->region),
                       MetafileCanvas::RegionMode::kCopy);
  } else {
    canvas_.Select(*object);
  }
}

void WmfPlayer::Text(QPointF at, std::span<const uint8_t> text, const Params& p,
                     uint64_t advancesAt, uint32_t options, std::optional<QRectF> box) {
  MetafileCanvas::Text out{at, {}, {}, options, box};
  for (const uint8_t byte : text) out.text += QChar(byte);
  if (p.Has(advancesAt, text.size() * 2)) {
    for (size_t i = 0; i < text.size(); ++i) out.advances.push_back(p.S16(advancesAt + i * 2));
  }
  canvas_.DrawText(out);
}

void WmfPlayer::Bitmap(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t dibAt) {
  const auto bitmap = PackedBitmap(p, dibAt);
  if (bitmap) {
    // Source rows count from the bottom of the bitmap.
    source.moveTop(bitmap->Height() - source.top() - source.height());
  }
  canvas_.Blit(dest, bitmap ? &*bitmap : nullptr, source, rop);
}

void WmfPlayer::Play(const Params& p, uint16_t function) {
  DcState& dc = canvas_.dc();
  switch (function) {
    case 0x001E:
      canvas_.SaveDc();
      break;
    case 0x0127:
      canvas_.RestoreDc(p.S16(0));
      break;
    case 0x020B:
      dc.windowOrg = PointYX(p, 0);
      break;
    case 0x020C:
      dc.windowExt = QSizeF(p.S16(2), p.S16(0));
      break;
    case 0x020F:
      dc.windowOrg += PointYX(p, 0);
      break;
    case 0x0410:  // scale window extent: y denominator, y numerator, x denominator, x numerator
      if (p.S16(0) != 0 && p.S16(4) != 0) {
        dc.windowExt = QSizeF(dc.windowExt.width() * p.S16(6) / p.S16(4),
                              dc.windowExt.height() * p.S16(2) / p.S16(0));
      }
      break;
    case 0x0201:
      dc.bkColor = ColorRef(p.U32(0));
      break;
    case 0x0102:
      dc.opaqueBackground = p.U16(0) == 2;
      break;
    case 0x0209:
      dc.textColor = ColorRef(p.U32(0));
      break;
    case 0x012E:
      dc.textAlign = p.U16(0);
      break;
    case 0x0106:
      dc.fillRule = p.U16(0) == 2 ? Qt::WindingFill : Qt::OddEvenFill;
      break;
    case 0x02FA: {
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {p.U16(0), static_cast<double>(p.S16(2)), ColorRef(p.U32(6))};
      Create(pen);
      break;
    }
    case 0x02FC: {
      GdiObject brush{GdiObject::Kind::kBrush};
      brush.brush = StyledBrush(p.U16(0), ColorRef(p.U32(2)), p.U16(6));
      Create(brush);
      break;
    }
    case 0x0142: {  // a brush of a packed bitmap
      GdiObject brush{GdiObject::Kind::kBrush};
      const auto pattern = PackedBitmap(p, 4);
      brush.brush = pattern ? PatternBrush(*pattern) : QBrush(Qt::gray);
      Create(brush);
      break;
    }
    case 0x01F9:  // a brush of an old device-dependent bitmap: drawn grey
      Create({GdiObject::Kind::kBrush, {}, QBrush(Qt::gray)});
      break;
    case 0x02FB:
      Create(Font(p));
      break;
    case 0x00F7:
      Create({GdiObject::Kind::kPalette});
      break;
    case 0x06FF: {
      GdiObject region{GdiObject::Kind::kRegion};
      region.region = Region(p);
      Create(region);
      break;
    }
    case 0x012D:
      Select(p.U16(0));
      break;
    case 0x01F0:
      objects_.Delete(p.U16(0));
      break;
    case 0x012C: {
      const GdiObject* region = objects_.Get(p.U16(0));
      canvas_.SelectClip(
          region ? std::optional(canvas_.LogicalToDevice().map(region->region)) : std::nullopt,
          MetafileCanvas::RegionMode::kCopy);
      break;
    }
    case 0x0416:
      canvas_.IntersectClip(BoxBRTL(p, 0));
      break;
    case 0x0415:
      canvas_.ExcludeClip(BoxBRTL(p, 0));
      break;
    case 0x0220:
      canvas_.OffsetClip(PointYX(p, 0));
      break;
    case 0x0214:
      canvas_.MoveTo(PointYX(p, 0));
      break;
    case 0x0213:
      canvas_.LineTo(PointYX(p, 0));
      break;
    case 0x0325:
      canvas_.Polyline(Points(p, 2, p.U16(0)));
      break;
    case 0x0324:
      canvas_.Polygon(Points(p, 2, p.U16(0)));
      break;
    case 0x0538: {
      const uint16_t count = p.U16(0);
      std::vector<QPolygonF> polygons;
      uint64_t at = 2 + uint64_t{count} * 2;
      for (uint16_t i = 0; i < count && p.Has(2 + i * 2, 2); ++i) {
        const uint16_t points = p.U16(2 + i * 2);
        polygons.push_back(Points(p, at, points));
        at += uint64_t{points} * 4;
      }
      canvas_.PolyPolygon(polygons);
      break;
    }
    case 0x041B:
      canvas_.Rectangle(BoxBRTL(p, 0));
      break;
    case 0x061C:
      canvas_.RoundRect(BoxBRTL(p, 4), QSizeF(p.S16(2), p.S16(0)));
      break;
    case 0x0418:
      canvas_.Ellipse(BoxBRTL(p, 0));
      break;
    case 0x0817:
    case 0x0830:
    case 0x081A: {
      const auto kind = function == 0x0817   ? MetafileCanvas::ArcKind::kArc
                        : function == 0x0830 ? MetafileCanvas::ArcKind::kChord
                                             : MetafileCanvas::ArcKind::kPie;
      canvas_.Arc(kind, BoxBRTL(p, 8), PointYX(p, 4), PointYX(p, 0));
      break;
    }
    case 0x041F:
      canvas_.SetPixel(PointYX(p, 4), ColorRef(p.U32(0)));
      break;
    case 0x0228: {
      const GdiObject* region = objects_.Get(p.U16(0));
      const GdiObject* brush = objects_.Get(p.U16(2));
      if (region && brush)
        canvas_.FillRegion(region->region, canvas_.LogicalToOutput(), brush->brush);
      break;
    }
    case 0x012B:
      if (const GdiObject* region = objects_.Get(p.U16(0))) {
        canvas_.FillRegion(region->region, canvas_.LogicalToOutput(), dc.brush);
      }
      break;
    case 0x0521: {
      const uint16_t length = p.U16(0);
      const uint64_t after = 2 + (uint64_t{length} + 1) / 2 * 2;
      Text(PointYX(p, after), p.Slice(2, length), p, UINT64_MAX, 0, std::nullopt);
      break;
    }
    case 0x0A32: {
      const uint16_t length = p.U16(4), options = p.U16(6);
      uint64_t at = 8;
      std::optional<QRectF> box;
      if (options & 6) {
        box = QRectF(QPointF(p.S16(8), p.S16(10)), QPointF(p.S16(12), p.S16(14)));
        at += 8;
      }
      Text(PointYX(p, 0), p.Slice(at, length), p, at + (uint64_t{length} + 1) / 2 * 2, options,
           box);
      break;
    }
    case 0x061D:
      canvas_.Blit(QRectF(PointYX(p, 8), QSizeF(p.S16(6), p.S16(4))), nullptr, {}, p.U32(0));
      break;
    case 0x0940: {  // bit block transfer: without a bitmap, a reserved word after the source
      const bool withBitmap = p.size() > 18;
      const uint64_t at = withBitmap ? 8 : 10;
      const QSizeF size(p.S16(at + 2), p.S16(at));
      Bitmap(p, QRectF(PointYX(p, at + 4), size), QRectF(PointYX(p, 4), size), p.U32(0),
             withBitmap ? 16 : UINT64_MAX);
      break;
    }
    case 0x0B41: {
      const bool withBitmap = p.size() > 22;
      const uint64_t at = withBitmap ? 12 : 14;
      Bitmap(p, QRectF(PointYX(p, at + 4), QSizeF(p.S16(at + 2), p.S16(at))),
             QRectF(PointYX(p, 8), QSizeF(p.S16(6), p.S16(4))), p.U32(0),
             withBitmap ? 20 : UINT64_MAX);
      break;
    }
    case 0x0F43:
      Bitmap(p, QRectF(PointYX(p, 18), QSizeF(p.S16(16), p.S16(14))),
             QRectF(PointYX(p, 10), QSizeF(p.S16(8), p.S16(6))), p.U32(0), 22);
      break;
    case 0x0D33: {
      const QSizeF size(p.S16(12), p.S16(10));
      Bitmap(p, QRectF(PointYX(p, 14), size), QRectF(PointYX(p, 6), size), 0x00CC0020, 18);
      break;
    }
    default:
      break;  // records without a drawing of their own, and those left unplayed
  }
}

}  // namespace

void PlayWmf(std::span<const uint8_t> bytes, const WmfFrame& frame, QPainter& painter) {
  if (frame.box.Width() == 0 || frame.box.Height() == 0) return;
  WmfPlayer player(frame, painter);
  const ByteReader in(bytes);
  uint64_t at = frame.recordsAt;
  while (const auto words = in.Le32(at)) {
    const uint64_t size = uint64_t{*words} * 2;
    const uint16_t function = in.Le16(at + 4).value_or(kEof);
    if (size < 6 || !in.Has(at, size) || function == kEof) break;
    player.Play(Params(bytes.subspan(at + 6, size - 6)), function);
    at += size;
  }
}

}  // namespace vellumry::codecs
