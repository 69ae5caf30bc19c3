#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// The first page's header, and the number of pages (a walk over the directory chain).
// kCorrupt when its samples are wider than 64 bits or more than 16 a pixel.
Expected<ImageInfo> ProbeTiff(std::span<const uint8_t> bytes);

// Page `page` (from 0) at full size, through libtiff's RGBA reader, upright whatever the file's
// orientation. Alpha comes out premultiplied. kOutOfRange for a page the file doesn't have;
// kCorrupt for samples the probe would refuse.
Expected<Decoded> DecodeTiff(std::span<const uint8_t> bytes, int page, const Leniency& leniency);

}  // namespace vellumry::codecs
