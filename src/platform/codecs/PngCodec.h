#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// Signature and IHDR, and whether a tRNS chunk comes before the image data.
Expected<ImageInfo> ProbePng(std::span<const uint8_t> bytes);

// Any colour type and depth, interlaced or not, at full size. Alpha (an alpha channel or tRNS)
// gives straight alpha; 16-bit samples are reduced to 8.
Expected<Decoded> DecodePng(std::span<const uint8_t> bytes, const Leniency& leniency);

}  // namespace vellumry::codecs
