#include "platform/metafile/WmfPlayer.h"

#include <vector>

#include "platform/gdi/ByteReader.h"
#include "platform/metafile/MetafileBitmaps.h"
#include "platform/metafile/MetafileCanvas.h"
#include "platform/metafile/MetafileParams.h"
#include "platform/metafile/RecordTable.h"
#include "platform/metafile/WmfRecord.h"

namespace vellumry::metafile {

namespace {

// Slots when the header names none: the format's own limit on object indexes.
constexpr size_t kMaxObjects = 65535;

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
  WmfPlayer(const WmfFrame& frame, QPainter& painter, const DibReader& dibs)
      : canvas_(painter, QTransform(), QSizeF(1, 1)),
        objects_(frame.objectCount ? frame.objectCount : kMaxObjects),
        dibs_(dibs) {
    // The box fills the output: the file's window maps onto a viewport of the whole device.
    DcState& dc = canvas_.dc();
    dc.mapMode = 8;
    dc.windowOrg = QPointF(frame.box.left, frame.box.top);
    dc.windowExt = QSizeF(frame.box.Width(), frame.box.Height());
    dc.viewportExt = QSizeF(painter.device()->width(), painter.device()->height());
  }

  void Play(const Params& p, uint16_t function);

 private:
  using R = WmfRecord;
  // The records of one family, each played by its handler.
  using Family = void (WmfPlayer::*)(const Params&, WmfRecord);
  static Family FamilyOf(WmfRecord record);
  void State(const Params& p, WmfRecord record);
  void Clipping(const Params& p, WmfRecord record);
  void Objects(const Params& p, WmfRecord record);
  void Lines(const Params& p, WmfRecord record);
  void Shapes(const Params& p, WmfRecord record);
  void Texts(const Params& p, WmfRecord record);
  void Bitmaps(const Params& p, WmfRecord record);

  void Create(GdiObject object) { objects_.AddToFreeSlot(std::move(object)); }
  void Select(uint16_t index);
  void Text(QPointF at, std::span<const uint8_t> text, const Params& p, uint64_t advancesAt,
            uint32_t options, std::optional<QRectF> box);
  void Bitmap(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t dibAt);

  MetafileCanvas canvas_;
  ObjectTable objects_;
  const DibReader& dibs_;
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
  const auto bitmap = dibs_(p.reader(), dibAt, kAfterTable, 0);
  if (bitmap) {
    // Source rows count from the bottom of the bitmap.
    source.moveTop(bitmap->Height() - source.top() - source.height());
  }
  canvas_.Blit(dest, bitmap ? &*bitmap : nullptr, source, rop);
}

void WmfPlayer::State(const Params& p, WmfRecord record) {
  DcState& dc = canvas_.dc();
  switch (record) {
    case R::META_SAVEDC:
      return canvas_.SaveDc();
    case R::META_RESTOREDC:
      return canvas_.RestoreDc(p.S16(0));
    case R::META_SETWINDOWORG:
      dc.windowOrg = PointYX(p, 0);
      return;
    case R::META_SETWINDOWEXT:
      dc.windowExt = QSizeF(p.S16(2), p.S16(0));
      return;
    case R::META_OFFSETWINDOWORG:
      dc.windowOrg += PointYX(p, 0);
      return;
    case R::META_SCALEWINDOWEXT:  // y denominator, y numerator, x denominator, x numerator
      if (p.S16(0) != 0 && p.S16(4) != 0) {
        dc.windowExt = QSizeF(dc.windowExt.width() * p.S16(6) / p.S16(4),
                              dc.windowExt.height() * p.S16(2) / p.S16(0));
      }
      return;
    case R::META_SETBKCOLOR:
      dc.bkColor = ColorRef(p.U32(0));
      return;
    case R::META_SETBKMODE:
      dc.opaqueBackground = p.U16(0) == 2;
      return;
    case R::META_SETTEXTCOLOR:
      dc.textColor = ColorRef(p.U32(0));
      return;
    case R::META_SETTEXTALIGN:
      dc.textAlign = p.U16(0);
      return;
    case R::META_SETPOLYFILLMODE:
      dc.fillRule = p.U16(0) == 2 ? Qt::WindingFill : Qt::OddEvenFill;
      return;
    default:
      return;
  }
}

void WmfPlayer::Clipping(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_SELECTCLIPREGION: {
      const GdiObject* region = objects_.Get(p.U16(0));
      return canvas_.SelectClip(
          region ? std::optional(canvas_.LogicalToDevice().map(region->region)) : std::nullopt,
          MetafileCanvas::RegionMode::kCopy);
    }
    case R::META_INTERSECTCLIPRECT:
      return canvas_.IntersectClip(BoxBRTL(p, 0));
    case R::META_EXCLUDECLIPRECT:
      return canvas_.ExcludeClip(BoxBRTL(p, 0));
    case R::META_OFFSETCLIPRGN:
      return canvas_.OffsetClip(PointYX(p, 0));
    default:
      return;
  }
}

void WmfPlayer::Objects(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_CREATEPENINDIRECT: {
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {p.U16(0), static_cast<double>(p.S16(2)), ColorRef(p.U32(6))};
      return Create(pen);
    }
    case R::META_CREATEBRUSHINDIRECT: {
      GdiObject brush{GdiObject::Kind::kBrush};
      brush.brush = StyledBrush(p.U16(0), ColorRef(p.U32(2)), p.U16(6));
      return Create(brush);
    }
    case R::META_DIBCREATEPATTERNBRUSH: {
      GdiObject brush{GdiObject::Kind::kBrush};
      const auto pattern = dibs_(p.reader(), 4, kAfterTable, 0);
      brush.brush = pattern ? PatternBrush(*pattern) : QBrush(Qt::gray);
      return Create(brush);
    }
    case R::META_CREATEPATTERNBRUSH:  // of an old device-dependent bitmap: drawn grey
      return Create({GdiObject::Kind::kBrush, {}, QBrush(Qt::gray)});
    case R::META_CREATEFONTINDIRECT:
      return Create(Font(p));
    case R::META_CREATEPALETTE:
      return Create({GdiObject::Kind::kPalette});
    case R::META_CREATEREGION: {
      GdiObject region{GdiObject::Kind::kRegion};
      region.region = Region(p);
      return Create(region);
    }
    case R::META_SELECTOBJECT:
      return Select(p.U16(0));
    case R::META_DELETEOBJECT:
      return objects_.Delete(p.U16(0));
    default:
      return;
  }
}

void WmfPlayer::Lines(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_MOVETO:
      return canvas_.MoveTo(PointYX(p, 0));
    case R::META_LINETO:
      return canvas_.LineTo(PointYX(p, 0));
    case R::META_POLYLINE:
      return canvas_.Polyline(Points(p, 2, p.U16(0)));
    case R::META_POLYGON:
      return canvas_.Polygon(Points(p, 2, p.U16(0)));
    case R::META_POLYPOLYGON: {
      const uint16_t count = p.U16(0);
      std::vector<QPolygonF> polygons;
      uint64_t at = 2 + uint64_t{count} * 2;
      for (uint16_t i = 0; i < count && p.Has(2 + i * 2, 2); ++i) {
        const uint16_t points = p.U16(2 + i * 2);
        polygons.push_back(Points(p, at, points));
        at += uint64_t{points} * 4;
      }
      return canvas_.PolyPolygon(polygons);
    }
    default:
      return;
  }
}

void WmfPlayer::Shapes(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_RECTANGLE:
      return canvas_.Rectangle(BoxBRTL(p, 0));
    case R::META_ROUNDRECT:
      return canvas_.RoundRect(BoxBRTL(p, 4), QSizeF(p.S16(2), p.S16(0)));
    case R::META_ELLIPSE:
      return canvas_.Ellipse(BoxBRTL(p, 0));
    case R::META_ARC:
    case R::META_CHORD:
    case R::META_PIE: {
      const auto kind = record == R::META_ARC     ? MetafileCanvas::ArcKind::kArc
                        : record == R::META_CHORD ? MetafileCanvas::ArcKind::kChord
                                                  : MetafileCanvas::ArcKind::kPie;
      return canvas_.Arc(kind, BoxBRTL(p, 8), PointYX(p, 4), PointYX(p, 0));
    }
    case R::META_SETPIXEL:
      return canvas_.SetPixel(PointYX(p, 4), ColorRef(p.U32(0)));
    case R::META_FILLREGION: {
      const GdiObject* region = objects_.Get(p.U16(0));
      const GdiObject* brush = objects_.Get(p.U16(2));
      if (region && brush)
        canvas_.FillRegion(region->region, canvas_.LogicalToOutput(), brush->brush);
      return;
    }
    case R::META_PAINTREGION:
      if (const GdiObject* region = objects_.Get(p.U16(0)))
        canvas_.FillRegion(region->region, canvas_.LogicalToOutput(), canvas_.dc().brush);
      return;
    default:
      return;
  }
}

void WmfPlayer::Texts(const Params& p, WmfRecord record) {
  if (record == R::META_TEXTOUT) {
    const uint16_t length = p.U16(0);
    const uint64_t after = 2 + (uint64_t{length} + 1) / 2 * 2;
    return Text(PointYX(p, after), p.Slice(2, length), p, UINT64_MAX, 0, std::nullopt);
  }
  const uint16_t length = p.U16(4), options = p.U16(6);  // META_EXTTEXTOUT
  uint64_t at = 8;
  std::optional<QRectF> box;
  if (options & 6) {
    box = QRectF(QPointF(p.S16(8), p.S16(10)), QPointF(p.S16(12), p.S16(14)));
    at += 8;
  }
  Text(PointYX(p, 0), p.Slice(at, length), p, at + (uint64_t{length} + 1) / 2 * 2, options, box);
}

void WmfPlayer::Bitmaps(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_PATBLT:
      return canvas_.Blit(QRectF(PointYX(p, 8), QSizeF(p.S16(6), p.S16(4))), nullptr, {}, p.U32(0));
    case R::META_DIBBITBLT: {  // without a bitmap, a reserved word after the source
      const bool withBitmap = p.size() > 18;
      const uint64_t at = withBitmap ? 8 : 10;
      const QSizeF size(p.S16(at + 2), p.S16(at));
      return Bitmap(p, QRectF(PointYX(p, at + 4), size), QRectF(PointYX(p, 4), size), p.U32(0),
                    withBitmap ? 16 : UINT64_MAX);
    }
    case R::META_DIBSTRETCHBLT: {
      const bool withBitmap = p.size() > 22;
      const uint64_t at = withBitmap ? 12 : 14;
      return Bitmap(p, QRectF(PointYX(p, at + 4), QSizeF(p.S16(at + 2), p.S16(at))),
                    QRectF(PointYX(p, 8), QSizeF(p.S16(6), p.S16(4))), p.U32(0),
                    withBitmap ? 20 : UINT64_MAX);
    }
    case R::META_STRETCHDIB:
      return Bitmap(p, QRectF(PointYX(p, 18), QSizeF(p.S16(16), p.S16(14))),
                    QRectF(PointYX(p, 10), QSizeF(p.S16(8), p.S16(6))), p.U32(0), 22);
    case R::META_SETDIBTODEV: {
      const QSizeF size(p.S16(12), p.S16(10));
      return Bitmap(p, QRectF(PointYX(p, 14), size), QRectF(PointYX(p, 6), size), 0x00CC0020, 18);
    }
    default:
      return;
  }
}

// Which family plays each record: records without a drawing of their own, and those left
// unplayed, have none.
WmfPlayer::Family WmfPlayer::FamilyOf(WmfRecord record) {
  static const RecordTable<WmfRecord, Family> families = {
      {&WmfPlayer::State,
       {R::META_SAVEDC, R::META_RESTOREDC, R::META_SETWINDOWORG, R::META_SETWINDOWEXT,
        R::META_OFFSETWINDOWORG, R::META_SCALEWINDOWEXT, R::META_SETBKCOLOR, R::META_SETBKMODE,
        R::META_SETTEXTCOLOR, R::META_SETTEXTALIGN, R::META_SETPOLYFILLMODE}},
      {&WmfPlayer::Clipping,
       {R::META_SELECTCLIPREGION, R::META_INTERSECTCLIPRECT, R::META_EXCLUDECLIPRECT,
        R::META_OFFSETCLIPRGN}},
      {&WmfPlayer::Objects,
       {R::META_CREATEPENINDIRECT, R::META_CREATEBRUSHINDIRECT, R::META_DIBCREATEPATTERNBRUSH,
        R::META_CREATEPATTERNBRUSH, R::META_CREATEFONTINDIRECT, R::META_CREATEPALETTE,
        R::META_CREATEREGION, R::META_SELECTOBJECT, R::META_DELETEOBJECT}},
      {&WmfPlayer::Lines,
       {R::META_MOVETO, R::META_LINETO, R::META_POLYLINE, R::META_POLYGON, R::META_POLYPOLYGON}},
      {&WmfPlayer::Shapes,
       {R::META_RECTANGLE, R::META_ROUNDRECT, R::META_ELLIPSE, R::META_ARC, R::META_CHORD,
        R::META_PIE, R::META_SETPIXEL, R::META_FILLREGION, R::META_PAINTREGION}},
      {&WmfPlayer::Texts, {R::META_TEXTOUT, R::META_EXTTEXTOUT}},
      {&WmfPlayer::Bitmaps,
       {R::META_PATBLT, R::META_DIBBITBLT, R::META_DIBSTRETCHBLT, R::META_STRETCHDIB,
        R::META_SETDIBTODEV}},
  };
  return families.Find(record);
}

void WmfPlayer::Play(const Params& p, uint16_t function) {
  const auto record = static_cast<WmfRecord>(function);
  if (const Family family = FamilyOf(record)) (this->*family)(p, record);
}

}  // namespace

void PlayWmf(std::span<const uint8_t> bytes, const WmfFrame& frame, QPainter& painter,
             const DibReader& dibs) {
  if (frame.box.Width() == 0 || frame.box.Height() == 0) return;
  WmfPlayer player(frame, painter, dibs);
  const gdi::ByteReader in(bytes);
  uint64_t at = frame.recordsAt;
  while (const auto words = in.Le32(at)) {
    const uint64_t size = uint64_t{*words} * 2;
    const uint16_t function = in.Le16(at + 4).value_or(0);
    const bool end = function == static_cast<uint16_t>(WmfRecord::META_EOF);
    if (size < 6 || !in.Has(at, size) || end) break;
    player.Play(Params(bytes.subspan(at + 6, size - 6)), function);
    at += size;
  }
}

}  // namespace vellumry::metafile
