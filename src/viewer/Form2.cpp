#include "viewer/Form2.h"

#include "platform/toolkit/KeyCodes.h"
#include "program/Program.h"

namespace vellumry {

Form2::Form2(Program& program) : Form(program.runtime, "Form2"), program_(program) {
  setBorderStyle(0);
  setKeyPreview(true);
}

void Form2::Form_KeyUp(int& KeyCode, int) {
  if (KeyCode != tk::key::Esc) return;
  Unload();
  program_.Form1.form().Show();
}

void Form2::Form_Unload(int&) {
  // Form3 lies inside the viewer and goes with it.
  if (tk::Form* gifWindow = program_.Form3.peekForm()) gifWindow->Unload();
  program_.viewer.ViewerUp = ViewerState::kGrid;
}

}  // namespace vellumry
