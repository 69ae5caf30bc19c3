// The keys and mouse gestures of the main window, and the sliding side panel.
#include "platform/toolkit/Input.h"
#include "platform/toolkit/KeyCodes.h"
#include "program/Program.h"
#include "shell/Form1.h"
#include "tools/frmMenu.h"
#include "viewer/DecodeAhead.h"
#include "viewer/Form2.h"

namespace vellumry {

using tk::resumeNext;

namespace {
constexpr int kPanelStep = 100;
}  // namespace

void Form1::Form_KeyUp(int& KeyCode, int) {
  resumeNext([&] {  // a failing key, a help program that can't start for one, ends quietly
    switch (KeyCode) {
      case tk::key::F1:
        program_.pMinimise(ViewerState::kGrid);
        program_.startHelp();
        break;
      case tk::key::Esc:
        Unload();
        break;
      case tk::key::Ctrl:
        if (File2.ListIndex() >= 1) File2.setListIndex(File2.ListIndex() - 1);
        break;
      case tk::key::Alt:
        if (File2.ListIndex() < File2.ListCount() - 1) File2.setListIndex(File2.ListIndex() + 1);
        break;
      case tk::key::Shift:
        if (Timer3.Enabled()) {
          Timer3.setEnabled(false);
          Timer4.setEnabled(true);
        } else if (Frame2.Left() > -1) {
          Timer3.setEnabled(true);
        } else {
          Timer4.setEnabled(true);
        }
        break;
    }
  });
}

void Form1::Form_DblClick() { Unload(); }

void Form1::Image1_Click(int Index) {
  nSel = static_cast<int32_t>(Index);
  File2.SetFocus();
  resumeNext([&] { File2.setListIndex(nSel - 1); });
  resumeNext([&] { pFrameSel(); });
  // A click is often the first half of a double click: the viewer's picture is decoded while
  // the second half comes.
  decodeForViewer(program_, Index);
}

void Form1::Image1_DblClick(int Index) {
  nSel = static_cast<int32_t>(Index);
  resumeNext([&] { File2.setListIndex(nSel - 1); });
  resumeNext([&] { pView(); });
}

void Form1::Image1_MouseDown(int Index, int Button) {
  if (Button != tk::user::kRightButton) return;
  resumeNext([&] { File2.setListIndex(Index - 1); });
  if (!bLoaded) return;
  resumeNext([&] { program_.frmMenu().pDelcaption(); });
  resumeNext([&] { PopupMenu(program_.frmMenu().mnuSaveimg0); });
}

void Form1::File2_DblClick() {
  if (!bLoaded) return;
  resumeNext([&] { pFrameSel(); });
  resumeNext([&] { pView(); });
}

void Form1::File2_MouseDown(int Button) {
  if (Button != tk::user::kRightButton) return;
  frmMenu& menu = program_.frmMenu();
  if (bLoaded) menu.pDelcaption();
  PopupMenu(bLoaded ? menu.mnuSaveimg0 : menu.mnuFimg0);
}

void Form1::Frame1_MouseDown(int Button) {
  if (Button != tk::user::kRightButton) return;
  resumeNext([&] {
    frmMenu& menu = program_.frmMenu();
    menu.mnuSllist.setEnabled(List(0).ListCount() >= 1);
    PopupMenu(menu.mnumenu);
  });
}

void Form1::List_MouseDown(int Index, int Button) {
  if (Index != 0 || Button != tk::user::kRightButton) return;
  PopupMenu(program_.frmMenu().mnuLinkList, tk::popup::RightButton, List(0).Width(),
            List(0).Top() + 55);
}

void Form1::btnmenu_Click() {
  resumeNext([&] {
    frmMenu& menu = program_.frmMenu();
    if (List(0).ListCount() >= 1) {
      menu.mnuSllist.setEnabled(true);
      program_.links.setCurLink(static_cast<int16_t>(List(0).ListIndex()));
    } else {
      menu.mnuSllist.setEnabled(false);
    }
    PopupMenu(menu.mnumenu, tk::popup::RightButton, btnmenu.Left() + btnmenu.Width(),
              btnmenu.Top());
  });
}

void Form1::btn_Click(int Index) {
  if (Index == 0) Timer3.setEnabled(true);
  if (Index == 1) program_.pMinimise(ViewerState::kGrid);
}

void Form1::Image4_Click() { Unload(); }

void Form1::Label3_Click() { pPanelWidth(); }

void Form1::Label_MouseMove() { Timer4.setEnabled(true); }

void Form1::Timer3_Timer() {
  if (Frame2.Left() <= -Frame2.Width()) {
    Timer3.setEnabled(false);
    Label.setVisible(true);
    if (VScroll1.Visible()) VScroll1.SetFocus();
  } else {
    Frame2.setLeft(Frame2.Left() - kPanelStep);
  }
}

void Form1::Timer4_Timer() {
  if (Frame2.Left() >= 0) {
    Timer4.setEnabled(false);
    Label.setVisible(false);
    Frame2.setLeft(0);
  } else {
    Frame2.setLeft(Frame2.Left() + kPanelStep);
  }
}

void Form1::pView() { program_.Form2().Show(); }

}  // namespace vellumry
