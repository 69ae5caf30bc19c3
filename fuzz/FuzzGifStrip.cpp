// Every frame of a GIF decoded into the strip, and the first and last frames given back out.
#include "fuzz/FuzzTargets.h"
#include "gif/FrameExport.h"
#include "gif/FrameStrip.h"
#include "gif/GifFile.h"

namespace vellumry::fuzz {

constexpr int64_t kMostExportedPixels = 1 << 20;

int fuzzGifStrip(const uint8_t* data, size_t size) {
  GifFile gif;
  const int32_t count = ReadGifFile(std::vector<uint8_t>(data, data + size), gif);
  FrameStrip strip;
  if (count == 0 || !BuildStrip(gif, strip)) return 0;
  for (const int32_t index : {1, count}) {
    // Only frames of up to a million pixels go back out, so that each run stays quick.
    const GifFrame& frame = gif.m_Frames[index - 1];
    if (int64_t{frame.Width} * frame.Height > kMostExportedPixels) continue;
    FrameImage(gif, strip, index, 1);
    FrameImage(gif, strip, index, 0);
  }
  return 0;
}

}  // namespace vellumry::fuzz
