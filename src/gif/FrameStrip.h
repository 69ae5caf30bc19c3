#pragma once
// Interface shared with the player: the strip of all frames' colour indices. Keep stable.

#include <cstdint>
#include <functional>
#include <optional>

#include "gif/GifFile.h"
#include "platform/gdi/Surface.h"

namespace vellumry {

struct FrameStrip {
  // All frames side by side, each at (its StripX, 0), one colour index a pixel: as wide as the
  // frames' widths together, as high as the highest. A frame that couldn't be decoded, and the
  // rows under a shorter frame, stay index 0. Its table is the identity once built; the player
  // swaps in a frame's row (or the mask) to give the indices colours.
  gdi::IndexedSurface m_Strip;
  // 256 zeros, there only when some frame has HasTrans set: the table the transparency mask is
  // drawn through.
  std::optional<gdi::IndexedSurface::ColorTable> m_Mask;
};

// What BuildStrip reports while it decodes. Either may be empty.
struct StripProgress {
  // Frame 1 stands in the strip (its StripX set): the player may show it at once. Its table
  // and m_PalTop are set back to the identity and -1 afterwards.
  std::function<void()> FirstFrame;
  // Frame FrameIndex of the count is in the strip; Percent = FrameIndex x 100 / count, rounded
  // down.
  std::function<void(int32_t FrameIndex, int32_t Percent)> FrameLoaded;
};

// Decodes every frame that ReadGifFile found in `gif` (m_FileData still held) into `strip`, and
// sets each frame's StripX to its X there and m_PalTop to -1. False, with `strip` empty, when
// there are no frames or the strip would be too large. `gif.m_Spans` is only read.
bool BuildStrip(GifFile& gif, FrameStrip& strip, const StripProgress& progress = {});

}  // namespace vellumry
