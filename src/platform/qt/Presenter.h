#pragma once
// Shows the forms of one tk::Runtime on screen and hands the user's actions back to it. Each
// loaded form is a top-level window; windowed controls are Qt widgets; images, labels and
// shapes are painted by their container. Every change of the model shows at once; nothing of
// the model changes for the presenter. User actions reach the model only through tk::user,
// except closing, minimising and restoring a window, which run as events of their own.
//
// The presenter becomes the runtime's observer for its lifetime. Destroy it before the
// runtime's forms (or after the program has ended).

#include <QObject>
#include <QPointer>
#include <QRect>
#include <string>
#include <functional>
#include <unordered_map>
#include <vector>

#include "platform/toolkit/Observer.h"

class QWidget;
class QWindow;

namespace vellumry::tk {
class Control;
class Form;
class Runtime;
}  // namespace vellumry::tk

namespace vellumry::presenter {

class ContainerView;
class ControlTap;
class FormWindow;

class Presenter final : public tk::Observer {
 public:
  // Shows the forms that are loaded already.
  explicit Presenter(tk::Runtime& runtime);
  ~Presenter() override;
  Presenter(const Presenter&) = delete;
  Presenter& operator=(const Presenter&) = delete;

  tk::Runtime& runtime() const { return runtime_; }

  // The form named `name` stands for the program on the task bar, as a window that is never
  // seen at work: it shows only while minimised, as the task-bar entry, and its title follows
  // its Caption. The user's restoring sets its WindowState; closing it unloads it (it may
  // refuse). Name it before the form loads, so no window changes its kind once shown.
  void setTaskbarForm(const std::string& name);
  bool isTaskbarForm(const tk::Form& form) const;
  // Whether the model has `form`'s window on the screen (the task-bar form only when minimised,
  // a form inside another only while its owner is).
  bool shownOnScreen(const tk::Form& form) const;
  // Whether it stands on the desktop as a window of its own: shown, not minimised, inside none.
  bool standsOnDesktop(const tk::Form& form) const;
  // Told when the program has ended; every window is gone by then.
  std::function<void()> onProgramEnded;

  // The window of a loaded form, the widget of a windowed control or container; nullptr for
  // windowless controls and for what isn't shown.
  FormWindow* window(const tk::Form& form) const;
  QWidget* widget(const tk::Control& c) const;
  // The windows of visible, not minimised forms, bottom first, as they were last raised.
  std::vector<const FormWindow*> zOrder() const;
  // Where the model places `form` on the screen, in pixels.
  QRect screenRect(const tk::Form& form) const;
  // The form that the keys of `window` go to: the topmost visible form placed inside it, or
  // its own.
  tk::Form* keyForm(const FormWindow& window) const;

  // The last mouse press went to `where` (a window or a control's widget). A double click
  // whose first press went elsewhere, to a window that is gone now, is a plain press.
  void notePress(QObject* where) { lastPress_ = where; }
  bool pressedLast(const QObject* where) const { return lastPress_ == where; }

  // For the widgets: whether `c` is still shown (not unloaded); the control whose form the
  // current user action goes to; showing a control's state again after an action.
  bool alive(const tk::Control* c) const { return entries_.count(c) != 0; }
  void noteInput(tk::Control& c);
  tk::Form* inputForm() const;
  void resync(tk::Control& c);
  void userClose(tk::Form& form);
  void windowStateChanged(FormWindow& window);
  void activated(FormWindow& window);

  // tk::Observer
  void formLoaded(tk::Form& form) override;
  void formUnloaded(tk::Form& form) override;
  void controlLoaded(tk::Control& c) override;
  void controlUnloaded(tk::Control& c) override;
  void propertyChanged(tk::Control& c, tk::PropertyName property) override;
  void focusChanged(tk::Form& form) override;
  void stackingChanged() override;
  void programEnded() override;

 private:
  struct Entry {
    QWidget* widget = nullptr;      // window, container view or windowed widget
    ContainerView* host = nullptr;  // the container that paints a windowless control
    ControlTap* tap = nullptr;      // a windowed control's tap
    uint64_t order = 0;             // painting order of windowless controls: see placeOf
  };
  void show(tk::Control& c);
  void remove(const tk::Control& c);
  void formChanged(tk::Form& form, FormWindow& window, tk::PropertyName property);
  ContainerView* containerView(const tk::Control* container) const;
  void place(tk::Control& c);
  void placeWindow(FormWindow& window, const tk::Form& form);
  // Puts the window inside its owner's window as a child, or back on the desktop.
  void applyOwner(FormWindow& window, const tk::Form& form);
  void applyFlags(FormWindow& window, const tk::Form& form);
  // Flags, and the controls placed again when the client area moved inside the window.
  void applyFrame(FormWindow& window, tk::Form& form);
  // Cuts the window to the form's outline, or shows it whole when it has none.
  void applyFont(FormWindow& window, const tk::Form& form);
  void applyRegion(FormWindow& window, const tk::Form& form);
  void showWindow(FormWindow& window, const tk::Form& form);
  // Gives the keyboard to the window of the model's active form.
  void activateModelsForm();
  void focusMoved(QWindow* now);
  void dropWindow(const tk::Form& form);

  tk::Runtime& runtime_;
  std::unordered_map<const tk::Control*, Entry> entries_;
  std::vector<FormWindow*> stack_;  // bottom first
  std::string taskbarName_;
  const tk::Form* inputForm_ = nullptr;
  QPointer<QObject> lastPress_;
  QObject context_;  // calls queued for later go with the presenter
  bool windowsMoved_ = false;  // the model stacked or showed windows since the keyboard moved
  std::vector<const FormWindow*> raised_;  // the shown windows as last raised, bottom first
  // Creation order in the high bits; an array element's index below its element 0's.
  uint64_t placeOf(const tk::Control& c);
  uint64_t nextOrder_ = 0;
};

}  // namespace vellumry::presenter
