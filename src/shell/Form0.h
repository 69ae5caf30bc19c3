#pragma once
// The owner of the task-bar entry. It lies one screen to the left of the screen; minimising and
// restoring the program run through its Resize.

#include "platform/toolkit/Form.h"

namespace vellumry {

class Program;

class Form0 : public tk::Form {
 public:
  explicit Form0(Program& program);
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload(int& Cancel) override;

 private:
  Program& program_;
};

}  // namespace vellumry
