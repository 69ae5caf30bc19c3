// SavePicture: a BMP drawn from the picture, or the bytes it was read from.
#include <gtest/gtest.h>

#include "codecs/TestFiles.h"
#include "codecs/TestImages.h"
#include "picture/PictureBytes.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/Encoders.h"
#include "platform/toolkit/Error.h"

namespace vellumry {
namespace {

using testsupport::Filled;

class SavePictureTest : public ::testing::Test {
 protected:
  // The bytes SavePicture gives for `picture` in a byte array.
  std::vector<uint8_t> Saved(const gdi::Picture& picture, bool asBitmap = false,
                             int32_t keepAlpha = 0, int32_t backColor = 0) {
    SaveDestination destination = ByteArray{};
    ex.SavePicture(picture, destination, asBitmap, keepAlpha, backColor);
    return std::get<ByteArray>(destination).bytes;
  }
  gdi::Picture Bmp(const gdi::Surface& pixels) {
    return ex.LoadPicture(ByteArray{codecs::EncodeBmp(pixels), 0, 1});
  }
  // Bit count and the first stored pixel's bytes (B, G, R[, A]) of a BMP file.
  static std::pair<int, std::vector<uint8_t>> FirstPixel(const std::vector<uint8_t>& bmp) {
    const int bits = bmp.at(28);
    return {bits, {bmp.begin() + 54, bmp.begin() + 54 + bits / 8}};
  }

  PictureServices services{15, 16u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
  testsupport::TempFolder folder;
};

TEST(SaveAsFile, GivesTheKeptBytesElseABmp) {
  gdi::Picture p = gdi::Picture::FromSurface(Filled(4, 2, 0xFF000004, gdi::AlphaMode::kOpaque));
  std::vector<uint8_t> out;
  ASSERT_TRUE(SaveAsFile(p, out));
  EXPECT_EQ(out.size(), 54u + 2 * 12);  // 24 bits, rows of 12 bytes
  EXPECT_EQ(out[54], 4);                // blue first
  p.KeepOriginal(std::make_shared<const std::vector<uint8_t>>(std::vector<uint8_t>{1, 2, 3}));
  ASSERT_TRUE(SaveAsFile(p, out));
  EXPECT_EQ(out, (std::vector<uint8_t>{1, 2, 3}));
  EXPECT_FALSE(SaveAsFile(gdi::Picture(), out));
}

TEST_F(SavePictureTest, APlainBitmapComesOutAs24Bits) {
  const gdi::Picture picture = Bmp(Filled(3, 2, 0xFF123456, gdi::AlphaMode::kOpaque));
  const std::vector<uint8_t> bytes = Saved(picture);
  ASSERT_GE(bytes.size(), 54u);
  EXPECT_EQ(bytes[0], 'B');
  EXPECT_EQ(bytes[10], 54);
  EXPECT_EQ(FirstPixel(bytes), (std::pair<int, std::vector<uint8_t>>{24, {0x56, 0x34, 0x12}}));
  EXPECT_EQ(bytes.size(), 54u + 2 * 12);  // rows of 9 bytes padded to 12
}

TEST_F(SavePictureTest, AnAlphaBitmapKeepsItsAlphaOrIsFlattened) {
  // Premultiplied: alpha 128 over red 100.
  const gdi::Picture picture = Bmp(Filled(2, 2, 0x80640000, gdi::AlphaMode::kUnknown));
  ASSERT_TRUE(ex.IsManaged(picture));
  EXPECT_EQ(FirstPixel(Saved(picture, false, -1)),
            (std::pair<int, std::vector<uint8_t>>{32, {0, 0, 100, 128}}));
  // Over blue (0x00BBGGRR): 255 x 127 / 255 of it shows through.
  EXPECT_EQ(FirstPixel(Saved(picture, false, 0, 0xFF0000)),
            (std::pair<int, std::vector<uint8_t>>{24, {127, 0, 100}}));
}

TEST_F(SavePictureTest, SourceBytesComeOutAsTheyWereRead) {
  const std::vector<uint8_t> jpeg = codecs::testing::MakeJpeg(16, 8);
  const gdi::Picture kept = ex.LoadPicture(ByteArray{jpeg, 0, 1}, -1, 0, 0, 0, true);
  ASSERT_TRUE(kept);
  EXPECT_EQ(Saved(kept), jpeg);
  // The same into a file.
  SaveDestination file = folder.Path("copy.jpg");
  ex.SavePicture(kept, file);
  EXPECT_EQ(codecs::testing::ReadFile(folder.Path("copy.jpg")), jpeg);
  // Drawn as a bitmap when asked.
  EXPECT_EQ(Saved(kept, true).at(28), 24);
}

TEST_F(SavePictureTest, APictureVariableReceivesANewPicture) {
  const gdi::Picture picture = Bmp(Filled(5, 4, 0xFF123456, gdi::AlphaMode::kOpaque));
  SaveDestination destination = gdi::Picture{};
  ex.SavePicture(picture, destination);
  const gdi::Picture& copy = std::get<gdi::Picture>(destination);
  ASSERT_TRUE(copy);
  EXPECT_FALSE(copy.SameObject(picture));
  EXPECT_EQ(copy.PixelSize(), (gdi::Size{5, 4}));
  EXPECT_EQ(copy.Pixels()->Pixel(2, 2) & 0xFFFFFF, 0x123456u);
}

TEST_F(SavePictureTest, Errors) {
  const gdi::Picture bitmap = Bmp(Filled(2, 2, 0xFF123456, gdi::AlphaMode::kOpaque));
  const gdi::Picture icon = ex.LoadPicture(ByteArray{
      codecs::testing::IconFile(1, {{codecs::testing::IconImageBytes(16, 0xFF112233)}}), 0, 1});
  ASSERT_TRUE(icon);
  struct Case {
    const char* name;
    gdi::Picture picture;
    SaveDestination destination;
    int number;
  };
  const Case cases[] = {
      {"a number", bitmap, int32_t{3}, 17},
      {"nothing", bitmap, std::monostate{}, 17},
      {"an icon kept in no source form", icon, ByteArray{}, 5},
      {"a folder that isn't there", bitmap, folder.Path("no/such/folder.bmp"), ENOENT},
  };
  for (const Case& c : cases) {
    SaveDestination destination = c.destination;
    try {
      ex.SavePicture(c.picture, destination);
      ADD_FAILURE() << c.name << ": no error";
    } catch (const tk::Error& error) {
      EXPECT_EQ(error.Number, c.number) << c.name;
      EXPECT_EQ(error.Source, "SavePicture") << c.name;
    }
  }
  // An empty picture, or an empty file name, does nothing.
  SaveDestination number = int32_t{3};
  EXPECT_NO_THROW(ex.SavePicture(gdi::Picture{}, number));
  SaveDestination noName = std::string();
  EXPECT_NO_THROW(ex.SavePicture(bitmap, noName));
}

}  // namespace
}  // namespace vellumry
