#pragma once

// Cameras store a photo as the sensor saw it and record how it was held as an orientation from
// 1 (as stored) to 8. These read that number and turn the pixels the way the camera meant them.

#include <cstdint>
#include <span>

#include "platform/gdi/Surface.h"

namespace vellumry::codecs {

// The orientation in an EXIF block: its TIFF header and first directory, as they follow
// "Exif\0\0" in a JPEG's APP1 segment. 1 when the tag is absent, out of range or unreadable.
int exifOrientation(std::span<const uint8_t> exif);

// Orientations 5 to 8 lie on their side: the upright picture swaps width and height.
bool swapsSides(int orientation);

// Turns the stored pixels upright; leaves them alone for 1 and for unknown values.
void turnUpright(gdi::Surface& surface, int orientation);

}  // namespace vellumry::codecs
