#pragma once
// The size a new picture is first shown at: shrunk once to the form by its longer side.

#include <cstdint>

namespace vellumry {

struct ShownSize {
  double width = 0, height = 0;
};

// A picture of `picW` by `picH` twips on a form of `formW` by `formH` twips. Only shrinks, and
// tests the longer side alone: a portrait picture is held to the form's height, a landscape one
// to its width (and may stay taller than the form), a square one to the height. Anything that
// fits keeps its own size.
ShownSize fitToForm(int32_t picW, int32_t picH, double formW, double formH);

}  // namespace vellumry
