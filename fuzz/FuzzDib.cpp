// A BMP file as a DIB section takes it, then what its fourth bytes mean; what is known of it
// before decoding must agree with that.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/ClassifyAlpha.h"
#include "platform/codecs/DibSectionProbe.h"

namespace vellumry::fuzz {

int fuzzDib(const uint8_t* data, size_t size) {
  const auto section = codecs::decodeDibSection({data, size});
  const auto probed = codecs::probeDibSection({data, size});
  if (probed.has_value() != static_cast<bool>(section)) __builtin_trap();
  if (section) {
    const gdi::Surface& pixels = section->surface;
    const uint32_t kind = codecs::ClassifyAlpha(pixels.Pixels(), pixels.Width(), pixels.Height());
    if (probed->natural != pixels.dimensions()) __builtin_trap();
    if (section->info.bitsPerPixel == 32 && probed->stored != codecs::alphaModeOf(kind)) {
      __builtin_trap();
    }
  }
  return 0;
}

}  // namespace vellumry::fuzz
