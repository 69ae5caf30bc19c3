// Icon and cursor files through the picture class: the size an IconSize stands for, the image
// chosen, and what is kept of the file.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"

namespace vellumry {
namespace {

using codecs::testing::IconFile;
using codecs::testing::IconImageBytes;

TEST(ResolveIconSize, GivesTheSizeEachRequestStandsFor) {
  struct Case {
    int32_t iconSize, width, height;
    int images;
    int32_t wantedWidth, wantedHeight;
  };
  const Case cases[] = {
      {-3, 0, 0, 3, 256, 256}, {-2, 0, 0, 3, 48, 48}, {-1, 5, 5, 1, 0, 0},  {-1, 5, 5, 3, 32, 32},
      {0, 0, 0, 3, 16, 16},    {1, 0, 0, 3, 32, 32},  {2, 0, 0, 3, 16, 16}, {3, 0, 0, 3, 32, 32},
      {4, 20, 0, 3, 20, 20},   {4, 0, 24, 3, 24, 24}, {4, 0, 0, 3, 32, 32}, {4, 0, 0, 1, 0, 0},
      {7, 10, 12, 3, 10, 12},
  };
  for (const Case& c : cases) {
    int32_t width = c.width, height = c.height;
    StdPictureEx::ResolveIconSize(c.iconSize, width, height, c.images);
    EXPECT_EQ(width, c.wantedWidth) << "IconSize " << c.iconSize << " images " << c.images;
    EXPECT_EQ(height, c.wantedHeight) << "IconSize " << c.iconSize << " images " << c.images;
  }
}

class IconPicturesTest : public ::testing::Test {
 protected:
  PictureServices services{15, 16u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
  // 16, 32 and 48 pixels of alpha blue, green and red.
  const std::vector<uint8_t> sizes = IconFile(1, {{IconImageBytes(16, 0x800000FF)},
                                                  {IconImageBytes(32, 0x8000FF00)},
                                                  {IconImageBytes(48, 0x80FF0000)}});
};

TEST_F(IconPicturesTest, SizeAndDepthArgumentsChoose) {
  const gdi::Picture small = ex.LoadPicture(ByteArray{sizes, 0, 1}, 0);
  ASSERT_TRUE(small);
  EXPECT_EQ(small.PixelSize(), (gdi::Size{16, 16}));
  const gdi::Picture jumbo = ex.LoadPicture(ByteArray{sizes, 0, 1}, -3);
  ASSERT_TRUE(jumbo);
  EXPECT_EQ(jumbo.PixelSize(), (gdi::Size{256, 256}));  // the largest image, made that size
  EXPECT_EQ(jumbo.Icon()->colour.Pixel(100, 100), 0x80FF0000u);
}

TEST_F(IconPicturesTest, AnImageWithoutAlphaStaysPlain) {
  const gdi::Picture picture =
      ex.LoadPicture(ByteArray{IconFile(1, {{IconImageBytes(64, 0xFF336699)}}), 0, 1});
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{64, 64}));  // one image: its own size
  EXPECT_FALSE(ex.IsManaged(picture));
  EXPECT_EQ(ex.RecordCount(), 0);
  EXPECT_EQ(ex.PictureType(picture), 3);  // the picture's own type
}

TEST_F(IconPicturesTest, KeepOriginalFormatKeepsAFileOfTheChosenImage) {
  const std::vector<uint8_t> file =
      IconFile(1, {{IconImageBytes(16, 0xFF0000FF)}, {IconImageBytes(32, 0xFF00FF00)}});
  const gdi::Picture picture = ex.LoadPicture(ByteArray{file, 0, 1}, -1, 0, 0, 0, true);
  ASSERT_TRUE(picture);
  EXPECT_TRUE(ex.IsManaged(picture));
  SaveDestination saved = ByteArray{};
  ex.SavePicture(picture, saved);
  const std::vector<uint8_t>& bytes = std::get<ByteArray>(saved).bytes;
  const std::vector<uint8_t> image = IconImageBytes(32, 0xFF00FF00);
  ASSERT_EQ(bytes.size(), 22 + image.size());
  EXPECT_EQ(bytes[4], 1);    // one image
  EXPECT_EQ(bytes[18], 22);  // right behind its row
  EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 22, bytes.end()), image);
  // The saved file reads back as the same one image.
  const gdi::Picture again = ex.LoadPicture(std::get<ByteArray>(saved));
  ASSERT_TRUE(again);
  EXPECT_EQ(again.PixelSize(), (gdi::Size{32, 32}));
}

}  // namespace
}  // namespace vellumry
