// The forms' windows on the desktop: where they stand, inside which window, with what frame,
// how they are stacked, which has the keyboard, and the task-bar form's window.
#include <QApplication>
#include <QPainterPath>
#include <QRegion>
#include <QTimer>
#include <QWindow>
#include <algorithm>

#include "platform/qt/FormWindow.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/Units.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::presenter {

namespace {
constexpr double kDesignPointSize = 8;
}  // namespace

bool Presenter::isTaskbarForm(const tk::Form& form) const { return form.Name() == taskbarName_; }

bool Presenter::shownOnScreen(const tk::Form& form) const {
  if (!form.Visible()) return false;
  if (form.ownerForm()) return shownOnScreen(*form.ownerForm());
  return !isTaskbarForm(form) || form.WindowState() == 1;
}

bool Presenter::standsOnDesktop(const tk::Form& form) const {
  return !form.ownerForm() && form.WindowState() != 1 && shownOnScreen(form);
}

std::vector<const FormWindow*> Presenter::zOrder() const {
  std::vector<const FormWindow*> out;
  for (const FormWindow* w : raised_) {
    const tk::Form* f = w->form();
    // A window inside another is drawn with its owner.
    if (f && standsOnDesktop(*f)) out.push_back(w);
  }
  return out;
}

tk::Form* Presenter::keyForm(const FormWindow& window) const {
  for (auto it = stack_.rbegin(); it != stack_.rend(); ++it) {
    tk::Form* f = (*it)->form();
    if (f && f->Visible() && f->ownerForm() == window.form()) return f;
  }
  return window.form();
}

QRect Presenter::screenRect(const tk::Form& form) const {
  if (form.ownerForm()) return pixelRect(form).translated(screenRect(*form.ownerForm()).topLeft());
  if (form.WindowState() != 2) return pixelRect(form);
  const tk::Screen& s = runtime_.screen();
  return {0, 0, static_cast<int>(tk::roundHalfEven(s.Width / s.TwipsPerPixelX)),
          static_cast<int>(tk::roundHalfEven(s.Height / s.TwipsPerPixelY))};
}

void Presenter::setTaskbarForm(const std::string& name) {
  taskbarName_ = name;
  for (FormWindow* w : std::vector<FormWindow*>(stack_))
    if (tk::Form* f = w->form()) applyFlags(*w, *f);
}

void Presenter::windowStateChanged(FormWindow& window) {
  tk::Form* f = window.form();
  if (!f || !isTaskbarForm(*f)) return;
  const int wanted = window.isMinimized() ? 1 : 0;
  if (f->WindowState() == wanted || (wanted == 0 && f->WindowState() == 2)) return;
  // After the window's own restoring is through, so that the model may hide it again.
  QTimer::singleShot(0, &context_, [this, f, wanted] {
    if (alive(f) && f->WindowState() != wanted)
      runtime_.dispatch([f, wanted] { f->setWindowState(wanted); });
  });
}

void Presenter::activated(FormWindow& window) {
  // Some desktops tell a restore from the task bar only by activating the window.
  windowStateChanged(window);
}

void Presenter::focusMoved(QWindow* now) {
  // Windows of forms that are going count too: the keyboard may reach them on their way out.
  const QWidgetList windows = QApplication::topLevelWidgets();
  const bool ours = now && std::any_of(windows.begin(), windows.end(), [now](QWidget* w) {
                      return w->windowHandle() == now && dynamic_cast<FormWindow*>(w);
                    });
  // The model says which window has the keyboard: a desktop that hands it to another of ours,
  // or to none as one of ours comes or goes, gives it back once its events are through. A
  // program of someone else's that the user turns to keeps it.
  if (ours || (!now && windowsMoved_))
    QTimer::singleShot(0, &context_, [this] { activateModelsForm(); });
  windowsMoved_ = false;
}

void Presenter::activateModelsForm() {
  const tk::Form* active = runtime_.ActiveForm();
  FormWindow* w = active ? window(*active) : nullptr;
  if (!w || !w->isVisible() || w->isActiveWindow() || QApplication::activeModalWidget() ||
      QApplication::activePopupWidget())
    return;
  w->activateWindow();
}

void Presenter::stackingChanged() {
  windowsMoved_ = true;
  stack_.clear();
  for (tk::Form* f : runtime_.stacking())
    if (FormWindow* w = window(*f)) stack_.push_back(w);
  // Raise the shown windows bottom first, only when their order changed: each raise restacks.
  std::vector<const FormWindow*> shown;
  for (FormWindow* w : stack_)
    if (w->isVisible() && !w->isMinimized()) shown.push_back(w);
  if (shown != raised_) {
    for (const FormWindow* w : shown) const_cast<FormWindow*>(w)->raise();
    raised_ = shown;
  }
  // Once the model's event is over: a window shown and gone within it never takes the keyboard.
  QTimer::singleShot(0, &context_, [this] { activateModelsForm(); });
}

void Presenter::placeWindow(FormWindow& window, const tk::Form& form) {
  QRect r = form.ownerForm() ? pixelRect(form) : screenRect(form);
  window.setGeometry(r.x(), r.y(), std::max(r.width(), 1), std::max(r.height(), 1));
}

void Presenter::applyOwner(FormWindow& window, const tk::Form& form) {
  FormWindow* owner = form.ownerForm() ? this->window(*form.ownerForm()) : nullptr;
  if (window.parentWidget() == owner) return;
  window.setParent(owner);
  applyFlags(window, form);
  // A child that isn't hidden by name would show with its owner.
  if (form.Visible())
    showWindow(window, form);
  else
    window.hide();
}

void Presenter::applyFlags(FormWindow& window, const tk::Form& form) {
  if (form.ownerForm()) return;  // a child window has no frame or flags of its own
  Qt::WindowFlags flags = taskbarName_.empty() || isTaskbarForm(form) ? Qt::Window : Qt::Tool;
  // Without a title bar the window manager frames nothing; a thin border is drawn in the window.
  if (!form.hasTitleBar()) flags |= Qt::FramelessWindowHint;
  if (form.topMost()) flags |= Qt::WindowStaysOnTopHint;
  const Qt::WindowFlags mask =
      Qt::WindowType_Mask | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
  if ((window.windowFlags() & mask) == flags) return;
  window.setWindowFlags(flags);  // this hides the window
  if (form.Visible()) showWindow(window, form);
}

void Presenter::applyFrame(FormWindow& window, tk::Form& form) {
  applyFlags(window, form);
  if (window.clientOrigin == clientOrigin(form)) return;
  window.clientOrigin = clientOrigin(form);
  for (tk::Control* c : form.controls())
    if (c->Container() == &form) propertyChanged(*c, tk::prop::Left);
  window.update();
}

void Presenter::applyFont(FormWindow& window, const tk::Form& form) {
  QFont font = QApplication::font();
  if (!form.FontName().empty()) font.setFamily(QString::fromStdString(form.FontName()));
  // The forms are laid out in twips for captions of 8 points where they name no size.
  font.setPointSizeF(form.FontSize() > 0 ? form.FontSize() : kDesignPointSize);
  window.setFont(font);  // the controls take it from their window
}

void Presenter::applyRegion(FormWindow& window, const tk::Form& form) {
  const tk::Form::Region& r = form.windowRegion();
  if (r == tk::Form::Region{}) return window.clearMask();
  QPainterPath outline;
  outline.addRoundedRect(0, 0, r.width, r.height, r.cornerWidth / 2.0, r.cornerHeight / 2.0);
  window.setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void Presenter::showWindow(FormWindow& window, const tk::Form& form) {
  if (form.WindowState() == 1) {
    window.showMinimized();
  } else if (isTaskbarForm(form)) {
    window.hide();  // parked: at work it is never seen
  } else {
    placeWindow(window, form);
    if (window.isMinimized())
      window.showNormal();
    else
      window.show();
    if (form.ownerForm()) window.raise();
  }
  stackingChanged();
}

}  // namespace vellumry::presenter
