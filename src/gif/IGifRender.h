#pragma once
// The callbacks between a GIF player and the window it draws on.

#include <cstdint>
#include <functional>

#include "platform/gdi/Surface.h"

namespace vellumry {

// Refreshes a window's area (pixels) after a frame was drawn on its surface.
using RefreshWindow = std::function<void(gdi::Rect area)>;

class IGifRender {
 public:
  virtual ~IGifRender() = default;
  // Asked before every frame: the surface to draw on (null: nothing is drawn), the window to
  // refresh afterwards (empty: none), and whether a Rendered message 0 is wanted after it.
  virtual void GetRenderDC(int32_t ViewerID, int32_t FrameIndex, gdi::Surface*& destDC,
                           RefreshWindow& hwndRefresh, bool& PostNotify) = 0;
  // Message 0: frame drawn, MsgValue the surface drawn on; 1: load progress in percent; 2:
  // animation over, MsgValue the loops. Wide enough for a surface's address.
  virtual void Rendered(int32_t ViewerID, int32_t FrameIndex, int32_t Message,
                        intptr_t MsgValue) = 0;
};

}  // namespace vellumry
