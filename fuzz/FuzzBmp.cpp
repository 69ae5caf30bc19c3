// Both ways of each tolerance, whole and shrunk.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/BmpCodec.h"

namespace vellumry::fuzz {

int FuzzBmp(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  codecs::ProbeBmp(bytes);
  codecs::DecodeBmp(bytes, {});
  codecs::Leniency strict;
  strict.bmpShortPixels = false;
  codecs::DecodeBmp(bytes, strict);
  codecs::DecodeBmp(bytes, {}, 4);
  codecs::DecodeBmp(bytes, strict, 4);
  return 0;
}

}  // namespace vellumry::fuzz
