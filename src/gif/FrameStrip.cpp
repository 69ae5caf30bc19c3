#include "gif/FrameStrip.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "platform/codecs/GifCodec.h"
#include "platform/codecs/Limits.h"
#include "platform/gdi/ByteReader.h"

namespace vellumry {

namespace {

// The frames decode one at a time as single-image GIFs of their own, whose global table maps
// index i to the colour (0, 0, i): what the decoder gives back are then the raw indices, whatever
// local table, interlace or code width the frame had.
constexpr size_t kScreenBytes = 13;
constexpr size_t kTableBytes = 768;
constexpr size_t kHeaderBytes = kScreenBytes + kTableBytes;
constexpr size_t kControlBytes = 8;

void writeIdentityTable(uint8_t* table, size_t entries) {
  for (size_t i = 0; i < entries; ++i) {
    table[3 * i] = 0;
    table[3 * i + 1] = 0;
    table[3 * i + 2] = static_cast<uint8_t>(i);
  }
}

// Builds frame after frame in one buffer whose header stays but for the screen size.
class FrameWrapper {
 public:
  FrameWrapper(std::span<const uint8_t> file, size_t longestFrame) : file_(file) {
    buffer_.reserve(kHeaderBytes + kControlBytes + longestFrame + 1);
    buffer_.assign(file.begin(), file.begin() + kScreenBytes);
    buffer_[10] |= 0x87;  // a global table of 256 entries
    buffer_.resize(kHeaderBytes);
    writeIdentityTable(buffer_.data() + kScreenBytes, 256);
  }

  // The single-image GIF of `frame`; empty when its bytes aren't in the file.
  std::span<const uint8_t> wrap(const GifFrame& frame, const FrameSpan& span) {
    buffer_.resize(kHeaderBytes);
    // A graphic control goes along, but without transparency, so that every index comes out.
    if (span.Offset != frame.StripX) {
      const auto control = file_.slice(int64_t{frame.StripX} - 1, kControlBytes);
      if (control.empty()) return {};
      buffer_.insert(buffer_.end(), control.begin(), control.end());
      buffer_[kHeaderBytes + 3] &= ~1;
    }
    const auto image = file_.slice(int64_t{span.Offset} - 1, span.Length);
    if (image.size() < 10) return {};
    const size_t at = buffer_.size();
    buffer_.insert(buffer_.end(), image.begin(), image.end());
    uint8_t* descriptor = buffer_.data() + at;
    std::fill_n(descriptor + 1, 4, 0);                   // at (0, 0) of
    std::memcpy(buffer_.data() + 6, descriptor + 5, 4);  // a screen of the frame's size
    const uint8_t flags = descriptor[9];
    if (flags & 0x80) {
      const size_t entries = size_t{1} << ((flags & 7) + 1);
      if (image.size() < 10 + 3 * entries) return {};
      writeIdentityTable(descriptor + 10, entries);
    }
    buffer_.push_back(0x3B);
    return buffer_;
  }

 private:
  gdi::ByteReader file_;
  std::vector<uint8_t> buffer_;
};

void place(const gdi::IndexedSurface& frame, gdi::IndexedSurface& strip, int x, int width,
           int height) {
  const int rows = std::min({frame.Height(), height, strip.Height()});
  const int columns = std::min({frame.Width(), width, strip.Width() - x});
  for (int y = 0; y < rows; ++y) std::memcpy(strip.Row(y) + x, frame.Row(y), columns);
}

}  // namespace

bool BuildStrip(GifFile& gif, FrameStrip& strip, const StripProgress& progress) {
  strip = {};
  const int32_t count = static_cast<int32_t>(gif.m_Frames.size());
  if (count == 0 || gif.m_Spans.size() < gif.m_Frames.size() ||
      gif.m_FileData.size() < kScreenBytes) {
    return false;
  }
  int64_t width = 0;
  int32_t height = 0;
  size_t longest = 0;
  bool anyTransparent = false;
  for (int32_t i = 0; i < count; ++i) {
    const GifFrame& frame = gif.m_Frames[i];
    width += frame.Width;
    height = std::max(height, frame.Height);
    longest = std::max<size_t>(longest, std::max(gif.m_Spans[i].Length, 0));
    anyTransparent |= frame.HasTrans == 1;
  }
  // One byte a pixel, so the budget of a decoded picture's bytes holds as many pixels.
  if (width <= 0 || height <= 0 ||
      static_cast<uint64_t>(width) * static_cast<uint64_t>(height) > codecs::kMaxPixelBytes ||
      width > INT32_MAX) {
    return false;
  }
  strip.m_Strip = gdi::IndexedSurface(static_cast<int>(width), height);
  strip.m_Strip.setColors(gdi::IndexedSurface::identityTable());
  gif.m_PalTop = -1;
  if (anyTransparent) strip.m_Mask.emplace();

  FrameWrapper wrapper(gif.m_FileData, longest);
  int32_t x = 0;
  for (int32_t i = 0; i < count; ++i) {
    GifFrame& frame = gif.m_Frames[i];
    const auto wrapped = wrapper.wrap(frame, gif.m_Spans[i]);
    if (wrapped.empty()) {
      strip = {};
      return false;
    }
    frame.StripX = x;
    x += frame.Width;
    // A frame the decoder refuses stays a gap of index 0.
    if (const auto pixels = codecs::decodeGifIndexed(wrapped, {})) {
      place(*pixels, strip.m_Strip, frame.StripX, frame.Width, frame.Height);
    }
    if (i == 0 && progress.FirstFrame) {
      progress.FirstFrame();
      strip.m_Strip.setColors(gdi::IndexedSurface::identityTable());
      gif.m_PalTop = -1;
    }
    if (progress.FrameLoaded)
      progress.FrameLoaded(i + 1, static_cast<int32_t>((i + 1) * int64_t{100} / count));
  }
  return true;
}

}  // namespace vellumry
