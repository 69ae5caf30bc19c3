// Drawing one frame: where it lands for a stretch mode, the canvas it is built up on over a
// background, the transparent pixels through a mask, and what each disposal leaves behind.
#include <algorithm>
#include <cmath>

#include "gif/cGIFViewer.h"
#include "platform/gdi/Blit.h"
#include "platform/toolkit/PictureControls.h"

namespace vellumry {

namespace {
constexpr int32_t kCentred = 8;
constexpr int32_t kClip = 0, kStretch = 2, kShrinkOnly = 3;

int32_t floorOf(double v) { return static_cast<int32_t>(std::floor(v)); }
int32_t roundOf(double v) { return static_cast<int32_t>(std::nearbyint(v)); }

// The frame's columns of the strip as 32-bit pixels through `table`.
gdi::Surface framePixels(const gdi::IndexedSurface& strip, const GifFrame& f,
                         const gdi::IndexedSurface::ColorTable& table) {
  gdi::Surface out(f.Width, f.Height, gdi::AlphaMode::kOpaque);
  const int rows = std::min(f.Height, strip.Height());
  for (int y = 0; y < rows; ++y) {
    const uint8_t* in = strip.Row(y) + f.StripX;
    uint32_t* px = out.Row(y);
    for (int x = 0; x < f.Width; ++x) px[x] = table[in[x]];
  }
  return out;
}

// `pixels` onto `rect` of `target` by `op`; scaled with halftone quality when `stretch`, else
// cut to the rectangle, which the destination's edge may have narrowed.
void place(gdi::Surface& target, gdi::Rect rect, const gdi::Surface& pixels, bool stretch,
           gdi::RasterOp op) {
  const gdi::Rect whole{0, 0, pixels.Width(), pixels.Height()};
  if (stretch) return gdi::stretchHalftone(target, rect, pixels, whole, op);
  gdi::blit(target, rect.x, rect.y, pixels,
            {0, 0, std::min(rect.width, whole.width), std::min(rect.height, whole.height)}, op);
}
}  // namespace

void cGIFViewer::ScaleToDestination(int32_t Index, int32_t& DestX, int32_t& DestY, int32_t& destCx,
                                    int32_t& destCY, int32_t StretchMode, float& ScaleX,
                                    float& ScaleY) const {
  if (frameCount() == 0) return;
  if (Index < 1 || Index > frameCount()) Index = 0;
  const int32_t W = Width(), H = Height();
  if (StretchMode == kClip || StretchMode == kCentred) {
    ScaleX = ScaleY = 1.0f;
    if (StretchMode == kCentred) {
      if (W < destCx) {
        DestX += (destCx - W) / 2;
        destCx = W;
      }
      if (H < destCY) {
        DestY += (destCY - H) / 2;
        destCY = H;
      }
    }
    if (Index == 0) {
      destCx = std::min(destCx, W);
      destCY = std::min(destCY, H);
      return;
    }
    const GifFrame& f = frame(Index);
    destCx = DestX + f.Width + f.Left > destCx ? destCx - f.Left : f.Width;
    DestX += f.Left;
    destCY = DestY + f.Height + f.Top > destCY ? destCY - f.Top : f.Height;
    DestY += f.Top;
    return;
  }
  ScaleX = static_cast<float>(destCx) / static_cast<float>(W);
  ScaleY = static_cast<float>(destCY) / static_cast<float>(H);
  const int32_t m = StretchMode & ~kCentred;
  if (m == kStretch) return;
  if (m == kShrinkOnly && ScaleX > 1.0f && ScaleY > 1.0f)
    ScaleX = ScaleY = 1.0f;
  else
    ScaleX = ScaleY = std::min(ScaleX, ScaleY);
  if (StretchMode & kCentred) {
    DestX += (destCx - floorOf(double{ScaleX} * W)) / 2;
    DestY += (destCY - floorOf(double{ScaleY} * H)) / 2;
    if (Index != 0) {
      const GifFrame& f = frame(Index);
      DestX = roundOf(floorOf(double{ScaleX} * f.Left) + DestX);
      DestY = roundOf(floorOf(double{ScaleY} * f.Top) + DestY);
    }
  }
  if (Index == 0) {
    destCx = roundOf(double{ScaleX} * W);
    destCY = roundOf(double{ScaleY} * H);
    return;
  }
  const GifFrame& f = frame(Index);
  destCx = floorOf(double{ScaleX} * f.Width);
  destCY = floorOf(double{ScaleY} * f.Height);
}

bool cGIFViewer::needsCache() const {
  if (frameCount() == 1) return frame(1).HasTrans == 1;
  return std::any_of(m_Gif.m_Frames.begin(), m_Gif.m_Frames.end(), [&](const GifFrame& f) {
    return f.HasTrans == 1 || f.Disposal == 2 || f.Disposal == 3 || f.Width != Width() ||
           f.Height != Height();
  });
}

bool cGIFViewer::SetAnimationBkg(int32_t bkgMethod, AnimationBkg bkgDC_Color, int32_t DestX,
                                 int32_t DestY, int32_t destCx, int32_t destCY, int32_t StretchMode,
                                 int32_t bkgDC_X, int32_t bkgDC_Y) {
  if (!m_Callback) return false;
  const bool fromDc = bkgMethod == 1;
  const bool wasPlaying = m_State == 1;
  if (wasPlaying) setAnimationState(2);
  if (fromDc && !bkgDC_Color.dc && needsCache()) {
    // Without a surface to copy from, the cache stays as it was, and a paused animation plays
    // on (which takes it one frame further).
    if (wasPlaying) setAnimationState(1);
    return false;
  }
  if (destCx < 1) destCx = Width();
  if (destCY < 1) destCY = Height();
  m_Cache.DestX = DestX;
  m_Cache.DestY = DestY;
  m_Cache.DestCx = destCx;
  m_Cache.DestCy = destCY;
  m_Cache.Mode = StretchMode;
  m_Cache.hBrush = false;
  if (!needsCache()) {
    // Straight from the strip to the caller; a playing animation stays paused.
    m_Cache.hDC = false;
    m_Cache.bitmap = {};
    return true;
  }
  int k = m_Gif.m_HasRestore == 1 ? 3 : 2;
  if (!fromDc) k -= 1;
  ScaleToDestination(0, m_Cache.DestX, m_Cache.DestY, m_Cache.DestCx, m_Cache.DestCy, StretchMode,
                     m_Cache.ScaleX, m_Cache.ScaleY);
  if (m_Cache.DestCx < 1 || m_Cache.DestCy < 1) {
    m_Cache.hDC = false;
    m_Cache.bitmap = {};
    m_Cache.DestX = DestX;
    m_Cache.DestY = DestY;
    m_Cache.DestCx = destCx;
    m_Cache.DestCy = destCY;
    return false;
  }
  m_Cache.bitmap = gdi::Surface(m_Cache.DestCx, m_Cache.DestCy * k, gdi::AlphaMode::kOpaque);
  m_Cache.hDC = true;
  const gdi::Rect canvas{0, 0, m_Cache.DestCx, m_Cache.DestCy};
  if (fromDc) {
    const int32_t x = bkgDC_X < 0 ? DestX : bkgDC_X;
    const int32_t y = bkgDC_Y < 0 ? DestY : bkgDC_Y;
    gdi::blit(m_Cache.bitmap, 0, m_Cache.DestCy, *bkgDC_Color.dc,
              {x, y, m_Cache.DestCx, m_Cache.DestCy}, gdi::RasterOp::kCopy);
    gdi::blit(m_Cache.bitmap, 0, 0, m_Cache.bitmap,
              {0, m_Cache.DestCy, m_Cache.DestCx, m_Cache.DestCy}, gdi::RasterOp::kCopy);
  } else {
    m_Cache.hBrush = true;
    m_Cache.brushPixel = tk::pixelOf(static_cast<uint32_t>(bkgDC_Color.color));
    gdi::fill(m_Cache.bitmap, canvas, m_Cache.brushPixel);
  }
  if (wasPlaying) setAnimationState(1);
  return true;
}

void cGIFViewer::SetAnimationBkgColor(int32_t bkgColor) {
  if (!m_Cache.hBrush) return;
  const bool wasPlaying = m_State == 1;
  if (wasPlaying) setAnimationState(2);
  m_Cache.brushPixel = tk::pixelOf(static_cast<uint32_t>(bkgColor));
  gdi::fill(m_Cache.bitmap, {0, 0, m_Cache.DestCx + 1, m_Cache.DestCy + 1}, m_Cache.brushPixel);
  if (wasPlaying) setAnimationState(1);
}

bool cGIFViewer::RenderFrame(int32_t Index, gdi::Surface* hDC, const RefreshWindow& hWnd2Refresh,
                             int32_t DestX, int32_t DestY, int32_t destCx, int32_t destCY,
                             int32_t StretchMode) {
  if (Index < 1 || Index > frameCount()) return false;
  if (destCx < 1) destCx = frame(Index).Width;
  if (destCY < 1) destCY = frame(Index).Height;
  return DrawFrame(Index, hDC, hWnd2Refresh, false, false, DestX, DestY, destCx, destCY,
                   StretchMode);
}

bool cGIFViewer::DrawFrame(int32_t Index, gdi::Surface* hDC, const RefreshWindow& hWnd2Refresh,
                           bool PostNotify, bool Cached, int32_t DestX, int32_t DestY,
                           int32_t destCx, int32_t destCY, int32_t StretchMode) {
  if (!hDC) return false;
  if (Cached && !m_Cache.hDC) {
    Cached = false;
    DestX = m_Cache.DestX;
    DestY = m_Cache.DestY;
    destCx = m_Cache.DestCx;
    destCY = m_Cache.DestCy;
    StretchMode = m_Cache.Mode;
  }
  const GifFrame& f = frame(Index);
  gdi::Rect rect;
  int32_t mode = StretchMode;
  if (Cached) {
    mode = m_Cache.Mode;
    if ((mode & ~kCentred) != 0) {
      rect = {floorOf(double{m_Cache.ScaleX} * f.Left), floorOf(double{m_Cache.ScaleY} * f.Top),
              floorOf(double{m_Cache.ScaleX} * f.Width),
              floorOf(double{m_Cache.ScaleY} * f.Height)};
    } else {
      rect = {f.Left, f.Top, f.Width, f.Height};
      if (f.Left + f.Width > m_Cache.DestCx) rect.width = m_Cache.DestCx - f.Left;
      if (f.Top + f.Height > m_Cache.DestCy) rect.height = m_Cache.DestCy - f.Top;
    }
    if (f.Disposal == 3) {
      gdi::blit(m_Cache.bitmap, 0, saveAreaY(), m_Cache.bitmap, rect, gdi::RasterOp::kCopy);
    }
  } else {
    float sx = 1, sy = 1;
    ScaleToDestination(Index, DestX, DestY, destCx, destCY, StretchMode, sx, sy);
    rect = {DestX, DestY, destCx, destCY};
  }
  gdi::Surface& target = Cached ? m_Cache.bitmap : *hDC;
  BlitFrame(Index, target, (mode & ~kCentred) != 0, rect);
  if (Cached) {
    gdi::blit(*hDC, m_Cache.DestX, m_Cache.DestY, m_Cache.bitmap,
              {0, 0, m_Cache.DestCx, m_Cache.DestCy}, gdi::RasterOp::kCopy);
    dispose(f, rect);
  }
  if (hWnd2Refresh) {
    hWnd2Refresh(Cached ? gdi::Rect{m_Cache.DestX, m_Cache.DestY, m_Cache.DestCx, m_Cache.DestCy}
                        : rect);
  }
  if (PostNotify && m_Render) m_Render->Rendered(m_ViewerID, Index, 0, reinterpret_cast<intptr_t>(hDC));
  return true;
}

int32_t cGIFViewer::saveAreaY() const {
  return m_Cache.hBrush ? m_Cache.DestCy : 2 * m_Cache.DestCy;
}

void cGIFViewer::dispose(const GifFrame& f, gdi::Rect rect) {
  if (f.Disposal == 2) {
    const gdi::Rect area{rect.x, rect.y,
                         floorOf(double{m_Cache.ScaleX} * (f.Left + f.Width)) - rect.x,
                         floorOf(double{m_Cache.ScaleY} * (f.Top + f.Height)) - rect.y};
    if (m_Cache.hBrush) {
      gdi::fill(m_Cache.bitmap, area, m_Cache.brushPixel);
    } else {
      gdi::blit(m_Cache.bitmap, area.x, area.y, m_Cache.bitmap,
                {area.x, area.y + m_Cache.DestCy, area.width, area.height}, gdi::RasterOp::kCopy);
    }
  } else if (f.Disposal == 3) {
    gdi::blit(m_Cache.bitmap, rect.x, rect.y, m_Cache.bitmap,
              {0, saveAreaY(), rect.width, rect.height}, gdi::RasterOp::kCopy);
  }
}

void cGIFViewer::BlitFrame(int32_t Index, gdi::Surface& hDC, bool bStretch, gdi::Rect rect) {
  if (rect.width < 1 || rect.height < 1) return;
  const GifFrame& f = frame(Index);
  gdi::IndexedSurface::ColorTable table{};
  gdi::RasterOp op = gdi::RasterOp::kCopy;
  if (f.HasTrans == 1) {
    // Black where the frame covers, white where it lets through: AND blanks what it covers.
    constexpr uint32_t kBlack = 0xFF000000u, kWhite = 0xFFFFFFFFu;
    table.fill(kBlack);
    table[f.TransIndex] = kWhite;
    place(hDC, rect, framePixels(m_Strip.m_Strip, f, table), bStretch, gdi::RasterOp::kAnd);
    op = gdi::RasterOp::kOr;
  }
  const ColorRow& row = m_Gif.m_Palettes[static_cast<size_t>(f.PaletteRow)];
  for (size_t i = 0; i < table.size(); ++i) table[i] = 0xFF000000u | row[i];
  // The transparent entry is black for the OR pass only: it leaves what lies beneath.
  if (f.HasTrans == 1) table[f.TransIndex] = 0xFF000000u;
  place(hDC, rect, framePixels(m_Strip.m_Strip, f, table), bStretch, op);
}

}  // namespace vellumry
