// Pictures made from pictures: copies through LoadPicture, and ConvertTo 1 and 3.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/Encoders.h"

namespace vellumry {
namespace {

using codecs::testing::IconFile;
using codecs::testing::IconImageBytes;
using testsupport::Filled;

constexpr int32_t kToBitmap = 1;
constexpr int32_t kToIcon = 3;

class PictureCopiesTest : public ::testing::Test {
 protected:
  gdi::Picture Bmp(uint32_t argb, gdi::AlphaMode mode) {
    return ex.LoadPicture(ByteArray{codecs::EncodeBmp(Filled(4, 4, argb, mode)), 0, 1});
  }
  gdi::Picture Convert(const PictureSource& source, int32_t to, bool keep = false) {
    return ex.LoadPicture(source, -1, 0, 0, 0, keep, to);
  }

  PictureServices services{15, 16u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
};

TEST_F(PictureCopiesTest, APictureSourceGivesACopyOwnedHere) {
  struct Case {
    const char* name;
    gdi::Picture source;
    bool managed;
    int32_t type;
  };
  const std::vector<uint8_t> jpeg = codecs::testing::MakeJpeg(8, 8);
  const Case cases[] = {
      {"a straight alpha bitmap", Bmp(0x80C80000, gdi::AlphaMode::kUnknown), true, 1},
      {"a plain bitmap", Bmp(0xFF123456, gdi::AlphaMode::kOpaque), false, 1},
      // Read again from its bytes, which the copy doesn't keep unless asked.
      {"a JPEG kept in source form", ex.LoadPicture(ByteArray{jpeg, 0, 1}, -1, 0, 0, 0, true),
       false, 1},
      {"an alpha icon",
       ex.LoadPicture(ByteArray{IconFile(1, {{IconImageBytes(16, 0x80123456)}}), 0, 1}), true, 3},
  };
  for (const Case& c : cases) {
    ASSERT_TRUE(c.source) << c.name;
    const gdi::Picture copy = ex.LoadPicture(c.source);
    ASSERT_TRUE(copy) << c.name;
    EXPECT_FALSE(copy.SameObject(c.source)) << c.name;
    EXPECT_EQ(ex.IsManaged(copy), c.managed) << c.name;
    EXPECT_EQ(ex.PictureType(copy), c.type) << c.name;
    EXPECT_EQ(copy.PixelSize(), c.source.PixelSize()) << c.name;
  }
}

TEST_F(PictureCopiesTest, AnIconBecomesABitmapWithItsAlphaOrMask) {
  const gdi::Picture alpha =
      Convert(ByteArray{IconFile(1, {{IconImageBytes(8, 0x80C80000)}}), 0, 1}, kToBitmap);
  ASSERT_TRUE(alpha);
  EXPECT_EQ(alpha.Type(), gdi::PictureType::kBitmap);
  EXPECT_TRUE(ex.IsManaged(alpha));
  EXPECT_EQ(alpha.Pixels()->Pixel(3, 3), 0x80640000u);  // premultiplied
  // Without alpha the AND mask makes the top left pixel transparent and the rest opaque.
  const gdi::Picture masked =
      Convert(ByteArray{IconFile(1, {{IconImageBytes(8, 0xFF123456)}}), 0, 1}, kToBitmap);
  ASSERT_TRUE(masked);
  EXPECT_EQ(masked.Type(), gdi::PictureType::kBitmap);
  EXPECT_TRUE(ex.IsManaged(masked));
  EXPECT_EQ(masked.Pixels()->Pixel(0, 0), 0u);
  EXPECT_EQ(masked.Pixels()->Pixel(1, 0), 0xFF123456u);
  // A bitmap stays what it is.
  const gdi::Picture plain =
      Convert(ByteArray{codecs::EncodeBmp(Filled(2, 2, 0xFF123456, gdi::AlphaMode::kOpaque)), 0, 1},
              kToBitmap);
  ASSERT_TRUE(plain);
  EXPECT_FALSE(ex.IsManaged(plain));
}

TEST_F(PictureCopiesTest, ABitmapBecomesAnIconOfOneImage) {
  const gdi::Picture source = Bmp(0x80640000, gdi::AlphaMode::kUnknown);  // premultiplied
  const gdi::Picture icon = Convert(source, kToIcon);
  ASSERT_TRUE(icon);
  ASSERT_TRUE(icon.Icon());
  EXPECT_EQ(icon.PixelSize(), (gdi::Size{4, 4}));
  EXPECT_EQ(ex.PictureType(icon), 3);
  EXPECT_TRUE(ex.IsManaged(icon));  // 32 bits
  // Straight again, as icons hold it: red 100 x 255 / 128.
  EXPECT_EQ(icon.Icon()->colour.Pixel(1, 1), 0x80C70000u);
  // An opaque bitmap gives a plain icon; with KeepOriginalFormat its one-image file is kept.
  const gdi::Picture kept = ex.LoadPicture(
      ByteArray{codecs::EncodeBmp(Filled(4, 4, 0xFF123456, gdi::AlphaMode::kOpaque)), 0, 1}, -1, 0, 0,
      0, true, kToIcon);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept.Type(), gdi::PictureType::kIcon);
  SaveDestination saved = ByteArray{};
  ex.SavePicture(kept, saved);
  const std::vector<uint8_t>& bytes = std::get<ByteArray>(saved).bytes;
  ASSERT_GE(bytes.size(), 22u);
  EXPECT_EQ(bytes[2], 1);  // an icon file
  EXPECT_EQ(bytes[4], 1);  // of one image
}

}  // namespace
}  // namespace vellumry
