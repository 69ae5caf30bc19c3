#pragma once

#include <cstdint>
#include <vector>

#include "platform/gdi/IconImage.h"
#include "platform/gdi/Surface.h"

namespace vellumry::gdi {

// Appends `v` little-endian in 2 or 4 bytes, as the file formats store numbers.
void PutLe16(std::vector<uint8_t>& out, uint32_t v);
void PutLe32(std::vector<uint8_t>& out, uint32_t v);

// A BMP file of `pixels`: 24 bits for opaque pixels, else 32 bits with each pixel's fourth byte
// written as it stands. Rows bottom-up, 40-byte header.
std::vector<uint8_t> EncodeBmp(const Surface& pixels);

// An ICO file of one image: 32 bits with alpha when the icon has alpha, else 24 bits; both with
// the AND mask.
std::vector<uint8_t> EncodeIco(const IconImage& icon);

}  // namespace vellumry::gdi
