#include "platform/qt/ClockDriver.h"

#include <stdexcept>

#include "platform/toolkit/EventLoop.h"

namespace vellumry::presenter {

namespace {
// While a message box, menu or dialog stands the loop holds its items back; look again now
// and then until it lets them go.
constexpr int kBlockedRetryMs = 10;
}  // namespace

ClockDriver::ClockDriver(tk::EventLoop& loop, QObject* parent) : QObject(parent), loop_(loop) {
  if (loop.clock() != tk::EventLoop::Clock::Real)
    throw std::logic_error("the clock driver needs the real clock");
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, &ClockDriver::run);
  loop_.setOnSchedule([this] { arm(); });
  arm();
}

ClockDriver::~ClockDriver() { loop_.setOnSchedule(nullptr); }

void ClockDriver::arm() {
  const int64_t wait = loop_.msUntilNext();
  if (wait < 0) return timer_.stop();
  if (timer_.isActive() && timer_.remainingTime() <= wait) return;
  timer_.start(static_cast<int>(wait));
}

void ClockDriver::run() {
  // The timer can only fire inside a nested Qt loop of a message box or menu while the model
  // is blocked; everything due then waits for the box to close.
  if (loop_.blocked()) return timer_.start(kBlockedRetryMs);
  loop_.runDue();
  arm();
}

}  // namespace vellumry::presenter
