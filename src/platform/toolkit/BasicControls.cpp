#include "platform/toolkit/BasicControls.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace tk {

// Assigns and tells the observer when the value differs.
#define TK_ASSIGN(member, Prop) \
  if (member == v) return;      \
  member = v;                   \
  changed(Prop)

void Frame::setCaption(const std::string& v) { TK_ASSIGN(caption_, "Caption"); }
void Frame::setBackColor(uint32_t v) { TK_ASSIGN(backColor_, "BackColor"); }
void Frame::setBorderStyle(int v) { TK_ASSIGN(borderStyle_, "BorderStyle"); }
const std::vector<Property>& Frame::properties() const {
  static const auto props =
      extend(Control::properties(), {
                                        prop<Frame, &Frame::Caption, &Frame::setCaption>("Caption"),
                                        prop<Frame, &Frame::BackColor, &Frame::setBackColor>("BackColor"),
                                        prop<Frame, &Frame::BorderStyle, &Frame::setBorderStyle>("BorderStyle"),
                                    });
  return props;
}

void Label::setCaption(const std::string& v) {
  TK_ASSIGN(caption_, "Caption");
  fire(onChange);
}
void Label::setAlignment(int v) { TK_ASSIGN(alignment_, "Alignment"); }
void Label::setBackColor(uint32_t v) { TK_ASSIGN(backColor_, "BackColor"); }
void Label::setForeColor(uint32_t v) { TK_ASSIGN(foreColor_, "ForeColor"); }
void Label::setBackStyle(int v) { TK_ASSIGN(backStyle_, "BackStyle"); }
const std::vector<Property>& Label::properties() const {
  static const auto props = extend(
      Control::properties(),
      {
          prop<Label, &Label::Caption, &Label::setCaption>("Caption"),
          prop<Label, &Label::Alignment, &Label::setAlignment>("Alignment"),
          prop<Label, &Label::BackColor, &Label::setBackColor>("BackColor"),
          prop<Label, &Label::ForeColor, &Label::setForeColor>("ForeColor"),
          prop<Label, &Label::BackStyle, &Label::setBackStyle>("BackStyle"),
      });
  return props;
}

void TextBox::setText(const std::string& v) {
  TK_ASSIGN(text_, "Text");
  fire(onChange);
}
void TextBox::setLocked(bool v) { TK_ASSIGN(locked_, "Locked"); }
const std::vector<Property>& TextBox::properties() const {
  static const auto props = extend(
      Control::properties(),
      {
          prop<TextBox, &TextBox::Text, &TextBox::setText>("Text"),
          prop<TextBox, &TextBox::Locked, &TextBox::setLocked>("Locked"),
          prop<TextBox, &TextBox::SelStart, &TextBox::setSelStart>("SelStart"),
          prop<TextBox, &TextBox::SelLength, &TextBox::setSelLength>("SelLength"),
      });
  return props;
}

void CommandButton::setCaption(const std::string& v) { TK_ASSIGN(caption_, "Caption"); }
const std::vector<Property>& CommandButton::properties() const {
  static const auto props = extend(
      Control::properties(),
      {prop<CommandButton, &CommandButton::Caption, &CommandButton::setCaption>("Caption")});
  return props;
}

void CheckBox::setCaption(const std::string& v) { TK_ASSIGN(caption_, "Caption"); }
void CheckBox::setValue(int v) {
  if (v < 0 || v > 2) raise(err::InvalidProperty, "Value");
  TK_ASSIGN(value_, "Value");
  fire(onClick);
}
const std::vector<Property>& CheckBox::properties() const {
  static const auto props =
      extend(Control::properties(), {
                                        prop<CheckBox, &CheckBox::Caption, &CheckBox::setCaption>("Caption"),
                                        prop<CheckBox, &CheckBox::Value, &CheckBox::setValue>("Value"),
                                    });
  return props;
}

void Shape::setShapeKind(int v) { TK_ASSIGN(shape_, "Shape"); }
void Shape::setBorderWidth(int v) { TK_ASSIGN(borderWidth_, "BorderWidth"); }
void Shape::setBorderColor(uint32_t v) { TK_ASSIGN(borderColor_, "BorderColor"); }
void Shape::setBorderStyle(int v) { TK_ASSIGN(borderStyle_, "BorderStyle"); }
void Shape::setFillStyle(int v) { TK_ASSIGN(fillStyle_, "FillStyle"); }
void Shape::setFillColor(uint32_t v) { TK_ASSIGN(fillColor_, "FillColor"); }
const std::vector<Property>& Shape::properties() const {
  static const auto props = extend(
      Control::properties(),
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
#undef TK_ASSIGN

Timer::Timer(const Timer& other) : Control(other), interval_(other.interval_) {
  reschedule();
}

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

}  // namespace tk
