// The composed first frame and the raw indices of the first frames.
#include <algorithm>

#include "fuzz/FuzzTargets.h"
#include "platform/codecs/GifCodec.h"

namespace vellumry::fuzz {

int fuzzGif(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  const auto info = codecs::probeGif(bytes);
  codecs::decodeGif(bytes, {});
  const int frames = info ? std::min(info->frameCount, 3) : 1;
  for (int i = 0; i < frames; ++i) codecs::decodeGifFrameIndices(bytes, i, {});
  return 0;
}

}  // namespace vellumry::fuzz
