#include "shell/Form1.h"

#include "platform/os/FileSystem.h"
#include "platform/toolkit/Numbers.h"
#include "program/Program.h"
#include "tools/frmMenu.h"

namespace vellumry {

Form1::Form1(Program& program)
    : Form1Controls(program),
      Grid(program, *this),
      Links(program, *this, *this),
      program_(program) {
  Timer5.onTimer = [this] { Timer5_Timer(); };
  Timer6.onTimer = [this] { Timer6_Timer(); };
  File2.onDblClick = [this] { File2_DblClick(); };
  File2.onMouseDown = [this](int button, int, double, double) { File2_MouseDown(button); };
  Image1.onClick = [this](int i) { Image1_Click(i); };
  Image1.onDblClick = [this](int i) { Image1_DblClick(i); };
  Image1.onMouseDown = [this](int i, int button, int, double, double) {
    Image1_MouseDown(i, button);
  };
  Frame1.onMouseDown = [this](int button, int, double, double) { Frame1_MouseDown(button); };
  List.onMouseDown = [this](int i, int button, int, double, double) { List_MouseDown(i, button); };
  btnmenu.onClick = [this] { btnmenu_Click(); };
  btn.onClick = [this](int i) { btn_Click(i); };
  Image4.onClick = [this] { Image4_Click(); };
  Label3.onClick = [this] { Label3_Click(); };
  Label.onMouseMove = [this](int, int, double, double) { Label_MouseMove(); };
  Timer3.onTimer = [this] { Timer3_Timer(); };
  Timer4.onTimer = [this] { Timer4_Timer(); };
}

void Form1::Form_Load() {
  Program& p = program_;
  const tk::Screen& screen = runtime().screen();
  p.links.setCurLink(-1);
  resetMarkCount();
  pAct();
  Move(0, 0, screen.Width, screen.Height);
  Frame1.Move(0, 0, screen.Width, screen.Height);
  nLoad = 1;
  VScroll1.setSmallChange(1);
  VScroll1.setLargeChange(1);
  VScroll1.setLeft(screen.Width - VScroll1.Width());
  btn(1).setLeft(screen.Width - btn(1).Width());
  if (p.readSetting("showmb") != "0") {
    VScroll1.setHeight(screen.Height - btn(1).Height() - 55);
    VScroll1.setTop(btn(1).Height() + 55);
  } else {
    btn(1).setVisible(false);
    VScroll1.setHeight(screen.Height);
    VScroll1.setTop(0);
  }
  nRolled = 0;
  bLoaded = false;
  p.shell.vScreenPxW_ = p.ConvertTwipsToPixels(tk::CLng(screen.Width), 0);
  p.shell.vScreenPxH_ = p.ConvertTwipsToPixels(tk::CLng(screen.Height), 1);
  Label.setHeight(screen.Height);
  p.shell.sDest_ = p.readSetting("dest");
  // A folder named on the command line is the start folder of this run only.
  if (!p.places.startFolder.empty()) p.shell.sDest_ = p.places.startFolder;
  if (p.shell.sDest_.empty() || !os::FolderExists(p.shell.sDest_))
    p.shell.sDest_ = p.places.picturesFolder;
  File2.setPath(p.shell.sDest_);
  pLoadlist();
  Timer6.setEnabled(true);
  Label3.setCaption(p.readSetting("Inw"));
  Label3.setCaption(Label3.Caption() != ">" ? ">" : "<");
  pPanelWidth();
}

void Form1::pPanelWidth() {
  bool wide = Label3.Caption() != "<";
  Frame2.setWidth(wide ? 3935 : 1935);
  Label3.setCaption(wide ? "<" : ">");
  Label3.setLeft(wide ? 3680 : 1680);
  List(0).setWidth(wide ? 3815 : 1815);
  File2.setWidth(wide ? 3815 : 1815);
}

void Form1::Timer5_Timer() {
  Timer5.setEnabled(false);
  if (Enabled()) btnmenu.SetFocus();
}

void Form1::Timer6_Timer() {
  Timer6.setEnabled(false);
  Image2_Click();
  if (File2.ListCount() < 1) {
    int answer = runtime().MsgBox(
        "  No images in the own folder of this record!\r\n\r\nDo you want to close: 'Vellumry'?",
        tk::mb::YesNo + tk::mb::Question, "");
    if (answer == tk::mb::Yes) return runtime().End();
  }
  if (program_.readSetting("showll") != "0" && List(0).ListCount() > 0)
    program_.frmMenu().mnuSllist_Click();
}

void Form1::Form_QueryUnload(int& Cancel, int) {
  program_.writeSetting("Inw", Label3.Caption());
  if (program_.grid.nDeleted() != 0) {
    Cancel = 1;
    pAskDelete(kAskClosing);
  }
}

void Form1::Form_Unload(int&) { program_.pQuit(); }

}  // namespace vellumry
