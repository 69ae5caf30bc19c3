// Both ways of each tolerance.
#include "platform/codecs/BmpCodec.h"

using namespace vellumry;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  codecs::ProbeBmp(bytes);
  codecs::DecodeBmp(bytes, {});
  codecs::Leniency strict;
  strict.bmpShortPixels = false;
  codecs::DecodeBmp(bytes, strict);
  return 0;
}
