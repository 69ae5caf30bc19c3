#pragma once
// The driver with the screen attached: the Qt presenter follows the program from its start, as
// it does in the program on screen, `shot` and the minimise capture take what its windows show,
// and after every command the windows are checked against the model.

#include <memory>

namespace vellumry {

class Driver;

namespace presenter {
class Presenter;
}

class LiveScreen {
 public:
  // Hooks itself into `driver`, which must outlive it. Needs a QApplication.
  explicit LiveScreen(Driver& driver);
  ~LiveScreen();
  LiveScreen(const LiveScreen&) = delete;
  LiveScreen& operator=(const LiveScreen&) = delete;

 private:
  Driver& driver_;
  std::unique_ptr<presenter::Presenter> presenter_;
};

}  // namespace vellumry
