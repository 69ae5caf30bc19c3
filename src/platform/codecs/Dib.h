#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/codecs/Codecs.h"
#include "platform/gdi/ByteReader.h"

namespace vellumry::codecs {

// A device-independent bitmap's header and colour table: what BMP files and icon images share.
struct DibHeader {
  uint32_t headerSize = 0;
  int width = 0;
  int height = 0;  // rows of the colour image (half the stored height in an icon image)
  bool topDown = false;
  int bitsPerPixel = 0;
  uint32_t compression = 0;         // 0 RGB, 1 RLE8, 2 RLE4, 3 bit fields, 6 bit fields with alpha
  std::array<uint32_t, 4> masks{};  // red, green, blue, alpha, for bit fields and 16 bits
  std::vector<uint32_t> palette;    // 0xFFRRGGBB
  uint64_t tableEnd = 0;            // offset behind header, masks and colour table
};

inline constexpr uint32_t kBiRgb = 0, kBiRle8 = 1, kBiRle4 = 2, kBiBitFields = 3,
                          kBiAlphaBitFields = 6;

// Reads the header that starts at `at`. `iconImage` halves the stored height, which counts the
// AND mask too. Refuses what isn't decoded here (JPEG or PNG inside, OS/2 compressions) and any
// size beyond the pixel budget.
Expected<DibHeader> parseDibHeader(const gdi::ByteReader& in, uint64_t at, bool iconImage);

// Bytes of one stored row at this depth, padded to 4 bytes.
uint64_t dibRowBytes(int bitsPerPixel, int width);

// Decodes the pixels in `data` into a top-down surface, shrunk by `reduction` (Reduced's size)
// while the rows are read. 32-bit pixels without bit fields keep their fourth byte and come back
// kUnknown; bit fields with an alpha mask give straight alpha; the rest is opaque. Data that ends
// early is refused unless leniency.bmpShortPixels.
Expected<gdi::Surface> readDibPixels(const DibHeader& header, std::span<const uint8_t> data,
                                     const Leniency& leniency, int reduction = 1);

}  // namespace vellumry::codecs
