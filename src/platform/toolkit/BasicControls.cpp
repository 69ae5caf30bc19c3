#include "platform/toolkit/BasicControls.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

void Frame::setCaption(const std::string& v) { assign(caption_, v, "Caption"); }
void Frame::setBackColor(uint32_t v) { assign(backColor_, v, "BackColor"); }
void Frame::setBorderStyle(int v) { assign(borderStyle_, v, "BorderStyle"); }
const std::vector<Property>& Frame::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 prop<Frame, &Frame::Caption, &Frame::setCaption>("Caption"),
                 prop<Frame, &Frame::BackColor, &Frame::setBackColor>("BackColor"),
                 prop<Frame, &Frame::BorderStyle, &Frame::setBorderStyle>("BorderStyle"),
             });
  return props;
}

void Label::setCaption(const std::string& v) {
  if (assign(caption_, v, "Caption")) fire(onChange);
}
void Label::setAlignment(int v) { assign(alignment_, v, "Alignment"); }
void Label::setBackColor(uint32_t v) { assign(backColor_, v, "BackColor"); }
void Label::setForeColor(uint32_t v) { assign(foreColor_, v, "ForeColor"); }
void Label::setBackStyle(int v) { assign(backStyle_, v, "BackStyle"); }
const std::vector<Property>& Label::properties() const {
  static const auto props = extend(
      Control::properties(), {
                                 prop<Label, &Label::Caption, &Label::setCaption>("Caption"),
                                 prop<Label, &Label::Alignment, &Label::setAlignment>("Alignment"),
                                 prop<Label, &Label::BackColor, &Label::setBackColor>("BackColor"),
                                 prop<Label, &Label::ForeColor, &Label::setForeColor>("ForeColor"),
                                 prop<Label, &Label::BackStyle, &Label::setBackStyle>("BackStyle"),
                             });
  return props;
}

void TextBox::setText(const std::string& v) {
  if (assign(text_, v, "Text")) fire(onChange);
}
void TextBox::setLocked(bool v) { assign(locked_, v, "Locked"); }
const std::vector<Property>& TextBox::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 prop<TextBox, &TextBox::Text, &TextBox::setText>("Text"),
                 prop<TextBox, &TextBox::Locked, &TextBox::setLocked>("Locked"),
                 prop<TextBox, &TextBox::SelStart, &TextBox::setSelStart>("SelStart"),
                 prop<TextBox, &TextBox::SelLength, &TextBox::setSelLength>("SelLength"),
             });
  return props;
}

void CommandButton::setCaption(const std::string& v) { assign(caption_, v, "Caption"); }
const std::vector<Property>& CommandButton::properties() const {
  static const auto props =
      extend(Control::properties(),
             {prop<CommandButton, &CommandButton::Caption, &CommandButton::setCaption>("Caption")});
  return props;
}

void CheckBox::setCaption(const std::string& v) { assign(caption_, v, "Caption"); }
void CheckBox::setValue(int v) {
  if (v < 0 || v > 2) raise(err::InvalidProperty, "Value");
  if (assign(value_, v, "Value")) fire(onClick);
}
const std::vector<Property>& CheckBox::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 prop<CheckBox, &CheckBox::Caption, &CheckBox::setCaption>("Caption"),
                 prop<CheckBox, &CheckBox::Value, &CheckBox::setValue>("Value"),
             });
  return props;
}

void Shape::setShapeKind(int v) { assign(shape_, v, "Shape"); }
void Shape::setBorderWidth(int v) { assign(borderWidth_, v, "BorderWidth"); }
void Shape::setBorderColor(uint32_t v) { assign(borderColor_, v, "BorderColor"); }
void Shape::setBorderStyle(int v) { assign(borderStyle_, v, "BorderStyle"); }
void Shape::setFillStyle(int v) { assign(fillStyle_, v, "FillStyle"); }
void Shape::setFillColor(uint32_t v) { assign(fillColor_, v, "FillColor"); }
const std::vector<Property>& Shape::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 prop<Shape, &Shape::ShapeKind, &Shape::setShapeKind>("Shape"),
                 prop<Shape, &Shape::BorderWidth, &Shape::setBorderWidth>("BorderWidth"),
                 prop<Shape, &Shape::BorderColor, &Shape::setBorderColor>("BorderColor"),
                 prop<Shape, &Shape::BorderStyle, &Shape::setBorderStyle>("BorderStyle"),
                 prop<Shape, &Shape::FillStyle, &Shape::setFillStyle>("FillStyle"),
                 prop<Shape, &Shape::FillColor, &Shape::setFillColor>("FillColor"),
             });
  return props;
}

Timer::Timer(const Timer& other) : Control(other), interval_(other.interval_) { reschedule(); }

Timer::~Timer() { stop(); }

void Timer::stop() {
  if (running_) runtime().loop().stopTimer(running_);
  running_ = 0;
}

void Timer::reschedule() {
  stop();
  if (!Enabled() || interval_ <= 0 || runtime().ended()) return;
  running_ = runtime().loop().startTimer(interval_, [this] {
    if (form().isLoaded()) fire(onTimer);
  });
}

void Timer::setInterval(int v) {
  if (v < 0 || v > 65535) raise(err::InvalidProperty, "Interval");
  if (v == interval_) return;
  interval_ = v;
  reschedule();
}

void Timer::setEnabled(bool v) {
  if (v == Enabled()) return;
  Control::setEnabled(v);
  reschedule();
}

const std::vector<Property>& Timer::properties() const {
  static const auto props = extend(
      Control::properties(), {prop<Timer, &Timer::Interval, &Timer::setInterval>("Interval")});
  return props;
}

}  // namespace vellumry::tk
