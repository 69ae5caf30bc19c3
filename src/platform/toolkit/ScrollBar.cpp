#include "platform/toolkit/ScrollBar.h"

#include <algorithm>

#include "platform/toolkit/PropertyList.h"

namespace vellumry::tk {

void ScrollBar::clampValue() {
  int lo = std::min(min_, max_), hi = std::max(min_, max_);
  if (value_ < lo) setValue(lo);
  if (value_ > hi) setValue(hi);
}

void ScrollBar::setMin(int v) {
  if (!assign(min_, v, prop::Min)) return;
  clampValue();
}

void ScrollBar::setMax(int v) {
  if (!assign(max_, v, prop::Max)) return;
  clampValue();
}

void ScrollBar::setValue(int v) {
  if (v < std::min(min_, max_) || v > std::max(min_, max_))
    raise(err::InvalidProperty, qualified(prop::Value));
  if (assign(value_, v, prop::Value)) fire(onChange);
}

const std::vector<Property>& ScrollBar::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 accessor<ScrollBar, &ScrollBar::Min, &ScrollBar::setMin>(prop::Min),
                 accessor<ScrollBar, &ScrollBar::Max, &ScrollBar::setMax>(prop::Max),
                 accessor<ScrollBar, &ScrollBar::Value, &ScrollBar::setValue>(prop::Value),
                 accessor<ScrollBar, &ScrollBar::SmallChange, &ScrollBar::setSmallChange>(
                     prop::SmallChange),
                 accessor<ScrollBar, &ScrollBar::LargeChange, &ScrollBar::setLargeChange>(
                     prop::LargeChange),
             });
  return props;
}

}  // namespace vellumry::tk
