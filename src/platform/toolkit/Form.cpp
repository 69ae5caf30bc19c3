#include "platform/toolkit/Form.h"

#include <algorithm>

#include "platform/toolkit/Menu.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

Form::Form(Runtime& runtime, std::string name)
    : Control(FormItself{}, this, std::move(name)), runtime_(runtime) {
  Control::setVisible(false);
  onClick = [this] { Form_Click(); };
  onDblClick = [this] { Form_DblClick(); };
  onMouseDown = [this](int b, int s, double x, double y) { Form_MouseDown(b, s, x, y); };
  onMouseUp = [this](int b, int s, double x, double y) { Form_MouseUp(b, s, x, y); };
  onMouseMove = [this](int b, int s, double x, double y) { Form_MouseMove(b, s, x, y); };
  onKeyDown = [this](int& k, int s) { Form_KeyDown(k, s); };
  onKeyUp = [this](int& k, int s) { Form_KeyUp(k, s); };
  onKeyPress = [this](int& k) { Form_KeyPress(k); };
}

Form::~Form() = default;

void Form::release(Control* c) {
  controls_.erase(std::remove(controls_.begin(), controls_.end(), c), controls_.end());
  if (active_ == c) active_ = nullptr;
}

void Form::focus(Control* c) {
  if (active_ == c) return;
  Control* old = active_;
  active_ = c;
  if (old) fire(old->onLostFocus);
  if (Observer* o = runtime_.observer()) o->focusChanged(*this);
  fire(c->onGotFocus);
}

void Form::load() {
  loaded_ = true;
  runtime_.formLoaded(this);
  Form_Load();
}

void Form::discard() {
  loaded_ = false;
  Control::setVisible(false);
}

void Form::setCaption(const std::string& v) { assign(caption_, v, prop::Caption); }

void Form::setBackColor(uint32_t v) { assign(backColor_, v, prop::BackColor); }

void Form::setMousePointer(int v) { assign(mousePointer_, v, prop::MousePointer); }

void Form::setBorderStyle(int v) {
  borderStyle_ = v;
  changed(prop::BorderStyle);
}

double Form::innerUnitX() const { return scaleMode_ == 3 ? runtime().screen().TwipsPerPixelX : 1; }
double Form::innerUnitY() const { return scaleMode_ == 3 ? runtime().screen().TwipsPerPixelY : 1; }

void Form::setControlBox(bool v) { assign(controlBox_, v, prop::ControlBox); }
void Form::setTopMost(bool v) { assign(topMost_, v, prop::TopMost); }
void Form::setFontName(const std::string& v) { assign(fontName_, v, prop::FontName); }
void Form::setFontSize(double v) { assign(fontSize_, v, prop::FontSize); }

void Form::setWindowRegion(const Region& v) { assign(region_, v, prop::Region); }

void Form::SetParent(Form* owner) {
  if (assign(owner_, owner, prop::OwnerForm)) runtime_.settleActive();
}

namespace {
// The outline as the driver reads it: "width height cornerWidth cornerHeight" in pixels.
Value regionText(const Control& c) {
  const Form::Region& r = static_cast<const Form&>(c).windowRegion();
  return std::to_string(r.width) + " " + std::to_string(r.height) + " " +
         std::to_string(r.cornerWidth) + " " + std::to_string(r.cornerHeight);
}
}  // namespace

void Form::raiseResize() {
  if (Visible()) Form_Resize();
}

void Form::setWindowState(int v) {
  if (v < 0 || v > 2) raise(err::InvalidProperty, std::string(prop::WindowState));
  if (!assign(windowState_, v, prop::WindowState)) return;
  if (v == 1 || !Visible())
    runtime_.settleActive();
  else
    runtime_.bringToFront(this);
  raiseResize();
}

void Form::setWidth(double v) {
  double old = Width();
  Control::setWidth(v);
  if (old != v) raiseResize();
}

void Form::setHeight(double v) {
  double old = Height();
  Control::setHeight(v);
  if (old != v) raiseResize();
}

void Form::setVisible(bool v) {
  if (v == Visible()) return;
  Control::setVisible(v);
  if (!v) return runtime_.settleActive();
  runtime_.bringToFront(this);
  if (!shownOnce_) {
    shownOnce_ = true;
    if (!active_) {
      auto first = std::find_if(controls_.begin(), controls_.end(),
                                [](Control* c) { return c->focusable() && c->reachable(); });
      if (first != controls_.end()) focus(*first);
    }
    Form_Resize();
  }
  Form_Activate();
}

void Form::Show() {
  if (!loaded_) return;
  if (Visible()) return runtime_.bringToFront(this);
  setVisible(true);
}

bool Form::Unload(int unloadMode) {
  if (!loaded_ || unloading_) return true;
  unloading_ = true;
  int cancel = 0;
  try {
    Form_QueryUnload(cancel, unloadMode);
    if (cancel == 0) Form_Unload(cancel);
  } catch (...) {
    unloading_ = false;
    throw;
  }
  unloading_ = false;
  if (cancel != 0 || !loaded_) return cancel == 0;
  Control::setVisible(false);
  loaded_ = false;
  runtime_.formUnloaded(this);
  return true;
}

void Form::PopupMenu(Menu& menu, int flags, std::optional<double> x, std::optional<double> y) {
  if (Menu* picked = runtime_.PopupMenu(menu, flags, x, y)) fire(picked->onClick);
}

Control* Form::find(std::string_view name, int index) const {
  if (index < 0 && iequals(Name(), name)) return const_cast<Form*>(this);
  for (Control* c : controls_)
    if (c->Index() == index && iequals(c->Name(), name)) return c;
  return nullptr;
}

const std::vector<Property>& Form::properties() const {
  static const std::vector<Property> props =
      extend(Control::properties(),
             {
                 accessor<Form, &Form::Caption, &Form::setCaption>(prop::Caption),
                 accessor<Form, &Form::BackColor, &Form::setBackColor>(prop::BackColor),
                 accessor<Form, &Form::WindowState, &Form::setWindowState>(prop::WindowState),
                 accessor<Form, &Form::MousePointer, &Form::setMousePointer>(prop::MousePointer),
                 accessor<Form, &Form::KeyPreview, &Form::setKeyPreview>(prop::KeyPreview),
                 accessor<Form, &Form::BorderStyle, &Form::setBorderStyle>(prop::BorderStyle),
                 accessor<Form, &Form::ControlBox, &Form::setControlBox>(prop::ControlBox),
                 accessor<Form, &Form::ScaleMode, &Form::setScaleMode>(prop::ScaleMode),
                 accessor<Form, &Form::topMost, &Form::setTopMost>(prop::TopMost),
                 accessor<Form, &Form::FontName, &Form::setFontName>(prop::FontName),
                 accessor<Form, &Form::FontSize, &Form::setFontSize>(prop::FontSize),
                 Property{prop::Region, regionText, nullptr},
             });
  return props;
}

}  // namespace vellumry::tk
