#pragma once

#include <cstdint>
#include <span>

#include "platform/codecs/Codecs.h"
#include "platform/codecs/Dib.h"

namespace vellumry::codecs {

// A "BM" file: its info header (12 to 124 bytes and the OS/2 variants).
Expected<ImageInfo> probeBmp(std::span<const uint8_t> bytes);

// Depths 1, 2, 4, 8, 16, 24 and 32; RLE4, RLE8 and bit fields; either row order; shrunk by
// `reduction` (Reduced's size) while the rows are read. A 32-bit BMP without bit fields keeps
// each pixel's fourth byte exactly and comes back with AlphaMode kUnknown: whether that byte is
// alpha, and of which kind, is for the caller to find out.
Expected<Decoded> decodeBmp(std::span<const uint8_t> bytes, const Leniency& leniency,
                            int reduction = 1);

// The pixels of a "BM" file as a DIB section takes them from its info header alone: the header
// must be 40 to 124 bytes, compression RGB, RLE8, RLE4 or bit fields; the pixels lie right behind
// the masks and colour table, whatever the file header's offset says; data that ends early is
// refused. Same pixel layout as decodeBmp. Anything refused here is left to decodeBmp.
Expected<Decoded> decodeDibSection(std::span<const uint8_t> bytes);

// A "BM" file as decodeDibSection reads it, before its pixels are decoded.
struct DibSection {
  DibHeader header;
  std::span<const uint8_t> data;  // the pixels and whatever follows them, borrowed from the file
};

// The header and pixel data of a "BM" file that decodeDibSection would take, refusing what it
// refuses without decoding: the header, and uncompressed data that ends early. Whether RLE data
// decodes is found out only by decoding it.
Expected<DibSection> readDibSection(std::span<const uint8_t> bytes);

}  // namespace vellumry::codecs
