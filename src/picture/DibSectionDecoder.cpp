#include "picture/DibSectionDecoder.h"

#include "picture/SourceDecoder.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/gdi/LockBits.h"

namespace vellumry {

DibSectionDecoder::DibSectionDecoder(PictureOrigin origin, gdi::Size natural, gdi::AlphaMode stored)
    : origin_(std::move(origin)), natural_(natural), stored_(stored) {}

bool DibSectionDecoder::HasAlpha() const {
  return stored_ == gdi::AlphaMode::kStraight || stored_ == gdi::AlphaMode::kPremultiplied;
}

std::optional<gdi::Surface> DibSectionDecoder::Decode(gdi::Size) const {
  const auto bytes = SharedOrRead(origin_.bytes, origin_.path);
  if (!bytes) return std::nullopt;
  auto section = codecs::DecodeDibSection(*bytes);
  if (!section || section->surface.Dimensions() != natural_) return std::nullopt;
  gdi::Surface pixels = std::move(section->surface);
  pixels.SetAlpha(stored_);
  if (stored_ == gdi::AlphaMode::kStraight) {
    return gdi::ConvertAlpha(std::move(pixels), gdi::AlphaMode::kPremultiplied);
  }
  return pixels;
}

}  // namespace vellumry
