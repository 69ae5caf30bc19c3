// The EXIF orientation reader over any bytes, and the turn it asks for on a small surface.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/Orientation.h"

namespace vellumry::fuzz {

int FuzzExif(const uint8_t* data, size_t size) {
  const int orientation = codecs::ExifOrientation({data, size});
  gdi::Surface surface(3, 2, gdi::AlphaMode::kOpaque);
  codecs::TurnUpright(surface, orientation);
  return 0;
}

}  // namespace vellumry::fuzz
