// The GIF block walk, with what its records promise the strip checked on every input.
#include <cstdlib>

#include "fuzz/FuzzTargets.h"
#include "gif/GifFile.h"

namespace vellumry::fuzz {

int fuzzGifFile(const uint8_t* data, size_t size) {
  GifFile gif;
  const int32_t count = ReadGifFile(std::vector<uint8_t>(data, data + size), gif);
  if (count < 0 || gif.m_Frames.size() != size_t(count) || gif.m_Spans.size() != size_t(count)) {
    std::abort();
  }
  const int64_t length = static_cast<int64_t>(gif.m_FileData.size());
  for (int32_t i = 0; i < count; ++i) {
    const GifFrame& frame = gif.m_Frames[i];
    const FrameSpan& span = gif.m_Spans[i];
    // The strip reads the span, and the 8 bytes of a graphic control before it, from the file.
    const bool spanInFile =
        span.Offset >= 14 && span.Length >= 12 && int64_t{span.Offset} - 1 + span.Length <= length;
    const bool controlInFile =
        frame.StripX == span.Offset || (frame.StripX >= 14 && frame.StripX + 8 <= span.Offset);
    const bool rowKnown = frame.PaletteRow >= 0 && frame.PaletteRow <= gif.m_PalTop &&
                          size_t(frame.PaletteRow) < gif.m_Palettes.size();
    if (!spanInFile || !controlInFile || !rowKnown || frame.Disposal > 3 || frame.HasTrans > 1 ||
        frame.Left + frame.Width > gif.m_Width || frame.Top + frame.Height > gif.m_Height) {
      std::abort();
    }
  }
  return 0;
}

}  // namespace vellumry::fuzz
