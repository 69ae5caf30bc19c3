#pragma once
// The events a control can raise. A single control raises them with no leading argument; a
// control array raises the same events with the element's Index first.

#include <functional>
#include <utility>

namespace vellumry::tk {

template <class... Pre>
struct EventSet {
  std::function<void(Pre...)> onClick, onDblClick, onChange, onScroll, onTimer, onGotFocus,
      onLostFocus, onPathChange, onPatternChange;
  std::function<void(Pre..., int Button, int Shift, double X, double Y)> onMouseDown, onMouseUp,
      onMouseMove;
  std::function<void(Pre..., int&KeyCode, int Shift)> onKeyDown, onKeyUp;
  std::function<void(Pre..., int& KeyAscii)> onKeyPress;
};

// Calls `handler` with `args` when one is set.
template <class F, class... A>
void fire(const F& handler, A&&... args) {
  if (handler) handler(std::forward<A>(args)...);
}

}  // namespace vellumry::tk
