// A BMP file as a DIB section takes it, then what its fourth bytes mean.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/ClassifyAlpha.h"

namespace vellumry::fuzz {

int FuzzDib(const uint8_t* data, size_t size) {
  const auto section = codecs::DecodeDibSection({data, size});
  if (section) {
    const gdi::Surface& pixels = section->surface;
    codecs::ClassifyAlpha(pixels.Pixels(), pixels.Width(), pixels.Height());
  }
  return 0;
}

}  // namespace vellumry::fuzz
