// The EMF records that keep state: the device context, the transforms, clipping and objects;
// which family plays each record; and the walk over a file's records.
#include "platform/metafile/EmfPlayer.h"

#include <cmath>

#include "platform/gdi/ByteReader.h"
#include "platform/metafile/EmfPlayback.h"
#include "platform/metafile/MetafileBitmaps.h"
#include "platform/metafile/RecordTable.h"

namespace vellumry::metafile {

namespace emf {

namespace {

constexpr uint32_t kStockObject = 0x80000000;

GdiObject stockObject(uint32_t which) {
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

GdiObject font(const Params& p) {
  GdiObject object{GdiObject::Kind::kFont};
  FontSpec& font = object.font;
  font.height = p.s32(12);
  font.escapement = p.s32(20);
  font.weight = p.s32(28);
  font.italic = p.u8(32);
  font.underline = p.u8(33);
  font.strikeOut = p.u8(34);
  font.charset = p.u8(35);
  for (uint64_t i = 0; i < 32; ++i) {
    const uint16_t unit = p.u16(40 + i * 2);
    if (unit == 0) break;
    font.face += QChar(unit);
  }
  return object;
}

}  // namespace

void Player::select(uint32_t index) {
  const GdiObject stock = index & kStockObject ? stockObject(index & ~kStockObject) : GdiObject{};
  const GdiObject* object = index & kStockObject ? &stock : objects_.get(index);
  if (object) canvas_.select(*object);
}

void Player::state(const Params& p, EmfRecord record) {
  DcState& dc = canvas_.dc();
  switch (record) {
    case R::EMR_SETWINDOWEXTEX:
      dc.windowExt = size32(p, 8);
      return;
    case R::EMR_SETWINDOWORGEX:
      dc.windowOrg = point32(p, 8);
      return;
    case R::EMR_SETVIEWPORTEXTEX:
      dc.viewportExt = size32(p, 8);
      return;
    case R::EMR_SETVIEWPORTORGEX:
      dc.viewportOrg = point32(p, 8);
      return;
    case R::EMR_SETMAPMODE:
      dc.mapMode = p.s32(8);
      return;
    case R::EMR_SETBKMODE:
      dc.opaqueBackground = p.u32(8) == 2;
      return;
    case R::EMR_SETPOLYFILLMODE:
      dc.fillRule = p.u32(8) == 2 ? Qt::WindingFill : Qt::OddEvenFill;
      return;
    case R::EMR_SETTEXTALIGN:
      dc.textAlign = p.u32(8);
      return;
    case R::EMR_SETTEXTCOLOR:
      dc.textColor = colorRef(p.u32(8));
      return;
    case R::EMR_SETBKCOLOR:
      dc.bkColor = colorRef(p.u32(8));
      return;
    case R::EMR_SETARCDIRECTION:
      dc.clockwiseArcs = p.u32(8) == 2;
      return;
    case R::EMR_SAVEDC:
      return canvas_.SaveDc();
    case R::EMR_RESTOREDC:
      return canvas_.RestoreDc(p.s32(8));
    default:
      return;
  }
}

void Player::transform(const Params& p, EmfRecord record) {
  DcState& dc = canvas_.dc();
  if (record == R::EMR_SCALEVIEWPORTEXTEX || record == R::EMR_SCALEWINDOWEXTEX) {
    // x numerator, x denominator, y numerator, y denominator
    if (p.s32(12) == 0 || p.s32(20) == 0) return;
    QSizeF& extent = record == R::EMR_SCALEVIEWPORTEXTEX ? dc.viewportExt : dc.windowExt;
    extent = QSizeF(extent.width() * p.s32(8) / p.s32(12), extent.height() * p.s32(16) / p.s32(20));
    return;
  }
  const QTransform given(p.f32(8), p.f32(12), p.f32(16), p.f32(20), p.f32(24), p.f32(28));
  if (!given.isInvertible() || !std::isfinite(given.determinant())) return;
  const uint32_t mode = record == R::EMR_SETWORLDTRANSFORM ? 4 : p.u32(32);
  if (mode == 1) dc.world = QTransform();
  if (mode == 2) dc.world = given * dc.world;
  if (mode == 3) dc.world = dc.world * given;
  if (mode == 4) dc.world = given;
}

void Player::clipping(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_OFFSETCLIPRGN:
      return canvas_.OffsetClip(point32(p, 8));
    case R::EMR_EXCLUDECLIPRECT:
      return canvas_.ExcludeClip(box32(p, 8));
    case R::EMR_INTERSECTCLIPRECT:
      return canvas_.IntersectClip(box32(p, 8));
    case R::EMR_EXTSELECTCLIPRGN:
      return canvas_.SelectClip(readRegion(p, 16, p.u32(8)), regionMode(p.u32(12)));
    default:
      return;
  }
}

void Player::objects(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_SELECTOBJECT:
      return select(p.u32(8));
    case R::EMR_CREATEPEN: {
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {static_cast<int>(p.u32(12)), static_cast<double>(p.s32(16)), colorRef(p.u32(24))};
      objects_.put(p.u32(8), pen);
      return;
    }
    case R::EMR_EXTCREATEPEN: {  // a pen with its brush described in place
      GdiObject pen{GdiObject::Kind::kPen};
      pen.pen = {static_cast<int>(p.u32(28)), static_cast<double>(p.u32(32)), colorRef(p.u32(40))};
      if (p.u32(36) == 1) pen.pen.style = 5;  // a hollow brush draws nothing
      objects_.put(p.u32(8), pen);
      return;
    }
    case R::EMR_CREATEBRUSHINDIRECT: {
      GdiObject brush{GdiObject::Kind::kBrush};
      brush.brush = styledBrush(p.u32(12), colorRef(p.u32(16)), p.u32(20));
      objects_.put(p.u32(8), brush);
      return;
    }
    case R::EMR_CREATEMONOBRUSH:
    case R::EMR_CREATEDIBPATTERNBRUSHPT: {
      GdiObject brush{GdiObject::Kind::kBrush};
      const auto pattern = dibs_(p.reader(), p.u32(16), p.u32(24), p.u32(28));
      brush.brush = pattern ? patternBrush(*pattern) : QBrush(Qt::gray);
      objects_.put(p.u32(8), brush);
      return;
    }
    case R::EMR_EXTCREATEFONTINDIRECTW:
      objects_.put(p.u32(8), font(p));
      return;
    case R::EMR_CREATEPALETTE:
      objects_.put(p.u32(8), {GdiObject::Kind::kPalette});
      return;
    case R::EMR_DELETEOBJECT:
      return objects_.remove(p.u32(8));
    default:
      return;
  }
}

// Which family plays each record: comments (EMF+ among them), records without a drawing of their
// own, and those left unplayed have none.
Player::Family Player::familyOf(EmfRecord record) {
  static const RecordTable<EmfRecord, Family> families = {
      {&Player::lines,
       {R::EMR_POLYBEZIER, R::EMR_POLYGON, R::EMR_POLYLINE, R::EMR_POLYBEZIERTO, R::EMR_POLYLINETO,
        R::EMR_POLYPOLYLINE, R::EMR_POLYPOLYGON, R::EMR_MOVETOEX, R::EMR_LINETO,
        R::EMR_POLYBEZIER16, R::EMR_POLYGON16, R::EMR_POLYLINE16, R::EMR_POLYBEZIERTO16,
        R::EMR_POLYLINETO16, R::EMR_POLYPOLYLINE16, R::EMR_POLYPOLYGON16}},
      {&Player::state,
       {R::EMR_SETWINDOWEXTEX, R::EMR_SETWINDOWORGEX, R::EMR_SETVIEWPORTEXTEX,
        R::EMR_SETVIEWPORTORGEX, R::EMR_SETMAPMODE, R::EMR_SETBKMODE, R::EMR_SETPOLYFILLMODE,
        R::EMR_SETTEXTALIGN, R::EMR_SETTEXTCOLOR, R::EMR_SETBKCOLOR, R::EMR_SETARCDIRECTION,
        R::EMR_SAVEDC, R::EMR_RESTOREDC}},
      {&Player::transform,
       {R::EMR_SCALEVIEWPORTEXTEX, R::EMR_SCALEWINDOWEXTEX, R::EMR_SETWORLDTRANSFORM,
        R::EMR_MODIFYWORLDTRANSFORM}},
      {&Player::clipping,
       {R::EMR_OFFSETCLIPRGN, R::EMR_EXCLUDECLIPRECT, R::EMR_INTERSECTCLIPRECT,
        R::EMR_EXTSELECTCLIPRGN}},
      {&Player::objects,
       {R::EMR_SELECTOBJECT, R::EMR_CREATEPEN, R::EMR_EXTCREATEPEN, R::EMR_CREATEBRUSHINDIRECT,
        R::EMR_CREATEMONOBRUSH, R::EMR_CREATEDIBPATTERNBRUSHPT, R::EMR_EXTCREATEFONTINDIRECTW,
        R::EMR_CREATEPALETTE, R::EMR_DELETEOBJECT}},
      {&Player::shapes,
       {R::EMR_SETPIXELV, R::EMR_ELLIPSE, R::EMR_RECTANGLE, R::EMR_ROUNDRECT, R::EMR_ARC,
        R::EMR_CHORD, R::EMR_PIE, R::EMR_ARCTO, R::EMR_ANGLEARC, R::EMR_FILLRGN, R::EMR_PAINTRGN}},
      {&Player::paths,
       {R::EMR_BEGINPATH, R::EMR_ENDPATH, R::EMR_CLOSEFIGURE, R::EMR_FILLPATH,
        R::EMR_STROKEANDFILLPATH, R::EMR_STROKEPATH, R::EMR_SELECTCLIPPATH, R::EMR_ABORTPATH}},
      {&Player::texts, {R::EMR_EXTTEXTOUTA, R::EMR_EXTTEXTOUTW}},
      {&Player::bitmaps,
       {R::EMR_BITBLT, R::EMR_STRETCHBLT, R::EMR_SETDIBITSTODEVICE, R::EMR_STRETCHDIBITS,
        R::EMR_ALPHABLEND}},
  };
  return families.find(record);
}

void Player::play(const Params& p, uint32_t type) {
  const auto record = static_cast<EmfRecord>(type);
  if (const Family family = familyOf(record)) (this->*family)(p, record);
}

}  // namespace emf

namespace {
constexpr uint64_t kRecordHead = 8;
}  // namespace

void playEmf(std::span<const uint8_t> bytes, const EmfFrame& frame, QPainter& painter,
             const DibReader& dibs) {
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
    // In doubles: the header's corners may be the smallest 32-bit numbers, with no negative.
    const double left = frame.frame.left, top = frame.frame.top;
    deviceToOutput = QTransform(sx, 0, 0, sy, -left * width / frame.frame.Width(),
                                -top * height / frame.frame.Height());
  } else if (frame.bounds.Width() >= 0 && frame.bounds.Height() >= 0) {
    const double sx = width / (static_cast<double>(frame.bounds.Width()) + 1);
    const double sy = height / (static_cast<double>(frame.bounds.Height()) + 1);
    const double left = frame.bounds.left, top = frame.bounds.top;
    deviceToOutput = QTransform(sx, 0, 0, sy, -left * sx, -top * sy);
  }
  emf::Player player(frame, painter, deviceToOutput, perMm, dibs);
  const gdi::ByteReader in(bytes);
  uint64_t at = 0;
  while (const auto type = in.le32(at)) {
    const uint64_t size = in.le32(at + 4).value_or(0);
    const bool end = *type == static_cast<uint32_t>(EmfRecord::EMR_EOF);
    if (size < kRecordHead || size % 4 != 0 || !in.has(at, size) || end) break;
    player.play(Params(bytes.subspan(at, size)), *type);
    at += size;
  }
}

}  // namespace vellumry::metafile
