#pragma once

#include <cstdint>

namespace vellumry::codecs {

// The most memory a decoded picture may take, at 4 bytes a pixel. Fuzz builds lower it so that
// each run stays fast; the checks against it are the same.
#ifdef VELLUMRY_MAX_PIXEL_BYTES
constexpr uint64_t kMaxPixelBytes = VELLUMRY_MAX_PIXEL_BYTES;
#else
constexpr uint64_t kMaxPixelBytes = uint64_t{1} << 30;
#endif

// Whether a width x height picture is non-empty and fits kMaxPixelBytes at 4 bytes a pixel.
// Computed in 64 bits, so any 32-bit header values are safe to pass.
constexpr bool fitsPixelBudget(int64_t width, int64_t height) {
  return width > 0 && height > 0 && width <= (int64_t{1} << 31) && height <= (int64_t{1} << 31) &&
         static_cast<uint64_t>(width) * static_cast<uint64_t>(height) * 4 <= kMaxPixelBytes;
}

}  // namespace vellumry::codecs
