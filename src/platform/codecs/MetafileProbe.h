#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// EMF (a header record with the " EMF" signature) and WMF (placeable, or a bare memory or disk
// metafile header). Sizes: an EMF's frame at its reference device's resolution (its bounds when
// the frame is empty); a placeable WMF's box at 96 dots per inch; a bare WMF's first window
// extent, taking a logical unit for a pixel, or 0 x 0 when it sets none.
Expected<ImageInfo> probeMetafile(std::span<const uint8_t> bytes);

}  // namespace vellumry::codecs
