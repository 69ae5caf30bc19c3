#pragma once
// Whole numbers as the toolkit makes them: rounding half to even, 16- and 32-bit ranges, and
// the whole-number division that drops the remainder.

#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/toolkit/Error.h"

namespace vellumry::tk {

// Nearest whole number, halves to the even one (2.5 -> 2, 3.5 -> 4).
inline double roundHalfEven(double v) { return std::nearbyint(v); }

// A floating value as a 16-bit whole number; out of range is an Overflow.
inline int16_t CInt(double v) {
  double r = roundHalfEven(v);
  if (!(r >= std::numeric_limits<int16_t>::min() && r <= std::numeric_limits<int16_t>::max()))
    raise(err::Overflow);
  return static_cast<int16_t>(r);
}

// A floating value as a 32-bit whole number; out of range is an Overflow.
inline int32_t CLng(double v) {
  double r = roundHalfEven(v);
  if (!(r >= std::numeric_limits<int32_t>::min() && r <= std::numeric_limits<int32_t>::max()))
    raise(err::Overflow);
  return static_cast<int32_t>(r);
}

// a \ b: both sides rounded to whole numbers first, the quotient cut toward zero.
inline int64_t intDiv(double a, double b) {
  auto x = static_cast<int64_t>(roundHalfEven(a));
  auto y = static_cast<int64_t>(roundHalfEven(b));
  if (y == 0) raise(11, "Division by zero");
  return x / y;
}

}  // namespace vellumry::tk
