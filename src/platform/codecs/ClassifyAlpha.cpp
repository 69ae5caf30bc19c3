#include "platform/codecs/ClassifyAlpha.h"

#include <algorithm>

namespace vellumry::codecs {

namespace {

// What the scan has seen so far.
constexpr uint32_t kSeenTransparentColour = 0x1;  // alpha 0 over a colour
constexpr uint32_t kSeenOpaque = 0x2;
constexpr uint32_t kSeenPartial = 0x10;  // alpha 1 to 254, colour within it
constexpr uint32_t kSeenZero = 0x100;    // the pixel 0

}  // namespace

bool hasAlphaChannel(uint32_t pixelFormat) {
  switch (pixelFormat) {
    case kPixelFormat16bppARGB1555:
    case kPixelFormat32bppPARGB:
    case kPixelFormat64bppPARGB:
    case kPixelFormat32bppARGB:
    case kPixelFormat64bppARGB:
      return true;
    default:
      return false;
  }
}

uint32_t ClassifyAlpha(std::span<const uint32_t> Pixels, int Width, int Height) {
  const uint64_t wanted = Width > 0 && Height > 0 ? uint64_t(Width) * uint64_t(Height) : 0;
  AlphaClassifier classifier;
  classifier.add(Pixels.first(std::min<uint64_t>(wanted, Pixels.size())));
  return classifier.result();
}

void AlphaClassifier::add(std::span<const uint32_t> pixels) {
  if (straight_ || pixels.empty()) return;
  // Runs of one value are looked at once; the start differs from the first pixel.
  if (!any_) last_ = pixels[0] ^ 1u;
  any_ = true;
  for (const uint32_t pixel : pixels) {
    if (pixel == last_) continue;
    last_ = pixel;
    const uint32_t alpha = pixel >> 24;
    if (pixel == 0) {
      seen_ |= kSeenZero;
    } else if (alpha == 0) {
      if ((seen_ & ~kSeenZero) > 2) straight_ = true;
      seen_ |= kSeenTransparentColour;
    } else if (alpha == 255) {
      if (seen_ & kSeenTransparentColour) straight_ = true;
      seen_ |= kSeenOpaque;
    } else {
      // No premultiplied pixel has a channel above its alpha.
      const uint32_t blue = pixel & 0xFF, green = (pixel >> 8) & 0xFF, red = (pixel >> 16) & 0xFF;
      if (blue > alpha || green > alpha || red > alpha) straight_ = true;
      seen_ |= kSeenPartial;
    }
    if (straight_) return;
  }
}

uint32_t AlphaClassifier::result() const {
  if (straight_) return kPixelFormat32bppARGB;
  if (seen_ == (kSeenZero | kSeenOpaque)) return kAlphaOnlyZeroHoles;
  if (seen_ & kSeenPartial) return kPixelFormat32bppPARGB;
  return 0;
}

}  // namespace vellumry::codecs
