#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {

// Header of a JPEG (SOI, then up to the first scan). bitsPerPixel is 8 a component.
Expected<ImageInfo> probeJpeg(std::span<const uint8_t> bytes);

// The sizes the DCT can scale a width x height JPEG to, for scale n/8 with n = 1..8, smallest
// first (each side rounded up, as libjpeg does).
std::vector<gdi::Size> jpegNativeSizes(int width, int height);

// Decodes at scale eighths/8 (1..8; others are clamped). Grey, YCbCr, RGB, CMYK and YCCK (Adobe
// inverted or not) come out as opaque BGRA.
Expected<Decoded> decodeJpeg(std::span<const uint8_t> bytes, int eighths, const Leniency& leniency);

}  // namespace vellumry::codecs
