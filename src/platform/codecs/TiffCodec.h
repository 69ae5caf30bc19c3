#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// The first page's header, and the number of pages (a walk over the directory chain).
// kCorrupt when its samples are wider than 64 bits or more than 16 a pixel; kTooLarge when not
// even one strip or row of tiles fits the pixel budget.
Expected<ImageInfo> probeTiff(std::span<const uint8_t> bytes);

// Page `page` (from 0) through libtiff's RGBA reader, upright whatever the file's orientation,
// shrunk by `reduction` (Reduced's size). Alpha comes out premultiplied. Shrunk, it is read a strip
// or a row of tiles at a time, and only that band and the shrunk pixels count against the budget:
// a page too large to decode whole decodes small. kOutOfRange for a page the file doesn't have;
// kCorrupt for samples the probe would refuse.
Expected<Decoded> decodeTiff(std::span<const uint8_t> bytes, int page, const Leniency& leniency,
                             int reduction = 1);

}  // namespace vellumry::codecs
