#pragma once
// The About panel: a small borderless window, always on top, that rises out of the bottom right
// corner of the screen, stays 20 seconds (or until "Close") and sinks back. Its menu entry is
// greyed while it stands, so there is only ever one.

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/PictureControls.h"

namespace vellumry {

class Program;

class About : public tk::Form {
 public:
  explicit About(Program& program);

  tk::PictureBox Picture1{this, "Picture1"};
  tk::Label Label3{this, "Label3"};
  tk::Label Label1{this, "Label1"};
  tk::CommandButton bHome{this, "bHome"};
  tk::CommandButton Command1{this, "Command1"};
  tk::Timer Timer1{this, "Timer1"};  // rising
  tk::Timer Timer2{this, "Timer2"};  // sinking
  tk::Timer Timer3{this, "Timer3"};  // the stay

  void Form_Load() override;
  void Timer1_Timer();
  void Timer2_Timer();
  void Timer3_Timer();
  void Command1_Click();
  void bHome_Click();

 private:
  Program& program_;
};

// The menu's About entry: greys the entry and lets the panel rise.
void mnuAbout_Click(Program& program);

}  // namespace vellumry
