// Icon and cursor files read to choose one image by size and colour depth.
#include <gtest/gtest.h>

#include <vector>

#include "codecs/TestImages.h"
#include "platform/codecs/Encoders.h"
#include "platform/codecs/IconResource.h"

namespace vellumry::codecs {
namespace {

using testing::iconFile;
using testing::iconImageBytes;
using testing::makePng;

// The headers of a DIB icon image of `size` x `size` at `depth` bits, without pixels: enough
// for the directory's reading.
std::vector<uint8_t> dibHeaderOnly(int size, int depth) {
  std::vector<uint8_t> image;
  codecs::putLe32(image, 40);
  codecs::putLe32(image, static_cast<uint32_t>(size));
  codecs::putLe32(image, static_cast<uint32_t>(size * 2));
  codecs::putLe16(image, 1);
  codecs::putLe16(image, static_cast<uint32_t>(depth));
  image.resize(40, 0);
  return image;
}

TEST(IconResource, RefusesWhatDoesntFit) {
  const std::vector<uint8_t> good = iconFile(1, {{dibHeaderOnly(16, 8)}});
  ASSERT_TRUE(readIconResource(good));
  struct Case {
    const char* name;
    std::vector<uint8_t> bytes;
  };
  std::vector<uint8_t> thirdType = good, noImages = good, manyRows = good, emptyImage = good,
                       pastTheEnd = good, shortImage = iconFile(1, {{std::vector<uint8_t>(25)}});
  thirdType[2] = 3;
  noImages[4] = 0;
  manyRows[4] = 4;  // four rows claimed, one there
  emptyImage[14] = emptyImage[15] = 0;
  pastTheEnd[18] = 60;  // offset 60 + 40 bytes in a file of 62
  // Two rows of one image: each fits, but not both end to end.
  std::vector<uint8_t> overlapping = iconFile(1, {{dibHeaderOnly(16, 8)}, {dibHeaderOnly(32, 8)}});
  overlapping.resize(overlapping.size() - 40);
  for (int i = 0; i < 4; ++i) overlapping[34 + i] = overlapping[18 + i];
  const Case cases[] = {
      {"61 bytes", std::vector<uint8_t>(good.begin(), good.begin() + 61)},
      {"a third type", thirdType},
      {"a count of 0", noImages},
      {"a directory longer than the file", manyRows},
      {"an image of no bytes", emptyImage},
      {"an image past the end", pastTheEnd},
      {"images that don't fit end to end", overlapping},
      {"an image of 25 bytes", shortImage},
  };
  for (const Case& c : cases) EXPECT_FALSE(readIconResource(c.bytes)) << c.name;
}

TEST(IconResource, SortsBySizeKeepingDirectoryOrderWithinASize) {
  const auto resource = readIconResource(iconFile(1, {{dibHeaderOnly(48, 32)},
                                                      {dibHeaderOnly(16, 32)},
                                                      {makePng(testing::gradient(32, 32))},
                                                      {dibHeaderOnly(16, 4)}}));
  ASSERT_TRUE(resource);
  std::vector<int> positions;
  for (const uint32_t key : resource->keys) positions.push_back(iconKeyPosition(key));
  EXPECT_EQ(positions, (std::vector<int>{1, 3, 2, 0}));
  // An opaque PNG of 8-bit channels is colour type 2: 24 bits.
  EXPECT_EQ(iconKeyDepth(resource->keys[2]), 24);
  EXPECT_TRUE(resource->keys[2] & 0x80000000u);
}

// A resource of rows of the given sizes and depths, in directory order.
IconResource rows(const std::vector<std::pair<int, int>>& sizeAndDepth) {
  std::vector<testing::IconFileImage> images;
  for (const auto& [size, depth] : sizeAndDepth) images.push_back({dibHeaderOnly(size, depth)});
  return *readIconResource(iconFile(1, images));
}

TEST(IconResource, ChoosesBySizeThenDepth) {
  struct Case {
    const char* name;
    std::vector<std::pair<int, int>> rows;
    int wanted;
    int colorDepth;
    int chosen;  // directory position
  };
  const Case cases[] = {
      {"16/32/48 at 32", {{16, 32}, {32, 32}, {48, 32}}, 32, 32, 1},
      {"the next size up", {{16, 32}, {48, 32}, {32, 32}}, 20, 32, 2},
      {"all smaller: the largest", {{32, 8}, {16, 8}}, 48, 32, 0},
      {"depths 4, 8, 32 for 32 bits", {{32, 4}, {32, 8}, {32, 32}}, 32, 32, 2},
      {"depths 4, 8, 32 for 8 bits", {{32, 4}, {32, 8}, {32, 32}}, 32, 8, 2},
      {"depths 4, 8, 32 for 4 bits", {{32, 4}, {32, 8}, {32, 32}}, 32, 4, 1},
      {"a larger size behind the group", {{32, 4}, {32, 8}, {48, 32}}, 32, 32, 1},
      {"the first of a group only alone", {{32, 32}, {48, 32}}, 32, 4, 0},
      {"one image whatever is wanted", {{48, 4}}, 16, 32, 0},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(chooseIconRow(rows(c.rows), c.wanted, c.wanted, c.colorDepth), c.chosen) << c.name;
  }
  // The size wanted is the mean of both sides' low 11 bits.
  EXPECT_EQ(chooseIconRow(rows({{16, 32}, {32, 32}, {48, 32}}), 2048 + 16, 48, 32), 1);
}

TEST(IconResource, TheChosenImageAtTheWantedSize) {
  const std::vector<uint8_t> file = iconFile(1, {{iconImageBytes(16, 0xFF0000FF)},
                                                 {iconImageBytes(32, 0xFF00FF00)},
                                                 {iconImageBytes(48, 0xFFFF0000)}});
  const auto resource = readIconResource(file);
  ASSERT_TRUE(resource);
  const auto at32 = loadIconImage(file, *resource, 32, 32, 32);
  ASSERT_TRUE(at32);
  EXPECT_EQ(at32->row, 1);
  EXPECT_EQ(at32->image.colour.dimensions(), (gdi::Size{32, 32}));
  EXPECT_EQ(at32->image.colour.pixel(5, 5), 0xFF00FF00u);
  EXPECT_TRUE(at32->image.masked(0, 0));
  EXPECT_FALSE(at32->image.masked(1, 0));
  // Made to the size wanted, one side at the image's own size when 0; 40 and 0 ask for 20.
  const auto stretched = loadIconImage(file, *resource, 40, 0, 32);
  ASSERT_TRUE(stretched);
  EXPECT_EQ(stretched->row, 1);
  EXPECT_EQ(stretched->image.colour.dimensions(), (gdi::Size{40, 32}));
}

TEST(IconResource, ACursorKeepsItsHotSpotAndAlpha) {
  const std::vector<uint8_t> file = iconFile(2, {{iconImageBytes(8, 0x80FF0000), 3, 5}});
  const auto resource = readIconResource(file);
  ASSERT_TRUE(resource);
  const auto chosen = loadIconImage(file, *resource, 0, 0, 32);
  ASSERT_TRUE(chosen);
  EXPECT_TRUE(chosen->image.isCursor);
  EXPECT_EQ(chosen->image.hotspotX, 3);
  EXPECT_EQ(chosen->image.hotspotY, 5);
  EXPECT_EQ(chosen->depth, 32);
  EXPECT_TRUE(chosen->image.hasAlpha());
  EXPECT_EQ(chosen->image.colour.pixel(2, 2), 0x80FF0000u);
}

TEST(IconResource, APngImageInsideAnIcon) {
  gdi::Surface pixels(4, 4, gdi::AlphaMode::kStraight);
  for (uint32_t& p : pixels.Pixels()) p = 0x40112233;
  const std::vector<uint8_t> file = iconFile(1, {{makePng(pixels)}});
  const auto resource = readIconResource(file);
  ASSERT_TRUE(resource);
  const auto chosen = loadIconImage(file, *resource, 0, 0, 32);
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->depth, 32);  // colour type 6
  EXPECT_EQ(chosen->image.colour.pixel(1, 1), 0x40112233u);
}

}  // namespace
}  // namespace vellumry::codecs
