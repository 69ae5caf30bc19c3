// The player's life and clock: loading, the states of play, the one-shot frame timer, and the
// read-outs.
#include "gif/cGIFViewer.h"

#include <algorithm>
#include <cstdlib>

#include "gif/Form3.h"
#include "gif/FrameExport.h"
#include "platform/toolkit/Error.h"
#include "program/Program.h"

namespace vellumry {

namespace {
constexpr int32_t kStop = 0, kPlay = 1, kPause = 2, kStep = 3, kDraw = 4;
constexpr int16_t kLeastDelay = 10;
}  // namespace

cGIFViewer::cGIFViewer(Program& program) : program_(program) {}

cGIFViewer::~cGIFViewer() { UnloadGIF(); }

int32_t cGIFViewer::LoadGIF(const std::string& gifFileName, int32_t ViewerID,
                            IGifRender* GIFRenderInterface, tk::EventLoop* timerHwnd) {
  UnloadGIF();
  m_ViewerID = ViewerID;
  int32_t count = ReadGifFile(gifFileName, m_Gif);
  if (count == 0) {
    UnloadGIF();
    return 0;
  }
  if (!GIFRenderInterface || !timerHwnd) {
    count = -count;
  } else {
    // The timer calls back into this very object. A still picture never arms it, but keeps the
    // callback, and with it its background.
    m_Render = GIFRenderInterface;
    m_TimerHwnd = timerHwnd;
    m_Callback = true;
  }
  if (m_Render) m_Render->Rendered(m_ViewerID, 1, 1, 0);
  StripProgress progress;
  if (m_Render) {
    // The first frame shows at once, without arming the timer.
    progress.FirstFrame = [this] { TimerProc(false); };
    progress.FrameLoaded = [this](int32_t FrameIndex, int32_t Percent) {
      m_Render->Rendered(m_ViewerID, FrameIndex, 1, Percent);
    };
  }
  if (!BuildStrip(m_Gif, m_Strip, progress)) {
    UnloadGIF();
    return 0;
  }
  m_Gif.m_FileData = {};
  m_Gif.m_Spans = {};
  if (m_Render) m_Render->Rendered(m_ViewerID, std::abs(count), 1, 100);
  return count;
}

void cGIFViewer::UnloadGIF() {
  KillTimer();
  m_Callback = false;
  m_Render = nullptr;
  m_TimerHwnd = nullptr;
  m_State = 0;
  m_Index = 0;
  m_Cache = {};
  m_Gif = {};
  m_Strip = {};
}

int32_t cGIFViewer::FrameProperty(int32_t Index, int32_t propId) const {
  if (Index < 1 || Index > frameCount()) return 0;
  const GifFrame& f = frame(Index);
  switch (propId) {
    case 0:
      return std::max<int32_t>(f.Delay, m_MinDelay);
    case 1:
      return f.Left;
    case 2:
      return f.Top;
    case 3:
      return f.Width;
    case 4:
      return f.Height;
    case 5:
      return f.Disposal;
    case 6:
      return frameCount();
    default:
      return 0;
  }
}

int32_t cGIFViewer::WindowBkgColor() const {
  // Without a global table row 0 is all 0.
  if (m_Gif.m_Palettes.empty()) return 0;
  const uint32_t rgb = m_Gif.m_Palettes[0][m_Gif.m_BkgIndex];
  // 0x00RRGGBB to 0x00BBGGRR.
  return static_cast<int32_t>(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
}

void cGIFViewer::setLoopCount(int32_t newCount) {
  m_Gif.m_LoopCount = newCount == -1 ? 0 : (newCount & 0xFFFF);
}

void cGIFViewer::setMinimumDelay(int32_t newMinimum) {
  m_MinDelay = std::max(static_cast<int16_t>(newMinimum), kLeastDelay);
}

void cGIFViewer::setAnimationState(int32_t Action) {
  if (!m_Render) return;
  if (Action < kStop || Action > kDraw) Action = kStop;
  const int32_t n = frameCount();
  switch (Action) {
    case kStop:
    case kPause:
      if (n == 1 || m_State == kPause) {
        m_State = kStop;
      } else {
        if (m_State == kPlay) KillTimer();
        m_State = Action;
      }
      break;
    case kPlay:
      if (m_State == kPlay) break;
      if (m_State == kStop) {
        m_LoopsDone = 0;
        m_Index = 1;
      } else {
        m_Index += 1;
      }
      playSteps();
      break;
    case kStep:
      if (n == 1) {
        m_State = kStop;
      } else if (m_State == kPlay) {
        // Out of playing the frame on screen is drawn again, not the next one.
        KillTimer();
        m_LoopsDone = 0;
        m_State = kStep;
      } else {
        m_Index += 1;
        m_State = kStep;
      }
      drawCurrent();
      break;
    case kDraw:
      drawCurrent();
      break;
  }
}

void cGIFViewer::playSteps() {
  m_State = kPlay;
  drawCurrent();
  Form3& window = program_.Form3();
  if (frameCount() <= 1) {
    m_State = kStop;
    m_Render->Rendered(m_ViewerID, 1, 2, 1);
    window.setVisible(false);
    tk::controlOf<tk::Timer>(program_.Form2.form(), "Timer3").setEnabled(true);
  } else {
    window.setVisible(true);
    window.Timer1.setEnabled(true);
    SetTimer();
  }
}

void cGIFViewer::drawCurrent() {
  if (m_Index > frameCount() || m_Index < 1) m_Index = 1;
  gdi::Surface* destDC = nullptr;
  RefreshWindow hwndRefresh;
  bool PostNotify = false;
  m_Render->GetRenderDC(m_ViewerID, m_Index, destDC, hwndRefresh, PostNotify);
  if (destDC) {
    DrawFrame(m_Index, destDC, hwndRefresh, PostNotify, true, m_Cache.DestX, m_Cache.DestY,
              m_Cache.DestCx, m_Cache.DestCy, m_Cache.Mode);
  }
}

void cGIFViewer::TimerProc(bool fromTimer) {
  if (fromTimer) KillTimer();
  const int32_t n = frameCount();
  bool wrapped = false;
  if (++m_Index > n) {
    m_Index = 1;
    wrapped = true;
  }
  drawCurrent();
  bool more = false;
  if (n != 1) {
    more = true;
    if (wrapped && LoopCount() != 0 && ++m_LoopsDone == LoopCount()) {
      m_State = kStop;
      more = false;
    }
  } else {
    m_LoopsDone = 1;
    m_State = kStop;
  }
  if (!fromTimer) return;
  if (more)
    SetTimer();
  else
    m_Render->Rendered(m_ViewerID, m_Index, 2, m_LoopsDone);
}

gdi::Picture cGIFViewer::FrameImage(int32_t Index, int32_t PicType) {
  const bool wasPlaying = m_State == kPlay;
  if (wasPlaying) m_State = kPause;
  gdi::Picture picture = vellumry::FrameImage(m_Gif, m_Strip, Index, PicType);
  if (wasPlaying) m_State = kPlay;
  return picture;
}

void cGIFViewer::FramePalette(int32_t Index, ColorRow& palette) const {
  vellumry::FramePalette(m_Gif, Index, palette);
}

void cGIFViewer::SetTimer() {
  if (!m_TimerHwnd || !m_Callback) return;
  // A one-shot: TimerProc stops it and arms the next frame's after drawing.
  m_Timer = m_TimerHwnd->startTimer(FrameProperty(m_Index, 0), [this] { TimerProc(true); });
}

void cGIFViewer::KillTimer() {
  if (m_TimerHwnd && m_Timer) m_TimerHwnd->stopTimer(m_Timer);
  m_Timer = 0;
}

}  // namespace vellumry
