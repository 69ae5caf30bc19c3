#pragma once
// The plain controls: frame, label, text box, button, check box, shape and timer.

#include <cstdint>
#include <string>

#include "platform/toolkit/Control.h"
#include "platform/toolkit/EventLoop.h"

namespace vellumry::tk {

// Colours are 0x00BBGGRR; values with the top bit set name system colours.
inline constexpr uint32_t kSystemFace = 0x8000000F;
inline constexpr uint32_t kSystemHighlight = 0x8000000D;
inline constexpr uint32_t kSystemText = 0x80000012;
inline constexpr uint32_t kSystemWindow = 0x80000005, kSystemWindowText = 0x80000008;

class Frame : public Control {
 public:
  Frame(Form* form, std::string name) : Control(form, std::move(name), Kind::Frame) {}
  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& v);
  uint32_t BackColor() const { return backColor_; }
  void setBackColor(uint32_t v);
  int BorderStyle() const { return borderStyle_; }
  void setBorderStyle(int v);
  const std::vector<Property>& properties() const override;

 private:
  std::string caption_;
  uint32_t backColor_ = kSystemFace;
  int borderStyle_ = 1;
};

class Label : public Control {
 public:
  Label(Form* form, std::string name) : Control(form, std::move(name), Kind::Label) {}
  const std::string& Caption() const { return caption_; }
  // Raises Change when the text differs.
  void setCaption(const std::string& v);
  int Alignment() const { return alignment_; }  // 0 left, 1 right, 2 centre
  void setAlignment(int v);
  uint32_t BackColor() const { return backColor_; }
  void setBackColor(uint32_t v);
  uint32_t ForeColor() const { return foreColor_; }
  void setForeColor(uint32_t v);
  int BackStyle() const { return backStyle_; }  // 0 transparent, 1 opaque
  void setBackStyle(int v);
  // Points; 0: the size of the window's text.
  double FontSize() const { return fontSize_; }
  void setFontSize(double v);
  const std::vector<Property>& properties() const override;

 private:
  std::string caption_;
  double fontSize_ = 0;
  int alignment_ = 0, backStyle_ = 1;
  uint32_t backColor_ = kSystemFace, foreColor_ = kSystemText;
};

class TextBox : public Control {
 public:
  TextBox(Form* form, std::string name) : Control(form, std::move(name), Kind::TextBox) {}
  const std::string& Text() const { return text_; }
  // Raises Change when the text differs.
  void setText(const std::string& v);
  bool Locked() const { return locked_; }
  void setLocked(bool v);
  int SelStart() const { return selStart_; }
  void setSelStart(int v) { assign(selStart_, v, prop::SelStart); }
  int SelLength() const { return selLength_; }
  void setSelLength(int v) { assign(selLength_, v, prop::SelLength); }
  bool focusable() const override { return true; }
  const std::vector<Property>& properties() const override;

 private:
  std::string text_;
  bool locked_ = false;
  int selStart_ = 0, selLength_ = 0;
};

class CommandButton : public Control {
 public:
  CommandButton(Form* form, std::string name)
      : Control(form, std::move(name), Kind::CommandButton) {}
  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& v);
  // A button may show a colour of its own, as a colour picker's button does.
  uint32_t BackColor() const { return backColor_; }
  void setBackColor(uint32_t v);
  bool focusable() const override { return true; }
  const std::vector<Property>& properties() const override;

 private:
  std::string caption_;
  uint32_t backColor_ = kSystemFace;
};

class CheckBox : public Control {
 public:
  CheckBox(Form* form, std::string name) : Control(form, std::move(name), Kind::CheckBox) {}
  const std::string& Caption() const { return caption_; }
  void setCaption(const std::string& v);
  // 0 unchecked, 1 checked, 2 greyed; a change raises Click.
  int Value() const { return value_; }
  void setValue(int v);
  bool focusable() const override { return true; }
  const std::vector<Property>& properties() const override;

 private:
  std::string caption_;
  int value_ = 0;
};

class Shape : public Control {
 public:
  Shape(Form* form, std::string name) : Control(form, std::move(name), Kind::Shape) {}
  int shapeKind() const { return shape_; }  // 0 rectangle, 1 square, 2 oval, ...
  void setShapeKind(int v);
  int BorderWidth() const { return borderWidth_; }
  void setBorderWidth(int v);
  uint32_t BorderColor() const { return borderColor_; }
  void setBorderColor(uint32_t v);
  int BorderStyle() const { return borderStyle_; }
  void setBorderStyle(int v);
  int FillStyle() const { return fillStyle_; }  // 0 solid, 1 transparent
  void setFillStyle(int v);
  uint32_t FillColor() const { return fillColor_; }
  void setFillColor(uint32_t v);
  const std::vector<Property>& properties() const override;

 private:
  int shape_ = 0, borderWidth_ = 1, borderStyle_ = 1, fillStyle_ = 1;
  uint32_t borderColor_ = 0, fillColor_ = 0;
};

// Fires Timer every Interval milliseconds while Enabled and Interval isn't 0, from the event
// loop only. A change of either restarts the count.
class Timer : public Control {
 public:
  Timer(Form* form, std::string name) : Control(form, std::move(name), Kind::Timer) {}
  Timer(const Timer& other);
  ~Timer() override;
  int Interval() const { return interval_; }
  void setInterval(int v);
  void setEnabled(bool v) override;
  // Stops for good: the form is going.
  void stop();
  const std::vector<Property>& properties() const override;

 private:
  void reschedule();
  int interval_ = 0;
  EventLoop::Id running_ = 0;
};

}  // namespace vellumry::tk
