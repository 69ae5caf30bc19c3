#include "platform/gdi/Units.h"

#include <cmath>

namespace vellumry::gdi {

namespace {
constexpr double kTwipsPerInch = 1440.0;
constexpr double kHimetricPerInch = 2540.0;
}  // namespace

int himetricToPixels(int32_t himetric, double twipsPerPixel) {
  return static_cast<int>(
      std::nearbyint(himetric * (kTwipsPerInch / twipsPerPixel) / kHimetricPerInch));
}

int32_t pixelsToHimetric(int pixels, double twipsPerPixel) {
  return static_cast<int32_t>(
      std::nearbyint(pixels * kHimetricPerInch / (kTwipsPerInch / twipsPerPixel)));
}

}  // namespace vellumry::gdi
