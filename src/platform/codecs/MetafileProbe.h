#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// EMF (a header record with the " EMF" signature) and WMF (placeable, or a bare memory or disk
// metafile header). Sizes: an EMF's bounds in device pixels; a placeable WMF's box at 96 dots per
// inch; 0 x 0 for a bare WMF, whose header doesn't say.
Expected<ImageInfo> ProbeMetafile(std::span<const uint8_t> bytes);

}  // namespace vellumry::codecs
