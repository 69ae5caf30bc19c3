#include "platform/toolkit/Runtime.h"

#include <algorithm>

#include "platform/toolkit/Form.h"

namespace vellumry::tk {

Runtime::Runtime(Screen screen, Host& host, EventLoop::Clock clock)
    : screen_(screen), host_(host), loop_(clock) {
  loop_.setDispatcher([this](const EventLoop::Callback& fn) { dispatch(fn); });
}

Runtime::~Runtime() = default;

void Runtime::dispatch(const std::function<void()>& f) {
  if (ended_) return;
  struct Depth {
    Runtime& rt;
    explicit Depth(Runtime& r) : rt(r) {
      ++rt.depth_;
      rt.loop_.block();
    }
    ~Depth() {
      --rt.depth_;
      rt.loop_.unblock();
    }
  };
  try {
    Depth depth(*this);
    f();
  } catch (const Error& e) {
    if (depth_ > 0) throw;
    if (onUncaught) onUncaught(e);
  }
  if (depth_ == 0) {
    for (FormSlotBase* slot : slots_) slot->collect();
    retired_.clear();
  }
}

template <class F>
auto Runtime::blocking(F&& f) {
  loop_.block();
  struct Unblock {
    EventLoop& loop;
    ~Unblock() { loop.unblock(); }
  } unblock{loop_};
  return f();
}

int Runtime::MsgBox(const std::string& prompt, int style, const std::optional<std::string>& title) {
  return blocking([&] { return host_.MsgBox(prompt, style, title.value_or(kAppTitle)); });
}

Menu* Runtime::PopupMenu(Menu& menu, int flags, std::optional<double> x, std::optional<double> y) {
  return blocking([&] { return host_.PopupMenu(menu, flags, x, y); });
}

std::optional<std::string> Runtime::saveFile(const SaveFileRequest& request) {
  return blocking([&] { return host_.saveFile(request); });
}

std::optional<uint32_t> Runtime::ChooseColor(uint32_t initial) {
  return blocking([&] { return host_.ChooseColor(initial); });
}

void Runtime::End() {
  if (ended_) return;
  ended_ = true;
  loop_.clear();
  for (Form* f : std::vector<Form*>(forms_)) f->discard();
  forms_.clear();
  stacking_.clear();
  active_ = nullptr;
  if (observer_) observer_->programEnded();
}

void Runtime::removeSlot(FormSlotBase* slot) {
  slots_.erase(std::remove(slots_.begin(), slots_.end(), slot), slots_.end());
}

void Runtime::retire(std::unique_ptr<Form> form) { retired_.push_back(std::move(form)); }

namespace {
// A window parked wholly off the screen takes no keyboard, as one that is minimised; one that
// stays on top of the others does: it is shown to be seen, as a panel that slides in.
bool canHaveKeyboard(const Form& f) {
  const Screen& s = f.runtime().screen();
  const bool onScreen = f.Left() < s.Width && f.Left() + f.Width() > 0 && f.Top() < s.Height &&
                        f.Top() + f.Height() > 0;
  return f.isLoaded() && f.Visible() && !f.ownerForm() && f.WindowState() != 1 &&
         (onScreen || f.topMost() || f.WindowState() == 2);
}
}  // namespace

Form* Runtime::keyForm() const {
  if (!active_) return nullptr;
  for (auto it = stacking_.rbegin(); it != stacking_.rend(); ++it)
    if ((*it)->ownerForm() == active_ && (*it)->Visible()) return *it;
  return active_;
}

void Runtime::bringToFront(Form* f) {
  stacking_.erase(std::remove(stacking_.begin(), stacking_.end(), f), stacking_.end());
  stacking_.push_back(f);
  if (canHaveKeyboard(*f)) active_ = f;
  settleActive();
}

void Runtime::settleActive() {
  if (!active_ || !canHaveKeyboard(*active_)) {
    active_ = nullptr;
    for (auto it = stacking_.rbegin(); it != stacking_.rend() && !active_; ++it)
      if (canHaveKeyboard(**it)) active_ = *it;
  }
  stackingChanged();
}

void Runtime::stackingChanged() {
  if (observer_) observer_->stackingChanged();
}

void Runtime::formLoaded(Form* f) {
  forms_.push_back(f);
  stacking_.push_back(f);
  if (observer_) observer_->formLoaded(*f);
}

void Runtime::formUnloaded(Form* f) {
  forms_.erase(std::remove(forms_.begin(), forms_.end(), f), forms_.end());
  stacking_.erase(std::remove(stacking_.begin(), stacking_.end(), f), stacking_.end());
  if (active_ == f) active_ = nullptr;
  // A window inside the one that goes becomes a window of its own again.
  for (Form* other : forms_)
    if (other->ownerForm() == f) other->SetParent(nullptr);
  if (observer_) observer_->formUnloaded(*f);
  settleActive();
}

}  // namespace vellumry::tk
