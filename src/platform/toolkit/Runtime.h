#pragma once
// The toolkit of one program: its screen, event loop, host, forms and observer. Nothing of it
// is global, so several programs can live side by side.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/toolkit/Error.h"
#include "platform/toolkit/EventLoop.h"
#include "platform/toolkit/Host.h"
#include "platform/toolkit/Observer.h"
#include "platform/toolkit/Screen.h"

namespace vellumry::tk {

class Form;

// A place that holds one form of a kind and can give back the one it holds.
class FormSlotBase {
 public:
  virtual ~FormSlotBase() = default;
  // Destroys a form that has been unloaded.
  virtual void collect() = 0;
};

class Runtime {
 public:
  Runtime(Screen screen, Host& host, EventLoop::Clock clock);
  ~Runtime();
  Runtime(const Runtime&) = delete;
  Runtime& operator=(const Runtime&) = delete;

  Screen& screen() { return screen_; }
  EventLoop& loop() { return loop_; }
  Host& host() { return host_; }
  Observer* observer() const { return observer_; }
  void setObserver(Observer* o) { observer_ = o; }
  // Told of a failure that no routine caught inside an event that came from outside.
  std::function<void(const Error&)> onUncaught;

  // The loaded forms, in the order they were loaded.
  const std::vector<Form*>& Forms() const { return forms_; }
  // The loaded forms as their windows lie on the desktop, bottom first: a form comes to the
  // top when it is shown, when Show is called on it again, and when it is restored.
  const std::vector<Form*>& stacking() const { return stacking_; }
  // The window that has the keyboard: the form shown, restored or focused last that is still
  // shown, not minimised and no window inside another; nullptr when there is none.
  Form* ActiveForm() const { return active_; }
  // Where the keys go: the topmost shown form inside the active one, else the active one.
  Form* keyForm() const;

  // Runs `f` as one event from outside (user input, a timer): timers wait until it returns,
  // forms unloaded inside it are destroyed after it, and an uncaught tk::Error goes to
  // onUncaught.
  void dispatch(const std::function<void()>& f);
  bool inEvent() const { return depth_ > 0; }

  // The blocking calls of the host; timers wait while they stand.
  // Without a title the box carries the program's; an empty title is an empty title bar.
  int MsgBox(const std::string& prompt, int style = 0,
             const std::optional<std::string>& title = std::nullopt);
  Menu* PopupMenu(Menu& menu, int flags, std::optional<double> x, std::optional<double> y);
  std::optional<std::string> saveFile(const SaveFileRequest& request);
  std::optional<uint32_t> ChooseColor(uint32_t initial);

  // Ends the program at once: every form goes without its events, nothing fires any more.
  void End();
  bool ended() const { return ended_; }

  void addSlot(FormSlotBase* slot) { slots_.push_back(slot); }
  void removeSlot(FormSlotBase* slot);
  void retire(std::unique_ptr<Form> form);

 private:
  friend class Form;
  friend class Control;
  void formLoaded(Form* f);
  void formUnloaded(Form* f);
  // `f` comes to the top, and takes the keyboard when it can have it.
  void bringToFront(Form* f);
  // The active form after a change: kept while it can still have the keyboard, else the
  // topmost form that can.
  void settleActive();
  void stackingChanged();
  template <class F>
  auto blocking(F&& f);

  Screen screen_;
  Host& host_;
  EventLoop loop_;
  Observer* observer_ = nullptr;
  std::vector<Form*> forms_;
  std::vector<Form*> stacking_;
  Form* active_ = nullptr;
  std::vector<FormSlotBase*> slots_;
  std::vector<std::unique_ptr<Form>> retired_;
  int depth_ = 0;
  bool ended_ = false;
};

}  // namespace vellumry::tk
