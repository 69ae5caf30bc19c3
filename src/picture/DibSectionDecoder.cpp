#include "picture/DibSectionDecoder.h"

#include <cstring>
#include <vector>

#include "picture/SourceDecoder.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/ClassifyAlpha.h"
#include "platform/gdi/LockBits.h"

namespace vellumry {

namespace {

gdi::AlphaMode AlphaModeOf(uint32_t pixelFormat) {
  switch (pixelFormat) {
    case codecs::kPixelFormat32bppARGB:
      return gdi::AlphaMode::kStraight;
    case codecs::kPixelFormat32bppPARGB:
      return gdi::AlphaMode::kPremultiplied;
    default:
      return gdi::AlphaMode::kUnknown;
  }
}

// The stored 32-bit rows classified top row first, as their decoded pixels would be.
gdi::AlphaMode StoredRowsAlpha(const codecs::DibSection& section) {
  const codecs::DibHeader& header = section.header;
  const size_t rowBytes = static_cast<size_t>(header.width) * 4;
  std::vector<uint32_t> row(static_cast<size_t>(header.width));
  codecs::AlphaClassifier classifier;
  for (int y = 0; y < header.height; ++y) {
    const size_t stored = static_cast<size_t>(header.topDown ? y : header.height - 1 - y);
    std::memcpy(row.data(), section.data.data() + stored * rowBytes, rowBytes);
    classifier.Add(row);
  }
  return AlphaModeOf(classifier.Result());
}

}  // namespace

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
    return gdi::ConvertAlpha(pixels, gdi::AlphaMode::kPremultiplied);
  }
  return pixels;
}

std::optional<DibSectionInfo> ProbeDibSection(std::span<const uint8_t> bytes) {
  const auto section = codecs::ReadDibSection(bytes);
  if (!section) return std::nullopt;
  const codecs::DibHeader& header = section->header;
  const gdi::Size natural{header.width, header.height};
  const bool rle = header.compression == codecs::kBiRle8 || header.compression == codecs::kBiRle4;
  const bool wide = header.bitsPerPixel == 32;
  if (rle || (wide && header.compression != codecs::kBiRgb)) {
    const auto decoded = codecs::DecodeDibSection(bytes);
    if (!decoded) return std::nullopt;
    if (!wide) return DibSectionInfo{natural, gdi::AlphaMode::kOpaque};
    const gdi::Surface& pixels = decoded->surface;
    return DibSectionInfo{natural, AlphaModeOf(codecs::ClassifyAlpha(
                                       pixels.Pixels(), pixels.Width(), pixels.Height()))};
  }
  return DibSectionInfo{natural, wide ? StoredRowsAlpha(*section) : gdi::AlphaMode::kOpaque};
}

}  // namespace vellumry
