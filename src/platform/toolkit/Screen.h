#pragma once
// The screen the program runs on, in twips; set by whoever hosts the program.

namespace vellumry::tk {

struct Screen {
  double Width = 1024 * 15.0;
  double Height = 768 * 15.0;
  double TwipsPerPixelX = 15;
  double TwipsPerPixelY = 15;

  static Screen ofPixels(int width, int height, double twipsPerPixel = 15) {
    return {width * twipsPerPixel, height * twipsPerPixel, twipsPerPixel, twipsPerPixel};
  }
};

}  // namespace vellumry::tk
