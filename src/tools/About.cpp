#include "tools/About.h"

#include "picture/PlainLoader.h"
#include "platform/toolkit/Error.h"
#include "program/Program.h"
#include "program/mTop.h"
#include "tools/frmMenu.h"

namespace vellumry {

namespace {
constexpr uint32_t kGreen = 0x0080FF80;
constexpr double kStep = 100;         // twips a tick, both ways
constexpr double kAboveBottom = 250;  // where the panel stops rising
constexpr double kWidth = 5415, kHeight = 4215;
}  // namespace

About::About(Program& program) : Form(program.runtime, "About"), program_(program) {
  setBorderStyle(0);
  setFontName("Arial");
  setFontSize(8);
  Move(0, 0, kWidth, kHeight);
  Picture1.Move(0, 0, kWidth, kHeight);
  Picture1.setBorderStyle(0);
  Picture1.setBackColor(0x00302010);
  for (tk::Label* label : {&Label3, &Label1}) {
    label->setContainer(&Picture1);
    label->setForeColor(kGreen);
    label->setBackStyle(0);
  }
  Label3.Move(3240, 480, 1845, 285);
  Label3.setCaption("Vellumry Ostrel1");
  Label1.Move(2400, 3120, 1920, 240);
  Label1.setCaption("By the Vellumry team");
  bHome.setContainer(&Picture1);
  bHome.Move(2760, 3755, 1215, 255);
  bHome.setCaption("Home Page");
  bHome.setToolTipText("There are other products on my website");
  Command1.setContainer(&Picture1);
  Command1.Move(4320, 3720, 855, 255);
  Command1.setCaption("Close");
  for (tk::Timer* t : {&Timer1, &Timer2, &Timer3}) t->setEnabled(false);
  Timer1.setInterval(50);
  Timer2.setInterval(50);
  Timer3.setInterval(20000);

  Timer1.onTimer = [this] { Timer1_Timer(); };
  Timer2.onTimer = [this] { Timer2_Timer(); };
  Timer3.onTimer = [this] { Timer3_Timer(); };
  Command1.onClick = [this] { Command1_Click(); };
  bHome.onClick = [this] { bHome_Click(); };
}

void About::Form_Load() {
  // Our own picture lies beside the program; without it the panel shows its colour alone.
  tk::resumeNext([&] {
    Picture1.setPicture(
        LoadPicture(program_.pictures(), program_.shell.sDataDir() + "/ui/about.jpg"));
  });
  pSettop(*this);
  const tk::Screen& screen = runtime().screen();
  setTop(screen.Height);
  setLeft(screen.Width - Width());
}

void About::Timer1_Timer() {
  if (runtime().screen().Height - (Height() + kAboveBottom) >= Top()) Timer1.setEnabled(false);
  setTop(Top() - kStep);
}

void About::Timer3_Timer() {
  Timer2.setEnabled(true);
  Timer3.setEnabled(false);
}

void About::Command1_Click() { Timer2.setEnabled(true); }

void About::Timer2_Timer() {
  if (Top() >= runtime().screen().Height) {
    Timer2.setEnabled(false);
    program_.frmMenu().mnuAbout.setEnabled(true);
    Unload();
    return;
  }
  setTop(Top() + kStep);
}

void About::bHome_Click() {
  // The project's own page travels with the program.
  program_.runtime.host().open(program_.shell.sDataDir() + "/help/index.html");
}

void mnuAbout_Click(Program& program) {
  program.frmMenu().mnuAbout.setEnabled(false);
  About& panel = program.About();
  panel.Show();
  panel.Timer1.setEnabled(true);
  panel.Timer3.setEnabled(true);
}

}  // namespace vellumry
