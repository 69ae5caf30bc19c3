// The EMF records that draw: lines, shapes, paths, text and bitmaps.
#include <cmath>
#include <vector>

#include "platform/metafile/EmfPlayback.h"
#include "platform/metafile/MetafileBitmaps.h"

namespace vellumry::metafile::emf {

namespace {

// `count` points at `at`, of 16 or 32 bits a coordinate; none when they don't fit the record.
QPolygonF readPoints(const Params& p, uint64_t at, uint64_t count, bool small) {
  const uint64_t step = small ? 4 : 8;
  QPolygonF points;
  if (count > p.size() / step || !p.has(at, count * step)) return points;
  points.reserve(static_cast<qsizetype>(count));
  for (uint64_t i = 0; i < count; ++i) {
    const uint64_t point = at + i * step;
    points << (small ? QPointF(p.s16(point), p.s16(point + 2)) : point32(p, point));
  }
  return points;
}

// The polygons of a poly-poly record: their count, the total of points, the counts, the points.
std::vector<QPolygonF> readPolygons(const Params& p, bool small) {
  const uint32_t count = p.u32(24);
  std::vector<QPolygonF> polygons;
  if (count > p.size() / 4) return polygons;
  uint64_t at = 32 + uint64_t{count} * 4;
  for (uint32_t i = 0; i < count; ++i) {
    const uint32_t points = p.u32(32 + uint64_t{i} * 4);
    polygons.push_back(readPoints(p, at, points, small));
    at += uint64_t{points} * (small ? 4 : 8);
  }
  return polygons;
}

}  // namespace

std::optional<QPainterPath> readRegion(const Params& p, uint64_t at, uint32_t size) {
  if (size < 32 || !p.has(at, size)) return std::nullopt;
  QPainterPath region;
  region.setFillRule(Qt::WindingFill);
  const uint64_t count = std::min<uint64_t>(p.u32(at + 8), (size - 32) / 16);
  for (uint64_t i = 0; i < count; ++i) region.addRect(box32(p, at + 32 + i * 16).normalized());
  return region;
}

void Player::Text(const Params& p, bool wide) {
  const uint32_t length = p.u32(44), offset = p.u32(48), options = p.u32(52), advances = p.u32(72);
  MetafileCanvas::Text text{point32(p, 36), {}, {}, options, std::nullopt};
  const QRectF box = box32(p, 56);
  if (!box.isEmpty()) text.box = box;
  const uint64_t unit = wide ? 2 : 1;
  if (!p.has(offset, uint64_t{length} * unit)) return;
  for (uint32_t i = 0; i < length; ++i) {
    text.text += wide ? QChar(p.u16(offset + i * 2)) : QChar(p.u8(offset + i));
  }
  if (advances && p.has(advances, uint64_t{length} * 4)) {
    for (uint32_t i = 0; i < length; ++i) text.advances.push_back(p.s32(advances + i * 4));
  }
  canvas_.DrawText(text);
}

std::optional<gdi::Surface> Player::readBitmap(const Params& p, uint64_t at) {
  const uint32_t headerAt = p.u32(at), headerSize = p.u32(at + 4);
  const uint32_t bitsAt = p.u32(at + 8), bitsSize = p.u32(at + 12);
  if (headerSize == 0 || bitsSize == 0) return std::nullopt;
  return dibs_(p.reader(), headerAt, bitsAt, bitsSize);
}

void Player::blit(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t bitmapAt) {
  const auto bitmap = readBitmap(p, bitmapAt);
  if (bitmap) source.moveTop(bitmap->Height() - source.top() - source.height());
  canvas_.blit(dest, bitmap ? &*bitmap : nullptr, source, rop);
}

void Player::lines(const Params& p, EmfRecord record) {
  // The 16-bit kinds carry the same fields with smaller points.
  const bool small = static_cast<uint32_t>(record) >= static_cast<uint32_t>(R::EMR_POLYBEZIER16);
  switch (record) {
    case R::EMR_POLYBEZIER:
    case R::EMR_POLYBEZIER16:
      return canvas_.PolyBezier(readPoints(p, 28, p.u32(24), small), false);
    case R::EMR_POLYGON:
    case R::EMR_POLYGON16:
      return canvas_.Polygon(readPoints(p, 28, p.u32(24), small));
    case R::EMR_POLYLINE:
    case R::EMR_POLYLINE16:
      return canvas_.Polyline(readPoints(p, 28, p.u32(24), small));
    case R::EMR_POLYBEZIERTO:
    case R::EMR_POLYBEZIERTO16:
      return canvas_.PolyBezier(readPoints(p, 28, p.u32(24), small), true);
    case R::EMR_POLYLINETO:
    case R::EMR_POLYLINETO16:
      for (const QPointF point : readPoints(p, 28, p.u32(24), small)) canvas_.LineTo(point);
      return;
    case R::EMR_POLYPOLYLINE:
    case R::EMR_POLYPOLYLINE16:
      return canvas_.PolyPolyline(readPolygons(p, small));
    case R::EMR_POLYPOLYGON:
    case R::EMR_POLYPOLYGON16:
      return canvas_.PolyPolygon(readPolygons(p, small));
    case R::EMR_MOVETOEX:
      return canvas_.MoveTo(point32(p, 8));
    case R::EMR_LINETO:
      return canvas_.LineTo(point32(p, 8));
    default:
      return;
  }
}

void Player::shapes(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_SETPIXELV:
      return canvas_.setPixel(point32(p, 8), colorRef(p.u32(16)));
    case R::EMR_ELLIPSE:
      return canvas_.Ellipse(box32(p, 8));
    case R::EMR_RECTANGLE:
      return canvas_.Rectangle(box32(p, 8));
    case R::EMR_ROUNDRECT:
      return canvas_.RoundRect(box32(p, 8), size32(p, 24));
    case R::EMR_ARC:
    case R::EMR_CHORD:
    case R::EMR_PIE:
    case R::EMR_ARCTO: {
      const auto kind = record == R::EMR_ARC     ? MetafileCanvas::ArcKind::kArc
                        : record == R::EMR_CHORD ? MetafileCanvas::ArcKind::kChord
                        : record == R::EMR_PIE   ? MetafileCanvas::ArcKind::kPie
                                                 : MetafileCanvas::ArcKind::kArcTo;
      return canvas_.Arc(kind, box32(p, 8), point32(p, 24), point32(p, 32));
    }
    case R::EMR_ANGLEARC:
      if (std::isfinite(p.f32(20)) && std::isfinite(p.f32(24)))
        canvas_.AngleArc(point32(p, 8), p.u32(16), p.f32(20), p.f32(24));
      return;
    case R::EMR_FILLRGN:
      if (const GdiObject* brush = objects_.get(p.u32(28))) {
        if (auto region = readRegion(p, 32, p.u32(24)))
          canvas_.FillRegion(*region, canvas_.deviceToOutput(), brush->brush);
      }
      return;
    case R::EMR_PAINTRGN:
      if (auto region = readRegion(p, 28, p.u32(24)))
        canvas_.FillRegion(*region, canvas_.deviceToOutput(), canvas_.dc().brush);
      return;
    default:
      return;
  }
}

void Player::paths(const Params& p, EmfRecord record) {
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
      return canvas_.SelectClipPath(regionMode(p.u32(8)));
    case R::EMR_ABORTPATH:
      return canvas_.AbortPath();
    default:
      return;
  }
}

void Player::texts(const Params& p, EmfRecord record) { Text(p, record == R::EMR_EXTTEXTOUTW); }

void Player::bitmaps(const Params& p, EmfRecord record) {
  switch (record) {
    case R::EMR_BITBLT:
    case R::EMR_STRETCHBLT: {
      const QRectF dest(point32(p, 24), size32(p, 32));
      const QSizeF source = record == R::EMR_STRETCHBLT ? size32(p, 100) : dest.size();
      return blit(p, dest, QRectF(point32(p, 44), source), p.u32(40), 84);
    }
    case R::EMR_SETDIBITSTODEVICE: {
      const QSizeF size = size32(p, 40);
      return blit(p, QRectF(point32(p, 24), size), QRectF(point32(p, 32), size), 0x00CC0020, 48);
    }
    case R::EMR_STRETCHDIBITS:
      return blit(p, QRectF(point32(p, 24), size32(p, 72)), QRectF(point32(p, 32), size32(p, 40)),
                  p.u32(68), 48);
    case R::EMR_ALPHABLEND: {  // premultiplied source pixels when its alpha format says so
      auto bitmap = readBitmap(p, 84);
      if (!bitmap) return;
      if (p.u8(43) == 1) bitmap->setAlpha(gdi::AlphaMode::kPremultiplied);
      QRectF source(point32(p, 44), size32(p, 100));
      source.moveTop(bitmap->Height() - source.top() - source.height());
      return canvas_.blit(QRectF(point32(p, 24), size32(p, 32)), &*bitmap, source, 0x00CC0020);
    }
    default:
      return;
  }
}

}  // namespace vellumry::metafile::emf
