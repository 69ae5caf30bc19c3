// libFuzzer's entry for one target; VELLUMRY_FUZZ_TARGET names its body (fuzzTiff, ...).
#include "fuzz/FuzzTargets.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  return vellumry::fuzz::VELLUMRY_FUZZ_TARGET(data, size);
}
