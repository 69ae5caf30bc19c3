// The header, then the pixels: at full size or shrunk while the rows are read.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/PngCodec.h"

namespace vellumry::fuzz {

int fuzzPng(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  codecs::probePng(bytes);
  codecs::decodePng(bytes, {}, 1 << (size % 3));
  return 0;
}

}  // namespace vellumry::fuzz
