#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// Signature and IHDR, and whether a tRNS chunk comes before the image data.
Expected<ImageInfo> probePng(std::span<const uint8_t> bytes);

// Any colour type and depth, interlaced or not. Alpha (an alpha channel or tRNS) gives straight
// alpha; 16-bit samples are reduced to 8. A `reduction` above 1 (a power of two) shrinks the
// picture by that factor as its rows are read (see halvedSizes).
Expected<Decoded> decodePng(std::span<const uint8_t> bytes, const Leniency& leniency,
                            int reduction = 1);

}  // namespace vellumry::codecs
