#include "platform/codecs/PngCodec.h"

using namespace vellumry;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  codecs::ProbePng(bytes);
  codecs::DecodePng(bytes, {});
  return 0;
}
