// Frames given back out: as pictures, as palettes, and as GIF files of our own encoder.
#include <gtest/gtest.h>

#include <functional>

#include "gif/FrameExport.h"
#include "gif/GifBytes.h"
#include "gif/GifEncoder.h"
#include "platform/codecs/GifCodec.h"

namespace vellumry {
namespace {

struct Loaded {
  GifFile gif;
  FrameStrip strip;
};

Loaded LoadSample() {
  Loaded out;
  EXPECT_EQ(ReadGifFile(testing::SampleAnimation().bytes, out.gif), 3);
  EXPECT_TRUE(BuildStrip(out.gif, out.strip));
  return out;
}

TEST(FrameImage, GivesTheFrameInItsOwnColours) {
  const Loaded loaded = LoadSample();
  const gdi::Picture bitmap = FrameImage(loaded.gif, loaded.strip, 2, 1);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap.PixelSize(), (gdi::Size{2, 4}));
  const auto pixels = bitmap.Pixels();
  ASSERT_TRUE(pixels);
  EXPECT_EQ(pixels->Pixel(0, 1), 0xFFFE0001u) << "index 1 of its local table (255 - i, 0, i)";
  EXPECT_EQ(pixels->Pixel(1, 1), 0xFFFF0000u) << "index 0 of its local table";

  // As a GIF, the transparent index stays transparent; the others take the global table's
  // (i, 2i, 3i).
  const gdi::Picture gif = FrameImage(loaded.gif, loaded.strip, 3, 0);
  ASSERT_TRUE(gif);
  const auto gifPixels = gif.Pixels();
  ASSERT_TRUE(gifPixels);
  EXPECT_EQ(gdi::AlphaOf(gifPixels->Pixel(0, 0)), 0);
  EXPECT_EQ(gifPixels->Pixel(1, 0), gdi::Argb(255, 200, 144, 88));
  EXPECT_EQ(gifPixels->Pixel(3, 0), gdi::Argb(255, 255, 254, 253));

  for (const int index : {0, 4, -1}) {
    EXPECT_FALSE(FrameImage(loaded.gif, loaded.strip, index, 1)) << index;
  }
}

TEST(FramePalette, CopiesTheFramesRowOrZeros) {
  const Loaded loaded = LoadSample();
  ColorRow palette;
  FramePalette(loaded.gif, 2, palette);
  EXPECT_EQ(palette[0], 0xFF0000u);
  EXPECT_EQ(palette[1], 0xFE0001u);
  FramePalette(loaded.gif, 4, palette);
  EXPECT_EQ(palette, ColorRow{});
}

struct EncodeCase {
  const char* name;
  int width;
  int height;
  std::function<uint8_t(int x, int y)> pixel;
  int transIndex;
};

class EncodeFrameGif : public ::testing::TestWithParam<EncodeCase> {};

TEST_P(EncodeFrameGif, DecodesBackToTheSameIndicesInBlocksOf254) {
  const EncodeCase& c = GetParam();
  gdi::IndexedSurface pixels(c.width, c.height);
  for (int y = 0; y < c.height; ++y) {
    for (int x = 0; x < c.width; ++x) pixels.SetIndex(x, y, c.pixel(x, y));
  }
  ColorRow colors{};
  colors[1] = 0x123456;
  const auto bytes = vellumry::EncodeFrameGif(pixels, colors, c.transIndex);

  const auto decoded = codecs::DecodeGifFrameIndices(bytes, 0, {.gifTruncatedFrame = false});
  ASSERT_TRUE(decoded) << codecs::ErrorName(decoded.error());
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
    Pictures, EncodeFrameGif,
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
}  // namespace vellumry
