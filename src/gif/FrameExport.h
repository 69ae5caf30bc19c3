#pragma once
// Interface shared with the player: one frame given out as a picture or a palette. Keep stable.

#include <cstdint>

#include "gif/FrameStrip.h"
#include "gif/GifFile.h"
#include "platform/gdi/Picture.h"

namespace vellumry {

// Frame `Index` (1 to the count) of a built strip as a picture of the frame's size: PicType 1 an
// opaque bitmap in the frame's colours, anything else a one-frame GIF (transparent where the
// frame is). Nothing for an Index out of range or a failure. Reads the strip only; a player
// that pauses round it does so itself.
gdi::Picture FrameImage(const GifFile& gif, const FrameStrip& strip, int32_t Index,
                        int32_t PicType);

// `palette` = 256 zeros, then for Index 1 to the count that frame's colour row.
void FramePalette(const GifFile& gif, int32_t Index, ColorRow& palette);

}  // namespace vellumry
