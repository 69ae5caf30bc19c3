#include "platform/gdi/IconImage.h"

#include <cstdlib>

#include "platform/gdi/Blit.h"

namespace vellumry::gdi {

void DrawIcon(Surface& dst, Rect target, const IconImage& icon) {
  const Surface& colour = icon.colour;
  if (colour.Empty() || target.width <= 0 || target.height <= 0) return;
  const Rect whole{0, 0, colour.Width(), colour.Height()};
  if (icon.HasAlpha()) {
    AlphaBlend(dst, target, colour, whole);
    return;
  }
  // Masked road: sample colour and mask at the same nearest source pixel, so edges stay crisp.
  const Rect visible = Clip(target, dst.Width(), dst.Height());
  for (int y = visible.y; y < visible.y + visible.height; ++y) {
    const int sy = static_cast<int>(int64_t{y - target.y} * colour.Height() / target.height);
    uint32_t* out = dst.Row(y);
    for (int x = visible.x; x < visible.x + visible.width; ++x) {
      const int sx = static_cast<int>(int64_t{x - target.x} * colour.Width() / target.width);
      const uint32_t c = colour.Pixel(sx, sy) & 0x00FFFFFFu;
      out[x] = icon.Masked(sx, sy) ? (out[x] ^ c) : (c | 0xFF000000u);
    }
  }
}

}  // namespace vellumry::gdi
