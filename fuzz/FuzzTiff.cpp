// The first page whole and shrunk (leniently and strictly) and, when there is one, the second.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/TiffCodec.h"

namespace vellumry::fuzz {

int fuzzTiff(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  const auto info = codecs::probeTiff(bytes);
  codecs::decodeTiff(bytes, 0, {});
  codecs::decodeTiff(bytes, 0, {}, 4);
  codecs::Leniency strict;
  strict.tiffDamagedStrips = false;
  codecs::decodeTiff(bytes, 0, strict, 4);
  if (info && info->frameCount > 1) codecs::decodeTiff(bytes, 1, {});
  return 0;
}

}  // namespace vellumry::fuzz
