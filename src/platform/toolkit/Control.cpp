#include "platform/toolkit/Control.h"

#include <charconv>

#include "platform/toolkit/Form.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

const char* kindName(Kind kind) {
  switch (kind) {
    case Kind::Form:
      return "Form";
    case Kind::Frame:
      return "Frame";
    case Kind::PictureBox:
      return "PictureBox";
    case Kind::Image:
      return "Image";
    case Kind::Label:
      return "Label";
    case Kind::TextBox:
      return "TextBox";
    case Kind::CommandButton:
      return "CommandButton";
    case Kind::CheckBox:
      return "CheckBox";
    case Kind::ListBox:
      return "ListBox";
    case Kind::FileListBox:
      return "FileListBox";
    case Kind::ComboBox:
      return "ComboBox";
    case Kind::VScrollBar:
      return "VScrollBar";
    case Kind::HScrollBar:
      return "HScrollBar";
    case Kind::Shape:
      return "Shape";
    case Kind::Timer:
      return "Timer";
    case Kind::Menu:
      return "Menu";
    case Kind::TabStrip:
      return "TabStrip";
    case Kind::CommonDialog:
      return "CommonDialog";
  }
  return "Control";
}

Control::Control(Form* form, std::string name, Kind kind)
    : form_(form), name_(std::move(name)), kind_(kind), container_(form) {
  form->adopt(this);
}

Control::Control(FormItself, Form* self, std::string name)
    : form_(self), name_(std::move(name)), kind_(Kind::Form) {}

Control::Control(const Control& other)
    : EventSet<>(),
      form_(other.form_),
      name_(other.name_),
      kind_(other.kind_),
      index_(other.index_),
      container_(other.container_),
      left_(other.left_),
      top_(other.top_),
      width_(other.width_),
      height_(other.height_),
      visible_(false),
      enabled_(other.enabled_),
      toolTip_(other.toolTip_),
      tag_(other.tag_) {
  form_->adopt(this);
}

Control::~Control() {
  if (kind_ != Kind::Form) form_->release(this);
}

Runtime& Control::runtime() const { return form_->runtime(); }

void Control::changed(PropertyName property) {
  if (Observer* o = runtime().observer()) o->propertyChanged(*this, property);
}

void Control::setContainer(Control* container) {
  container_ = container;
  changed(prop::Container);
}

double Control::unitX() const {
  return kind_ == Kind::Form || !container_ ? 1 : container_->innerUnitX();
}
double Control::unitY() const {
  return kind_ == Kind::Form || !container_ ? 1 : container_->innerUnitY();
}

void Control::setLeft(double v) { assign(left_, v * unitX(), prop::Left); }
void Control::setTop(double v) { assign(top_, v * unitY(), prop::Top); }
void Control::setWidth(double v) { setWidthTwips(v * unitX()); }
void Control::setHeight(double v) { setHeightTwips(v * unitY()); }
void Control::setWidthTwips(double v) {
  if (v < 0) raise(err::InvalidProperty, std::string(prop::Width));
  assign(width_, v, prop::Width);
}
void Control::setHeightTwips(double v) {
  if (v < 0) raise(err::InvalidProperty, std::string(prop::Height));
  assign(height_, v, prop::Height);
}
void Control::setVisible(bool v) { assign(visible_, v, prop::Visible); }
void Control::setEnabled(bool v) { assign(enabled_, v, prop::Enabled); }
void Control::setToolTipText(const std::string& v) { assign(toolTip_, v, prop::ToolTipText); }

void Control::Move(double left, double top, double width, double height) {
  setLeft(left);
  setTop(top);
  setWidth(width);
  setHeight(height);
}

bool Control::reachable() const {
  for (const Control* c = this; c; c = c->kind_ == Kind::Form ? nullptr : c->container_)
    if (!c->visible_ || !c->enabled_) return false;
  return true;
}

void Control::SetFocus() {
  if (!focusable()) raise(err::NotSupported, "SetFocus");
  if (!reachable()) raise(err::InvalidCall, "SetFocus on " + name_);
  form_->focus(this);
  // Focus given to a control of a window in the background brings that window forward.
  Form* window = form_->ownerForm() ? form_->ownerForm() : form_;
  if (window->runtime().ActiveForm() != window && window->Visible() && window->WindowState() != 1)
    window->runtime().bringToFront(window);
}

const std::vector<Property>& Control::properties() const {
  static const std::vector<Property> props = {
      accessor<Control, &Control::Name>(prop::Name),
      accessor<Control, &Control::Index>(prop::Index),
      accessor<Control, &Control::Left, &Control::setLeft>(prop::Left),
      accessor<Control, &Control::Top, &Control::setTop>(prop::Top),
      accessor<Control, &Control::Width, &Control::setWidth>(prop::Width),
      accessor<Control, &Control::Height, &Control::setHeight>(prop::Height),
      accessor<Control, &Control::Visible, &Control::setVisible>(prop::Visible),
      accessor<Control, &Control::Enabled, &Control::setEnabled>(prop::Enabled),
      accessor<Control, &Control::ToolTipText, &Control::setToolTipText>(prop::ToolTipText),
      accessor<Control, &Control::Tag, &Control::setTag>(prop::Tag),
  };
  return props;
}

std::pair<std::string_view, std::optional<int>> splitIndex(std::string_view text) {
  auto open = text.find('(');
  if (open == std::string_view::npos || text.back() != ')') return {text, std::nullopt};
  std::string_view digits = text.substr(open + 1, text.size() - open - 2);
  int index = 0;
  auto [end, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (ec != std::errc() || end != digits.data() + digits.size()) return {text, std::nullopt};
  return {text.substr(0, open), index};
}

Value Control::get(std::string_view property) const {
  auto [name, index] = splitIndex(property);
  for (const Property& p : properties()) {
    if (!iequals(p.name, name)) continue;
    if (index) {
      if (!p.getAt) raise(err::NotSupported, std::string(property));
      return p.getAt(*this, *index);
    }
    return p.get(*this);
  }
  raise(err::NotSupported, std::string(property));
}

void Control::set(std::string_view property, const Value& v) {
  for (const Property& p : properties()) {
    if (!iequals(p.name, property)) continue;
    if (!p.set) raise(err::NotSupported, std::string(property) + " is read-only");
    p.set(*this, v);
    return;
  }
  raise(err::NotSupported, std::string(property));
}

}  // namespace vellumry::tk
