#pragma once
// The GIF viewer window. For now only the window and the timer that restoring enables.

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/Form.h"
#include "program/Program.h"

namespace vellumry {

class Form3 : public tk::Form {
 public:
  explicit Form3(Program& program) : Form(program.runtime, "Form3") { setBorderStyle(0); }
  tk::Timer Timer1{this, "Timer1"};
  tk::CommonDialog CD{this, "CD"};
};

}  // namespace vellumry
