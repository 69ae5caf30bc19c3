#pragma once
// Pictures written out as files: BMP and ICO for saving, GIF for a single frame, PNG for the
// thumbnail cache. Each sits beside its decoder.

#include <cstdint>
#include <vector>

#include "platform/codecs/PngText.h"
#include "platform/gdi/IconImage.h"
#include "platform/gdi/Surface.h"

namespace vellumry::codecs {

// Appends `v` little-endian in 2 or 4 bytes, as the file formats store numbers.
void putLe16(std::vector<uint8_t>& out, uint32_t v);
void putLe32(std::vector<uint8_t>& out, uint32_t v);

// A BMP file of `pixels`: 24 bits for opaque pixels, else 32 bits with each pixel's fourth byte
// written as it stands. Rows bottom-up, 40-byte header.
std::vector<uint8_t> encodeBmp(const gdi::Surface& pixels);

// An ICO file of one image: 32 bits with alpha when the icon has alpha, else 24 bits; both with
// the AND mask.
std::vector<uint8_t> encodeIco(const gdi::IconImage& icon);

// A GIF 89a of one image: `pixels` (one colour index a pixel, rows top down) at (0, 0) of a
// screen of their size, their colours as its 256-entry global table, and index `transIndex`
// transparent when it is 0 to 255. The image data are the LZW codes of 8-bit pixels, in
// sub-blocks of 254 bytes.
std::vector<uint8_t> encodeGif(const gdi::IndexedSurface& pixels, int transIndex);

// `pixels` as an 8-bit RGBA PNG (straight alpha; opaque pixels get 255), with `keys` as tEXt
// chunks before the image data, compressed for speed. Empty when libpng fails.
std::vector<uint8_t> encodePng(const gdi::Surface& pixels, const PngTextKeys& keys);

}  // namespace vellumry::codecs
