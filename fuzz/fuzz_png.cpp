#include "codecs/png_codec.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  codecs::ProbePng(bytes);
  codecs::DecodePng(bytes, {});
  return 0;
}
