#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// Plays an EMF or WMF at width x height pixels (0 x 0: its natural size) onto a transparent
// surface: what the records leave undrawn stays transparent.
Expected<Decoded> decodeMetafile(std::span<const uint8_t> bytes, const ImageInfo& info, int width,
                                 int height);

}  // namespace vellumry::codecs
