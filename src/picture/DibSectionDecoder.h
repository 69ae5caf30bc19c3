#pragma once
// The decoder behind a picture of the DIB road: a BMP read as a DIB section takes it.

#include <memory>

#include "picture/LazyPicture.h"
#include "platform/gdi/PixelSource.h"

namespace vellumry {

// Reads the bytes of `origin` again at each decode. `stored` says what the fourth byte of the
// pixels was found to mean: kStraight alpha comes out premultiplied, kPremultiplied as it is;
// kUnknown and kOpaque pixels are no alpha picture. Decodes only at the natural size.
class DibSectionDecoder : public gdi::ScaledDecoder {
 public:
  DibSectionDecoder(PictureOrigin origin, gdi::Size natural, gdi::AlphaMode stored);

  gdi::Size naturalSize() const override { return natural_; }
  bool hasAlpha() const override;
  gdi::Size nativeSizeFor(gdi::Size) const override { return natural_; }
  std::optional<gdi::Surface> decode(gdi::Size native) const override;

 private:
  PictureOrigin origin_;
  gdi::Size natural_;
  gdi::AlphaMode stored_;
};

}  // namespace vellumry
