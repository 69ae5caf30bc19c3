// Both ways of each tolerance, whole and shrunk.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/BmpCodec.h"

namespace vellumry::fuzz {

int fuzzBmp(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  codecs::probeBmp(bytes);
  codecs::decodeBmp(bytes, {});
  codecs::Leniency strict;
  strict.bmpShortPixels = false;
  codecs::decodeBmp(bytes, strict);
  codecs::decodeBmp(bytes, {}, 4);
  codecs::decodeBmp(bytes, strict, 4);
  return 0;
}

}  // namespace vellumry::fuzz
