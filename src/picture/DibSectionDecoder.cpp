#include "picture/DibSectionDecoder.h"

#include "picture/SourceDecoder.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/gdi/LockBits.h"

namespace vellumry {

DibSectionDecoder::DibSectionDecoder(PictureOrigin origin, gdi::Size natural, gdi::AlphaMode stored)
    : origin_(std::move(origin)), natural_(natural), stored_(stored) {}

bool DibSectionDecoder::hasAlpha() const {
  return stored_ == gdi::AlphaMode::kStraight || stored_ == gdi::AlphaMode::kPremultiplied;
}

std::optional<gdi::Surface> DibSectionDecoder::decode(gdi::Size) const {
  const auto bytes = sharedOrRead(origin_.bytes, origin_.path);
  if (!bytes) return std::nullopt;
  auto section = codecs::decodeDibSection(*bytes);
  if (!section || section->surface.dimensions() != natural_) return std::nullopt;
  gdi::Surface pixels = std::move(section->surface);
  pixels.setAlpha(stored_);
  if (stored_ == gdi::AlphaMode::kStraight) {
    return gdi::convertAlpha(std::move(pixels), gdi::AlphaMode::kPremultiplied);
  }
  return pixels;
}

}  // namespace vellumry
