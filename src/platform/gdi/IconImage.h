#pragma once

#include <cstdint>
#include <vector>

#include "platform/gdi/Surface.h"

namespace vellumry::gdi {

// One image of an icon or cursor: its colour (XOR) pixels and its AND mask, as an icon handle
// holds them.
struct IconImage {
  // kStraight when the image carries alpha (32-bit or PNG entries), kOpaque otherwise.
  Surface colour;
  // One byte a pixel, row-major like `colour`: 1 where the AND mask bit is set (the target shows
  // through, XORed with the colour), 0 where the colour replaces the target. Empty: no mask.
  std::vector<uint8_t> andMask;
  bool isCursor = false;
  int hotspotX = 0;
  int hotspotY = 0;

  bool hasAlpha() const { return colour.alpha() == AlphaMode::kStraight; }
  bool masked(int x, int y) const {
    return !andMask.empty() && andMask[static_cast<size_t>(y) * colour.Width() + x] != 0;
  }
};

// `icon` at `size`: colour smoothed, mask by the nearest pixel. The same icon when it has that
// size.
IconImage scaleIcon(const IconImage& icon, Size size);

// Draws `icon` scaled into `target` of `dst`. With alpha it is blended by its alpha; without, each
// pixel becomes (target AND mask) XOR colour, so masked pixels keep (or invert) what lies beneath.
void DrawIcon(Surface& dst, Rect target, const IconImage& icon);

}  // namespace vellumry::gdi
