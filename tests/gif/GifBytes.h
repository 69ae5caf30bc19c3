#pragma once
// GIF files written block by block, so that tests can break them exactly where they mean to.

#include <cstdint>
#include <string>
#include <vector>

namespace vellumry::testing {

struct GifBytes {
  std::vector<uint8_t> bytes;

  // Signature, a logical screen, and a global table of 2^bits entries (entry i = (i, 2i, 3i))
  // when bits is above 0.
  static GifBytes Screen(int width, int height, int bits, const std::string& signature = "GIF89a",
                         uint8_t background = 0);
  GifBytes& Control(uint8_t flags, uint16_t delay, uint8_t transIndex = 0);
  GifBytes& Application(const std::string& identifier, const std::vector<uint8_t>& subBlock);
  GifBytes& Comment(const std::string& text);
  // An image descriptor, a local table of 2^localBits entries (entry i = (255 - i, 0, i)) when
  // localBits is above 0, and `data` (LZW code size, sub-blocks, terminator) as given.
  GifBytes& Image(int left, int top, int width, int height, int localBits,
                  const std::vector<uint8_t>& data, bool interlaced = false);
  GifBytes& Byte(uint8_t byte);
  GifBytes& Trailer() { return Byte(0x3B); }
  // 1-based position that the next block will have.
  int32_t Next() const { return static_cast<int32_t>(bytes.size()) + 1; }
};

// Image data of one pixel of index 0.
std::vector<uint8_t> OnePixelData();
// Image data that giflib's encoder writes for `indices` (rows top down, `width` a row), in
// interlaced row order when asked.
std::vector<uint8_t> EncodedData(int width, int height, const std::vector<uint8_t>& indices,
                                 bool interlaced = false);

// Three frames on a 2 x 2 screen with a global table of 256: frame 1 3 x 2 of indices 10 to 15;
// frame 2 2 x 4, interlaced, with a local table of 2 and the rows {0, 0}, {1, 0}, {0, 1},
// {1, 1}; frame 3 4 x 1 at (5, 5), index 7 transparent, of {7, 200, 7, 255}.
extern const std::vector<uint8_t> kSampleRows[3];
GifBytes SampleAnimation();

}  // namespace vellumry::testing
