#include "platform/gdi/LockBits.h"

#include <algorithm>

namespace vellumry::gdi {

namespace {

bool HasAlpha(AlphaMode mode) {
  return mode == AlphaMode::kStraight || mode == AlphaMode::kPremultiplied;
}

// A pixel of `src` in straight form, with alpha 255 where the source has none.
uint32_t StraightPixel(uint32_t p, AlphaMode mode) {
  switch (mode) {
    case AlphaMode::kOpaque:
    case AlphaMode::kUnknown:
      return p | 0xFF000000u;
    case AlphaMode::kPremultiplied:
      return Unpremultiply(p);
    case AlphaMode::kStraight:
      break;
  }
  return p;
}

}  // namespace

uint32_t Premultiply(uint32_t p) {
  const uint32_t a = AlphaOf(p);
  // Most pixels of most pictures are wholly opaque or wholly clear.
  if (a == 255) return p;
  if (a == 0) return 0;
  auto scale = [a](uint32_t c) { return (c * a + 127) / 255; };
  return Argb(a, scale(RedOf(p)), scale(GreenOf(p)), scale(BlueOf(p)));
}

uint32_t Unpremultiply(uint32_t p) {
  const uint32_t a = AlphaOf(p);
  if (a == 0) return 0;
  auto scale = [a](uint32_t c) { return std::min<uint32_t>(255, (c * 255 + a / 2) / a); };
  return Argb(a, scale(RedOf(p)), scale(GreenOf(p)), scale(BlueOf(p)));
}

Surface ConvertAlpha(Surface src, AlphaMode to) {
  const AlphaMode from = src.Alpha();
  src.SetAlpha(to);
  if (from == to || !HasAlpha(to)) return src;
  for (uint32_t& p : src.Pixels()) {
    p = StraightPixel(p, from);
    if (to == AlphaMode::kPremultiplied) p = Premultiply(p);
  }
  return src;
}

LockedPixels LockBits(const Surface& src, LockFormat format) {
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
      uint32_t p = StraightPixel(in[x], src.Alpha());
      if (format == LockFormat::kBgra32Premultiplied) p = Premultiply(p);
      uint8_t* o = row + x * (rgb ? 3 : 4);
      o[0] = BlueOf(p);
      o[1] = GreenOf(p);
      o[2] = RedOf(p);
      if (!rgb) o[3] = AlphaOf(p);
    }
  }
  return out;
}

}  // namespace vellumry::gdi
