#pragma once
// The GIF window: lies inside the viewer Form2 as large as the screen, plays an animated GIF
// on picBkg with a small panel of play buttons, and passes the viewer's keys on to Form2. It
// shows only while a GIF of two or more frames plays.

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "gif/IGifRender.h"
#include "gif/cGIFViewer.h"
#include "platform/gdi/Surface.h"
#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/ControlArray.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/ScrollBar.h"

namespace vellumry {

class Form2;
class Program;

class Form3 : public tk::Form, public IGifRender {
 public:
  explicit Form3(Program& program);

  tk::PictureBox picBkg{this, "picBkg"};
  tk::Frame Framep{this, "Framep"};
  tk::ControlArray<tk::CommandButton> cmdAction{this, "cmdAction"};
  tk::ComboBox cboStretchMode{this, "cboStretchMode"};
  tk::ScrollBar VScroll2{this, "VScroll2", tk::Kind::VScrollBar};
  tk::Timer Timer1{this, "Timer1"};
  tk::CommonDialog CD{this, "CD"};

  // The player of the GIF on show; null between GIFs.
  std::unique_ptr<cGIFViewer> gifViewer;
  bool bPaused = false, bHalted = false;
  // The last "animation over" message of the player: frame on screen and loops played; kept
  // for the driver, which reads it as Form3.lOverFrame and Form3.lOverLoops.
  int32_t lOverFrame = 0, lOverLoops = 0;

  void pLoad(const std::string& sFileName);
  // The two display sizes: filling the screen, or shrunk to fit if needed; both play on.
  void pP();
  void pM();
  // 0 stop, 1 play, 2 pause (a second pause plays on), 3 step. `Index` becomes what the
  // player was told.
  void pAction(int& Index);
  void cmdAction_Click(int Index);

  void Form_Load() override;
  void Form_KeyUp(int& KeyCode, int Shift) override;
  void picBkg_Click();
  void picBkg_MouseDown(int Button);
  void Timer1_Timer();

  // IGifRender
  void GetRenderDC(int32_t ViewerID, int32_t FrameIndex, gdi::Surface*& destDC,
                   RefreshWindow& hwndRefresh, bool& PostNotify) override;
  void Rendered(int32_t ViewerID, int32_t FrameIndex, int32_t Message, intptr_t MsgValue) override;

 private:
  // The animation's place on picBkg: one pixel off each edge, over the window's colour.
  void setBackground(int32_t StretchMode);
  // What stands drawn on picBkg goes; the box shows its colour.
  void clearPicture();
  // Back to the normal size and a bare box, then the viewer's step to another file.
  void leaveFor(void (Form2::*move)());
  void addFields();

  Program& program_;
  // What stands drawn on picBkg, a pixel a pixel.
  gdi::Surface canvas_;
};

}  // namespace vellumry
