#include "gif/FrameExport.h"

#include <algorithm>
#include <cstring>

#include "platform/codecs/Codecs.h"
#include "platform/codecs/Encoders.h"

namespace vellumry {

namespace {

// The frame's rectangle of the strip in its own colours; nothing when it doesn't lie there.
std::optional<gdi::IndexedSurface> framePixels(const GifFile& gif, const FrameStrip& strip,
                                               const GifFrame& frame) {
  const gdi::IndexedSurface& from = strip.m_Strip;
  if (frame.Width < 1 || frame.Height < 1 || frame.StripX < 0 ||
      int64_t{frame.StripX} + frame.Width > from.Width() || frame.Height > from.Height() ||
      static_cast<size_t>(frame.PaletteRow) >= gif.m_Palettes.size()) {
    return std::nullopt;
  }
  gdi::IndexedSurface pixels(frame.Width, frame.Height);
  for (int y = 0; y < frame.Height; ++y) {
    std::memcpy(pixels.Row(y), from.Row(y) + frame.StripX, frame.Width);
  }
  pixels.setColors(gif.m_Palettes[frame.PaletteRow]);
  return pixels;
}

gdi::Picture FrameToBitmap(const gdi::IndexedSurface& pixels) {
  return gdi::Picture::fromSurface(pixels.toSurface());
}

gdi::Picture FrameToGif(const gdi::IndexedSurface& pixels, const GifFrame& frame) {
  const auto bytes = codecs::encodeGif(pixels, frame.HasTrans ? frame.TransIndex : -1);
  auto decoded = codecs::decode(bytes);
  if (!decoded) return {};
  return gdi::Picture::fromSurface(std::move(decoded->surface));
}

}  // namespace

gdi::Picture FrameImage(const GifFile& gif, const FrameStrip& strip, int32_t Index,
                        int32_t PicType) {
  if (Index < 1 || Index > static_cast<int32_t>(gif.m_Frames.size())) return {};
  const GifFrame& frame = gif.m_Frames[Index - 1];
  const auto pixels = framePixels(gif, strip, frame);
  if (!pixels) return {};
  return PicType == 1 ? FrameToBitmap(*pixels) : FrameToGif(*pixels, frame);
}

void FramePalette(const GifFile& gif, int32_t Index, ColorRow& palette) {
  palette.fill(0);
  if (Index < 1 || Index > static_cast<int32_t>(gif.m_Frames.size())) return;
  const size_t row = gif.m_Frames[Index - 1].PaletteRow;
  if (row < gif.m_Palettes.size()) palette = gif.m_Palettes[row];
}

}  // namespace vellumry
