// Frames given back out: as pictures, as palettes, and as GIF files.
#include <gtest/gtest.h>

#include <functional>

#include "gif/FrameExport.h"
#include "gif/GifBytes.h"
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

}  // namespace
}  // namespace vellumry
