#include "platform/toolkit/ScrollBar.h"

#include <algorithm>

#include "platform/toolkit/PropertyList.h"

namespace vellumry::tk {

namespace {
void checkRange(int v, const std::string& what) {
  if (v < -32768 || v > 32767) raise(err::InvalidProperty, what);
}
}  // namespace

void ScrollBar::clampValue() {
  int lo = std::min(min_, max_), hi = std::max(min_, max_);
  if (value_ < lo) setValue(lo);
  if (value_ > hi) setValue(hi);
}

void ScrollBar::setMin(int v) {
  checkRange(v, Name() + ".Min");
  if (!assign(min_, v, "Min")) return;
  clampValue();
}

void ScrollBar::setMax(int v) {
  checkRange(v, Name() + ".Max");
  if (!assign(max_, v, "Max")) return;
  clampValue();
}

void ScrollBar::setValue(int v) {
  if (v < std::min(min_, max_) || v > std::max(min_, max_))
    raise(err::InvalidProperty, Name() + ".Value");
  if (assign(value_, v, "Value")) fire(onChange);
}

const std::vector<Property>& ScrollBar::properties() const {
  static const auto props = extend(
      Control::properties(),
      {
          prop<ScrollBar, &ScrollBar::Min, &ScrollBar::setMin>("Min"),
          prop<ScrollBar, &ScrollBar::Max, &ScrollBar::setMax>("Max"),
          prop<ScrollBar, &ScrollBar::Value, &ScrollBar::setValue>("Value"),
          prop<ScrollBar, &ScrollBar::SmallChange, &ScrollBar::setSmallChange>("SmallChange"),
          prop<ScrollBar, &ScrollBar::LargeChange, &ScrollBar::setLargeChange>("LargeChange"),
      });
  return props;
}

}  // namespace vellumry::tk
