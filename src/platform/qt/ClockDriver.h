#pragma once
// Runs a real-clock tk::EventLoop from Qt's event loop: one precise single-shot QTimer fires
// what is due and is set again for the next item. The loop's schedule hook wakes it sooner
// whenever the model starts a timer or posts a call.

#include <QObject>
#include <QTimer>

namespace vellumry::tk {
class EventLoop;
}

namespace vellumry::presenter {

class ClockDriver : public QObject {
 public:
  // `loop` must run on the real clock and outlive the driver.
  explicit ClockDriver(tk::EventLoop& loop, QObject* parent = nullptr);
  ~ClockDriver() override;

  // Sets the timer for the next item, unless it is set for earlier already.
  void arm();
  bool armed() const { return timer_.isActive(); }

 private:
  void run();

  tk::EventLoop& loop_;
  QTimer timer_;
};

}  // namespace vellumry::presenter
