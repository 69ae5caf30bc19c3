#pragma once
// Holds the one form of a kind: made and loaded when first touched, destroyed after the event
// in which it was unloaded. Touching it again after that makes a new one.
//
// A slot may name a form whose class is only declared: it holds the form as a plain Form, and
// only the typed accessors need the class itself. So a part of the program can reach a form
// as a plain window without depending on the code that defines it.

#include <functional>
#include <memory>

#include "platform/toolkit/Form.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

template <class T>
class FormSlot final : public FormSlotBase {
 public:
  // Makes a new form of the kind; may be given after the slot is made.
  using Maker = std::function<std::unique_ptr<Form>()>;
  explicit FormSlot(Runtime& runtime, Maker make = {}) : runtime_(runtime), make_(std::move(make)) {
    runtime_.addSlot(this);
  }
  ~FormSlot() override { runtime_.removeSlot(this); }
  FormSlot(const FormSlot&) = delete;
  FormSlot& operator=(const FormSlot&) = delete;

  void setMaker(Maker make) { make_ = std::move(make); }

  // Touches the form: loads it (raising Form_Load) when it isn't loaded.
  T& operator()() { return static_cast<T&>(form()); }
  // The same as a plain form.
  Form& form() {
    collect();
    if (!obj_) {
      obj_ = make_();
      obj_->load();
    }
    return *obj_;
  }
  // The loaded form, or nullptr; never loads it.
  T* peek() const { return static_cast<T*>(peekForm()); }
  Form* peekForm() const { return obj_ && obj_->isLoaded() ? obj_.get() : nullptr; }
  bool loaded() const { return peekForm() != nullptr; }

  void collect() override {
    if (obj_ && !obj_->isLoaded()) runtime_.retire(std::move(obj_));
  }

 private:
  Runtime& runtime_;
  Maker make_;
  std::unique_ptr<Form> obj_;
};

}  // namespace vellumry::tk
