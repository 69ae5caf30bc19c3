#include "platform/qt/FormWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QWindow>

#include "platform/qt/KeyMap.h"
#include "platform/qt/Presenter.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Input.h"

namespace vellumry::presenter {

FormWindow::FormWindow(Presenter& presenter, tk::Form& form)
    : ContainerView(presenter, form, nullptr) {
  setAttribute(Qt::WA_DeleteOnClose, false);
}

tk::Form* FormWindow::form() const { return static_cast<tk::Form*>(control()); }

bool FormWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
    case QEvent::WinIdChange:
      // The keys of the whole window pass its native window first, once each.
      if (QWindow* native = windowHandle()) native->installEventFilter(this);
      break;
    case QEvent::WindowActivate:
      if (form()) presenter().activated(*this);
      break;
    default:
      break;
  }
  return ContainerView::event(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  const bool press = event->type() == QEvent::KeyPress;
  if (watched != windowHandle() || (!press && event->type() != QEvent::KeyRelease))
    return ContainerView::eventFilter(watched, event);
  tk::Form* f = presenter().keyForm(*this);
  if (!f || !tk::user::accepts(*f)) return true;
  auto* key = static_cast<QKeyEvent*>(event);
  const int code = keyCodeOf(*key);
  if (code == 0 || (!press && key->isAutoRepeat())) return false;
  presenter().noteInput(*f);
  if (press)
    tk::user::keyDown(*f, code, shiftMaskOf(key->modifiers()));
  else
    tk::user::keyUp(*f, code, shiftMaskOf(key->modifiers()));
  // A key that unloaded the form or took its input away goes no further.
  return !presenter().alive(f) || !tk::user::accepts(*f);
}

void FormWindow::closeEvent(QCloseEvent* event) {
  // The model decides whether the window goes: its unloading hides and deletes it.
  event->ignore();
  if (tk::Form* f = form()) presenter().userClose(*f);
}

void FormWindow::changeEvent(QEvent* event) {
  ContainerView::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && form()) presenter().windowStateChanged(*this);
}

}  // namespace vellumry::presenter
