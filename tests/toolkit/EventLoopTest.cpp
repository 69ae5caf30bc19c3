// Timers fire from the loop only, in order, at their exact due times, never inside an event or
// under a message box.
#include <gtest/gtest.h>

#include "toolkit/TestForms.h"

using namespace vellumry;

using Log = std::vector<std::string>;

TEST(EventLoop, TimersFireInOrderAtExactBoundaries) {
  TestProgram p;
  LogForm& f = p.form();
  f.Timer1.setInterval(500);
  f.Timer2.setInterval(200);
  p.log.clear();
  p.runtime.loop().advance(399);
  EXPECT_EQ(p.log, (Log{"Timer2_Timer 200"}));
  p.runtime.loop().advance(1);
  p.runtime.loop().advance(100);
  EXPECT_EQ(p.log, (Log{"Timer2_Timer 200", "Timer2_Timer 400", "Timer1_Timer 500"}));
}

TEST(EventLoop, TimersNeedEnabledAndAnIntervalAndRestartOnChange) {
  TestProgram p;
  LogForm& f = p.form();
  p.log.clear();
  f.Timer1.setEnabled(false);
  f.Timer1.setInterval(10);
  p.runtime.loop().advance(50);
  EXPECT_TRUE(p.log.empty());
  f.Timer1.setEnabled(true);  // counts from now: first tick at 60
  p.runtime.loop().advance(15);
  f.Timer1.setInterval(20);  // restarts at 65: next tick at 85
  p.runtime.loop().advance(20);
  f.Timer1.setInterval(0);
  p.runtime.loop().advance(100);
  EXPECT_EQ(p.log, (Log{"Timer1_Timer 60", "Timer1_Timer 85"}));
}

TEST(EventLoop, NothingFiresInsideAnEvent) {
  TestProgram p;
  LogForm& f = p.form();
  f.Show();
  f.Timer1.setInterval(5);
  p.log.clear();
  // A click whose handler lets time pass: the timer waits until the event returns.
  f.Command1.onClick = [&] {
    p.runtime.loop().advance(20);
    p.log.push_back("click done");
  };
  tk::user::click(f.Command1);
  EXPECT_EQ(p.log, (Log{"click done"}));
  p.runtime.loop().advance(0);
  EXPECT_EQ(p.log, (Log{"click done", "Timer1_Timer 20"}));
}

namespace {
// A host whose message box stands for a while of the clock.
class SlowHost : public tk::HeadlessHost {
 public:
  tk::EventLoop* loop = nullptr;
  int MsgBox(const std::string& prompt, int style, const std::string& title) override {
    loop->advance(1000);
    return HeadlessHost::MsgBox(prompt, style, title);
  }
};
}  // namespace

TEST(EventLoop, NothingFiresWhileAMessageBoxStands) {
  SlowHost host;
  tk::Runtime rt({}, host, tk::EventLoop::Clock::Virtual);
  host.loop = &rt.loop();
  Log log;
  rt.loop().startTimer(100, [&] { log.push_back("tick " + std::to_string(rt.loop().now())); });
  rt.loop().post([&] {
    host.queueAnswer(tk::mb::Yes);
    log.push_back("answer " + std::to_string(rt.MsgBox("Sure?", 36)));
  });
  rt.loop().advance(0);
  EXPECT_EQ(log, (Log{"answer 6"}));
  rt.loop().advance(0);  // what fell due under the box fires once, late, not ten times
  EXPECT_EQ(log, (Log{"answer 6", "tick 1000"}));
}

TEST(EventLoop, PostedCallsAndRawTimersKeepTheirOrder) {
  tk::HeadlessHost host;
  tk::Runtime rt({}, host, tk::EventLoop::Clock::Virtual);
  Log log;
  tk::EventLoop& loop = rt.loop();
  tk::EventLoop::Id raw = 0;
  raw = loop.startTimer(10, [&] {
    log.push_back("raw " + std::to_string(loop.now()));
    if (loop.now() >= 20) loop.stopTimer(raw);  // a timer may kill itself from its callback
  });
  loop.post([&] { log.push_back("first"); });
  loop.post([&] { log.push_back("second"); });
  loop.advance(100);
  EXPECT_EQ(log, (Log{"first", "second", "raw 10", "raw 20"}));
  EXPECT_FALSE(loop.isRunning(raw));
}
