// The GIF window's life, its play buttons and keys, and what it tells the player.
#include "gif/Form3.h"

#include "platform/gdi/Blit.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/KeyCodes.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "tools/SideText.h"
#include "tools/frmMenu.h"
#include "viewer/Form2.h"

namespace vellumry {

namespace {
constexpr int kStop = 0, kPlay = 1, kPause = 2, kStep = 3;
constexpr int kShrinkToFit = 3, kCentred = 8, kScaleUpAndDown = 1;
constexpr int kFocusDelayMs = 555;
constexpr int kInformationBox = 64;
constexpr int kPixels = 3;
constexpr const char* kCaption = "Sample Multi-GIF Viewer";

struct Button {
  int index;
  double left;
  const char* caption;
  const char* tip;
};
// Left to right in the panel.
constexpr Button kButtons[] = {{kStop, 0, "O", "Stop"},
                               {kPause, 570, "| |", "Pause"},
                               {kStep, 1170, ">>", "Step"},
                               {kPlay, 1770, ">", "Play/Animate"}};
}  // namespace

Form3::Form3(Program& program) : Form(program.runtime, "Form3"), program_(program) {
  const tk::Screen& screen = runtime().screen();
  setBorderStyle(0);
  setKeyPreview(true);
  setCaption(kCaption);
  picBkg.setBorderStyle(0);
  picBkg.Move(0, 0, screen.Width, screen.Height);
  Framep.setBorderStyle(0);
  Framep.Move(0, 0, 2200, 375);
  for (const Button& b : kButtons) {
    tk::CommandButton& button = b.index == 0 ? cmdAction(0) : cmdAction.Load(b.index);
    button.setContainer(&Framep);
    button.Move(b.left, 0, 465, 405);
    button.setCaption(b.caption);
    button.setToolTipText(b.tip);
    button.setVisible(true);
  }
  for (const char* mode :
       {"Clip Image", "Scale Up And Down", "Stretch", "Shrink To Fit If Needed!"})
    cboStretchMode.AddItem(mode);
  cboStretchMode.setVisible(false);
  VScroll2.setContainer(&picBkg);
  VScroll2.setLeft(-500);
  Timer1.setInterval(kFocusDelayMs);
  Timer1.setEnabled(false);

  cmdAction.onClick = [this](int index) { cmdAction_Click(index); };
  picBkg.onClick = [this] { picBkg_Click(); };
  picBkg.onMouseDown = [this](int button, int, double, double) { picBkg_MouseDown(button); };
  Timer1.onTimer = [this] { Timer1_Timer(); };
  addFields();
}

void Form3::addFields() {
  tk::FieldTable& f = fields();
  f.add("bPaused", bPaused);
  f.add("bHalted", bHalted);
  f.add("lOverFrame", lOverFrame);
  f.add("lOverLoops", lOverLoops);
}

void Form3::Form_Load() {
  const tk::Screen& screen = runtime().screen();
  setBackColor(program_.mainWindow().Frame1.BackColor());
  picBkg.setBackColor(BackColor());
  Framep.setLeft(screen.Width - Framep.Width());
  Framep.setTop(0);
  setScaleMode(kPixels);
  picBkg.setScaleMode(kPixels);
  cboStretchMode.setListIndex(kShrinkToFit);
  Framep.setVisible(program_.viewer.sAniGif() == "1");
}

void Form3::pLoad(const std::string& sFileName) {
  // The new animation starts on a bare picture box, not over the last frame of the one before.
  clearPicture();
  gifViewer = std::make_unique<cGIFViewer>(program_);
  const int32_t n = gifViewer->LoadGIF(sFileName, 0, this, &runtime().loop());
  if (n >= 1) {
    gifViewer->setAnimationState(kPlay);
  } else {
    gifViewer.reset();
  }
}

void Form3::GetRenderDC(int32_t, int32_t, gdi::Surface*& destDC, RefreshWindow& hwndRefresh,
                        bool&) {
  const int w = static_cast<int>(picBkg.ScaleWidth()), h = static_cast<int>(picBkg.ScaleHeight());
  if (canvas_.Width() != w || canvas_.Height() != h) {
    canvas_ = gdi::Surface(w, h, gdi::AlphaMode::kOpaque);
    gdi::fill(canvas_, {0, 0, w, h}, tk::pixelOf(picBkg.BackColor()));
  }
  destDC = &canvas_;
  hwndRefresh = [this](gdi::Rect) {
    picBkg.setPicture(gdi::Picture::fromSurface(canvas_, runtime().screen().TwipsPerPixelX));
  };
}

void Form3::Rendered(int32_t, int32_t FrameIndex, int32_t Message, intptr_t MsgValue) {
  if (Message == 2) {
    lOverFrame = FrameIndex;
    lOverLoops = static_cast<int32_t>(MsgValue);
  }
  if (Message != 1) return;
  setCaption("Loading... " + std::to_string(FrameIndex) + ", " + std::to_string(MsgValue) +
             "% complete");
  if (MsgValue == 100) setCaption(kCaption);
  if (MsgValue == 0) setBackground(cboStretchMode.ListIndex() + kCentred);
}

void Form3::setBackground(int32_t StretchMode) {
  if (!gifViewer) return;
  // A rebuilt cache starts from the background, around it as much as under it: nothing of
  // what the old size drew stays on the picture box.
  gdi::fill(canvas_, {0, 0, canvas_.Width(), canvas_.Height()}, tk::pixelOf(picBkg.BackColor()));
  // The form counts in pixels.
  const auto px = [](double pixels) { return static_cast<int32_t>(tk::roundHalfEven(pixels)); };
  gifViewer->SetAnimationBkg(0, {.color = static_cast<int32_t>(picBkg.BackColor())},
                             px(picBkg.Left()) + 1, px(picBkg.Top()) + 1, px(picBkg.Width()) - 2,
                             px(picBkg.Height()) - 2, StretchMode, -1, -1);
}

void Form3::clearPicture() {
  canvas_ = {};
  picBkg.setPicture({});
}

void Form3::pAction(int& Index) {
  VScroll2.SetFocus();
  if (Index == kPause) {
    if (!bPaused) {
      bPaused = true;
    } else if (!bHalted) {
      Index = kPlay;
      bPaused = false;
    }
  } else if (Index == kPlay) {
    bPaused = false;
    bHalted = false;
  } else if (Index == kStop || Index == kStep) {
    bHalted = true;
    bPaused = false;
  }
  if (gifViewer) gifViewer->setAnimationState(Index);
}

void Form3::cmdAction_Click(int Index) { pAction(Index); }

void Form3::pP() {
  program_.viewer.bBigPlay_ = true;
  setBackground(kScaleUpAndDown + kCentred);
  int action = kPause;
  pAction(action);
  setBackground(kScaleUpAndDown + kCentred);
  action = kPlay;
  pAction(action);
  VScroll2.SetFocus();
}

void Form3::pM() {
  program_.viewer.bBigPlay_ = false;
  cboStretchMode.setListIndex(kShrinkToFit);
  clearPicture();
  int action = kPause;
  pAction(action);
  setBackground(kShrinkToFit + kCentred);
  action = kPause;
  pAction(action);
  setBackground(kShrinkToFit + kCentred);
  action = kPlay;
  pAction(action);
  VScroll2.SetFocus();
}

void Form3::Form_KeyUp(int& KeyCode, int) {
  VScroll2.SetFocus();
  Form2& viewer = program_.Form2();
  int pause = kPause;
  switch (KeyCode) {
    case tk::key::Down:
      VScroll2.SetFocus();
      pAction(pause);
      pP();
      return;
    case tk::key::Up:
      VScroll2.SetFocus();
      pM();
      return;
    case tk::key::F1:
      runtime().MsgBox(std::string(kFastKeyText), kInformationBox, std::string(kFastKeyTitle));
      return;
    case tk::key::Esc:
      viewer.Unload();
      program_.Form1.form().Show();
      return;
  }
  if (program_.mainWindow().File2.ListCount() < 2) return;
  switch (KeyCode) {
    case tk::key::Right:
    case tk::key::Alt:
      leaveFor(&Form2::pbUp);
      break;
    case tk::key::Left:
    case tk::key::Ctrl:
      leaveFor(&Form2::pbDown);
      break;
    case tk::key::Space:
      viewer.pSlideshow();
      break;
  }
}

void Form3::leaveFor(void (Form2::*move)()) {
  pM();
  VScroll2.SetFocus();
  clearPicture();
  (program_.Form2().*move)();
}

void Form3::picBkg_Click() {
  Unload();
  program_.Form2.form().Unload();
}

void Form3::picBkg_MouseDown(int Button) {
  if (Button != tk::user::kRightButton) return;
  pRefreshSideMenu(program_);
  PopupMenu(program_.frmMenu().mnuSaveimg2);
}

void Form3::Timer1_Timer() {
  Timer1.setEnabled(false);
  if (Visible()) VScroll2.SetFocus();
}

}  // namespace vellumry
