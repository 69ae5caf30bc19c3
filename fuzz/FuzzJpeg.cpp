// JPEG decoding at full size and at a scale picked from the first byte.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/JpegCodec.h"

namespace vellumry::fuzz {

int fuzzJpeg(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  codecs::probeJpeg(bytes);
  codecs::decodeJpeg(bytes, size > 0 ? data[size - 1] % 8 + 1 : 8, {});
  return 0;
}

}  // namespace vellumry::fuzz
