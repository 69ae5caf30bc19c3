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

struct TestProgram;

// A form that writes down every event it sees.
class LogForm : public vellumry::tk::Form {
 public:
  LogForm(vellumry::tk::Runtime& rt, std::vector<std::string>& log)
      : Form(rt, "LogForm"), log_(log) {
    List1.onClick = [this] { log_.push_back("List1_Click " + std::to_string(List1.ListIndex())); };
    Label1.onChange = [this] { log_.push_back("Label1_Change " + Label1.Caption()); };
    VScroll1.onChange = [this] {
      log_.push_back("VScroll1_Change " + std::to_string(VScroll1.Value()));
    };
    Image1.onClick = [this](int i) { log_.push_back("Image1_Click " + std::to_string(i)); };
    Image1.onDblClick = [this](int i) { log_.push_back("Image1_DblClick " + std::to_string(i)); };
    Image1.onMouseDown = [this](int i, int b, int, double, double) {
      log_.push_back("Image1_MouseDown " + std::to_string(i) + " " + std::to_string(b));
    };
    Image1.onMouseUp = [this](int i, int b, int, double, double) {
      log_.push_back("Image1_MouseUp " + std::to_string(i) + " " + std::to_string(b));
    };
    Command1.onClick = [this] { log_.push_back("Command1_Click"); };
    Command1.onKeyUp = [this](int& k, int) {
      log_.push_back("Command1_KeyUp " + std::to_string(k));
    };
    Timer1.onTimer = [this] {
      log_.push_back("Timer1_Timer " + std::to_string(runtime().loop().now()));
    };
    Timer2.onTimer = [this] {
      log_.push_back("Timer2_Timer " + std::to_string(runtime().loop().now()));
    };
  }
  void Form_Load() override { log_.push_back("Form_Load"); }
  void Form_Activate() override { log_.push_back("Form_Activate"); }
  void Form_Resize() override { log_.push_back("Form_Resize"); }
  void Form_QueryUnload(int& cancel, int) override {
    log_.push_back("Form_QueryUnload");
    cancel = cancelQuery;
  }
  void Form_Unload(int&) override { log_.push_back("Form_Unload"); }
  void Form_KeyUp(int& k, int shift) override {
    log_.push_back("Form_KeyUp " + std::to_string(k) + " " + std::to_string(shift));
    if (swallowKeys) k = 0;
  }
  void Form_Click() override { log_.push_back("Form_Click"); }

  int cancelQuery = 0;
  bool swallowKeys = false;
  vellumry::tk::ListBox List1{this, "List1"};
  vellumry::tk::Label Label1{this, "Label1"};
  vellumry::tk::ScrollBar VScroll1{this, "VScroll1"};
  vellumry::tk::ControlArray<vellumry::tk::Image> Image1{this, "Image1"};
  vellumry::tk::CommandButton Command1{this, "Command1"};
  vellumry::tk::Timer Timer1{this, "Timer1"};
  vellumry::tk::Timer Timer2{this, "Timer2"};
  vellumry::tk::Menu mnuTop{this, "mnuTop", "Top"};
  vellumry::tk::Menu mnuOne{this, "mnuOne", "One"};
  vellumry::tk::Menu mnuSep{this, "mnuSep", "-"};
  vellumry::tk::Menu mnuTwo{this, "mnuTwo", "Two"};

 private:
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
