// The EMF records that draw: lines, shapes, paths, text and bitmaps.
#include <cmath>
#include <vector>

#include "platform/metafile/EmfPlayback.h"
#include "platform/metafile/MetafileBitmaps.h"

namespace vellumry::metafile::emf {

namespace {

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

}  // namespace

std::optional<QPainterPath> Region(const Params& p, uint64_t at, uint32_t size) {
  if (size < 32 || !p.Has(at, size)) return std::nullopt;
  QPainterPath region;
  region.setFillRule(Qt::WindingFill);
  const uint64_t count = std::min<uint64_t>(p.U32(at + 8), (size - 32) / 16);
  for (uint64_t i = 0; i < count; ++i) region.addRect(Box32(p, at + 32 + i * 16).normalized());
  return region;
}

void Player::Text(const Params& p, bool wide) {
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

std::optional<gdi::Surface> Player::Bitmap(const Params& p, uint64_t at) {
  const uint32_t headerAt = p.U32(at), headerSize = p.U32(at + 4);
  const uint32_t bitsAt = p.U32(at + 8), bitsSize = p.U32(at + 12);
  if (headerSize == 0 || bitsSize == 0) return std::nullopt;
  return dibs_(p.reader(), headerAt, bitsAt, bitsSize);
}

void Player::Blit(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t bitmapAt) {
  const auto bitmap = Bitmap(p, bitmapAt);
  if (bitmap) source.moveTop(bitmap->Height() - source.top() - source.height());
  canvas_.Blit(dest, bitmap ? &*bitmap : nullptr, source, rop);
}

void Player::Lines(const Params& p, EmfRecord record) {
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

void Player::Shapes(const Params& p, EmfRecord record) {
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

void Player::Paths(const Params& p, EmfRecord record) {
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

void Player::Texts(const Params& p, EmfRecord record) { Text(p, record == R::EMR_EXTTEXTOUTW); }

void Player::Bitmaps(const Params& p, EmfRecord record) {
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

}  // namespace vellumry::metafile::emf
