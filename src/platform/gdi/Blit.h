#pragma once

#include <cstdint>

#include "platform/gdi/Surface.h"

namespace vellumry::gdi {

// Raster operations of a block copy, applied to whole 32-bit pixels (or 8-bit indices).
enum class RasterOp {
  kCopy,  // destination = source
  kAnd,   // destination = destination AND source
  kOr,    // destination = destination OR source
};

// Block copies without scaling. `source` is the area of `src` to take; it lands with its top left
// at (dx, dy). Both sides are clipped; the alpha mode of `dst` is left as it is.
void blit(Surface& dst, int dx, int dy, const Surface& src, Rect source, RasterOp op);
void blit(IndexedSurface& dst, int dx, int dy, const IndexedSurface& src, Rect source, RasterOp op);

// Solid fills, clipped.
void fill(Surface& dst, Rect area, uint32_t argb);
void fill(IndexedSurface& dst, Rect area, uint8_t index);

// Scales `source` of `src` into `target` of `dst` with an area-averaging (halftone quality)
// filter, combining by `op` with what was there. A negative target or source width/height mirrors
// that axis. Colours are carried over in `dst`'s alpha mode.
void stretchHalftone(Surface& dst, Rect target, const Surface& src, Rect source,
                     RasterOp op = RasterOp::kCopy);

// The same with nearest-neighbour sampling: each target pixel is one source pixel, unchanged.
void stretchNearest(Surface& dst, Rect target, const Surface& src, Rect source);

// Per-pixel alpha blend of a premultiplied source, scaled smoothly into `target`, times a constant
// alpha (255 = as is): dst = src * k + dst * (1 - srcAlpha * k), with k = constantAlpha / 255.
// The target's pixels are taken as premultiplied (opaque ones are). A source that isn't marked
// premultiplied is converted first; an opaque one is drawn opaque.
void AlphaBlend(Surface& dst, Rect target, const Surface& src, Rect source,
                uint8_t constantAlpha = 255);

}  // namespace vellumry::gdi
