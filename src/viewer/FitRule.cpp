#include "viewer/FitRule.h"

namespace vellumry {

ShownSize fitToForm(int32_t picW, int32_t picH, double formW, double formH) {
  // The width that goes with the full form height, and the height that goes with its width.
  const double a = formH * picW / picH;
  const double b = formW * picH / picW;
  if (picH > picW && formH <= picH) return {a, formH};
  if (picH < picW && formW <= picW) return {formW, b};
  if (picW == picH && formH <= picH) return {a, a};
  return {static_cast<double>(picW), static_cast<double>(picH)};
}

}  // namespace vellumry
