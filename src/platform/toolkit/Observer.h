#pragma once
// Told of every change of the model that a presenter must show. All calls come on the one
// thread, after the change has been made.

#include "platform/toolkit/PropertyName.h"

namespace vellumry::tk {

class Control;
class Form;

class Observer {
 public:
  virtual ~Observer() = default;
  virtual void formLoaded(Form&) {}
  virtual void formUnloaded(Form&) {}
  virtual void controlLoaded(Control&) {}
  virtual void controlUnloaded(Control&) {}
  virtual void propertyChanged(Control&, PropertyName /*property*/) {}
  virtual void focusChanged(Form&) {}
  // The forms' stacking or the active form changed (Runtime::stacking, ActiveForm).
  virtual void stackingChanged() {}
  virtual void programEnded() {}
};

}  // namespace vellumry::tk
