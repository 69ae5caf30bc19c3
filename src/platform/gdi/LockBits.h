#pragma once

#include <cstdint>
#include <vector>

#include "platform/gdi/Surface.h"

namespace vellumry::gdi {

// Pixel layouts that pixels can be read out in ("locked").
enum class LockFormat {
  kBgr24,                // B, G, R; rows padded to 4 bytes; alpha dropped (straight colours)
  kBgra32Straight,       // B, G, R, A, colour not scaled by alpha
  kBgra32Premultiplied,  // B, G, R, A, colour scaled by alpha
};

// A converted copy of a surface's pixels, top-down.
struct LockedPixels {
  LockFormat format = LockFormat::kBgra32Straight;
  int width = 0;
  int height = 0;
  int stride = 0;  // bytes from one row to the next
  std::vector<uint8_t> bytes;
};

// Converts `src` into `format`. Opaque and unknown-alpha pixels count as alpha 255.
LockedPixels lockBits(const Surface& src, LockFormat format);

// `src` with its pixels in the alpha mode `to`, converted in place (pass a surface that is no
// longer needed to spare the copy). kOpaque and kUnknown sources count as alpha 255 on the way to
// straight or premultiplied; converting to kOpaque or kUnknown keeps the bytes as they are and only
// changes the mode.
Surface convertAlpha(Surface src, AlphaMode to);

// Single-pixel conversions with rounding to nearest.
uint32_t premultiply(uint32_t argb);
uint32_t unpremultiply(uint32_t argb);

}  // namespace vellumry::gdi
