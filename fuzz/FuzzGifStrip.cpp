// Every frame of a GIF decoded into the strip, and the first and last frames given back out.
#include "fuzz/FuzzTargets.h"
#include "gif/FrameExport.h"
#include "gif/FrameStrip.h"
#include "gif/GifFile.h"

namespace vellumry::fuzz {

int FuzzGifStrip(const uint8_t* data, size_t size) {
  GifFile gif;
  const int32_t count = ReadGifFile(std::vector<uint8_t>(data, data + size), gif);
  FrameStrip strip;
  if (count == 0 || !BuildStrip(gif, strip)) return 0;
  for (const int32_t index : {1, count}) {
    FrameImage(gif, strip, index, 1);
    FrameImage(gif, strip, index, 0);
  }
  return 0;
}

}  // namespace vellumry::fuzz
