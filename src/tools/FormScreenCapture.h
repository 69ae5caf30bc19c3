#pragma once
// Shown at each minimising: it stands to the left of the screen for a moment and unloads
// itself when it is activated. The picture of the screen it takes comes with the marking of
// files.

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
