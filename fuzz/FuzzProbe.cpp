// Probe and nativeSizes on any bytes.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/Codecs.h"

namespace vellumry::fuzz {

int fuzzProbe(const uint8_t* data, size_t size) {
  const auto info = codecs::probe({data, size});
  if (info) codecs::nativeSizeFor(*info, {info->width / 3, info->height / 3});
  return 0;
}

}  // namespace vellumry::fuzz
