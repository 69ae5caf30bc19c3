#pragma once
// Pixels at exactly the size a picture is drawn, optionally flattened over a colour.

#include <cstdint>
#include <memory>
#include <optional>

#include "platform/gdi/PixelSource.h"

namespace vellumry {

// Shows `inner` at the natural size `natural` (its own size, or the size a caller asked the
// picture to have) and produces pixels at any size up to that: it decodes at the smallest size
// `inner` makes directly that covers the wanted one, then scales to it with halftone quality. So
// a thumbnail is cached at its drawn size, not at the JPEG eighth it was decoded from. With a
// `background` (0x00BBGGRR) the pixels are composed over that colour and come out opaque.
class FittedDecoder : public gdi::ScaledDecoder {
 public:
  FittedDecoder(std::unique_ptr<gdi::ScaledDecoder> inner, gdi::Size natural,
                std::optional<uint32_t> background = std::nullopt);

  gdi::Size naturalSize() const override { return natural_; }
  bool hasAlpha() const override { return !background_ && inner_->hasAlpha(); }
  gdi::Size nativeSizeFor(gdi::Size wanted) const override;
  std::optional<gdi::Surface> decode(gdi::Size native) const override;

 private:
  std::unique_ptr<gdi::ScaledDecoder> inner_;
  gdi::Size natural_;
  std::optional<uint32_t> background_;
};

}  // namespace vellumry
