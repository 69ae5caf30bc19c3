#pragma once
// The full-screen viewer. For now only the window and the timer that restoring enables.

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/Form.h"
#include "program/Program.h"

namespace vellumry {

class Form2 : public tk::Form {
 public:
  explicit Form2(Program& program) : Form(program.runtime, "Form2") { setBorderStyle(0); }
  tk::Timer Timer3{this, "Timer3"};
};

}  // namespace vellumry
