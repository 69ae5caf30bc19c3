#pragma once
// A control array: element 0 is made with the form; Load(i) makes element i as a hidden copy
// of element 0, Unload(i) destroys it. The array's events carry the element's Index.

#include <memory>
#include <string>
#include <vector>

#include "platform/toolkit/Control.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

template <class T>
class ControlArray : public EventSet<int> {
 public:
  template <class... A>
  ControlArray(Form* form, std::string name, A&&... args) : form_(form) {
    auto first = std::make_unique<T>(form, std::move(name), std::forward<A>(args)...);
    first->index_ = 0;
    wire(*first, 0);
    elements_.push_back(std::move(first));
  }
  ControlArray(const ControlArray&) = delete;
  ControlArray& operator=(const ControlArray&) = delete;

  // The element `index`; one that doesn't exist is a failure.
  T& operator()(int index) const {
    if (!exists(index)) raise(err::ElementMissing, name() + "(" + std::to_string(index) + ")");
    return *elements_[static_cast<size_t>(index)];
  }
  bool exists(int index) const {
    return index >= 0 && static_cast<size_t>(index) < elements_.size() &&
           elements_[static_cast<size_t>(index)] != nullptr;
  }
  const std::string& name() const { return elements_.front()->Name(); }

  // Makes element `index` as a hidden copy of element 0; loading one that exists fails.
  T& Load(int index) {
    if (exists(index)) raise(err::AlreadyLoaded, name() + "(" + std::to_string(index) + ")");
    if (index < 0) raise(err::InvalidCall, name() + "(" + std::to_string(index) + ")");
    auto el = std::make_unique<T>(*elements_.at(0));
    el->index_ = index;
    wire(*el, index);
    T& ref = *el;
    if (static_cast<size_t>(index) >= elements_.size())
      elements_.resize(static_cast<size_t>(index) + 1);
    elements_[static_cast<size_t>(index)] = std::move(el);
    ++count_;
    if (Observer* o = form_->runtime().observer()) o->controlLoaded(ref);
    return ref;
  }
  // Destroys element `index`; element 0 and elements that don't exist can't be unloaded.
  void Unload(int index) {
    if (index == 0) raise(err::InvalidCall, "element 0 of " + name());
    T& el = (*this)(index);
    if (Observer* o = form_->runtime().observer()) o->controlUnloaded(el);
    elements_[static_cast<size_t>(index)].reset();
    --count_;
    while (!elements_.back()) elements_.pop_back();
  }
  // The indices that exist, in order.
  std::vector<int> indices() const {
    std::vector<int> out;
    for (size_t i = 0; i < elements_.size(); ++i)
      if (elements_[i]) out.push_back(static_cast<int>(i));
    return out;
  }
  size_t Count() const { return count_; }

 private:
  void wire(T& el, int index) {
    el.onClick = [this, index] { fire(onClick, index); };
    el.onDblClick = [this, index] { fire(onDblClick, index); };
    el.onChange = [this, index] { fire(onChange, index); };
    el.onScroll = [this, index] { fire(onScroll, index); };
    el.onTimer = [this, index] { fire(onTimer, index); };
    el.onGotFocus = [this, index] { fire(onGotFocus, index); };
    el.onLostFocus = [this, index] { fire(onLostFocus, index); };
    el.onPathChange = [this, index] { fire(onPathChange, index); };
    el.onPatternChange = [this, index] { fire(onPatternChange, index); };
    el.onMouseDown = [this, index](int b, int s, double x, double y) {
      fire(onMouseDown, index, b, s, x, y);
    };
    el.onMouseUp = [this, index](int b, int s, double x, double y) {
      fire(onMouseUp, index, b, s, x, y);
    };
    el.onMouseMove = [this, index](int b, int s, double x, double y) {
      fire(onMouseMove, index, b, s, x, y);
    };
    el.onKeyDown = [this, index](int& k, int s) { fire(onKeyDown, index, k, s); };
    el.onKeyUp = [this, index](int& k, int s) { fire(onKeyUp, index, k, s); };
    el.onKeyPress = [this, index](int& k) { fire(onKeyPress, index, k); };
  }

  Form* form_;
  std::vector<std::unique_ptr<T>> elements_;  // by index; null where none is loaded
  size_t count_ = 1;
};

}  // namespace vellumry::tk
