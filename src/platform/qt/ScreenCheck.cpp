#include "platform/qt/ScreenCheck.h"

#include <QApplication>
#include <QWidget>

#include "platform/qt/FormWindow.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/Units.h"
#include "platform/qt/WindowedControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::presenter {

namespace {
std::string nameOf(const tk::Control& c) {
  if (c.kind() == tk::Kind::Form) return c.Name();
  std::string name = c.form().Name() + "." + c.Name();
  return c.Index() >= 0 ? name + "(" + std::to_string(c.Index()) + ")" : name;
}

std::string text(const QRect& r) {
  return std::to_string(r.x()) + "," + std::to_string(r.y()) + " " + std::to_string(r.width()) +
         "x" + std::to_string(r.height());
}

std::string shown(bool v) { return v ? "shown" : "hidden"; }

std::string orderText(const std::vector<const tk::Form*>& forms) {
  std::string out;
  for (const tk::Form* f : forms) out += (out.empty() ? "" : " ") + f->Name();
  return out.empty() ? "none" : out;
}

using Found = std::optional<std::string>;

Found placeDiffers(const tk::Control& c, const QRect& screen, const QRect& model) {
  if (screen == model) return {};
  return nameOf(c) + " shows at " + text(screen) + ", the model has it at " + text(model);
}

Found checkControl(const Presenter& p, const tk::Control& c) {
  const bool windowless = isWindowless(c);
  if (!windowless && !isContainer(c) && !isWindowed(c)) return {};  // timers, menus, dialogs
  const tk::Control& holder = c.Container() ? *c.Container() : c.form();
  const auto* holderView = dynamic_cast<const ContainerView*>(p.widget(holder));
  if (!holderView) return nameOf(c) + " has no container on screen";
  if (windowless) {
    const std::optional<QRect> at = holderView->shownRect(c);
    if (!at) return nameOf(c) + " isn't painted by " + nameOf(holder);
    return placeDiffers(c, *at, pixelRect(c));
  }
  const QWidget* w = p.widget(c);
  if (!w) return nameOf(c) + " has no widget";
  if (w->parentWidget() != holderView) return nameOf(c) + " lies outside " + nameOf(holder);
  if (w->isHidden() == c.Visible())
    return nameOf(c) + " is " + shown(!w->isHidden()) + ", the model has it " + shown(c.Visible());
  return placeDiffers(c, w->geometry(), pixelRect(c));
}

Found checkForm(const Presenter& p, const tk::Form& form) {
  const FormWindow* w = p.window(form);
  if (!w) return form.Name() + " has no window";
  const QWidget* owner = form.ownerForm() ? p.window(*form.ownerForm()) : nullptr;
  if (w->parentWidget() != owner)
    return form.Name() +
           (owner ? " lies outside " + form.ownerForm()->Name() : " lies inside a window");
  const bool expected = p.shownOnScreen(form);
  if (w->isVisible() != expected)
    return form.Name() + " is " + shown(w->isVisible()) + ", the model has it " + shown(expected);
  if (!expected) return {};
  if (!form.ownerForm() && w->isMinimized() != (form.WindowState() == 1))
    return form.Name() + (w->isMinimized() ? " is minimised" : " isn't minimised");
  if (w->isMinimized()) return {};
  const QRect model = form.ownerForm() ? pixelRect(form) : p.screenRect(form);
  return placeDiffers(form, w->geometry(), model);
}

Found checkStacking(const Presenter& p) {
  std::vector<const tk::Form*> model, screen;
  for (const tk::Form* f : p.runtime().stacking())
    if (p.standsOnDesktop(*f)) model.push_back(f);
  for (const FormWindow* w : p.zOrder()) screen.push_back(w->form());
  if (model == screen) return {};
  return "the windows stack as " + orderText(screen) + ", the model has " + orderText(model);
}

Found checkKeyboard(const Presenter& p) {
  const tk::Form* active = p.runtime().ActiveForm();
  const QWidget* expected = active ? p.window(*active) : nullptr;
  const QWidget* actual = QApplication::activeWindow();
  const auto* actualWindow = dynamic_cast<const FormWindow*>(actual);
  // The keyboard with none of the program's windows, or with a form the model lets have it.
  if (actual == expected || (!expected && !actualWindow)) return {};
  const std::string has = actualWindow && actualWindow->form() ? actualWindow->form()->Name()
                          : actual                             ? "a window of its own"
                                                               : "nothing";
  return "the keyboard is with " + has + ", the model gives it to " +
         (active ? active->Name() : "nothing");
}
}  // namespace

std::optional<std::string> screenDisagreement(const Presenter& p) {
  for (const tk::Form* form : p.runtime().Forms()) {
    if (Found f = checkForm(p, *form)) return f;
    for (const tk::Control* c : form->controls())
      if (Found f = checkControl(p, *c)) return f;
  }
  if (Found f = checkStacking(p)) return f;
  return checkKeyboard(p);
}

}  // namespace vellumry::presenter
