#pragma once

#include <cstdint>
#include <span>

namespace vellumry::codecs {

// Pixel formats, by the values the picture engine passes around.
inline constexpr uint32_t kPixelFormat24bppRGB = 0x21808;
inline constexpr uint32_t kPixelFormat32bppARGB = 0x26200A;  // straight alpha
inline constexpr uint32_t kPixelFormat32bppPARGB = 0xE200B;  // premultiplied alpha
inline constexpr uint32_t kPixelFormat16bppARGB1555 = 0x61007;
inline constexpr uint32_t kPixelFormat64bppPARGB = 0x1C400E;
inline constexpr uint32_t kPixelFormat64bppARGB = 0x34400D;
// Opaque pixels and pure zero pixels and nothing else: the zeros are holes, the rest opaque.
inline constexpr uint32_t kAlphaOnlyZeroHoles = 0x262000;

// Whether a pixel format carries alpha.
bool hasAlphaChannel(uint32_t pixelFormat);

// What the fourth byte of `Width` x `Height` 32-bit pixels (0xAARRGGBB, in memory order) means:
// kPixelFormat32bppARGB when some pixel can only be straight alpha, kAlphaOnlyZeroHoles,
// kPixelFormat32bppPARGB when the alpha is consistent with premultiplied colour, or 0 when the
// byte is no alpha at all (all 0, or all 255). Reads at most Width x Height pixels of `Pixels`.
uint32_t ClassifyAlpha(std::span<const uint32_t> Pixels, int Width, int Height);

// ClassifyAlpha over pixels given a piece at a time, in the order ClassifyAlpha reads them: the
// rows of a picture stored apart, without gathering them first.
class AlphaClassifier {
 public:
  void add(std::span<const uint32_t> pixels);
  // What ClassifyAlpha says of every pixel added so far.
  uint32_t result() const;

 private:
  uint32_t seen_ = 0;
  uint32_t last_ = 0;
  bool any_ = false;
  bool straight_ = false;  // settled: nothing further changes the answer
};

}  // namespace vellumry::codecs
