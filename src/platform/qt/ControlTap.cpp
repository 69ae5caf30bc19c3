#include "platform/qt/ControlTap.h"

#include <QMouseEvent>
#include <QWidget>

#include "platform/qt/KeyMap.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/Units.h"
#include "platform/toolkit/Control.h"
#include "platform/toolkit/Input.h"

namespace vellumry::presenter {

namespace {
bool isList(const tk::Control& c) {
  return c.kind() == tk::Kind::ListBox || c.kind() == tk::Kind::FileListBox ||
         c.kind() == tk::Kind::ComboBox;
}
}  // namespace

ControlTap::ControlTap(Presenter& presenter, tk::Control& control, QWidget* widget)
    : QObject(widget),
      presenter_(presenter),
      control_(&control),
      widget_(widget),
      mouseObject_(widget) {
  widget->installEventFilter(this);
}

void ControlTap::watchMouse(QObject* object) {
  mouseObject_ = object;
  object->installEventFilter(this);
}

void ControlTap::act(const std::function<void(tk::Control&)>& action) {
  if (!control_) return;
  tk::Control& c = *control_;
  presenter_.noteInput(c);
  action(c);
  if (presenter_.alive(&c)) presenter_.resync(c);
}

bool ControlTap::eventFilter(QObject* watched, QEvent* event) {
  if (!control_) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
      // Events that pass up from a viewport come by again: take each at one place only.
      if (watched != mouseObject_) return false;
      return mouse(event);
    case QEvent::Wheel:
      // The model has no wheel: a wheel must not move a value behind its back.
      return !tk::user::accepts(*control_) || control_->kind() == tk::Kind::VScrollBar ||
             control_->kind() == tk::Kind::HScrollBar || control_->kind() == tk::Kind::ComboBox;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
      return !tk::user::accepts(*control_);
    default:
      return false;
  }
}

bool ControlTap::mouse(QEvent* event) {
  tk::Control& c = *control_;
  if (!tk::user::accepts(c)) return true;
  auto* m = static_cast<QMouseEvent*>(event);
  const QPoint local = widget_->mapFromGlobal(m->globalPosition().toPoint());
  const QPointF at = modelPoint(c, local);
  const int shift = shiftMaskOf(m->modifiers());
  const int button = buttonOf(m->button());
  presenter_.noteInput(c);
  QEvent::Type type = event->type();
  if (type == QEvent::MouseButtonDblClick && !presenter_.pressedLast(mouseObject_))
    type = QEvent::MouseButtonPress;
  switch (type) {
    case QEvent::MouseButtonPress:
      if (!button) return true;
      presenter_.notePress(mouseObject_);
      tk::user::mouseDown(c, button, shift, at.x(), at.y());
      // A right or middle press on a list leaves its selection alone.
      return !presenter_.alive(&c) || (isList(c) && button != tk::user::kLeftButton);
    case QEvent::MouseButtonRelease:
      if (!button) return true;
      tk::user::mouseUp(c, button, shift, at.x(), at.y());
      return !presenter_.alive(&c);
    case QEvent::MouseButtonDblClick:
      if (button == tk::user::kLeftButton) tk::user::raiseDblClick(c);
      return !presenter_.alive(&c);
    default:
      tk::user::mouseMove(c, buttonMaskOf(m->buttons()), shift, at.x(), at.y());
      return !presenter_.alive(&c);
  }
}

}  // namespace vellumry::presenter
