#include "platform/gdi/LockBits.h"

#include <algorithm>

namespace vellumry::gdi {

namespace {

bool hasAlpha(AlphaMode mode) {
  return mode == AlphaMode::kStraight || mode == AlphaMode::kPremultiplied;
}

// A pixel of `src` in straight form, with alpha 255 where the source has none.
uint32_t straightPixel(uint32_t p, AlphaMode mode) {
  switch (mode) {
    case AlphaMode::kOpaque:
    case AlphaMode::kUnknown:
      return p | 0xFF000000u;
    case AlphaMode::kPremultiplied:
      return unpremultiply(p);
    case AlphaMode::kStraight:
      break;
  }
  return p;
}

}  // namespace

uint32_t premultiply(uint32_t p) {
  const uint32_t a = alphaOf(p);
  // Most pixels of most pictures are wholly opaque or wholly clear.
  if (a == 255) return p;
  if (a == 0) return 0;
  auto scale = [a](uint32_t c) { return (c * a + 127) / 255; };
  return argb(a, scale(redOf(p)), scale(greenOf(p)), scale(blueOf(p)));
}

uint32_t unpremultiply(uint32_t p) {
  const uint32_t a = alphaOf(p);
  if (a == 0) return 0;
  auto scale = [a](uint32_t c) { return std::min<uint32_t>(255, (c * 255 + a / 2) / a); };
  return argb(a, scale(redOf(p)), scale(greenOf(p)), scale(blueOf(p)));
}

Surface convertAlpha(Surface src, AlphaMode to) {
  const AlphaMode from = src.alpha();
  src.setAlpha(to);
  if (from == to || !hasAlpha(to)) return src;
  for (uint32_t& p : src.Pixels()) {
    p = straightPixel(p, from);
    if (to == AlphaMode::kPremultiplied) p = premultiply(p);
  }
  return src;
}

LockedPixels lockBits(const Surface& src, LockFormat format) {
  LockedPixels out;
  out.format = format;
  out.width = src.Width();
  out.height = src.Height();
  const bool rgb = format == LockFormat::kBgr24;
  out.stride = rgb ? (src.Width() * 3 + 3) & ~3 : src.Width() * 4;
  out.bytes.assign(static_cast<size_t>(out.stride) * out.height, 0);
  for (int y = 0; y < src.Height(); ++y) {
    const uint32_t* in = src.Row(y);
    uint8_t* row = out.bytes.data() + static_cast<size_t>(y) * out.stride;
    for (int x = 0; x < src.Width(); ++x) {
      uint32_t p = straightPixel(in[x], src.alpha());
      if (format == LockFormat::kBgra32Premultiplied) p = premultiply(p);
      uint8_t* o = row + x * (rgb ? 3 : 4);
      o[0] = blueOf(p);
      o[1] = greenOf(p);
      o[2] = redOf(p);
      if (!rgb) o[3] = alphaOf(p);
    }
  }
  return out;
}

}  // namespace vellumry::gdi
