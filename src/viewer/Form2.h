#pragma once
// The full-screen viewer. For now the window, the timer that restoring enables, and the way
// out: Esc leaves it for the grid.

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/Form.h"

namespace vellumry {

class Program;

class Form2 : public tk::Form {
 public:
  explicit Form2(Program& program);
  tk::Timer Timer3{this, "Timer3"};
  tk::CommonDialog CD{this, "CD"};

  void Form_KeyUp(int& KeyCode, int Shift) override;
  void Form_Unload(int& Cancel) override;

 private:
  Program& program_;
};

}  // namespace vellumry
