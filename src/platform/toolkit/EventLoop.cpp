#include "platform/toolkit/EventLoop.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>

namespace vellumry::tk {

namespace {
int64_t steadyMs() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}
}  // namespace

EventLoop::EventLoop(Clock clock) : clock_(clock), realStart_(steadyMs()) {}

int64_t EventLoop::now() const {
  return clock_ == Clock::Virtual ? virtualNow_ : steadyMs() - realStart_;
}

EventLoop::Id EventLoop::startTimer(int64_t intervalMs, Callback fn) {
  if (intervalMs <= 0) throw std::invalid_argument("timer interval must be above 0");
  Id id = nextId_++;
  items_[id] = Item{now() + intervalMs, nextSeq_++, intervalMs, std::move(fn)};
  if (onSchedule_) onSchedule_();
  return id;
}

void EventLoop::stopTimer(Id id) { items_.erase(id); }

void EventLoop::post(Callback fn) {
  items_[nextId_++] = Item{now(), nextSeq_++, 0, std::move(fn)};
  if (onSchedule_) onSchedule_();
}

bool EventLoop::fireNext(int64_t until) {
  if (blocked()) return false;
  auto next = items_.end();
  for (auto it = items_.begin(); it != items_.end(); ++it) {
    const Item& c = it->second;
    if (c.due > until) continue;
    if (next == items_.end() || c.due < next->second.due ||
        (c.due == next->second.due && c.seq < next->second.seq))
      next = it;
  }
  if (next == items_.end()) return false;
  if (clock_ == Clock::Virtual && next->second.due > virtualNow_) virtualNow_ = next->second.due;
  Callback fn = next->second.fn;  // the callback may stop or restart its own timer
  if (next->second.interval == 0) {
    items_.erase(next);
  } else {
    next->second.due = now() + next->second.interval;
    next->second.seq = nextSeq_++;
  }
  if (dispatcher_)
    dispatcher_(fn);
  else
    fn();
  return true;
}

void EventLoop::advance(int64_t ms) {
  if (clock_ != Clock::Virtual) throw std::logic_error("advance needs the virtual clock");
  int64_t target = virtualNow_ + ms;
  while (fireNext(target)) {
  }
  virtualNow_ = std::max(virtualNow_, target);
}

int64_t EventLoop::runDue() {
  int64_t t = now();
  while (fireNext(t)) {
  }
  return msUntilNext();
}

int64_t EventLoop::msUntilNext() const {
  int64_t best = -1;
  int64_t t = now();
  for (const auto& [id, item] : items_) {
    int64_t wait = item.due > t ? item.due - t : 0;
    if (best < 0 || wait < best) best = wait;
  }
  return best;
}

}  // namespace vellumry::tk
