#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// Screen size, colour depth, whether any frame names a transparent index, and the number of
// frames (a walk over the block lengths, no decompression).
Expected<ImageInfo> probeGif(std::span<const uint8_t> bytes);

// The first frame drawn at its place on a transparent canvas of the logical screen's size (grown
// to the frame's size when the frame is larger; a frame placed partly outside is clipped).
// Straight alpha.
Expected<Decoded> decodeGif(std::span<const uint8_t> bytes, const Leniency& leniency);

// One frame exactly as stored: palette indices row by row (de-interlaced), its colour table
// (the local one, else the global one), and its transparent index.
struct GifFrameIndices {
  int left = 0;  // place on the logical screen
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<uint8_t> indices;  // width * height
  std::vector<uint32_t> colors;  // 0xFFRRGGBB, one per table entry (2 to 256)
  int transparentIndex = -1;     // -1: none
  int delayCentiseconds = 0;
  int disposal = 0;  // 0 to 3 as stored; 0 also when there is no control block
  bool interlaced = false;
};

// Frame `frame` (from 0). kOutOfRange when the file has fewer frames.
Expected<GifFrameIndices> decodeGifFrameIndices(std::span<const uint8_t> bytes, int frame,
                                                const Leniency& leniency);

// The first frame as an 8-bit surface of the frame's own size: its indices as stored, its table
// the frame's colour table (0xFFRRGGBB, entries past the table's size 0).
Expected<gdi::IndexedSurface> decodeGifIndexed(std::span<const uint8_t> bytes,
                                               const Leniency& leniency);

}  // namespace vellumry::codecs
