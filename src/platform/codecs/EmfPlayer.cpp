#include "platform/codecs/EmfPlayer.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/MetafileBitmaps.h"
#include "platform/codecs/MetafileCanvas.h"
#include "platform/codecs/EmfRecord.h"
#include "platform/codecs/MetafileParams.h"
#include "platform/codecs/RecordTable.h"

namespace vellumry::codecs {

namespace {

constexpr uint32_t kStockObject = 0x80000000;
constexpr uint64_t kRecordHead = 8;

QPointF Point32(const Params& p, uint64_t at) { return QPointF(p.S32(at), p.S32(at + 4)); }
QRectF Box32(const Params& p, uint64_t at) { return QRectF(Point32(p, at), Point32(p, at + 8)); }
QSizeF Size32(const Params& p, uint64_t at) { return QSizeF(p.S32(at), p.S32(at + 4)); }
// A region mode as stored, kept to the five there are.
MetafileCanvas::RegionMode RegionMode(uint32_t stored) {
  return static_cast<MetafileCanvas::RegionMode>(std::clamp<uint32_t>(stored, 1, 5));
}

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
  using R = EmfRecord;
  // The records of one family, each played by its handler.
  using Family = void (EmfPlayer::*)(const Params&, EmfRecord);
  static Family FamilyOf(EmfRecord record);
  void Lines(const Params& p, EmfRecord record);
  void State(const Params& p, EmfRecord record);
  void Transform(const Params& p, EmfRecord record);
  void Clipping(const Params& p, EmfRecord record);
  void Objects(const Params& p, EmfRecord record);
  void Shapes(const Params& p, EmfRecord record);
  void Paths(const Params& p, EmfRecord record);
  void Texts(const Params& p, EmfRecord record);
  void Bitmaps(const Params& p, EmfRecord record);

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

void EmfPlayer::Lines(const Params& p, EmfRecord record) {
  // The 16-bit kinds carry the same fields with smaller points.
  const bool small = static_cast<uint32_t>(record) >= static_cast<uint32_t>(R::EMR_POLYBEZIER16);
  switch (record) {
    case R::EMR_POLYBEZIER:
    case R::EMR_POLYBEZIER16:
      return canvas_.PolyBezier(Points(p, 28, p.U32(24), small), false);
    case R::EMR_POLYGON:
    case R::EMR_POLYGON16:
      return canvas_.Polygon(Points(p, 28, p.U32(24), small));
    case R::EMR_POLYLINE:
    case R::EMR_POLYLINE16:
      return canvas_.Polyline(Points(p, 28, p.U32(24), small));
    case R::EMR_POLYBEZIERTO:
    case R::EMR_POLYBEZIERTO16:
      return canvas_.PolyBezier(Points(p, 28, p.U32(24), small), true);
    case R::EMR_POLYLINETO:
    case R::EMR_POLYLINETO16:
      for (const QPointF point : Points(p, 28, p.U32(24), small)) canvas_.LineTo(point);
      return;
    case R::EMR_POLYPOLYLINE:
    case R::EMR_POLYPOLYLINE16:
      return canvas_.PolyPolyline(Polygons(p, small));
    case R::EMR_POLYPOLYGON:
    case R::EMR_POLYPOLYGON16:
      return canvas_.PolyPolygon(Polygons(p, small));
    case R::EMR_MOVETOEX:
      return canvas_.MoveTo(Point32(p, 8));
    case R::EMR_LINETO:
      return canvas_.LineTo(Point32(p, 8));
    default:
      return;
  }
}

void EmfPlayer::State(const Params& p, EmfRecord record) {
  DcState& dc = canvas_.dc();
  switch (record) {
    case R::EMR_SETWINDOWEXTEX:
      dc.windowExt = Size32(p, 8);
      return;
    case R::EMR_SETWINDOWORGEX:
      dc.windowOrg = Point32(p, 8);
      return;
    case R::EMR_SETVIEWPORTEXTEX:
      dc.viewportExt = Size32(p, 8);
      return;
    case R::EMR_SETVIEWPORTORGEX:
      dc.viewportOrg = Point32(p, 8);
      return;
    case R::EMR_SETMAPMODE:
      dc.mapMode = p.S32(8);
      return;
    case R::EMR_SETBKMODE:
      dc.opaqueBackground = p.U32(8) == 2;
      return;
    case R::EMR_SETPOLYFILLMODE:
      dc.fillRule = p.U32(8) == 2 ? Qt::WindingFill : Qt::OddEvenFill;
      return;
    case R::EMR_SETTEXTALIGN:
      dc.textAlign = p.U32(8);
      return;
    case R::EMR_SETTEXTCOLOR:
      dc.textColor = ColorRef(p.U32(8));
      return;
    case R::EMR_SETBKCOLOR:
      dc.bkColor = ColorRef(p.U32(8));
      return;
    case R::EMR_SETARCDIRECTION:
      dc.clockwiseArcs = p.U32(8) == 2;
      return;
    case R::EMR_SAVEDC:
      return canvas_.SaveDc();
    case R::EMR_RESTOREDC:
      return canvas_.RestoreDc(p.S32(8));
    default:
      return;
  }
}

void EmfPlayer::Transform(const Params& p, EmfRecord record) {
  DcState& dc = canvas_.dc();
  if (record == R::EMR_SCALEVIEWPORTEXTEX || record == R::EMR_SCALEWINDOWEXTEX) {
    // x numerator, x denominator, y numerator, y denominator
    if (p.S32(12) == 0 || p.S32(20) == 0) return;
    QSizeF& extent = record == R::EMR_SCALEVIEWPORTEXTEX ? dc.viewportExt : dc.windowExt;
    extent = QSizeF(extent.width() * p.S32(8) / p.S32(12), extent.height() * p.S32(16) / p.S32(20));
    return;
  }
  const QTransform given(p.F32(8), p.F32(12), p.F32(16), p.F32(20), p.F32(24), p.F32(28));
  if (!given.isInvertible() || !std::isfinite(given.determinant())) return;
  const uint32_t mode = record == R::EMR_SETWORLDTRANSFORM ? 4 : p.U32(32);
  if (mode == 1) dc.world = QTransform();
  if (mode == 2) dc.world = given * dc.world;
  if (mode == 3) dc.world = dc.world * given;
  if (mode == 4) dc.world = given;
}

void EmfPlayer::Clipping(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_OFFSETCLIPRGN:
      return canvas_.OffsetClip(Point32(p, 8));
    case R::EMR_EXCLUDECLIPRECT:
      return canvas_.ExcludeClip(Box32(p, 8));
    case R::EMR_INTERSECTCLIPRECT:
      return canvas_.IntersectClip(Box32(p, 8));
    case R::EMR_EXTSELECTCLIPRGN:
      return canvas_.SelectClip(Region(p, 16, p.U32(8)), RegionMode(p.U32(12)));
    default:
      return;
  }
}

void EmfPlayer::Objects(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_SELECTOBJECT:
      return Select(p.U32(8));
    case R::EMR_CREATEPEN: {
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {static_cast<int>(p.U32(12)), static_cast<double>(p.S32(16)), ColorRef(p.U32(24))};
      objects_.Put(p.U32(8), pen);
      return;
    }
    case R::EMR_EXTCREATEPEN: {  // a pen with its brush described in place
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {static_cast<int>(p.U32(28)), static_cast<double>(p.U32(32)), ColorRef(p.U32(40))};
      if (p.U32(36) == 1) pen.pen.style = 5;  // a hollow brush draws nothing
      objects_.Put(p.U32(8), pen);
      return;
    }
    case R::EMR_CREATEBRUSHINDIRECT: {
      GdiObject brush{GdiObject::Kind::kBrush};
      brush.brush = StyledBrush(p.U32(12), ColorRef(p.U32(16)), p.U32(20));
      objects_.Put(p.U32(8), brush);
      return;
    }
    case R::EMR_CREATEMONOBRUSH:
    case R::EMR_CREATEDIBPATTERNBRUSHPT: {
      GdiObject brush{GdiObject::Kind::kBrush};
      const auto pattern = RecordBitmap(p, p.U32(16), p.U32(24), p.U32(28));
      brush.brush = pattern ? PatternBrush(*pattern) : QBrush(Qt::gray);
      objects_.Put(p.U32(8), brush);
      return;
    }
    case R::EMR_EXTCREATEFONTINDIRECTW:
      objects_.Put(p.U32(8), Font(p));
      return;
    case R::EMR_CREATEPALETTE:
      objects_.Put(p.U32(8), {GdiObject::Kind::kPalette});
      return;
    case R::EMR_DELETEOBJECT:
      return objects_.Delete(p.U32(8));
    default:
      return;
  }
}

void EmfPlayer::Shapes(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_SETPIXELV:
      return canvas_.SetPixel(Point32(p, 8), ColorRef(p.U32(16)));
    case R::EMR_ELLIPSE:
      return canvas_.Ellipse(Box32(p, 8));
    case R::EMR_RECTANGLE:
      return canvas_.Rectangle(Box32(p, 8));
    case R::EMR_ROUNDRECT:
      return canvas_.RoundRect(Box32(p, 8), Size32(p, 24));
    case R::EMR_ARC:
    case R::EMR_CHORD:
    case R::EMR_PIE:
    case R::EMR_ARCTO: {
      const auto kind = record == R::EMR_ARC     ? MetafileCanvas::ArcKind::kArc
                        : record == R::EMR_CHORD ? MetafileCanvas::ArcKind::kChord
                        : record == R::EMR_PIE   ? MetafileCanvas::ArcKind::kPie
                                                 : MetafileCanvas::ArcKind::kArcTo;
      return canvas_.Arc(kind, Box32(p, 8), Point32(p, 24), Point32(p, 32));
    }
    case R::EMR_ANGLEARC:
      if (std::isfinite(p.F32(20)) && std::isfinite(p.F32(24)))
        canvas_.AngleArc(Point32(p, 8), p.U32(16), p.F32(20), p.F32(24));
      return;
    case R::EMR_FILLRGN:
      if (const GdiObject* brush = objects_.Get(p.U32(28))) {
        if (auto region = Region(p, 32, p.U32(24)))
          canvas_.FillRegion(*region, canvas_.DeviceToOutput(), brush->brush);
      }
      return;
    case R::EMR_PAINTRGN:
      if (auto region = Region(p, 28, p.U32(24)))
        canvas_.FillRegion(*region, canvas_.DeviceToOutput(), canvas_.dc().brush);
      return;
    default:
      return;
  }
}

void EmfPlayer::Paths(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_BEGINPATH:
      return canvas_.BeginPath();
    case R::EMR_ENDPATH:
      return canvas_.EndPath();
    case R::EMR_CLOSEFIGURE:
      return canvas_.CloseFigure();
    case R::EMR_FILLPATH:
      return canvas_.FillPath();
    case R::EMR_STROKEANDFILLPATH:
      return canvas_.StrokeAndFillPath();
    case R::EMR_STROKEPATH:
      return canvas_.StrokePath();
    case R::EMR_SELECTCLIPPATH:
      return canvas_.SelectClipPath(RegionMode(p.U32(8)));
    case R::EMR_ABORTPATH:
      return canvas_.AbortPath();
    default:
      return;
  }
}

void EmfPlayer::Texts(const Params& p, EmfRecord record) {
  Text(p, record == R::EMR_EXTTEXTOUTW);
}

void EmfPlayer::Bitmaps(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_BITBLT:
    case R::EMR_STRETCHBLT: {
      const QRectF dest(Point32(p, 24), Size32(p, 32));
      const QSizeF source = record == R::EMR_STRETCHBLT ? Size32(p, 100) : dest.size();
      return Blit(p, dest, QRectF(Point32(p, 44), source), p.U32(40), 84);
    }
    case R::EMR_SETDIBITSTODEVICE: {
      const QSizeF size = Size32(p, 40);
      return Blit(p, QRectF(Point32(p, 24), size), QRectF(Point32(p, 32), size), 0x00CC0020, 48);
    }
    case R::EMR_STRETCHDIBITS:
      return Blit(p, QRectF(Point32(p, 24), Size32(p, 72)), QRectF(Point32(p, 32), Size32(p, 40)),
                  p.U32(68), 48);
    case R::EMR_ALPHABLEND: {  // premultiplied source pixels when its alpha format says so
      auto bitmap = Bitmap(p, 84);
      if (!bitmap) return;
      if (p.U8(43) == 1) bitmap->SetAlpha(gdi::AlphaMode::kPremultiplied);
      QRectF source(Point32(p, 44), Size32(p, 100));
      source.moveTop(bitmap->Height() - source.top() - source.height());
      return canvas_.Blit(QRectF(Point32(p, 24), Size32(p, 32)), &*bitmap, source, 0x00CC0020);
    }
    default:
      return;
  }
}

// Which family plays each record: comments (EMF+ among them), records without a drawing of their
// own, and those left unplayed have none.
EmfPlayer::Family EmfPlayer::FamilyOf(EmfRecord record) {
  static const RecordTable<EmfRecord, Family> families = {
      {&EmfPlayer::Lines,
       {R::EMR_POLYBEZIER, R::EMR_POLYGON, R::EMR_POLYLINE, R::EMR_POLYBEZIERTO,
        R::EMR_POLYLINETO, R::EMR_POLYPOLYLINE, R::EMR_POLYPOLYGON, R::EMR_MOVETOEX, R::EMR_LINETO,
        R::EMR_POLYBEZIER16, R::EMR_POLYGON16, R::EMR_POLYLINE16, R::EMR_POLYBEZIERTO16,
        R::EMR_POLYLINETO16, R::EMR_POLYPOLYLINE16, R::EMR_POLYPOLYGON16}},
      {&EmfPlayer::State,
       {R::EMR_SETWINDOWEXTEX, R::EMR_SETWINDOWORGEX, R::EMR_SETVIEWPORTEXTEX,
        R::EMR_SETVIEWPORTORGEX, R::EMR_SETMAPMODE, R::EMR_SETBKMODE, R::EMR_SETPOLYFILLMODE,
        R::EMR_SETTEXTALIGN, R::EMR_SETTEXTCOLOR, R::EMR_SETBKCOLOR, R::EMR_SETARCDIRECTION,
        R::EMR_SAVEDC, R::EMR_RESTOREDC}},
      {&EmfPlayer::Transform,
       {R::EMR_SCALEVIEWPORTEXTEX, R::EMR_SCALEWINDOWEXTEX, R::EMR_SETWORLDTRANSFORM,
        R::EMR_MODIFYWORLDTRANSFORM}},
      {&EmfPlayer::Clipping,
       {R::EMR_OFFSETCLIPRGN, R::EMR_EXCLUDECLIPRECT, R::EMR_INTERSECTCLIPRECT,
        R::EMR_EXTSELECTCLIPRGN}},
      {&EmfPlayer::Objects,
       {R::EMR_SELECTOBJECT, R::EMR_CREATEPEN, R::EMR_EXTCREATEPEN, R::EMR_CREATEBRUSHINDIRECT,
        R::EMR_CREATEMONOBRUSH, R::EMR_CREATEDIBPATTERNBRUSHPT, R::EMR_EXTCREATEFONTINDIRECTW,
        R::EMR_CREATEPALETTE, R::EMR_DELETEOBJECT}},
      {&EmfPlayer::Shapes,
       {R::EMR_SETPIXELV, R::EMR_ELLIPSE, R::EMR_RECTANGLE, R::EMR_ROUNDRECT, R::EMR_ARC,
        R::EMR_CHORD, R::EMR_PIE, R::EMR_ARCTO, R::EMR_ANGLEARC, R::EMR_FILLRGN, R::EMR_PAINTRGN}},
      {&EmfPlayer::Paths,
       {R::EMR_BEGINPATH, R::EMR_ENDPATH, R::EMR_CLOSEFIGURE, R::EMR_FILLPATH,
        R::EMR_STROKEANDFILLPATH, R::EMR_STROKEPATH, R::EMR_SELECTCLIPPATH, R::EMR_ABORTPATH}},
      {&EmfPlayer::Texts, {R::EMR_EXTTEXTOUTA, R::EMR_EXTTEXTOUTW}},
      {&EmfPlayer::Bitmaps,
       {R::EMR_BITBLT, R::EMR_STRETCHBLT, R::EMR_SETDIBITSTODEVICE, R::EMR_STRETCHDIBITS,
        R::EMR_ALPHABLEND}},
  };
  return families.Find(record);
}

void EmfPlayer::Play(const Params& p, uint32_t type) {
  const auto record = static_cast<EmfRecord>(type);
  if (const Family family = FamilyOf(record)) (this->*family)(p, record);
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
    if (size < kRecordHead || size % 4 != 0 || !in.Has(at, size) || *type == static_cast<uint32_t>(EmfRecord::EMR_EOF)) break;
    player.Play(Params(bytes.subspan(at, size)), *type);
    at += size;
  }
}

}  // namespace vellumry::codecs
