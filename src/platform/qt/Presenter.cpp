#include "platform/qt/Presenter.h"

#include <QApplication>
#include <QLineEdit>
#include <QWindow>
#include <QWidget>
#include <algorithm>

#include "platform/qt/ContainerView.h"
#include "platform/qt/ControlTap.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/Units.h"
#include "platform/qt/WindowedControls.h"
#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/MousePointer.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::presenter {

namespace {
namespace prop = tk::prop;

bool isPlace(tk::PropertyName p) {
  return p == prop::Left || p == prop::Top || p == prop::Width || p == prop::Height;
}

Qt::CursorShape cursorOf(int mousePointer) {
  switch (mousePointer) {
    case tk::pointer::SizeAll:
      return Qt::SizeAllCursor;
    case tk::pointer::SizeNS:
      return Qt::SizeVerCursor;
    case tk::pointer::SizeWE:
      return Qt::SizeHorCursor;
    case tk::pointer::Hourglass:
      return Qt::WaitCursor;
    default:
      return Qt::ArrowCursor;
  }
}
}  // namespace

Presenter::Presenter(tk::Runtime& runtime) : runtime_(runtime) {
  QObject::connect(qApp, &QGuiApplication::focusWindowChanged, &context_,
                   [this](QWindow* now) { focusMoved(now); });
  runtime_.setObserver(this);
  for (tk::Form* form : runtime_.Forms()) formLoaded(*form);
}

Presenter::~Presenter() {
  if (runtime_.observer() == this) runtime_.setObserver(nullptr);
  // A window inside another would be deleted with its owner: take it out first.
  for (FormWindow* window : stack_)
    if (window->parentWidget()) window->setParent(nullptr);
  for (FormWindow* window : std::vector<FormWindow*>(stack_)) delete window;
}

FormWindow* Presenter::window(const tk::Form& form) const {
  auto it = entries_.find(&form);
  return it == entries_.end() ? nullptr : static_cast<FormWindow*>(it->second.widget);
}

QWidget* Presenter::widget(const tk::Control& c) const {
  auto it = entries_.find(&c);
  return it == entries_.end() ? nullptr : it->second.widget;
}

ContainerView* Presenter::containerView(const tk::Control* container) const {
  if (!container) return nullptr;
  auto it = entries_.find(container);
  return it == entries_.end() ? nullptr : static_cast<ContainerView*>(it->second.widget);
}

void Presenter::noteInput(tk::Control& c) { inputForm_ = &c.form(); }

tk::Form* Presenter::inputForm() const {
  return alive(inputForm_) ? const_cast<tk::Form*>(inputForm_) : nullptr;
}

void Presenter::resync(tk::Control& c) {
  auto it = entries_.find(&c);
  if (it != entries_.end() && it->second.tap) syncWindowed(it->second.widget, c, false);
}

void Presenter::userClose(tk::Form& form) {
  if (!tk::user::accepts(form)) return;
  noteInput(form);
  runtime_.dispatch([&form] { form.Unload(0); });
}

// --- the model's changes -------------------------------------------------------------------

void Presenter::formLoaded(tk::Form& form) {
  auto* w = new FormWindow(*this, form);
  entries_[&form] = Entry{w};
  stack_.push_back(w);
  applyFlags(*w, form);
  w->clientOrigin = clientOrigin(form);
  applyRegion(*w, form);
  applyFont(*w, form);
  applyOwner(*w, form);
  w->setWindowTitle(QString::fromStdString(form.Caption()));
  placeWindow(*w, form);
  for (tk::Control* c : form.controls()) show(*c);
  if (form.Visible()) showWindow(*w, form);
}

void Presenter::formUnloaded(tk::Form& form) { dropWindow(form); }

void Presenter::dropWindow(const tk::Form& form) {
  FormWindow* w = window(form);
  if (!w) return;
  for (tk::Control* c : form.controls()) remove(*c);
  entries_.erase(&form);
  // Windows inside this one live on by themselves.
  for (FormWindow* inner : stack_)
    if (inner != w && inner->parentWidget() == w) inner->setParent(nullptr);
  if (inputForm_ == &form) inputForm_ = nullptr;
  stack_.erase(std::remove(stack_.begin(), stack_.end(), w), stack_.end());
  raised_.erase(std::remove(raised_.begin(), raised_.end(), w), raised_.end());
  w->detach();
  w->hide();
  // The window may be inside one of its own handlers now.
  w->deleteLater();
}

void Presenter::controlLoaded(tk::Control& c) {
  if (alive(&c.form())) show(c);
}

void Presenter::controlUnloaded(tk::Control& c) { remove(c); }

uint64_t Presenter::placeOf(const tk::Control& c) {
  // Elements of a control array stand at their element 0's level, in index order.
  if (c.Index() > 0) {
    const tk::Control* first = c.form().find(c.Name(), 0);
    if (auto it = entries_.find(first); first && it != entries_.end())
      return it->second.order + static_cast<uint64_t>(c.Index());
  }
  return (nextOrder_++) << 16;
}

void Presenter::show(tk::Control& c) {
  if (alive(&c) || c.kind() == tk::Kind::Form) return;
  tk::Control* container = c.Container();
  if (container && !alive(container) && container != &c.form()) show(*container);
  ContainerView* parent = containerView(container);
  if (!parent) return;
  Entry entry;
  entry.order = placeOf(c);
  if (isWindowless(c)) {
    entry.host = parent;
    entries_[&c] = entry;
    parent->addWindowless(c, entry.order);
    return;
  }
  if (isContainer(c)) {
    entry.widget = new ContainerView(*this, c, parent);
  } else if (isWindowed(c)) {
    entry.widget = createWindowed(*this, c, parent, entry.tap);
  } else {
    return;  // timers, menus and dialogs show nothing of their own
  }
  entries_[&c] = entry;
  place(c);
}

void Presenter::remove(const tk::Control& c) {
  auto it = entries_.find(&c);
  if (it == entries_.end()) return;
  Entry entry = it->second;
  entries_.erase(it);
  if (entry.host) return entry.host->removeWindowless(c);
  if (entry.tap) entry.tap->detach();
  if (isContainer(c)) {
    auto* view = static_cast<ContainerView*>(entry.widget);
    // What stands inside goes with it.
    std::vector<const tk::Control*> inside;
    for (const auto& [control, e] : entries_)
      if (e.host == view || (e.widget && e.widget->parentWidget() == view))
        inside.push_back(control);
    for (const tk::Control* child : inside) remove(*child);
    view->detach();
  }
  entry.widget->hide();
  entry.widget->deleteLater();
}

void Presenter::place(tk::Control& c) {
  QWidget* w = widget(c);
  if (!w) return;
  w->setGeometry(pixelRect(c));
  w->setEnabled(c.Enabled());
  w->setToolTip(QString::fromStdString(c.ToolTipText()));
  w->setVisible(c.Visible());
}

void Presenter::propertyChanged(tk::Control& c, tk::PropertyName property) {
  auto it = entries_.find(&c);
  if (it == entries_.end()) return;
  Entry& entry = it->second;
  if (c.kind() == tk::Kind::Form) {
    return formChanged(static_cast<tk::Form&>(c), static_cast<FormWindow&>(*entry.widget),
                       property);
  }
  if (entry.host) {
    if (property == prop::Container) {
      entry.host->removeWindowless(c);
      entry.host = containerView(c.Container());
      if (entry.host) entry.host->addWindowless(c, entry.order);
      return;
    }
    const bool content = property == prop::Picture || property == prop::Width ||
                         property == prop::Height || property == prop::Stretch;
    entry.host->refreshWindowless(c, content);
    return;
  }
  QWidget* w = entry.widget;
  if (isPlace(property)) {
    w->setGeometry(pixelRect(c));
  } else if (property == prop::Visible) {
    w->setVisible(c.Visible());
  } else if (property == prop::Enabled) {
    w->setEnabled(c.Enabled());
  } else if (property == prop::ToolTipText) {
    w->setToolTip(QString::fromStdString(c.ToolTipText()));
  } else if (property == prop::Container) {
    if (ContainerView* parent = containerView(c.Container())) w->setParent(parent);
    place(c);
  } else if (property == prop::Picture && isContainer(c)) {
    static_cast<ContainerView*>(w)->pictureChanged();
  } else if (property == prop::MousePointer && c.kind() == tk::Kind::PictureBox) {
    w->setCursor(cursorOf(static_cast<const tk::PictureBox&>(c).MousePointer()));
  } else if (property == prop::SelStart || property == prop::SelLength) {
    const auto& box = static_cast<const tk::TextBox&>(c);
    static_cast<QLineEdit*>(w)->setSelection(box.SelStart(), box.SelLength());
  } else if (entry.tap) {
    syncWindowed(w, c, property == prop::List);
  } else {
    w->update();
  }
}

void Presenter::formChanged(tk::Form& form, FormWindow& window, tk::PropertyName property) {
  if (isPlace(property)) {
    if (form.WindowState() != 1) placeWindow(window, form);
  } else if (property == prop::Caption) {
    window.setWindowTitle(QString::fromStdString(form.Caption()));
    applyFrame(window, form);
  } else if (property == prop::Visible) {
    if (form.Visible())
      showWindow(window, form);
    else
      window.hide();
  } else if (property == prop::WindowState) {
    if (form.Visible()) showWindow(window, form);
  } else if (property == prop::MousePointer) {
    if (form.MousePointer() == 11)
      window.setCursor(Qt::WaitCursor);
    else
      window.unsetCursor();
  } else if (property == prop::BorderStyle || property == prop::ControlBox) {
    applyFrame(window, form);
  } else if (property == prop::TopMost) {
    applyFlags(window, form);
  } else if (property == prop::Region) {
    applyRegion(window, form);
  } else if (property == prop::FontName || property == prop::FontSize) {
    applyFont(window, form);
  } else if (property == prop::OwnerForm) {
    applyOwner(window, form);
  } else {
    window.update();
  }
}

void Presenter::focusChanged(tk::Form& form) {
  tk::Control* active = form.ActiveControl();
  FormWindow* w = window(form);
  if (!w) return;
  QWidget* target = active ? widget(*active) : nullptr;
  if (target && target->isVisibleTo(w)) {
    // A widget that has the focus already got it from the user's own click: leave its cursor.
    if (w->focusWidget() == target) return;
    target->setFocus(Qt::OtherFocusReason);
    if (active->kind() == tk::Kind::TextBox) {
      const auto& box = static_cast<const tk::TextBox&>(*active);
      static_cast<QLineEdit*>(target)->setSelection(box.SelStart(), box.SelLength());
    }
  } else {
    // A control that can't show the focus (hidden, or painted) still takes the keys: no widget
    // may act on them behind the model's back.
    w->setFocus(Qt::OtherFocusReason);
  }
}

void Presenter::programEnded() {
  for (FormWindow* w : std::vector<FormWindow*>(stack_))
    if (tk::Form* f = w->form()) dropWindow(*f);
  if (onProgramEnded) onProgramEnded();
}

}  // namespace vellumry::presenter
