#include "platform/codecs/DibSectionProbe.h"

#include <cstring>
#include <vector>

#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/ClassifyAlpha.h"

namespace vellumry::codecs {

namespace {

// The stored 32-bit rows classified in the order a DIB section holds them: as the file stores
// them, the bottom row first unless the height is negative.
gdi::AlphaMode storedRowsAlpha(const DibSection& section) {
  const DibHeader& header = section.header;
  const size_t rowBytes = static_cast<size_t>(header.width) * 4;
  std::vector<uint32_t> row(static_cast<size_t>(header.width));
  AlphaClassifier classifier;
  for (size_t stored = 0; stored < static_cast<size_t>(header.height); ++stored) {
    std::memcpy(row.data(), section.data.data() + stored * rowBytes, rowBytes);
    classifier.add(row);
  }
  return alphaModeOf(classifier.result());
}

// Decoded (top-down) pixels classified in the same order as the stored rows.
gdi::AlphaMode decodedRowsAlpha(const gdi::Surface& pixels, bool topDown) {
  AlphaClassifier classifier;
  for (int i = 0; i < pixels.Height(); ++i) {
    const int y = topDown ? i : pixels.Height() - 1 - i;
    classifier.add({pixels.Row(y), static_cast<size_t>(pixels.Width())});
  }
  return alphaModeOf(classifier.result());
}

}  // namespace

gdi::AlphaMode alphaModeOf(uint32_t pixelFormat) {
  switch (pixelFormat) {
    case kPixelFormat32bppARGB:
      return gdi::AlphaMode::kStraight;
    case kPixelFormat32bppPARGB:
      return gdi::AlphaMode::kPremultiplied;
    default:
      return gdi::AlphaMode::kUnknown;
  }
}

std::optional<DibSectionInfo> probeDibSection(std::span<const uint8_t> bytes) {
  const auto section = readDibSection(bytes);
  if (!section) return std::nullopt;
  const DibHeader& header = section->header;
  const gdi::Size natural{header.width, header.height};
  const bool rle = header.compression == kBiRle8 || header.compression == kBiRle4;
  const bool wide = header.bitsPerPixel == 32;
  if (rle || (wide && header.compression != kBiRgb)) {
    const auto decoded = decodeDibSection(bytes);
    if (!decoded) return std::nullopt;
    if (!wide) return DibSectionInfo{natural, gdi::AlphaMode::kOpaque};
    return DibSectionInfo{natural, decodedRowsAlpha(decoded->surface, header.topDown)};
  }
  return DibSectionInfo{natural, wide ? storedRowsAlpha(*section) : gdi::AlphaMode::kOpaque};
}

}  // namespace vellumry::codecs
