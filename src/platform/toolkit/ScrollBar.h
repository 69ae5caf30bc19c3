#pragma once
// Vertical and horizontal scroll bars.

#include "platform/toolkit/Control.h"

namespace vellumry::tk {

class ScrollBar : public Control {
 public:
  ScrollBar(Form* form, std::string name, Kind kind = Kind::VScrollBar)
      : Control(form, std::move(name), kind) {}
  int Min() const { return min_; }
  int Max() const { return max_; }
  int Value() const { return value_; }
  // A range that no longer holds Value moves Value into it, which raises Change.
  void setMin(int v);
  void setMax(int v);
  // Raises Change when the value differs; outside Min..Max is a failure.
  void setValue(int v);
  int SmallChange() const { return smallChange_; }
  void setSmallChange(int v) { smallChange_ = v; }
  int LargeChange() const { return largeChange_; }
  void setLargeChange(int v) { largeChange_ = v; }
  bool focusable() const override { return true; }
  const std::vector<Property>& properties() const override;

 private:
  void clampValue();
  int min_ = 0, max_ = 32767, value_ = 0, smallChange_ = 1, largeChange_ = 1;
};

}  // namespace vellumry::tk
