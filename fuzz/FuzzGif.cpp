// The composed first frame and the raw indices of the first frames.
#include <algorithm>

#include "fuzz/FuzzTargets.h"
#include "platform/codecs/GifCodec.h"

namespace vellumry::fuzz {

int FuzzGif(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  const auto info = codecs::ProbeGif(bytes);
  codecs::DecodeGif(bytes, {});
  const int frames = info ? std::min(info->frameCount, 3) : 1;
  for (int i = 0; i < frames; ++i) codecs::DecodeGifFrameIndices(bytes, i, {});
  return 0;
}

}  // namespace vellumry::fuzz
