#include "picture/FittedDecoder.h"

#include <algorithm>
#include <cmath>

#include "platform/gdi/Blit.h"

namespace vellumry {

namespace {

// `size` of a natural-size picture, in the pixels of an `inner`-size one, rounded up.
gdi::Size rescale(gdi::Size size, gdi::Size natural, gdi::Size inner) {
  const auto scale = [](int value, int from, int to) {
    return static_cast<int>(std::ceil(static_cast<double>(value) * to / from - 1e-9));
  };
  return {scale(size.width, natural.width, inner.width),
          scale(size.height, natural.height, inner.height)};
}

uint32_t opaquePixel(uint32_t color) {
  return gdi::argb(255, color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

}  // namespace

FittedDecoder::FittedDecoder(std::unique_ptr<gdi::ScaledDecoder> inner, gdi::Size natural,
                             std::optional<uint32_t> background)
    : inner_(std::move(inner)), natural_(natural), background_(background) {}

gdi::Size FittedDecoder::nativeSizeFor(gdi::Size wanted) const {
  if (wanted.width <= 0 || wanted.height <= 0) return natural_;
  return {std::min(wanted.width, natural_.width), std::min(wanted.height, natural_.height)};
}

std::optional<gdi::Surface> FittedDecoder::decode(gdi::Size native) const {
  const gdi::Size inner = inner_->naturalSize();
  std::optional<gdi::Surface> decoded =
      inner_->decode(inner_->nativeSizeFor(rescale(native, natural_, inner)));
  if (!decoded || decoded->empty()) return std::nullopt;
  const gdi::Rect whole{0, 0, decoded->Width(), decoded->Height()};
  const gdi::Rect target{0, 0, native.width, native.height};
  const bool opaque =
      decoded->alpha() == gdi::AlphaMode::kOpaque || decoded->alpha() == gdi::AlphaMode::kUnknown;
  if (background_) {
    gdi::Surface flat(native.width, native.height, gdi::AlphaMode::kOpaque);
    if (opaque) {
      gdi::stretchHalftone(flat, target, *decoded, whole);
    } else {
      gdi::fill(flat, target, opaquePixel(*background_));
      gdi::AlphaBlend(flat, target, *decoded, whole);
    }
    return flat;
  }
  if (decoded->dimensions() == native) return decoded;
  gdi::Surface scaled(native.width, native.height, decoded->alpha());
  gdi::stretchHalftone(scaled, target, *decoded, whole);
  return scaled;
}

}  // namespace vellumry
