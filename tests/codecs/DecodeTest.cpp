// Native scaling, budget refusals, and formats built here with known contents.
#include <gtest/gtest.h>

#include <tuple>

#include "codecs/TestImages.h"
#include "platform/codecs/BlockReducer.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/GifCodec.h"
#include "platform/codecs/IcoCodec.h"
#include "platform/codecs/Encoders.h"

namespace vellumry::codecs {
namespace {

TEST(Decode, JpegScalesInEighthsToTheSmallestSizeCoveringTheRequest) {
  const auto jpeg = testing::MakeJpeg(800, 600);
  EXPECT_EQ(Decode(jpeg, 100, 75)->surface.Dimensions(), (gdi::Size{100, 75}));
  EXPECT_EQ(Decode(jpeg, 101, 10)->surface.Dimensions(), (gdi::Size{200, 150}));
  EXPECT_EQ(Decode(jpeg, 250, 1)->surface.Dimensions(), (gdi::Size{300, 225}));
  EXPECT_EQ(Decode(jpeg, 799, 1)->surface.Dimensions(), (gdi::Size{800, 600}));
  EXPECT_EQ(Decode(jpeg, 5000, 5000)->surface.Dimensions(), (gdi::Size{800, 600}));
  EXPECT_EQ(Decode(jpeg)->surface.Dimensions(), (gdi::Size{800, 600}));
  // Odd sizes round up, as libjpeg's output does: 17 x 9 is 3 x 2 at an eighth, 5 x 3 at two.
  const auto odd = testing::MakeJpeg(17, 9);
  EXPECT_EQ(Decode(odd, 3, 2)->surface.Dimensions(), (gdi::Size{3, 2}));
  EXPECT_EQ(Decode(odd, 4, 1)->surface.Dimensions(), (gdi::Size{5, 3}));
}

TEST(Decode, PngHalvesWhileReadingToTheSmallestSizeCoveringTheRequest) {
  gdi::Surface picture(101, 60, gdi::AlphaMode::kStraight);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 101; ++x) picture.SetPixel(x, y, gdi::Argb(x % 7 ? 255 : 0, x, y, 200));
  }
  const auto png = testing::MakePng(picture);
  const gdi::Surface full = Decode(png)->surface;
  for (const auto& [wanted, size, factor] : {std::tuple{gdi::Size{20, 10}, gdi::Size{26, 15}, 4},
                                             {{26, 16}, {51, 30}, 2},
                                             {{1, 1}, {1, 1}, 128},
                                             {{101, 60}, {101, 60}, 1},
                                             {{500, 1}, {101, 60}, 1}}) {
    SCOPED_TRACE(size.width);
    const gdi::Surface small = Decode(png, wanted.width, wanted.height)->surface;
    ASSERT_EQ(small.Dimensions(), size);
    EXPECT_EQ(small.Alpha(), gdi::AlphaMode::kStraight);
    // Row by row, the same as shrinking the whole picture.
    const gdi::Surface reference = factor == 1 ? full : Reduce(full, factor);
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) ASSERT_EQ(small.Pixel(x, y), reference.Pixel(x, y));
    }
  }
}

TEST(Decode, ShrinkingAveragesBlocksWeightingColourByAlpha) {
  gdi::Surface picture(3, 3, gdi::AlphaMode::kStraight);
  // A block of one opaque red pixel and three clear green ones, a partial column, a partial row.
  const uint32_t red = gdi::Argb(255, 255, 0, 0), clearGreen = gdi::Argb(0, 0, 255, 0);
  const uint32_t grey = gdi::Argb(255, 100, 100, 100), white = gdi::Argb(255, 255, 255, 255);
  const uint32_t rows[3][3] = {
      {red, clearGreen, grey}, {clearGreen, clearGreen, white}, {grey, white, clearGreen}};
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 3; ++x) picture.SetPixel(x, y, rows[y][x]);
  }
  const gdi::Surface small = Reduce(picture, 2);
  ASSERT_EQ(small.Dimensions(), (gdi::Size{2, 2}));
  EXPECT_EQ(small.Pixel(0, 0), gdi::Argb(64, 255, 0, 0));  // no green: those pixels are clear
  EXPECT_EQ(small.Pixel(1, 0), gdi::Argb(255, 178, 178, 178));
  EXPECT_EQ(small.Pixel(0, 1), gdi::Argb(255, 178, 178, 178));
  EXPECT_EQ(small.Pixel(1, 1), gdi::Argb(0, 0, 0, 0));

  picture.SetAlpha(gdi::AlphaMode::kOpaque);  // without alpha, every pixel counts alike
  EXPECT_EQ(Reduce(picture, 2).Pixel(0, 0), gdi::Argb(64, 64, 191, 0));
}

TEST(Decode, HeadersAskingForMoreThanTheBudgetAreRefusedBeforeAllocating) {
  std::vector<uint8_t> bmp = codecs::EncodeBmp(testing::Gradient(2, 2));
  auto put32 = [&](size_t at, uint32_t v) {
    for (int i = 0; i < 4; ++i) bmp[at + i] = static_cast<uint8_t>(v >> (8 * i));
  };
  put32(18, 40000);
  put32(22, 40000);
  EXPECT_EQ(Probe(bmp).error(), Error::kTooLarge);
  EXPECT_EQ(Decode(bmp).error(), Error::kTooLarge);
  put32(18, 0x80000000u);  // a negative width
  EXPECT_EQ(Decode(bmp).error(), Error::kCorrupt);

  std::vector<uint8_t> gif = testing::MakeGif(2, 2, {0, 1, 2, 3}, -1);
  for (size_t at : {6u, 8u}) gif[at] = gif[at + 1] = 0xFF;  // a 65535 x 65535 screen
  EXPECT_EQ(Decode(gif).error(), Error::kTooLarge);
}

TEST(Decode, GifIndicesComeOutExactlyWithTheirTable) {
  const std::vector<uint8_t> indices = {0, 1, 2, 3, 3, 2, 1, 0};
  const auto gif = testing::MakeGif(4, 2, indices, 2);
  const auto frame = DecodeGifFrameIndices(gif, 0, {});
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->indices, indices);
  EXPECT_EQ(frame->transparentIndex, 2);
  ASSERT_EQ(frame->colors.size(), 4u);
  EXPECT_EQ(frame->colors[1], gdi::Argb(255, 255, 0, 0));
  EXPECT_EQ(DecodeGifFrameIndices(gif, 1, {}).error(), Error::kOutOfRange);
  // Composed over transparency: the transparent index shows nothing.
  const auto composed = Decode(gif);
  ASSERT_TRUE(composed);
  EXPECT_EQ(composed->surface.Pixel(1, 0), gdi::Argb(255, 255, 0, 0));
  EXPECT_EQ(composed->surface.Pixel(2, 0), 0u);
  EXPECT_TRUE(Probe(gif)->hasAlpha);
  EXPECT_EQ(Probe(gif)->frameCount, 1);
}

TEST(Decode, Bmp32KeepsTheFourthByteAsStored) {
  gdi::Surface pixels(3, 1, gdi::AlphaMode::kUnknown);
  pixels.SetPixel(0, 0, 0x00102030);
  pixels.SetPixel(1, 0, 0x80102030);
  pixels.SetPixel(2, 0, 0xFF102030);
  const auto decoded = DecodeBmp(codecs::EncodeBmp(pixels), {});
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->surface.Alpha(), gdi::AlphaMode::kUnknown);
  EXPECT_EQ(decoded->info.bitsPerPixel, 32);
  for (int x = 0; x < 3; ++x) EXPECT_EQ(decoded->surface.Pixel(x, 0), pixels.Pixel(x, 0));
}

TEST(Decode, IconDefaultEntryIsTheLargestThenTheDeepest) {
  IconDirectory dir;
  dir.entries = {{16, 16, 32}, {48, 48, 8}, {48, 48, 32}, {32, 32, 32}, {48, 48, 32}};
  EXPECT_EQ(DefaultIconEntry(dir), 2);
}

TEST(Decode, IconsKeepMaskAndHotspot) {
  gdi::IconImage icon{testing::Gradient(4, 4), std::vector<uint8_t>(16, 0), true, 3, 1};
  icon.andMask[5] = 1;
  const auto bytes = codecs::EncodeIco(icon);
  const auto dir = ReadIconDirectory(bytes);
  ASSERT_TRUE(dir);
  EXPECT_TRUE(dir->isCursor);
  EXPECT_EQ(dir->entries[0].hotspotX, 3);
  EXPECT_EQ(dir->entries[0].hotspotY, 1);
  const auto back = DecodeIconEntry(bytes, 0, {});
  ASSERT_TRUE(back);
  EXPECT_EQ(back->andMask, icon.andMask);
  EXPECT_FALSE(back->HasAlpha());
  EXPECT_EQ(back->colour.Pixel(3, 2), icon.colour.Pixel(3, 2));
  // Flattened, a masked pixel is transparent.
  const auto flat = Decode(bytes);
  ASSERT_TRUE(flat);
  EXPECT_EQ(flat->info.format, Format::kCur);
  EXPECT_EQ(gdi::AlphaOf(flat->surface.Pixel(1, 1)), 0);
  EXPECT_EQ(gdi::AlphaOf(flat->surface.Pixel(0, 0)), 255);
  EXPECT_EQ(DecodeIconEntry(bytes, 1, {}).error(), Error::kOutOfRange);
}

TEST(Decode, ShortAndForeignDataIsRefusedWithAReason) {
  EXPECT_EQ(Probe({}).error(), Error::kUnknownFormat);
  const std::vector<uint8_t> text = {'h', 'e', 'l', 'l', 'o'};
  EXPECT_EQ(Decode(text).error(), Error::kUnknownFormat);
  const std::vector<uint8_t> bm = {'B', 'M', 0, 0};
  EXPECT_EQ(Decode(bm).error(), Error::kTruncated);
  const std::vector<uint8_t> icon = {0, 0, 1, 0, 0, 0};
  EXPECT_EQ(Decode(icon).error(), Error::kCorrupt);  // no entries
}

}  // namespace
}  // namespace vellumry::codecs
