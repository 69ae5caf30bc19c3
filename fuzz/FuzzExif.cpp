// The EXIF orientation reader over any bytes, and the turn it asks for on a small surface.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/Orientation.h"

namespace vellumry::fuzz {

int fuzzExif(const uint8_t* data, size_t size) {
  const int orientation = codecs::exifOrientation({data, size});
  gdi::Surface surface(3, 2, gdi::AlphaMode::kOpaque);
  codecs::turnUpright(surface, orientation);
  return 0;
}

}  // namespace vellumry::fuzz
