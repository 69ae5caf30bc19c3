#pragma once
// A small form and a program around it, shown by a presenter, for the presenter's tests. The
// program runs on the virtual clock unless a test asks for the real one.

#include <gtest/gtest.h>

#include <QApplication>
#include <memory>
#include <string>
#include <vector>

#include "platform/gdi/Picture.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/Presenter.h"
#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/ControlArray.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/FormSlot.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/Menu.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/Runtime.h"
#include "platform/toolkit/ScrollBar.h"
#include "toolkit/EventLine.h"

// A form with one control of each kind the presenter shows, writing down what it sees.
class PanelForm : public vellumry::tk::Form {
 public:
  PanelForm(vellumry::tk::Runtime& rt, std::vector<std::string>& log,
            std::string name = "PanelForm")
      : Form(rt, std::move(name)), log_(log) {
    setBorderStyle(0);
    Move(1500, 3000, 6000, 4500);
    Frame1.Move(150, 300, 3000, 3000);
    Frame1.setBorderStyle(0);
    Frame1.setBackColor(0x00FF0000);
    List1.setContainer(&Frame1);
    List1.Move(150, 150, 1500, 1500);
    Command1.Move(3300, 150, 1200, 450);
    Command1.setCaption("Go");
    Check1.Move(3300, 750, 1200, 300);
    Text1.Move(3300, 1200, 1200, 300);
    VScroll1.Move(5700, 0, 255, 3000);
    VScroll1.setMax(10);
    Tabs1.addTab("One");
    Tabs1.addTab("Two");
    Tabs1.Move(3300, 1650, 2000, 400);
    Label1.Move(3300, 2100, 1500, 300);
    Label1.setCaption("label");
    Image1(0).Move(3300, 2700, 600, 600);
    Image1(0).setStretch(true);
    Shape1.Move(0, 0, 300, 300);

    List1.onClick = [this] { note("List1_Click", List1.ListIndex()); };
    List1.onMouseDown = [this](int b, int, double, double) { note("List1_MouseDown", b); };
    Command1.onClick = [this] { note("Command1_Click"); };
    Check1.onClick = [this] { note("Check1_Click", Check1.Value()); };
    Text1.onChange = [this] { log_.push_back("Text1_Change " + Text1.Text()); };
    VScroll1.onChange = [this] { note("VScroll1_Change", VScroll1.Value()); };
    Tabs1.onClick = [this] { note("Tabs1_Click", Tabs1.selectedItem()); };
    Image1.onMouseDown = [this](int i, int b, int s, double x, double y) {
      note("Image1_MouseDown", i, b, s, static_cast<int>(x), static_cast<int>(y));
    };
    Image1.onMouseUp = [this](int i, int b, int, double, double) { note("Image1_MouseUp", i, b); };
    Image1.onClick = [this](int i) { note("Image1_Click", i); };
    Image1.onDblClick = [this](int i) { note("Image1_DblClick", i); };
    Timer1.onTimer = [this] { ++ticks; };
  }
  void Form_Resize() override { note("Form_Resize", WindowState()); }
  void Form_QueryUnload(int& cancel, int mode) override {
    note("Form_QueryUnload", mode);
    cancel = cancelUnload;
  }
  void Form_Click() override { note("Form_Click"); }
  void Form_KeyDown(int& k, int shift) override { note("Form_KeyDown", k, shift); }
  void Form_KeyUp(int& k, int shift) override { note("Form_KeyUp", k, shift); }

  int cancelUnload = 0;
  int ticks = 0;
  vellumry::tk::Frame Frame1{this, "Frame1"};
  vellumry::tk::ListBox List1{this, "List1"};
  vellumry::tk::CommandButton Command1{this, "Command1"};
  vellumry::tk::CheckBox Check1{this, "Check1"};
  vellumry::tk::TextBox Text1{this, "Text1"};
  vellumry::tk::ScrollBar VScroll1{this, "VScroll1"};
  vellumry::tk::TabStrip Tabs1{this, "Tabs1"};
  vellumry::tk::Label Label1{this, "Label1"};
  vellumry::tk::ControlArray<vellumry::tk::Image> Image1{this, "Image1"};
  vellumry::tk::Shape Shape1{this, "Shape1"};
  vellumry::tk::Timer Timer1{this, "Timer1"};

 private:
  template <class... N>
  void note(std::string event, N... numbers) {
    log_.push_back(eventLine(std::move(event), numbers...));
  }
  std::vector<std::string>& log_;
};

// One program of one PanelForm, shown by a presenter.
struct QtProgram {
  explicit QtProgram(vellumry::tk::EventLoop::Clock clock = vellumry::tk::EventLoop::Clock::Virtual)
      : runtime(vellumry::tk::Screen::ofPixels(800, 600), host, clock),
        panel(runtime, [this] { return std::make_unique<PanelForm>(runtime, log); }) {
    presenter = std::make_unique<vellumry::presenter::Presenter>(runtime);
  }
  ~QtProgram() { presenter.reset(); }

  PanelForm& form() { return panel(); }
  vellumry::presenter::FormWindow& window() { return *presenter->window(panel()); }
  template <class W>
  W* widgetOf(const vellumry::tk::Control& c) {
    return qobject_cast<W*>(presenter->widget(c));
  }
  // How often `line` was written down.
  int count(const std::string& line) const {
    return static_cast<int>(std::count(log.begin(), log.end(), line));
  }

  vellumry::tk::HeadlessHost host;
  vellumry::tk::Runtime runtime;
  std::vector<std::string> log;
  vellumry::tk::FormSlot<PanelForm> panel;
  std::unique_ptr<vellumry::presenter::Presenter> presenter;
};

// A bitmap picture of `w` x `h` pixels of one colour (0xAARRGGBB).
inline vellumry::gdi::Picture solidPicture(int w, int h, uint32_t argb) {
  vellumry::gdi::Surface s(w, h, vellumry::gdi::AlphaMode::kOpaque);
  for (uint32_t& p : s.Pixels()) p = argb;
  return vellumry::gdi::Picture::fromSurface(std::move(s));
}
