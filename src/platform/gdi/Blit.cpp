#include "platform/gdi/Blit.h"

#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <type_traits>
#include <vector>

#include "platform/gdi/LockBits.h"

namespace vellumry::gdi {

namespace {

template <typename Pixel>
void combine(Pixel* out, const Pixel* in, int count, RasterOp op) {
  for (int i = 0; i < count; ++i) {
    switch (op) {
      case RasterOp::kCopy:
        out[i] = in[i];
        break;
      case RasterOp::kAnd:
        out[i] &= in[i];
        break;
      case RasterOp::kOr:
        out[i] |= in[i];
        break;
    }
  }
}

// Clips a copy of `source` from a srcW x srcH area to (dx, dy) in a dstW x dstH area. Returns the
// source rectangle left and moves dx, dy along with it.
Rect clipCopy(Rect source, int srcW, int srcH, int& dx, int& dy, int dstW, int dstH) {
  Rect s = clip(source, srcW, srcH);
  dx += s.x - source.x;
  dy += s.y - source.y;
  const Rect d = clip({dx, dy, s.width, s.height}, dstW, dstH);
  s = {s.x + (d.x - dx), s.y + (d.y - dy), d.width, d.height};
  dx = d.x;
  dy = d.y;
  return s;
}

template <typename SurfaceT>
void blitAny(SurfaceT& dst, int dx, int dy, const SurfaceT& src, Rect source, RasterOp op) {
  const Rect s = clipCopy(source, src.Width(), src.Height(), dx, dy, dst.Width(), dst.Height());
  if (s.width == 0) return;
  // Copying a surface onto itself with overlap must read rows before they are written.
  const bool upwards = &dst == &src && dy > s.y;
  for (int i = 0; i < s.height; ++i) {
    const int row = upwards ? s.height - 1 - i : i;
    auto* out = dst.Row(dy + row) + dx;
    const auto* in = src.Row(s.y + row) + s.x;
    if (&dst == &src) {
      // The source row may overlap the row being written: work from a copy of it.
      const std::vector<std::remove_cvref_t<decltype(*in)>> copy(in, in + s.width);
      combine(out, copy.data(), s.width, op);
    } else {
      combine(out, in, s.width, op);
    }
  }
}

template <typename SurfaceT, typename Value>
void fillAny(SurfaceT& dst, Rect area, Value value) {
  const Rect r = clip(area, dst.Width(), dst.Height());
  for (int y = r.y; y < r.y + r.height; ++y) std::fill_n(dst.Row(y) + r.x, r.width, value);
}

// The part of `src` named by `source` as its own image, mirrored where a width or height of
// either rectangle is negative, scaled to |target| with the given mode.
QImage prepared(const Surface& src, Rect source, Rect target, Qt::TransformationMode mode) {
  const bool mirrorX = (source.width < 0) != (target.width < 0);
  const bool mirrorY = (source.height < 0) != (target.height < 0);
  Rect s = source;
  if (s.width < 0) s = {s.x + s.width, s.y, -s.width, s.height};
  if (s.height < 0) s = {s.x, s.y + s.height, s.width, -s.height};
  const bool whole = s.x == 0 && s.y == 0 && s.width == src.Width() && s.height == src.Height();
  QImage part = whole ? src.view() : src.view().copy(s.x, s.y, s.width, s.height);
  if (mirrorX || mirrorY) part = part.mirrored(mirrorX, mirrorY);
  return part.scaled(std::abs(target.width), std::abs(target.height), Qt::IgnoreAspectRatio, mode);
}

Rect normalised(Rect r) {
  if (r.width < 0) r = {r.x + r.width, r.y, -r.width, r.height};
  if (r.height < 0) r = {r.x, r.y + r.height, r.width, -r.height};
  return r;
}

void Stretch(Surface& dst, Rect target, const Surface& src, Rect source,
             Qt::TransformationMode mode) {
  if (dst.empty() || src.empty() || target.width == 0 || target.height == 0 || source.width == 0 ||
      source.height == 0) {
    return;
  }
  const QImage scaled = prepared(src, source, target, mode);
  const Rect t = normalised(target);
  QImage canvas = dst.view();
  QPainter painter(&canvas);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.drawImage(t.x, t.y, scaled);
}

}  // namespace

void blit(Surface& dst, int dx, int dy, const Surface& src, Rect source, RasterOp op) {
  blitAny(dst, dx, dy, src, source, op);
}

void blit(IndexedSurface& dst, int dx, int dy, const IndexedSurface& src, Rect source,
          RasterOp op) {
  blitAny(dst, dx, dy, src, source, op);
}

void fill(Surface& dst, Rect area, uint32_t argb) { fillAny(dst, area, argb); }

void fill(IndexedSurface& dst, Rect area, uint8_t index) { fillAny(dst, area, index); }

void stretchHalftone(Surface& dst, Rect target, const Surface& src, Rect source, RasterOp op) {
  if (op == RasterOp::kCopy) return Stretch(dst, target, src, source, Qt::SmoothTransformation);
  if (dst.empty() || src.empty() || target.width == 0 || target.height == 0 || source.width == 0 ||
      source.height == 0) {
    return;
  }
  // Combined straight from the scaled image, in `dst`'s format, without a surface in between.
  const QImage scaled =
      prepared(src, source, target, Qt::SmoothTransformation).convertToFormat(dst.view().format());
  const Rect t = normalised(target);
  int dx = t.x, dy = t.y;
  const Rect s =
      clipCopy({0, 0, t.width, t.height}, t.width, t.height, dx, dy, dst.Width(), dst.Height());
  for (int y = 0; y < s.height; ++y) {
    const auto* in = reinterpret_cast<const uint32_t*>(scaled.constScanLine(s.y + y)) + s.x;
    combine(dst.Row(dy + y) + dx, in, s.width, op);
  }
}

void stretchNearest(Surface& dst, Rect target, const Surface& src, Rect source) {
  Stretch(dst, target, src, source, Qt::FastTransformation);
}

void AlphaBlend(Surface& dst, Rect target, const Surface& src, Rect source, uint8_t constantAlpha) {
  if (dst.empty() || src.empty() || target.width == 0 || target.height == 0 || source.width == 0 ||
      source.height == 0) {
    return;
  }
  Surface scaled(std::abs(target.width), std::abs(target.height), AlphaMode::kPremultiplied);
  const Surface premultiplied = convertAlpha(src, AlphaMode::kPremultiplied);
  stretchHalftone(scaled, {0, 0, scaled.Width(), scaled.Height()}, premultiplied, source);

  const Rect t = normalised(target);
  const Rect visible = clip(t, dst.Width(), dst.Height());
  for (int y = visible.y; y < visible.y + visible.height; ++y) {
    const uint32_t* in = scaled.Row(y - t.y) + (visible.x - t.x);
    uint32_t* out = dst.Row(y) + visible.x;
    for (int x = 0; x < visible.width; ++x) {
      const uint32_t s = in[x];
      const uint32_t d = out[x];
      const uint32_t sa = (alphaOf(s) * constantAlpha + 127) / 255;
      auto channel = [&](int shift) {
        const uint32_t sc = (((s >> shift) & 0xFF) * constantAlpha + 127) / 255;
        const uint32_t dc = (d >> shift) & 0xFF;
        return std::min<uint32_t>(255, sc + (dc * (255 - sa) + 127) / 255) << shift;
      };
      out[x] = channel(24) | channel(16) | channel(8) | channel(0);
    }
  }
}

}  // namespace vellumry::gdi
