#include "platform/gdi/IconImage.h"

#include <cstdlib>

#include "platform/gdi/Blit.h"

namespace vellumry::gdi {

IconImage scaleIcon(const IconImage& icon, Size size) {
  const Surface& colour = icon.colour;
  if (colour.empty() || size == colour.dimensions() || size.width <= 0 || size.height <= 0) {
    return icon;
  }
  IconImage scaled = icon;
  scaled.colour = Surface(size.width, size.height, colour.alpha());
  stretchHalftone(scaled.colour, {0, 0, size.width, size.height}, colour,
                  {0, 0, colour.Width(), colour.Height()});
  if (!icon.andMask.empty()) {
    scaled.andMask.assign(static_cast<size_t>(size.width) * size.height, 0);
    for (int y = 0; y < size.height; ++y) {
      const int sy = static_cast<int>(int64_t{y} * colour.Height() / size.height);
      for (int x = 0; x < size.width; ++x) {
        const int sx = static_cast<int>(int64_t{x} * colour.Width() / size.width);
        scaled.andMask[static_cast<size_t>(y) * size.width + x] = icon.masked(sx, sy) ? 1 : 0;
      }
    }
  }
  return scaled;
}

void DrawIcon(Surface& dst, Rect target, const IconImage& icon) {
  const Surface& colour = icon.colour;
  if (colour.empty() || target.width <= 0 || target.height <= 0) return;
  const Rect whole{0, 0, colour.Width(), colour.Height()};
  if (icon.hasAlpha()) {
    AlphaBlend(dst, target, colour, whole);
    return;
  }
  // Masked road: sample colour and mask at the same nearest source pixel, so edges stay crisp.
  const Rect visible = clip(target, dst.Width(), dst.Height());
  for (int y = visible.y; y < visible.y + visible.height; ++y) {
    const int sy = static_cast<int>(int64_t{y - target.y} * colour.Height() / target.height);
    uint32_t* out = dst.Row(y);
    for (int x = visible.x; x < visible.x + visible.width; ++x) {
      const int sx = static_cast<int>(int64_t{x - target.x} * colour.Width() / target.width);
      const uint32_t c = colour.pixel(sx, sy) & 0x00FFFFFFu;
      out[x] = icon.masked(sx, sy) ? (out[x] ^ c) : (c | 0xFF000000u);
    }
  }
}

}  // namespace vellumry::gdi
