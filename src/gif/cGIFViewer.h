#pragma once
// Plays one GIF file: loads its frames into a strip of colour indices, composites them over a
// background on an off-screen canvas, and times them with a one-shot timer on the program's
// event loop. Several players may run side by side; every callback carries the ViewerID given
// to LoadGIF. Nothing raises to the caller: failures give 0, false or nothing.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "gif/FrameStrip.h"
#include "gif/GifFile.h"
#include "gif/IGifRender.h"
#include "platform/gdi/Picture.h"
#include "platform/gdi/Surface.h"
#include "platform/toolkit/EventLoop.h"

namespace vellumry {

class Program;

// Where a background comes from: a surface to copy (method 1), or a colour 0x00BBGGRR, a
// negative one being a system colour.
struct AnimationBkg {
  const gdi::Surface* dc = nullptr;
  int32_t color = 0;
};

class cGIFViewer {
 public:
  // The play steps show or hide `program`'s GIF window and arm its focus timers.
  explicit cGIFViewer(Program& program);
  ~cGIFViewer();
  cGIFViewer(const cGIFViewer&) = delete;
  cGIFViewer& operator=(const cGIFViewer&) = delete;

  // The frame count; negative when the frames loaded but can't animate (no render object or
  // no timer loop); 0 on failure.
  int32_t LoadGIF(const std::string& gifFileName, int32_t ViewerID,
                  IGifRender* GIFRenderInterface = nullptr, tk::EventLoop* timerHwnd = nullptr);
  void UnloadGIF();
  // Draws frame `Index` (1 to the count) without the canvas; sizes below 1 are the frame's.
  bool RenderFrame(int32_t Index, gdi::Surface* hDC, const RefreshWindow& hWnd2Refresh = {},
                   int32_t DestX = 0, int32_t DestY = 0, int32_t destCx = 0, int32_t destCY = 0,
                   int32_t StretchMode = 0);
  // 0 the frame's time in ms, 1 Left, 2 Top, 3 Width, 4 Height, 5 Disposal, 6 the frame count;
  // 0 for anything else.
  int32_t FrameProperty(int32_t Index, int32_t propId) const;
  int32_t AnimationIndex() const { return m_Index; }
  // 0 stopped, 1 playing, 2 paused, 3 stepping. Written: 0 stop, 1 play, 2 pause, 3 step,
  // 4 draw the current frame; other values stop.
  int32_t AnimationState() const { return m_State; }
  void setAnimationState(int32_t Action);
  void SetAnimationBkgColor(int32_t bkgColor);
  // Where and how the animation lands and what lies behind it; sizes below 1 are the canvas's.
  // `bkgDC_X`, `bkgDC_Y` below 0 mean DestX, DestY.
  bool SetAnimationBkg(int32_t bkgMethod, AnimationBkg bkgDC_Color, int32_t DestX = 0,
                       int32_t DestY = 0, int32_t destCx = 0, int32_t destCY = 0,
                       int32_t StretchMode = 0, int32_t bkgDC_X = 0, int32_t bkgDC_Y = 0);
  // Where frame `Index` (0: the whole canvas) lands for a stretch mode: 0 clip, 1 scale keeping
  // the aspect, 2 stretch, 3 shrink only; +8 centres.
  void ScaleToDestination(int32_t Index, int32_t& DestX, int32_t& DestY, int32_t& destCx,
                          int32_t& destCY, int32_t StretchMode, float& ScaleX, float& ScaleY) const;
  // The background colour of the global table as 0x00BBGGRR; 0 without one.
  int32_t WindowBkgColor() const;
  // Frame `Index` given out: PicType 1 as a bitmap in its own colours, else as a one-frame GIF;
  // nothing out of range. A playing animation stands paused while the strip is read.
  gdi::Picture FrameImage(int32_t Index, int32_t PicType);
  // 256 zeros, then for a frame in range its colour row.
  void FramePalette(int32_t Index, ColorRow& palette) const;
  int32_t Height() const { return m_Gif.m_Height; }
  int32_t Width() const { return m_Gif.m_Width; }
  int32_t LoopCount() const { return m_Gif.m_LoopCount; }
  void setLoopCount(int32_t newCount);
  int16_t MinimumDelay() const { return m_MinDelay; }
  int32_t LoopsDone() const { return m_LoopsDone; }
  void setMinimumDelay(int32_t newMinimum);

 private:
  struct Cache {
    bool hDC = false;  // whether the canvas exists
    gdi::Surface bitmap;
    bool hBrush = false;
    uint32_t brushPixel = 0;
    int32_t Mode = 0, DestX = 0, DestY = 0, DestCx = 0, DestCy = 0;
    float ScaleX = 1, ScaleY = 1;
  };

  int32_t frameCount() const { return static_cast<int32_t>(m_Gif.m_Frames.size()); }
  const GifFrame& frame(int32_t Index) const { return m_Gif.m_Frames[Index - 1]; }
  void playSteps();
  void drawCurrent();
  void TimerProc(bool fromTimer);
  void SetTimer();
  void KillTimer();
  bool needsCache() const;
  bool DrawFrame(int32_t Index, gdi::Surface* hDC, const RefreshWindow& hWnd2Refresh,
                 bool PostNotify, bool Cached, int32_t DestX, int32_t DestY, int32_t destCx,
                 int32_t destCY, int32_t StretchMode);
  void BlitFrame(int32_t Index, gdi::Surface& hDC, bool bStretch, gdi::Rect rect);
  // What the frame's disposal leaves on the canvas after it was shown.
  void dispose(const GifFrame& f, gdi::Rect rect);
  // The band that keeps what a frame of disposal 3 covers.
  int32_t saveAreaY() const;

  Program& program_;
  GifFile m_Gif;
  FrameStrip m_Strip;
  int32_t m_ViewerID = 0;
  IGifRender* m_Render = nullptr;
  int32_t m_State = 0, m_Index = 0, m_LoopsDone = 0;
  int16_t m_MinDelay = 50;
  tk::EventLoop* m_TimerHwnd = nullptr;
  bool m_Callback = false;
  tk::EventLoop::Id m_Timer = 0;
  Cache m_Cache;
};

}  // namespace vellumry
