#include "picture/FittedDecoder.h"

#include <algorithm>
#include <cmath>

#include "platform/gdi/Blit.h"

namespace vellumry {

namespace {

// `size` of a natural-size picture, in the pixels of an `inner`-size one, rounded up.
gdi::Size Rescale(gdi::Size size, gdi::Size natural, gdi::Size inner) {
  const auto scale = [](int value, int from, int to) {
    return static_cast<int>(std::ceil(static_cast<double>(value) * to / from - 1e-9));
  };
  return {scale(size.width, natural.width, inner.width),
          scale(size.height, natural.height, inner.height)};
}

uint32_t OpaquePixel(uint32_t color) {
  return gdi::Argb(255, color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

}  // namespace

FittedDecoder::FittedDecoder(std::unique_ptr<gdi::ScaledDecoder> inner, gdi::Size natural,
                             std::optional<uint32_t> background)
    : inner_(std::move(inner)), natural_(natural), background_(background) {}

gdi::Size FittedDecoder::NativeSizeFor(gdi::Size wanted) const {
  if (wanted.width <= 0 || wanted.height <= 0) return natural_;
  return {std::min(wanted.width, natural_.width), std::min(wanted.height, natural_.height)};
}

std::optional<gdi::Surface> FittedDecoder::Decode(gdi::Size native) const {
  const gdi::Size inner = inner_->NaturalSize();
  std::optional<gdi::Surface> decoded =
      inner_->Decode(inner_->NativeSizeFor(Rescale(native, natural_, inner)));
  if (!decoded || decoded->Empty()) return std::nullopt;
  const gdi::Rect whole{0, 0, decoded->Width(), decoded->Height()};
  const gdi::Rect target{0, 0, native.width, native.height};
  const bool opaque =
      decoded->Alpha() == gdi::AlphaMode::kOpaque || decoded->Alpha() == gdi::AlphaMode::kUnknown;
  if (background_) {
    gdi::Surface flat(native.width, native.height, gdi::AlphaMode::kOpaque);
    if (opaque) {
      gdi::StretchHalftone(flat, target, *decoded, whole);
    } else {
      gdi::Fill(flat, target, OpaquePixel(*background_));
      gdi::AlphaBlend(flat, target, *decoded, whole);
    }
    return flat;
  }
  if (decoded->Dimensions() == native) return decoded;
  gdi::Surface scaled(native.width, native.height, decoded->Alpha());
  gdi::StretchHalftone(scaled, target, *decoded, whole);
  return scaled;
}

}  // namespace vellumry
