#include "shell/Form0.h"

#include "gif/Form3.h"
#include "program/Program.h"
#include "shell/Form1.h"
#include "viewer/Form2.h"

namespace vellumry {

Form0::Form0(Program& program) : Form(program.runtime, "Form0"), program_(program) {
  setCaption("Vellumry Ostrel");
  setBorderStyle(0);
}

void Form0::Form_Load() {
  const tk::Screen& screen = runtime().screen();
  setWidth(screen.Width);
  setHeight(screen.Height);
  setLeft(-Width());
  program_.Form1().Show();
}

void Form0::Form_Resize() {
  Program& p = program_;
  if (WindowState() != 0) {
    p.Form1().setVisible(false);
    if (p.viewer.ViewerUp() != ViewerState::kGrid)
      p.Form2().setVisible(false);  // Form3 lies inside Form2
    return;
  }
  setLeft(-Width());
  p.Form1().setVisible(true);
  if (p.viewer.ViewerUp() == ViewerState::kGrid) return;
  p.Form2().setVisible(true);
  if (p.viewer.ViewerUp() == ViewerState::kViewer)
    p.Form2().Timer3.setEnabled(true);
  else
    p.Form3().Timer1.setEnabled(true);
}

void Form0::Form_Unload(int& Cancel) {
  Program& p = program_;
  setWindowState(0);
  if (p.viewer.ViewerUp() != ViewerState::kGrid) {
    if (auto* f3 = p.Form3.peek()) f3->Unload();
    if (auto* f2 = p.Form2.peek()) f2->Unload();
  }
  p.viewer.setViewerUp(ViewerState::kGrid);
  Form_Resize();
  p.Form1().Unload();
  Cancel = 1;  // stays until pQuit ends the program
}

}  // namespace vellumry
