#pragma once
// A BMP as a DIB section takes it, known before its pixels are decoded.

#include <cstdint>
#include <optional>
#include <span>

#include "platform/gdi/Surface.h"

namespace vellumry::codecs {

// What a DIB section makes of a "BM" file before decoding it (see decodeDibSection): its size, and
// what the fourth byte of its pixels means (kOpaque below 32 bits). Null when decodeDibSection
// would refuse the file. Only RLE data, which shows whether it decodes only when decoded, and
// 32-bit bit fields are decoded here; the fourth bytes of plain 32-bit pixels are read where they
// are stored.
struct DibSectionInfo {
  gdi::Size natural;
  gdi::AlphaMode stored;
};
std::optional<DibSectionInfo> probeDibSection(std::span<const uint8_t> bytes);

// What a 32-bit DIB section's pixels are drawn as, by ClassifyAlpha's answer: straight alpha,
// premultiplied alpha, or kUnknown for no alpha.
gdi::AlphaMode alphaModeOf(uint32_t pixelFormat);

}  // namespace vellumry::codecs
