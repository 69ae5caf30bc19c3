// The viewer's life, the walk through the file list, its keys and its mouse gestures.
#include "viewer/Form2.h"

#include "platform/toolkit/Input.h"
#include "platform/toolkit/KeyCodes.h"
#include "platform/toolkit/Value.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "tools/SideText.h"
#include "tools/frmMenu.h"
#include "viewer/DecodeAhead.h"

namespace vellumry {

namespace {
constexpr double kParkedLeft = -500, kParkedTop = -1680;
constexpr int kFocusDelayMs = 555;
constexpr int kInformationBox = 64;
}  // namespace

Form2::Form2(Program& program) : Form(program.runtime, "Form2"), program_(program) {
  const tk::Screen& screen = runtime().screen();
  setBorderStyle(0);
  setKeyPreview(true);
  Move(0, 0, screen.Width, screen.Height);
  Image1.setBorderStyle(0);
  Image1.setAutoSize(true);
  Image2.setVisible(false);
  VScroll1.setVisible(false);
  VScroll1.setWidth(kBarThickness);
  HScroll1.setVisible(false);
  HScroll1.setHeight(kBarThickness);
  HScroll1.setLeft(0);
  VScroll2.setLeft(kParkedLeft);
  Shape1.setTop(kParkedTop);
  Timer2.setInterval(kSlideIdleMs);
  Timer2.setEnabled(false);
  Timer3.setInterval(kFocusDelayMs);
  Timer3.setEnabled(false);
  Timer1.setEnabled(false);

  Timer1.onTimer = [this] { Timer1_Timer(); };
  Timer2.onTimer = [this] { Timer2_Timer(); };
  Timer3.onTimer = [this] { Timer3_Timer(); };
  VScroll1.onChange = [this] { VScroll1_Change(); };
  HScroll1.onChange = [this] { HScroll1_Change(); };
  Image1.onDblClick = [this] { Image1_DblClick(); };
  Image1.onMouseDown = [this](int button, int, double x, double y) {
    Image1_MouseDown(button, x, y);
  };
  Image1.onMouseMove = [this](int button, int, double x, double y) {
    Image1_MouseMove(button, x, y);
  };
  Image1.onMouseUp = [this](int button, int, double, double) { Image1_MouseUp(button); };
  addFields();
}

void Form2::addFields() {
  tk::FieldTable& f = fields();
  f.add("bBeep", bBeep);
  f.add("bStopAtEnd", bStopAtEnd);
  f.add("bKeepV", bKeepV);
  f.add("bKeepH", bKeepH);
  f.add("dRatioV", dRatioV);
  f.add("dRatioH", dRatioH);
  f.add("dStepW", dStepW);
  f.add("dStepH", dStepH);
  f.add("lPicW", lPicW);
  f.add("lPicH", lPicH);
  f.add("lDownX", lDownX);
  f.add("lDownY", lDownY);
}

void Form2::Form_Load() {
  const tk::Screen& screen = runtime().screen();
  bKeepV = false;
  bKeepH = false;
  VScroll1.setHeight(screen.Height);
  VScroll1.setLeft(screen.Width - kBarThickness);
  HScroll1.setWidth(screen.Width - kBarThickness);
  HScroll1.setTop(screen.Height - kBarThickness);
  setBackColor(program_.mainWindow().Frame1.BackColor());
  Image1.setBackColor(BackColor());
  // The GIF window lies inside the viewer's window, as large as the screen.
  program_.Form3.form().SetParent(this);
  program_.Form3.form().Move(0, 0, screen.Width, screen.Height);
  Timer1.setEnabled(true);
  Timer1.setInterval(1);
  pGetPicture();
  // Both are on unless the setting says exactly "0"; a missing key counts as on.
  bBeep = program_.readSetting("beeps") != "0";
  bStopAtEnd = program_.readSetting("sautor") != "0";
}

void Form2::pGetPicture() {
  Form1Controls& f = program_.mainWindow();
  const int i = f.File2.ListIndex() + 1;
  const std::string name = f.File2.FileName();
  const std::string ext = tk::toUpper(name.size() > 3 ? name.substr(name.size() - 3) : name);
  const gdi::Picture source = heldPicture(program_, i);
  if (ext == "GIF" || ext == "BMP") {
    // A flat bitmap of what the box shows, transparent parts over the viewer's colour.
    Image1.setPicture(source);
    Image2.setPicture(Image1.Image());
  } else {
    Image2.setPicture(source);
  }
  if (ext == "GIF") {
    // The still picture stands behind; the GIF window covers it if the file is animated.
    // In the GIF window's pixels.
    auto& surface = tk::controlOf<tk::PictureBox>(program_.Form3.form(), "picBkg");
    surface.setWidth(program_.shell.vScreenPxW());
    surface.setHeight(program_.shell.vScreenPxH());
    program_.playGif(f.File2.Path() + "/" + name);
  } else {
    program_.Form3.form().setVisible(false);
  }
}

void Form2::leavePicture() {
  bKeepV = false;
  bKeepH = false;
  Image1.setVisible(false);
  VScroll1.setVisible(false);
  HScroll1.setVisible(false);
}

void Form2::pNext() {
  Form1Controls& f = program_.mainWindow();
  leavePicture();
  if (f.File2.ListIndex() == f.File2.ListCount() - 1) f.File2.setListIndex(-1);
  f.File2.setListIndex(f.File2.ListIndex() + 1);
  Timer1.setInterval(1);
  pGetPicture();
}

void Form2::pPrev() {
  Form1Controls& f = program_.mainWindow();
  leavePicture();
  f.File2.setListIndex(f.File2.ListIndex() - 1);
  if (f.File2.ListIndex() == -1) f.File2.setListIndex(f.File2.ListCount() - 1);
  Timer1.setInterval(1);
  pGetPicture();
}

void Form2::stepWithEndRules(const std::function<bool()>& atEnd, void (Form2::*move)()) {
  if (!(atEnd() && bStopAtEnd)) (this->*move)();
  // Tested after the move: the beep sounds on arriving, and at every try while it stays there.
  if (atEnd() && bBeep) runtime().host().Beep();
  if (atEnd() && bStopAtEnd) Timer2.setEnabled(false);
}

void Form2::pbUp() {
  const tk::FileListBox& list = program_.mainWindow().File2;
  stepWithEndRules([&] { return list.ListIndex() == list.ListCount() - 1; }, &Form2::pNext);
}

void Form2::pbDown() {
  const tk::FileListBox& list = program_.mainWindow().File2;
  stepWithEndRules([&] { return list.ListIndex() == 0; }, &Form2::pPrev);
}

void Form2::Form_KeyUp(int& KeyCode, int) {
  const bool walks = program_.mainWindow().File2.ListCount() >= 2;
  switch (KeyCode) {
    case tk::key::Right:
      walks ? pbUp() : pZoomIn();
      break;
    case tk::key::Alt:
      if (walks) pbUp();
      break;
    case tk::key::Left:
      walks ? pbDown() : pZoomOut();
      break;
    case tk::key::Ctrl:
      if (walks) pbDown();
      break;
    case tk::key::Down:
      if (walks) VScroll2.SetFocus();
      pZoomIn();
      break;
    case tk::key::Up:
      if (walks) VScroll2.SetFocus();
      pZoomOut();
      break;
    case tk::key::Space:
      if (walks) pSlideshow();
      break;
    case tk::key::F1:
      runtime().MsgBox(std::string(kFastKeyText), kInformationBox, std::string(kFastKeyTitle));
      break;
    case tk::key::Esc:
      Unload();
      program_.Form1.form().Show();
      break;
  }
}

void Form2::pPopup() {
  pRefreshSideMenu(program_);
  PopupMenu(program_.frmMenu().mnuSaveimg2);
}

void Form2::Form_MouseDown(int Button, int, double, double) {
  if (Button == tk::user::kRightButton) pPopup();
}

void Form2::Form_DblClick() { Unload(); }

void Form2::Image1_DblClick() { Unload(); }

void Form2::Form_Unload(int&) {
  if (Timer2.Enabled()) Timer2.setEnabled(false);
  // The GIF window lies inside the viewer and goes with it.
  if (tk::Form* gifWindow = program_.Form3.peekForm()) gifWindow->Unload();
  program_.viewer.setViewerUp(ViewerState::kGrid);
}

}  // namespace vellumry
