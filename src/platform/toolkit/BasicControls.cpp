#include "platform/toolkit/BasicControls.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

void Frame::setCaption(const std::string& v) { assign(caption_, v, prop::Caption); }
void Frame::setBackColor(uint32_t v) { assign(backColor_, v, prop::BackColor); }
void Frame::setBorderStyle(int v) { assign(borderStyle_, v, prop::BorderStyle); }
const std::vector<Property>& Frame::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 accessor<Frame, &Frame::Caption, &Frame::setCaption>(prop::Caption),
                 accessor<Frame, &Frame::BackColor, &Frame::setBackColor>(prop::BackColor),
                 accessor<Frame, &Frame::BorderStyle, &Frame::setBorderStyle>(prop::BorderStyle),
             });
  return props;
}

void Label::setCaption(const std::string& v) {
  if (assign(caption_, v, prop::Caption)) fire(onChange);
}
void Label::setAlignment(int v) { assign(alignment_, v, prop::Alignment); }
void Label::setBackColor(uint32_t v) { assign(backColor_, v, prop::BackColor); }
void Label::setForeColor(uint32_t v) { assign(foreColor_, v, prop::ForeColor); }
void Label::setBackStyle(int v) { assign(backStyle_, v, prop::BackStyle); }
void Label::setFontSize(double v) { assign(fontSize_, v, prop::FontSize); }
const std::vector<Property>& Label::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 accessor<Label, &Label::Caption, &Label::setCaption>(prop::Caption),
                 accessor<Label, &Label::Alignment, &Label::setAlignment>(prop::Alignment),
                 accessor<Label, &Label::BackColor, &Label::setBackColor>(prop::BackColor),
                 accessor<Label, &Label::ForeColor, &Label::setForeColor>(prop::ForeColor),
                 accessor<Label, &Label::BackStyle, &Label::setBackStyle>(prop::BackStyle),
                 accessor<Label, &Label::FontSize, &Label::setFontSize>(prop::FontSize),
             });
  return props;
}

void TextBox::setText(const std::string& v) {
  if (!assign(text_, v, prop::Text)) return;
  // New text drops the selection and puts the caret at the start, as in any edit box.
  setSelStart(0);
  setSelLength(0);
  fire(onChange);
}
void TextBox::setLocked(bool v) { assign(locked_, v, prop::Locked); }
const std::vector<Property>& TextBox::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 accessor<TextBox, &TextBox::Text, &TextBox::setText>(prop::Text),
                 accessor<TextBox, &TextBox::Locked, &TextBox::setLocked>(prop::Locked),
                 accessor<TextBox, &TextBox::SelStart, &TextBox::setSelStart>(prop::SelStart),
                 accessor<TextBox, &TextBox::SelLength, &TextBox::setSelLength>(prop::SelLength),
             });
  return props;
}

void CommandButton::setCaption(const std::string& v) { assign(caption_, v, prop::Caption); }
void CommandButton::setBackColor(uint32_t v) { assign(backColor_, v, prop::BackColor); }
const std::vector<Property>& CommandButton::properties() const {
  static const auto props = extend(
      Control::properties(),
      {accessor<CommandButton, &CommandButton::Caption, &CommandButton::setCaption>(prop::Caption),
       accessor<CommandButton, &CommandButton::BackColor, &CommandButton::setBackColor>(
           prop::BackColor)});
  return props;
}

void CheckBox::setCaption(const std::string& v) { assign(caption_, v, prop::Caption); }
void CheckBox::setValue(int v) {
  if (v < 0 || v > 2) raise(err::InvalidProperty, std::string(prop::Value));
  if (assign(value_, v, prop::Value)) fire(onClick);
}
const std::vector<Property>& CheckBox::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 accessor<CheckBox, &CheckBox::Caption, &CheckBox::setCaption>(prop::Caption),
                 accessor<CheckBox, &CheckBox::Value, &CheckBox::setValue>(prop::Value),
             });
  return props;
}

void Shape::setShapeKind(int v) { assign(shape_, v, prop::Shape); }
void Shape::setBorderWidth(int v) { assign(borderWidth_, v, prop::BorderWidth); }
void Shape::setBorderColor(uint32_t v) { assign(borderColor_, v, prop::BorderColor); }
void Shape::setBorderStyle(int v) { assign(borderStyle_, v, prop::BorderStyle); }
void Shape::setFillStyle(int v) { assign(fillStyle_, v, prop::FillStyle); }
void Shape::setFillColor(uint32_t v) { assign(fillColor_, v, prop::FillColor); }
const std::vector<Property>& Shape::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 accessor<Shape, &Shape::shapeKind, &Shape::setShapeKind>(prop::Shape),
                 accessor<Shape, &Shape::BorderWidth, &Shape::setBorderWidth>(prop::BorderWidth),
                 accessor<Shape, &Shape::BorderColor, &Shape::setBorderColor>(prop::BorderColor),
                 accessor<Shape, &Shape::BorderStyle, &Shape::setBorderStyle>(prop::BorderStyle),
                 accessor<Shape, &Shape::FillStyle, &Shape::setFillStyle>(prop::FillStyle),
                 accessor<Shape, &Shape::FillColor, &Shape::setFillColor>(prop::FillColor),
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
  if (v < 0 || v > 65535) raise(err::InvalidProperty, std::string(prop::Interval));
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
  static const auto props =
      extend(Control::properties(),
             {accessor<Timer, &Timer::Interval, &Timer::setInterval>(prop::Interval)});
  return props;
}

}  // namespace vellumry::tk
