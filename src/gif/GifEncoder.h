#pragma once
// One frame written back out as a GIF file of its own.

#include <cstdint>
#include <vector>

#include "gif/GifFile.h"
#include "platform/gdi/Surface.h"

namespace vellumry {

// A GIF 89a of one image: `pixels` (one colour index a pixel, rows top down) at (0, 0) of a
// screen of their size, `colors` as its 256-entry global table, and index `transIndex`
// transparent when it is 0 to 255. The image data are the LZW codes of 8-bit pixels, in
// sub-blocks of 254 bytes.
std::vector<uint8_t> EncodeFrameGif(const gdi::IndexedSurface& pixels, const ColorRow& colors,
                                    int transIndex);

}  // namespace vellumry
