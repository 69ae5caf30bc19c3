#include "tools/FormScreenCapture.h"

#include "program/Program.h"

namespace vellumry {

FormScreenCapture::FormScreenCapture(Program& program)
    : Form(program.runtime, "FormScreenCapture"), program_(program) {
  setBorderStyle(0);
  setBackColor(0x00C0C0C0);
}

void FormScreenCapture::Form_Load() {
  const tk::Screen& screen = runtime().screen();
  if (program_.tools.delShotH == 0 || !program_.tools.delShot) {
    setWidth(screen.Width);
    setHeight(screen.Height);
  } else {
    program_.runtime.host().Beep();
    setWidth(program_.tools.delShotW);
    setHeight(program_.tools.delShotH);
  }
  setLeft(-Width());
}

}  // namespace vellumry
