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
QPointF pointYx(const Params& p, uint64_t at) { return QPointF(p.s16(at + 2), p.s16(at)); }
QPointF pointXy(const Params& p, uint64_t at) { return QPointF(p.s16(at), p.s16(at + 2)); }
// A box stored bottom, right, top, left.
QRectF boxBrtl(const Params& p, uint64_t at) {
  return QRectF(QPointF(p.s16(at + 6), p.s16(at + 4)), QPointF(p.s16(at + 2), p.s16(at)));
}

QPolygonF readPoints(const Params& p, uint64_t at, uint64_t count) {
  QPolygonF points;
  if (!p.has(at, count * 4)) return points;
  points.reserve(static_cast<qsizetype>(count));
  for (uint64_t i = 0; i < count; ++i) points << pointXy(p, at + i * 4);
  return points;
}

// A region record: its scans of rectangles, in logical units.
QPainterPath readRegion(const Params& p) {
  QPainterPath region;
  region.setFillRule(Qt::WindingFill);
  const uint16_t scans = p.u16(10);
  uint64_t at = 22;
  for (uint16_t scan = 0; scan < scans && p.has(at, 6); ++scan) {
    const uint16_t count = p.u16(at);
    const int16_t top = p.s16(at + 2), bottom = p.s16(at + 4);
    for (uint16_t i = 0; i + 1 < count && p.has(at + 6 + i * 2, 4); i += 2) {
      const int16_t left = p.s16(at + 6 + i * 2), right = p.s16(at + 8 + i * 2);
      region.addRect(QRectF(QPointF(left, top), QPointF(right, bottom)));
    }
    at += 6 + uint64_t{count} * 2 + 2;
  }
  return region;
}

GdiObject font(const Params& p) {
  GdiObject object{GdiObject::Kind::kFont};
  FontSpec& font = object.font;
  font.height = p.s16(0);
  font.escapement = p.s16(4);
  font.weight = p.s16(8);
  font.italic = p.u8(10);
  font.underline = p.u8(11);
  font.strikeOut = p.u8(12);
  font.charset = p.u8(13);
  const auto name = p.slice(18, std::min<uint64_t>(32, p.size() > 18 ? p.size() - 18 : 0));
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

  void play(const Params& p, uint16_t function);

 private:
  using R = WmfRecord;
  // The records of one family, each played by its handler.
  using Family = void (WmfPlayer::*)(const Params&, WmfRecord);
  static Family familyOf(WmfRecord record);
  void state(const Params& p, WmfRecord record);
  void clipping(const Params& p, WmfRecord record);
  void objects(const Params& p, WmfRecord record);
  void lines(const Params& p, WmfRecord record);
  void shapes(const Params& p, WmfRecord record);
  void texts(const Params& p, WmfRecord record);
  void bitmaps(const Params& p, WmfRecord record);

  void create(GdiObject object) { objects_.addToFreeSlot(std::move(object)); }
  void select(uint16_t index);
  void Text(QPointF at, std::span<const uint8_t> text, const Params& p, uint64_t advancesAt,
            uint32_t options, std::optional<QRectF> box);
  void drawBitmap(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t dibAt);

  MetafileCanvas canvas_;
  ObjectTable objects_;
  const DibReader& dibs_;
};

void WmfPlayer::select(uint16_t index) {
  const GdiObject* object = objects_.get(index);
  if (!object) return;
  if (object->kind == GdiObject::Kind::kRegion) {
    canvas_.SelectClip(canvas_.logicalToDevice().map(object->region),
                       MetafileCanvas::RegionMode::kCopy);
  } else {
    canvas_.select(*object);
  }
}

void WmfPlayer::Text(QPointF at, std::span<const uint8_t> text, const Params& p,
                     uint64_t advancesAt, uint32_t options, std::optional<QRectF> box) {
  MetafileCanvas::Text out{at, {}, {}, options, box};
  for (const uint8_t byte : text) out.text += QChar(byte);
  if (p.has(advancesAt, text.size() * 2)) {
    for (size_t i = 0; i < text.size(); ++i) out.advances.push_back(p.s16(advancesAt + i * 2));
  }
  canvas_.DrawText(out);
}

void WmfPlayer::drawBitmap(const Params& p, QRectF dest, QRectF source, uint32_t rop,
                           uint64_t dibAt) {
  const auto bitmap = dibs_(p.reader(), dibAt, kAfterTable, 0);
  if (bitmap) {
    // Source rows count from the bottom of the bitmap.
    source.moveTop(bitmap->Height() - source.top() - source.height());
  }
  canvas_.blit(dest, bitmap ? &*bitmap : nullptr, source, rop);
}

void WmfPlayer::state(const Params& p, WmfRecord record) {
  DcState& dc = canvas_.dc();
  switch (record) {
    case R::META_SAVEDC:
      return canvas_.SaveDc();
    case R::META_RESTOREDC:
      return canvas_.RestoreDc(p.s16(0));
    case R::META_SETWINDOWORG:
      dc.windowOrg = pointYx(p, 0);
      return;
    case R::META_SETWINDOWEXT:
      dc.windowExt = QSizeF(p.s16(2), p.s16(0));
      return;
    case R::META_OFFSETWINDOWORG:
      dc.windowOrg += pointYx(p, 0);
      return;
    case R::META_SCALEWINDOWEXT:  // y denominator, y numerator, x denominator, x numerator
      if (p.s16(0) != 0 && p.s16(4) != 0) {
        dc.windowExt = QSizeF(dc.windowExt.width() * p.s16(6) / p.s16(4),
                              dc.windowExt.height() * p.s16(2) / p.s16(0));
      }
      return;
    case R::META_SETBKCOLOR:
      dc.bkColor = colorRef(p.u32(0));
      return;
    case R::META_SETBKMODE:
      dc.opaqueBackground = p.u16(0) == 2;
      return;
    case R::META_SETTEXTCOLOR:
      dc.textColor = colorRef(p.u32(0));
      return;
    case R::META_SETTEXTALIGN:
      dc.textAlign = p.u16(0);
      return;
    case R::META_SETPOLYFILLMODE:
      dc.fillRule = p.u16(0) == 2 ? Qt::WindingFill : Qt::OddEvenFill;
      return;
    default:
      return;
  }
}

void WmfPlayer::clipping(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_SELECTCLIPREGION: {
      const GdiObject* region = objects_.get(p.u16(0));
      return canvas_.SelectClip(
          region ? std::optional(canvas_.logicalToDevice().map(region->region)) : std::nullopt,
          MetafileCanvas::RegionMode::kCopy);
    }
    case R::META_INTERSECTCLIPRECT:
      return canvas_.IntersectClip(boxBrtl(p, 0));
    case R::META_EXCLUDECLIPRECT:
      return canvas_.ExcludeClip(boxBrtl(p, 0));
    case R::META_OFFSETCLIPRGN:
      return canvas_.OffsetClip(pointYx(p, 0));
    default:
      return;
  }
}

void WmfPlayer::objects(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_CREATEPENINDIRECT: {
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {p.u16(0), static_cast<double>(p.s16(2)), colorRef(p.u32(6))};
      return create(pen);
    }
    case R::META_CREATEBRUSHINDIRECT: {
      GdiObject brush{GdiObject::Kind::kBrush};
      brush.brush = styledBrush(p.u16(0), colorRef(p.u32(2)), p.u16(6));
      return create(brush);
    }
    case R::META_DIBCREATEPATTERNBRUSH: {
      GdiObject brush{GdiObject::Kind::kBrush};
      const auto pattern = dibs_(p.reader(), 4, kAfterTable, 0);
      brush.brush = pattern ? patternBrush(*pattern) : QBrush(Qt::gray);
      return create(brush);
    }
    case R::META_CREATEPATTERNBRUSH:  // of an old device-dependent bitmap: drawn grey
      return create({GdiObject::Kind::kBrush, {}, QBrush(Qt::gray)});
    case R::META_CREATEFONTINDIRECT:
      return create(font(p));
    case R::META_CREATEPALETTE:
      return create({GdiObject::Kind::kPalette});
    case R::META_CREATEREGION: {
      GdiObject region{GdiObject::Kind::kRegion};
      region.region = readRegion(p);
      return create(region);
    }
    case R::META_SELECTOBJECT:
      return select(p.u16(0));
    case R::META_DELETEOBJECT:
      return objects_.remove(p.u16(0));
    default:
      return;
  }
}

void WmfPlayer::lines(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_MOVETO:
      return canvas_.MoveTo(pointYx(p, 0));
    case R::META_LINETO:
      return canvas_.LineTo(pointYx(p, 0));
    case R::META_POLYLINE:
      return canvas_.Polyline(readPoints(p, 2, p.u16(0)));
    case R::META_POLYGON:
      return canvas_.Polygon(readPoints(p, 2, p.u16(0)));
    case R::META_POLYPOLYGON: {
      const uint16_t count = p.u16(0);
      std::vector<QPolygonF> polygons;
      uint64_t at = 2 + uint64_t{count} * 2;
      for (uint16_t i = 0; i < count && p.has(2 + i * 2, 2); ++i) {
        const uint16_t points = p.u16(2 + i * 2);
        polygons.push_back(readPoints(p, at, points));
        at += uint64_t{points} * 4;
      }
      return canvas_.PolyPolygon(polygons);
    }
    default:
      return;
  }
}

void WmfPlayer::shapes(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_RECTANGLE:
      return canvas_.Rectangle(boxBrtl(p, 0));
    case R::META_ROUNDRECT:
      return canvas_.RoundRect(boxBrtl(p, 4), QSizeF(p.s16(2), p.s16(0)));
    case R::META_ELLIPSE:
      return canvas_.Ellipse(boxBrtl(p, 0));
    case R::META_ARC:
    case R::META_CHORD:
    case R::META_PIE: {
      const auto kind = record == R::META_ARC     ? MetafileCanvas::ArcKind::kArc
                        : record == R::META_CHORD ? MetafileCanvas::ArcKind::kChord
                                                  : MetafileCanvas::ArcKind::kPie;
      return canvas_.Arc(kind, boxBrtl(p, 8), pointYx(p, 4), pointYx(p, 0));
    }
    case R::META_SETPIXEL:
      return canvas_.setPixel(pointYx(p, 4), colorRef(p.u32(0)));
    case R::META_FILLREGION: {
      const GdiObject* region = objects_.get(p.u16(0));
      const GdiObject* brush = objects_.get(p.u16(2));
      if (region && brush)
        canvas_.FillRegion(region->region, canvas_.logicalToOutput(), brush->brush);
      return;
    }
    case R::META_PAINTREGION:
      if (const GdiObject* region = objects_.get(p.u16(0)))
        canvas_.FillRegion(region->region, canvas_.logicalToOutput(), canvas_.dc().brush);
      return;
    default:
      return;
  }
}

void WmfPlayer::texts(const Params& p, WmfRecord record) {
  if (record == R::META_TEXTOUT) {
    const uint16_t length = p.u16(0);
    const uint64_t after = 2 + (uint64_t{length} + 1) / 2 * 2;
    return Text(pointYx(p, after), p.slice(2, length), p, UINT64_MAX, 0, std::nullopt);
  }
  const uint16_t length = p.u16(4), options = p.u16(6);  // META_EXTTEXTOUT
  uint64_t at = 8;
  std::optional<QRectF> box;
  if (options & 6) {
    box = QRectF(QPointF(p.s16(8), p.s16(10)), QPointF(p.s16(12), p.s16(14)));
    at += 8;
  }
  Text(pointYx(p, 0), p.slice(at, length), p, at + (uint64_t{length} + 1) / 2 * 2, options, box);
}

void WmfPlayer::bitmaps(const Params& p, WmfRecord record) {
  switch (record) {
    case R::META_PATBLT:
      return canvas_.blit(QRectF(pointYx(p, 8), QSizeF(p.s16(6), p.s16(4))), nullptr, {}, p.u32(0));
    case R::META_DIBBITBLT: {  // without a bitmap, a reserved word after the source
      const bool withBitmap = p.size() > 18;
      const uint64_t at = withBitmap ? 8 : 10;
      const QSizeF size(p.s16(at + 2), p.s16(at));
      return drawBitmap(p, QRectF(pointYx(p, at + 4), size), QRectF(pointYx(p, 4), size), p.u32(0),
                        withBitmap ? 16 : UINT64_MAX);
    }
    case R::META_DIBSTRETCHBLT: {
      const bool withBitmap = p.size() > 22;
      const uint64_t at = withBitmap ? 12 : 14;
      return drawBitmap(p, QRectF(pointYx(p, at + 4), QSizeF(p.s16(at + 2), p.s16(at))),
                        QRectF(pointYx(p, 8), QSizeF(p.s16(6), p.s16(4))), p.u32(0),
                        withBitmap ? 20 : UINT64_MAX);
    }
    case R::META_STRETCHDIB:
      return drawBitmap(p, QRectF(pointYx(p, 18), QSizeF(p.s16(16), p.s16(14))),
                        QRectF(pointYx(p, 10), QSizeF(p.s16(8), p.s16(6))), p.u32(0), 22);
    case R::META_SETDIBTODEV: {
      const QSizeF size(p.s16(12), p.s16(10));
      return drawBitmap(p, QRectF(pointYx(p, 14), size), QRectF(pointYx(p, 6), size), 0x00CC0020,
                        18);
    }
    default:
      return;
  }
}

// Which family plays each record: records without a drawing of their own, and those left
// unplayed, have none.
WmfPlayer::Family WmfPlayer::familyOf(WmfRecord record) {
  static const RecordTable<WmfRecord, Family> families = {
      {&WmfPlayer::state,
       {R::META_SAVEDC, R::META_RESTOREDC, R::META_SETWINDOWORG, R::META_SETWINDOWEXT,
        R::META_OFFSETWINDOWORG, R::META_SCALEWINDOWEXT, R::META_SETBKCOLOR, R::META_SETBKMODE,
        R::META_SETTEXTCOLOR, R::META_SETTEXTALIGN, R::META_SETPOLYFILLMODE}},
      {&WmfPlayer::clipping,
       {R::META_SELECTCLIPREGION, R::META_INTERSECTCLIPRECT, R::META_EXCLUDECLIPRECT,
        R::META_OFFSETCLIPRGN}},
      {&WmfPlayer::objects,
       {R::META_CREATEPENINDIRECT, R::META_CREATEBRUSHINDIRECT, R::META_DIBCREATEPATTERNBRUSH,
        R::META_CREATEPATTERNBRUSH, R::META_CREATEFONTINDIRECT, R::META_CREATEPALETTE,
        R::META_CREATEREGION, R::META_SELECTOBJECT, R::META_DELETEOBJECT}},
      {&WmfPlayer::lines,
       {R::META_MOVETO, R::META_LINETO, R::META_POLYLINE, R::META_POLYGON, R::META_POLYPOLYGON}},
      {&WmfPlayer::shapes,
       {R::META_RECTANGLE, R::META_ROUNDRECT, R::META_ELLIPSE, R::META_ARC, R::META_CHORD,
        R::META_PIE, R::META_SETPIXEL, R::META_FILLREGION, R::META_PAINTREGION}},
      {&WmfPlayer::texts, {R::META_TEXTOUT, R::META_EXTTEXTOUT}},
      {&WmfPlayer::bitmaps,
       {R::META_PATBLT, R::META_DIBBITBLT, R::META_DIBSTRETCHBLT, R::META_STRETCHDIB,
        R::META_SETDIBTODEV}},
  };
  return families.find(record);
}

void WmfPlayer::play(const Params& p, uint16_t function) {
  const auto record = static_cast<WmfRecord>(function);
  if (const Family family = familyOf(record)) (this->*family)(p, record);
}

}  // namespace

void playWmf(std::span<const uint8_t> bytes, const WmfFrame& frame, QPainter& painter,
             const DibReader& dibs) {
  if (frame.box.Width() == 0 || frame.box.Height() == 0) return;
  WmfPlayer player(frame, painter, dibs);
  const gdi::ByteReader in(bytes);
  uint64_t at = frame.recordsAt;
  while (const auto words = in.le32(at)) {
    const uint64_t size = uint64_t{*words} * 2;
    const uint16_t function = in.le16(at + 4).value_or(0);
    const bool end = function == static_cast<uint16_t>(WmfRecord::META_EOF);
    if (size < 6 || !in.has(at, size) || end) break;
    player.play(Params(bytes.subspan(at + 6, size - 6)), function);
    at += size;
  }
}

}  // namespace vellumry::metafile
