#pragma once
// The size a new picture is first shown at: shrunk once to the form by its longer side.

#include <optional>

namespace vellumry {

struct ShownSize {
  double width = 0, height = 0;
};

// A picture of a natural `width` by `height` twips on a form of `formW` by `formH` twips. Only
// shrinks, and tests the longer side alone (its size rounded to whole twips): a portrait picture
// is held to the form's height, a landscape one to its width (and may stay taller than the form),
// a square one to the height. Empty when the natural size stays as it is.
std::optional<ShownSize> fitToForm(double width, double height, double formW, double formH);

}  // namespace vellumry
