// Native scaling, budget refusals, and formats built here with known contents.
#include <gtest/gtest.h>

#include <tuple>

#include "codecs/TestImages.h"
#include "platform/codecs/BlockReducer.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/Encoders.h"
#include "platform/codecs/GifCodec.h"
#include "platform/codecs/IcoCodec.h"

namespace vellumry::codecs {
namespace {

TEST(Decode, JpegScalesInEighthsToTheSmallestSizeCoveringTheRequest) {
  const auto jpeg = testing::makeJpeg(800, 600);
  EXPECT_EQ(decode(jpeg, 100, 75)->surface.dimensions(), (gdi::Size{100, 75}));
  EXPECT_EQ(decode(jpeg, 101, 10)->surface.dimensions(), (gdi::Size{200, 150}));
  EXPECT_EQ(decode(jpeg, 250, 1)->surface.dimensions(), (gdi::Size{300, 225}));
  EXPECT_EQ(decode(jpeg, 799, 1)->surface.dimensions(), (gdi::Size{800, 600}));
  EXPECT_EQ(decode(jpeg, 5000, 5000)->surface.dimensions(), (gdi::Size{800, 600}));
  EXPECT_EQ(decode(jpeg)->surface.dimensions(), (gdi::Size{800, 600}));
  // Odd sizes round up, as libjpeg's output does: 17 x 9 is 3 x 2 at an eighth, 5 x 3 at two.
  const auto odd = testing::makeJpeg(17, 9);
  EXPECT_EQ(decode(odd, 3, 2)->surface.dimensions(), (gdi::Size{3, 2}));
  EXPECT_EQ(decode(odd, 4, 1)->surface.dimensions(), (gdi::Size{5, 3}));
}

TEST(Decode, PngHalvesWhileReadingToTheSmallestSizeCoveringTheRequest) {
  gdi::Surface picture(101, 60, gdi::AlphaMode::kStraight);
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 101; ++x) picture.setPixel(x, y, gdi::argb(x % 7 ? 255 : 0, x, y, 200));
  }
  const auto png = testing::makePng(picture);
  const gdi::Surface full = decode(png)->surface;
  for (const auto& [wanted, size, factor] : {std::tuple{gdi::Size{20, 10}, gdi::Size{26, 15}, 4},
                                             {{26, 16}, {51, 30}, 2},
                                             {{1, 1}, {1, 1}, 128},
                                             {{101, 60}, {101, 60}, 1},
                                             {{500, 1}, {101, 60}, 1}}) {
    SCOPED_TRACE(size.width);
    const gdi::Surface small = decode(png, wanted.width, wanted.height)->surface;
    ASSERT_EQ(small.dimensions(), size);
    EXPECT_EQ(small.alpha(), gdi::AlphaMode::kStraight);
    // Row by row, the same as shrinking the whole picture.
    const gdi::Surface reference = factor == 1 ? full : reduce(full, factor);
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) ASSERT_EQ(small.pixel(x, y), reference.pixel(x, y));
    }
  }
}

TEST(Decode, ShrinkingAveragesBlocksWeightingColourByAlpha) {
  gdi::Surface picture(3, 3, gdi::AlphaMode::kStraight);
  // A block of one opaque red pixel and three clear green ones, a partial column, a partial row.
  const uint32_t red = gdi::argb(255, 255, 0, 0), clearGreen = gdi::argb(0, 0, 255, 0);
  const uint32_t grey = gdi::argb(255, 100, 100, 100), white = gdi::argb(255, 255, 255, 255);
  const uint32_t rows[3][3] = {
      {red, clearGreen, grey}, {clearGreen, clearGreen, white}, {grey, white, clearGreen}};
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 3; ++x) picture.setPixel(x, y, rows[y][x]);
  }
  const gdi::Surface small = reduce(picture, 2);
  ASSERT_EQ(small.dimensions(), (gdi::Size{2, 2}));
  EXPECT_EQ(small.pixel(0, 0), gdi::argb(64, 255, 0, 0));  // no green: those pixels are clear
  EXPECT_EQ(small.pixel(1, 0), gdi::argb(255, 178, 178, 178));
  EXPECT_EQ(small.pixel(0, 1), gdi::argb(255, 178, 178, 178));
  EXPECT_EQ(small.pixel(1, 1), gdi::argb(0, 0, 0, 0));

  picture.setAlpha(gdi::AlphaMode::kOpaque);  // without alpha, every pixel counts alike
  EXPECT_EQ(reduce(picture, 2).pixel(0, 0), gdi::argb(64, 64, 191, 0));
}

TEST(Decode, HeadersAskingForMoreThanTheBudgetAreRefusedBeforeAllocating) {
  std::vector<uint8_t> bmp = codecs::encodeBmp(testing::gradient(2, 2));
  auto put32 = [&](size_t at, uint32_t v) {
    for (int i = 0; i < 4; ++i) bmp[at + i] = static_cast<uint8_t>(v >> (8 * i));
  };
  put32(18, 40000);
  put32(22, 40000);
  EXPECT_EQ(probe(bmp).error(), Error::kTooLarge);
  EXPECT_EQ(decode(bmp).error(), Error::kTooLarge);
  put32(18, 0x80000000u);  // a negative width
  EXPECT_EQ(decode(bmp).error(), Error::kCorrupt);

  std::vector<uint8_t> gif = testing::makeGif(2, 2, {0, 1, 2, 3}, -1);
  for (size_t at : {6u, 8u}) gif[at] = gif[at + 1] = 0xFF;  // a 65535 x 65535 screen
  EXPECT_EQ(decode(gif).error(), Error::kTooLarge);
}

TEST(Decode, GifIndicesComeOutExactlyWithTheirTable) {
  const std::vector<uint8_t> indices = {0, 1, 2, 3, 3, 2, 1, 0};
  const auto gif = testing::makeGif(4, 2, indices, 2);
  const auto frame = decodeGifFrameIndices(gif, 0, {});
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->indices, indices);
  EXPECT_EQ(frame->transparentIndex, 2);
  ASSERT_EQ(frame->colors.size(), 4u);
  EXPECT_EQ(frame->colors[1], gdi::argb(255, 255, 0, 0));
  EXPECT_EQ(decodeGifFrameIndices(gif, 1, {}).error(), Error::kOutOfRange);
  // Composed over transparency: the transparent index shows nothing.
  const auto composed = decode(gif);
  ASSERT_TRUE(composed);
  EXPECT_EQ(composed->surface.pixel(1, 0), gdi::argb(255, 255, 0, 0));
  EXPECT_EQ(composed->surface.pixel(2, 0), 0u);
  EXPECT_TRUE(probe(gif)->hasAlpha);
  EXPECT_EQ(probe(gif)->frameCount, 1);
}

TEST(Decode, Bmp32KeepsTheFourthByteAsStored) {
  gdi::Surface pixels(3, 1, gdi::AlphaMode::kUnknown);
  pixels.setPixel(0, 0, 0x00102030);
  pixels.setPixel(1, 0, 0x80102030);
  pixels.setPixel(2, 0, 0xFF102030);
  const auto decoded = decodeBmp(codecs::encodeBmp(pixels), {});
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->surface.alpha(), gdi::AlphaMode::kUnknown);
  EXPECT_EQ(decoded->info.bitsPerPixel, 32);
  for (int x = 0; x < 3; ++x) EXPECT_EQ(decoded->surface.pixel(x, 0), pixels.pixel(x, 0));
}

TEST(Decode, IconDefaultEntryIsTheLargestThenTheDeepest) {
  IconDirectory dir;
  dir.entries = {{16, 16, 32}, {48, 48, 8}, {48, 48, 32}, {32, 32, 32}, {48, 48, 32}};
  EXPECT_EQ(defaultIconEntry(dir), 2);
}

TEST(Decode, IconsKeepMaskAndHotspot) {
  gdi::IconImage icon{testing::gradient(4, 4), std::vector<uint8_t>(16, 0), true, 3, 1};
  icon.andMask[5] = 1;
  const auto bytes = codecs::encodeIco(icon);
  const auto dir = readIconDirectory(bytes);
  ASSERT_TRUE(dir);
  EXPECT_TRUE(dir->isCursor);
  EXPECT_EQ(dir->entries[0].hotspotX, 3);
  EXPECT_EQ(dir->entries[0].hotspotY, 1);
  const auto back = decodeIconEntry(bytes, 0, {});
  ASSERT_TRUE(back);
  EXPECT_EQ(back->andMask, icon.andMask);
  EXPECT_FALSE(back->hasAlpha());
  EXPECT_EQ(back->colour.pixel(3, 2), icon.colour.pixel(3, 2));
  // Flattened, a masked pixel is transparent.
  const auto flat = decode(bytes);
  ASSERT_TRUE(flat);
  EXPECT_EQ(flat->info.format, Format::kCur);
  EXPECT_EQ(gdi::alphaOf(flat->surface.pixel(1, 1)), 0);
  EXPECT_EQ(gdi::alphaOf(flat->surface.pixel(0, 0)), 255);
  EXPECT_EQ(decodeIconEntry(bytes, 1, {}).error(), Error::kOutOfRange);
}

TEST(Decode, ShortAndForeignDataIsRefusedWithAReason) {
  EXPECT_EQ(probe({}).error(), Error::kUnknownFormat);
  const std::vector<uint8_t> text = {'h', 'e', 'l', 'l', 'o'};
  EXPECT_EQ(decode(text).error(), Error::kUnknownFormat);
  const std::vector<uint8_t> bm = {'B', 'M', 0, 0};
  EXPECT_EQ(decode(bm).error(), Error::kTruncated);
  const std::vector<uint8_t> icon = {0, 0, 1, 0, 0, 0};
  EXPECT_EQ(decode(icon).error(), Error::kCorrupt);  // no entries
}

}  // namespace
}  // namespace vellumry::codecs
