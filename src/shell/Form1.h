#pragma once
// The main window whole: its controls, the part of each subsystem that works on them (the
// grid's routines and fields come from Grid, the link list's from Links), and the shell's own part:
// its life from loading to quitting, and the keys and mouse gestures that command it.

#include <cstdint>

#include "grid/Grid.h"
#include "links/Links.h"
#include "program/Form1Controls.h"

namespace vellumry {

class Program;

class Form1 : public Form1Controls, public Grid, public Links {
 public:
  explicit Form1(Program& program);

  // Life (Form1.cpp).
  void Form_Load() override;
  void Form_QueryUnload(int& Cancel, int UnloadMode) override;
  void Form_Unload(int& Cancel) override;
  void pPanelWidth();
  void Timer5_Timer();
  void Timer6_Timer();

  // Keys and mouse (Form1Commands.cpp).
  void Form_KeyUp(int& KeyCode, int Shift) override;
  void Form_DblClick() override;
  void Image1_Click(int Index);
  void Image1_DblClick(int Index);
  void Image1_MouseDown(int Index, int Button);
  void File2_DblClick();
  void File2_MouseDown(int Button);
  void Frame1_MouseDown(int Button);
  void List_MouseDown(int Index, int Button);
  void btnmenu_Click();
  void btn_Click(int Index);
  void Image4_Click();
  void Label3_Click();
  void Label_MouseMove();
  void Timer3_Timer();
  void Timer4_Timer();
  void pView();

 private:
  Program& program_;
};

}  // namespace vellumry
