// Probe and NativeSizes on any bytes.
#include "platform/codecs/Codecs.h"

using namespace vellumry;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const auto info = codecs::Probe({data, size});
  if (info) codecs::NativeSizeFor(*info, {info->width / 3, info->height / 3});
  return 0;
}
