#pragma once
// Small forms and a program around them for the toolkit's tests.

#include <string>
#include <vector>

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/ControlArray.h"
#include "platform/toolkit/FormSlot.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/Menu.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/Runtime.h"
#include "platform/toolkit/ScrollBar.h"
#include "toolkit/EventLine.h"

// A form that writes down every event it sees.
class LogForm : public vellumry::tk::Form {
 public:
  LogForm(vellumry::tk::Runtime& rt, std::vector<std::string>& log)
      : Form(rt, "LogForm"), log_(log) {
    List1.onClick = [this] { note("List1_Click", List1.ListIndex()); };
    Label1.onChange = [this] { log_.push_back("Label1_Change " + Label1.Caption()); };
    VScroll1.onChange = [this] { note("VScroll1_Change", VScroll1.Value()); };
    Image1.onClick = [this](int i) { note("Image1_Click", i); };
    Image1.onDblClick = [this](int i) { note("Image1_DblClick", i); };
    Image1.onMouseDown = [this](int i, int b, int, double, double) {
      note("Image1_MouseDown", i, b);
    };
    Image1.onMouseUp = [this](int i, int b, int, double, double) { note("Image1_MouseUp", i, b); };
    Command1.onClick = [this] { note("Command1_Click"); };
    Check1.onClick = [this] { note("Check1_Click", Check1.Value()); };
    Command1.onKeyUp = [this](int& k, int) { note("Command1_KeyUp", k); };
    Timer1.onTimer = [this] { note("Timer1_Timer", runtime().loop().now()); };
    Timer2.onTimer = [this] { note("Timer2_Timer", runtime().loop().now()); };
  }
  void Form_Load() override { note("Form_Load"); }
  void Form_Activate() override { note("Form_Activate"); }
  void Form_Resize() override { note("Form_Resize"); }
  void Form_QueryUnload(int& cancel, int) override {
    note("Form_QueryUnload");
    cancel = cancelQuery;
  }
  void Form_Unload(int&) override { note("Form_Unload"); }
  void Form_KeyUp(int& k, int shift) override {
    note("Form_KeyUp", k, shift);
    if (swallowKeys) k = 0;
  }
  void Form_Click() override { note("Form_Click"); }

  int cancelQuery = 0;
  bool swallowKeys = false;
  vellumry::tk::ListBox List1{this, "List1"};
  vellumry::tk::Label Label1{this, "Label1"};
  vellumry::tk::ScrollBar VScroll1{this, "VScroll1"};
  vellumry::tk::ControlArray<vellumry::tk::Image> Image1{this, "Image1"};
  vellumry::tk::CommandButton Command1{this, "Command1"};
  vellumry::tk::CheckBox Check1{this, "Check1"};
  vellumry::tk::Timer Timer1{this, "Timer1"};
  vellumry::tk::Timer Timer2{this, "Timer2"};
  vellumry::tk::Menu mnuTop{this, "mnuTop", "Top"};
  vellumry::tk::Menu mnuOne{this, "mnuOne", "One"};
  vellumry::tk::Menu mnuSep{this, "mnuSep", "-"};
  vellumry::tk::Menu mnuTwo{this, "mnuTwo", "Two"};

 private:
  template <class... N>
  void note(std::string event, N... numbers) {
    log_.push_back(eventLine(std::move(event), numbers...));
  }
  std::vector<std::string>& log_;
};

// A program of one form on the virtual clock, as the system's Program object holds its forms.
struct TestProgram {
  explicit TestProgram(vellumry::tk::Screen screen = {})
      : runtime(screen, host, vellumry::tk::EventLoop::Clock::Virtual),
        form(runtime, [this] { return std::make_unique<LogForm>(runtime, log); }) {}
  vellumry::tk::HeadlessHost host;
  vellumry::tk::Runtime runtime;
  std::vector<std::string> log;
  vellumry::tk::FormSlot<LogForm> form;
};
