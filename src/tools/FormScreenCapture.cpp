#include "tools/FormScreenCapture.h"

#include "shell/Program.h"

namespace vellumry {

FormScreenCapture::FormScreenCapture(Program& program)
    : Form(program.runtime, "FormScreenCapture"), program_(program) {
  setBorderStyle(0);
  setBackColor(0x00C0C0C0);
}

void FormScreenCapture::Form_Load() {
  const tk::Screen& screen = runtime().screen();
  if (program_.delShotH == 0 || !program_.delShot) {
    setWidth(screen.Width);
    setHeight(screen.Height);
  } else {
    program_.runtime.host().Beep();
    setWidth(program_.delShotW);
    setHeight(program_.delShotH);
  }
  setLeft(-Width());
}

}  // namespace vellumry
