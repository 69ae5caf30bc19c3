#pragma once
// GIF files written block by block, so that tests can break them exactly where they mean to.

#include <cstdint>
#include <string>
#include <vector>

namespace vellumry::testing {

// Image data of one pixel of index 0: LZW code size 2, the clear, 0 and end codes.
inline std::vector<uint8_t> onePixelData() { return {2, 2, 0x44, 0x01, 0}; }

// Image data of `indices` (rows in file order): LZW code size 8, then the clear code, each index
// as a 9-bit code of its own and the end code, in one sub-block. The code table never grows
// past 9 bits in the few pixels these tests use.
inline std::vector<uint8_t> encodedData(const std::vector<uint8_t>& indices) {
  std::vector<uint8_t> out{8, 0};
  uint32_t pending = 0;
  int bits = 0;
  const auto put = [&](uint32_t code) {
    for (pending |= code << bits, bits += 9; bits >= 8; bits -= 8, pending >>= 8)
      out.push_back(static_cast<uint8_t>(pending));
  };
  put(256);
  for (const uint8_t index : indices) put(index);
  put(257);
  if (bits > 0) out.push_back(static_cast<uint8_t>(pending));
  out[1] = static_cast<uint8_t>(out.size() - 2);
  out.push_back(0);
  return out;
}

struct GifBytes {
  std::vector<uint8_t> bytes;

  // Signature, a logical screen, and a global table of 2^bits entries (entry i = (i, 2i, 3i))
  // when bits is above 0.
  static GifBytes Screen(int width, int height, int bits, const std::string& signature = "GIF89a",
                         int background = 0) {
    GifBytes gif{{signature.begin(), signature.end()}};
    gif.word(width).word(height).byte(bits > 0 ? 0x80 | (bits - 1) : 0).byte(background).byte(0);
    for (int i = 0; bits > 0 && i < (1 << bits); ++i) gif.byte(i).byte(2 * i).byte(3 * i);
    return gif;
  }
  GifBytes& control(int flags, int delay, int transIndex = 0) {
    return byte(0x21).byte(0xF9).byte(4).byte(flags).word(delay).byte(transIndex).byte(0);
  }
  GifBytes& application(const std::string& identifier, const std::vector<uint8_t>& subBlock) {
    return byte(0x21).byte(0xFF).Text(identifier).Text({subBlock.begin(), subBlock.end()}).byte(0);
  }
  GifBytes& comment(const std::string& text) { return byte(0x21).byte(0xFE).Text(text).byte(0); }
  // An image descriptor, a local table of 2^localBits entries (entry i = (255 - i, 0, i)) when
  // localBits is above 0, and `data` (LZW code size, sub-blocks, terminator) as given.
  GifBytes& Image(int left, int top, int width, int height, int localBits = 0,
                  const std::vector<uint8_t>& data = onePixelData(), bool interlaced = false) {
    byte(0x2C).word(left).word(top).word(width).word(height);
    byte((interlaced ? 0x40 : 0) | (localBits > 0 ? 0x80 | (localBits - 1) : 0));
    for (int i = 0; localBits > 0 && i < (1 << localBits); ++i) byte(255 - i).byte(0).byte(i);
    bytes.insert(bytes.end(), data.begin(), data.end());
    return *this;
  }
  GifBytes& byte(int byte) {
    bytes.push_back(static_cast<uint8_t>(byte));
    return *this;
  }
  GifBytes& word(int value) { return byte(value).byte(value >> 8); }
  // A length byte, then the text.
  GifBytes& Text(const std::string& text) {
    byte(static_cast<int>(text.size()));
    bytes.insert(bytes.end(), text.begin(), text.end());
    return *this;
  }
  GifBytes& trailer() { return byte(0x3B); }
  // 1-based position that the next block will have.
  int32_t next() const { return static_cast<int32_t>(bytes.size()) + 1; }
};

// Three frames on a 2 x 2 screen with a global table of 256: frame 1 3 x 2 of indices 10 to 15;
// frame 2 2 x 4, interlaced, with a local table of 2 and the rows {0, 0}, {1, 0}, {0, 1},
// {1, 1}; frame 3 4 x 1 at (5, 5), index 7 transparent, of {7, 200, 7, 255}.
inline const std::vector<uint8_t> kSampleRows[3] = {
    {10, 11, 12, 13, 14, 15}, {0, 0, 1, 0, 0, 1, 1, 1}, {7, 200, 7, 255}};
inline GifBytes sampleAnimation() {
  return GifBytes::Screen(2, 2, 8)
      .Image(0, 0, 3, 2, 0, encodedData(kSampleRows[0]))
      .Image(0, 0, 2, 4, 1, encodedData({0, 0, 0, 1, 1, 0, 1, 1}), true)  // rows 0, 2, 1, 3
      .control(1, 0, 7)
      .Image(5, 5, 4, 1, 0, encodedData(kSampleRows[2]))
      .trailer();
}

}  // namespace vellumry::testing
