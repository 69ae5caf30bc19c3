#pragma once
// Timers, posted calls and the clock of one program. Everything fires on the one thread, one
// item at a time, each after the previous has returned, in order of due time (ties in the
// order they were scheduled). Nothing fires while the loop is blocked: during an event, or
// while a message box, popup menu or dialog stands.

#include <cstdint>
#include <functional>
#include <map>

namespace vellumry::tk {

class EventLoop {
 public:
  enum class Clock { Virtual, Real };
  using Id = uint64_t;
  using Callback = std::function<void()>;
  // Runs one due item; the runtime wraps it so that it counts as an event.
  using Dispatcher = std::function<void(const Callback&)>;

  explicit EventLoop(Clock clock);

  Clock clock() const { return clock_; }
  // Milliseconds since the loop was made.
  int64_t now() const;

  // A periodic timer: first due `intervalMs` from now, then every `intervalMs` after each
  // firing. The callback may stop or restart its own timer. Interval must be above 0.
  Id startTimer(int64_t intervalMs, Callback fn);
  void stopTimer(Id id);
  bool isRunning(Id id) const { return items_.count(id) != 0; }
  // A call made once, at the next opportunity, after what is already due.
  void post(Callback fn);

  // Virtual clock only: moves time forward by `ms`, firing each item as it falls due.
  void advance(int64_t ms);
  // Real clock: fires what is due now. Returns the milliseconds until the next item, or -1.
  int64_t runDue();
  // Milliseconds until the next item (0 when one is due), or -1 when nothing is scheduled.
  int64_t msUntilNext() const;

  void block() { ++blocked_; }
  void unblock() { --blocked_; }
  bool blocked() const { return blocked_ > 0; }
  void setDispatcher(Dispatcher d) { dispatcher_ = std::move(d); }
  // Told after a timer starts or a call is posted, so that a real clock's driver can wake up
  // sooner than it planned.
  void setOnSchedule(std::function<void()> f) { onSchedule_ = std::move(f); }
  // Drops every timer and posted call (the program has ended).
  void clear() { items_.clear(); }

 private:
  struct Item {
    int64_t due;
    uint64_t seq;
    int64_t interval;  // 0: a posted call
    Callback fn;
  };
  // Fires the earliest item due at or before `until`; false when none.
  bool fireNext(int64_t until);

  Clock clock_;
  int64_t virtualNow_ = 0;
  int64_t realStart_ = 0;
  uint64_t nextId_ = 1;
  uint64_t nextSeq_ = 0;
  int blocked_ = 0;
  std::map<Id, Item> items_;
  Dispatcher dispatcher_;
  std::function<void()> onSchedule_;
};

}  // namespace vellumry::tk
