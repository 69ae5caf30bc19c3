#include "viewer/FitRule.h"

#include "platform/toolkit/Numbers.h"

namespace vellumry {

std::optional<ShownSize> fitToForm(double width, double height, double formW, double formH) {
  const int32_t picW = tk::CLng(width), picH = tk::CLng(height);
  // The width that goes with the full form height, and the height that goes with its width.
  const double a = formH * picW / picH;
  const double b = formW * picH / picW;
  if (picH > picW && formH <= picH) return ShownSize{a, formH};
  if (picH < picW && formW <= picW) return ShownSize{formW, b};
  // Square by the unrounded sizes, where the two tests above use the rounded ones.
  if (width == height && formH <= picH) return ShownSize{a, a};
  return std::nullopt;
}

}  // namespace vellumry
