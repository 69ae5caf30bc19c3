// The GIF encoder, checked by decoding what it writes.
#include <gtest/gtest.h>

#include <functional>

#include "platform/codecs/Encoders.h"
#include "platform/codecs/GifCodec.h"

namespace vellumry::codecs {
namespace {

struct EncodeCase {
  const char* name;
  int width;
  int height;
  std::function<uint8_t(int x, int y)> pixel;
  int transIndex;
};

class GifEncoder : public ::testing::TestWithParam<EncodeCase> {};

TEST_P(GifEncoder, DecodesBackToTheSameIndicesInBlocksOf254) {
  const EncodeCase& c = GetParam();
  gdi::IndexedSurface pixels(c.width, c.height);
  for (int y = 0; y < c.height; ++y) {
    for (int x = 0; x < c.width; ++x) pixels.setIndex(x, y, c.pixel(x, y));
  }
  gdi::IndexedSurface::ColorTable colors{};
  colors[1] = 0x123456;
  pixels.setColors(colors);
  const auto bytes = encodeGif(pixels, c.transIndex);

  const auto decoded = decodeGifFrameIndices(bytes, 0, {.gifTruncatedFrame = false});
  ASSERT_TRUE(decoded) << errorName(decoded.error());
  ASSERT_EQ(decoded->width, c.width);
  ASSERT_EQ(decoded->height, c.height);
  for (int y = 0; y < c.height; ++y) {
    for (int x = 0; x < c.width; ++x) {
      ASSERT_EQ(decoded->indices[size_t(y) * c.width + x], pixels.Index(x, y)) << x << "," << y;
    }
  }
  EXPECT_EQ(decoded->colors.at(1), 0xFF123456u);
  EXPECT_EQ(decoded->transparentIndex, c.transIndex);

  // Header, table, the control when transparent, the descriptor, then code size 8.
  size_t at = 13 + 768 + (c.transIndex >= 0 ? 8 : 0) + 10;
  ASSERT_EQ(bytes.at(10), 0x87);
  ASSERT_EQ(bytes.at(at), 8);
  std::vector<int> blocks;
  for (++at; bytes.at(at) != 0; at += 1 + bytes[at]) blocks.push_back(bytes[at]);
  ASSERT_FALSE(blocks.empty());
  for (size_t i = 0; i + 1 < blocks.size(); ++i) EXPECT_EQ(blocks[i], 254) << "block " << i;
  EXPECT_EQ(bytes.size(), at + 2) << "terminator and trailer";
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, GifEncoder,
    ::testing::Values(EncodeCase{"OnePixel", 1, 1, [](int, int) { return uint8_t{5}; }, -1},
                      EncodeCase{"OneColour", 640, 48, [](int, int) { return uint8_t{1}; }, 1},
                      EncodeCase{"Gradient", 256, 40, [](int x, int y) { return uint8_t(x + y); },
                                 -1},
                      // Far more than 4096 codes: the table is cleared and codes go back to 9 bits.
                      EncodeCase{"Noise", 300, 200,
                                 [](int x, int y) {
                                   uint32_t v = uint32_t(y * 300 + x) * 2654435761u;
                                   return uint8_t(v >> 24);
                                 },
                                 200}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace vellumry::codecs
