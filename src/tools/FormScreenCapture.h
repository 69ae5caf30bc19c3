#pragma once
// One picture a showing: at a minimising, of what the program's windows show, kept by Form0;
// at the marking of a file (delShot), of the thumbnail with the cross, which becomes the cell's
// picture. It stands to the left of the screen and unloads itself when it is activated.

#include "platform/toolkit/Form.h"

namespace vellumry {

class Program;

class FormScreenCapture : public tk::Form {
 public:
  explicit FormScreenCapture(Program& program);
  void Form_Load() override;
  void Form_Activate() override { Unload(); }

 private:
  Program& program_;
};

}  // namespace vellumry
