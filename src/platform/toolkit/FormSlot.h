#pragma once
// Holds the one form of a kind: made and loaded when first touched, destroyed after the event
// in which it was unloaded. Touching it again after that makes a new one.

#include <functional>
#include <memory>

#include "platform/toolkit/Form.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

template <class T>
class FormSlot final : public FormSlotBase {
 public:
  using Factory = std::function<std::unique_ptr<T>()>;
  FormSlot(Runtime& runtime, Factory make) : runtime_(runtime), make_(std::move(make)) {
    runtime_.addSlot(this);
  }
  ~FormSlot() override { runtime_.removeSlot(this); }
  FormSlot(const FormSlot&) = delete;
  FormSlot& operator=(const FormSlot&) = delete;

  // Touches the form: loads it (raising Form_Load) when it isn't loaded.
  T& operator()() {
    if (obj_ && !obj_->isLoaded()) runtime_.retire(std::move(obj_));
    if (!obj_) {
      obj_ = make_();
      obj_->load();
    }
    return *obj_;
  }
  // The loaded form, or nullptr; never loads it.
  T* peek() const { return obj_ && obj_->isLoaded() ? obj_.get() : nullptr; }
  bool loaded() const { return peek() != nullptr; }

  void collect() override {
    if (obj_ && !obj_->isLoaded()) runtime_.retire(std::move(obj_));
  }

 private:
  Runtime& runtime_;
  Factory make_;
  std::unique_ptr<T> obj_;
};

}  // namespace vellumry::tk
