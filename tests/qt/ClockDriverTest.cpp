// The real clock driven from Qt's event loop.

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include "platform/qt/ClockDriver.h"
#include "qt/QtFixture.h"

using namespace vellumry;

namespace {

// Runs Qt's event loop for about `ms` milliseconds.
void spin(int ms) {
  QEventLoop loop;
  QTimer::singleShot(ms, &loop, &QEventLoop::quit);
  loop.exec();
}

TEST(ClockDriver, FiresATimerAgainAndAgainUntilItStopsThenRests) {
  QtProgram p(tk::EventLoop::Clock::Real);
  presenter::ClockDriver clock(p.runtime.loop());
  PanelForm& f = p.form();
  f.Timer1.onTimer = [&f] {
    if (++f.ticks == 3) f.Timer1.setEnabled(false);
  };
  // Started from outside any event: the loop's schedule hook wakes the driver.
  f.Timer1.setInterval(12);
  f.Timer1.setEnabled(true);
  EXPECT_TRUE(clock.armed());
  spin(200);
  EXPECT_EQ(f.ticks, 3);
  EXPECT_FALSE(clock.armed());
}

TEST(ClockDriver, PostedCallsRunSoonAfterAUserAction) {
  QtProgram p(tk::EventLoop::Clock::Real);
  presenter::ClockDriver clock(p.runtime.loop());
  bool ran = false;
  p.runtime.dispatch([&] { p.runtime.loop().post([&] { ran = true; }); });
  EXPECT_TRUE(clock.armed());
  spin(20);
  EXPECT_TRUE(ran);
}

TEST(ClockDriver, NothingFiresWhileTheLoopIsBlocked) {
  QtProgram p(tk::EventLoop::Clock::Real);
  presenter::ClockDriver clock(p.runtime.loop());
  PanelForm& f = p.form();
  f.Timer1.setInterval(1);
  f.Timer1.setEnabled(true);
  p.runtime.loop().block();  // as while a message box stands
  spin(50);
  EXPECT_EQ(f.ticks, 0);
  EXPECT_TRUE(clock.armed());  // it looks again later rather than giving up
  p.runtime.loop().unblock();
  spin(50);
  EXPECT_GT(f.ticks, 0);
}

}  // namespace
