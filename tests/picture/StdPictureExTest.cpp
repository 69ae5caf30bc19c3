// The load dispatch of StdPictureEx: arguments, sources, the sniff by content, the record table.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/StdPictureEx.h"

using namespace vellumry;

namespace vellumry {
namespace {

using codecs::testing::Gradient;
using codecs::testing::MakeGif;
using codecs::testing::MakeJpeg;
using codecs::testing::MakePng;
using testsupport::Filled;
using testsupport::TempFolder;
using testsupport::WriteTiff;

class StdPictureExTest : public ::testing::Test {
 protected:
  PictureServices services{15, 16u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
  TempFolder folder;
};

TEST_F(StdPictureExTest, ArgumentsAreNormalised) {
  // Sizes keep their low 12 bits; negatives become 0.
  auto args = StdPictureEx::NormaliseArguments(-1, -8, 4096, 4100, true, 2);
  EXPECT_EQ(args.Width, 0);
  EXPECT_EQ(args.Height, 4);
  EXPECT_EQ(args.ColorDepth, 0);
  EXPECT_EQ(args.ConvertTo, 0);  // 2 is no conversion
  EXPECT_TRUE(args.KeepOriginalFormat);
  args = StdPictureEx::NormaliseArguments(32, 24, -5, 4095, true, 1);
  EXPECT_EQ(args.Width, 0);
  EXPECT_EQ(args.Height, 4095);
  EXPECT_EQ(args.ColorDepth, 24);
  EXPECT_FALSE(args.KeepOriginalFormat);  // a bitmap conversion keeps no source
  args = StdPictureEx::NormaliseArguments(-1, 0, 0, 0, true, 3);
  EXPECT_EQ(args.ConvertTo, 3);
  EXPECT_FALSE(args.KeepOriginalFormat);
  EXPECT_TRUE(args.KeepForIcon);
}

TEST_F(StdPictureExTest, SourcesThatGiveNoPicture) {
  EXPECT_FALSE(ex.LoadPicture(PictureSource{}));
  EXPECT_FALSE(ex.LoadPicture(std::string()));
  EXPECT_FALSE(ex.LoadPicture(ByteArray{{0x42}, 0, 1}));  // one element
  const auto png = MakePng(Gradient(8, 8));
  EXPECT_FALSE(ex.LoadPicture(ByteArray{png, 0, 2}));  // two dimensions
  EXPECT_FALSE(ex.LoadPicture(gdi::Picture{}));
  // A file of no bytes: no picture and no error; a missing file alike.
  EXPECT_FALSE(ex.LoadPicture(folder.Write("empty.bmp", {})));
  EXPECT_FALSE(ex.LoadPicture(folder.Path("missing.bmp")));
  // Data that no decoder knows, shorter than the magic or not.
  EXPECT_FALSE(ex.LoadPicture(ByteArray{{'B', 'M', 1}, 0, 1}));
  EXPECT_FALSE(ex.LoadPicture(folder.Write("text.ico", {'h', 'e', 'l', 'l', 'o', '\n'})));
  EXPECT_EQ(ex.RecordCount(), 0);
}

TEST_F(StdPictureExTest, ContentDecidesNotTheName) {
  const auto path =
      folder.Write("really-a-png.bmp", MakePng(Filled(12, 7, 0xFF336699, gdi::AlphaMode::kOpaque)));
  const gdi::Picture picture = ex.LoadPicture(path);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{12, 7}));
  EXPECT_EQ(ex.PictureType(picture), kKindPng);
  const auto pixels = picture.Pixels();
  ASSERT_TRUE(pixels);
  EXPECT_EQ(pixels->Pixel(3, 3) & 0xFFFFFF, 0x336699u);
  // The same bytes from an array read alike, and a lower bound doesn't matter.
  const gdi::Picture fromBytes =
      ex.LoadPicture(ByteArray{MakePng(Filled(12, 7, 0xFF336699, gdi::AlphaMode::kOpaque)), 5, 1});
  ASSERT_TRUE(fromBytes);
  EXPECT_EQ(ex.PictureType(fromBytes), kKindPng);
}

TEST_F(StdPictureExTest, WidthOf4096ChoosesLikeZero) {
  const auto path = folder.Write("a.png", MakePng(Gradient(20, 10)));
  const gdi::Picture plain = ex.LoadPicture(path);
  const gdi::Picture wide = ex.LoadPicture(path, -1, 0, 4096, 4096, false, 2);
  ASSERT_TRUE(plain);
  ASSERT_TRUE(wide);
  EXPECT_EQ(wide.PixelSize(), plain.PixelSize());
  EXPECT_EQ(ex.PictureType(wide), ex.PictureType(plain));
}

TEST_F(StdPictureExTest, FlagsOfTheRoads) {
  // JPEG and BMP go by the platform loader and aren't managed.
  const gdi::Picture jpeg = ex.LoadPicture(folder.Write("a.jpg", MakeJpeg(16, 8)));
  ASSERT_TRUE(jpeg);
  EXPECT_EQ(ex.FindRecord(jpeg), -1);
  EXPECT_EQ(ex.PictureType(jpeg), kKindBitmap);
  // PNG: its kind; with alpha, an alpha bitmap.
  const gdi::Picture png = ex.LoadPicture(folder.Write("b.png", MakePng(Gradient(9, 9))));
  const gdi::Picture alpha =
      ex.LoadPicture(folder.Write("c.png", MakePng(Filled(9, 9, 0x80FF0000))));
  ASSERT_TRUE(png);
  ASSERT_TRUE(alpha);
  EXPECT_EQ(ex.Record(ex.FindRecord(png)).Flags, FlagsOf(kKindPng));
  EXPECT_EQ(ex.Record(ex.FindRecord(alpha)).Flags, FlagsOf(kKindBitmap));
  EXPECT_TRUE(alpha.Attributes() & gdi::kPictureTransparent);
  // A TIFF of three pages kept in source form counts its pages and keeps its bytes.
  const std::string tiffPath = folder.Path("d.tif");
  WriteTiff(tiffPath, 4, 4, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF});
  const gdi::Picture tiff = ex.LoadPicture(tiffPath, -1, 0, 0, 0, true);
  ASSERT_TRUE(tiff);
  const PictureRecord& row = ex.Record(ex.FindRecord(tiff));
  EXPECT_EQ(row.Flags, FlagsOf(kKindTiff, 1, 3));
  EXPECT_EQ(SubImageCountOf(row.Flags), 3u);
  ASSERT_TRUE(row.SourceBytes);
  EXPECT_EQ(row.PictureKey, tiff.Handle());
  EXPECT_EQ(ex.RecordCount(), 3);
}

TEST_F(StdPictureExTest, RowGoesWithTheLastReference) {
  const auto path = folder.Write("b.png", MakePng(Gradient(9, 9)));
  gdi::Picture first = ex.LoadPicture(path);
  gdi::Picture second = ex.LoadPicture(path);
  EXPECT_EQ(ex.RecordCount(), 2);
  gdi::Picture copy = first;
  first = {};
  EXPECT_EQ(ex.RecordCount(), 2);
  copy = {};
  EXPECT_EQ(ex.RecordCount(), 1);
  EXPECT_EQ(ex.FindRecord(second), 0);
  EXPECT_EQ(ex.Record(-1).Flags, 0u);  // the row of "not found" stays empty
}

TEST_F(StdPictureExTest, PictureTypeOfKeptSources) {
  const auto jpegPath = folder.Write("a.jpg", MakeJpeg(16, 8));
  const gdi::Picture kept = ex.LoadPicture(jpegPath, -1, 0, 0, 0, true);
  ASSERT_TRUE(kept);
  EXPECT_TRUE(kept.KeepOriginalFormat());
  EXPECT_EQ(ex.PictureType(kept), kKindJpeg);
  EXPECT_EQ(ex.PictureType(ex.LoadPicture(jpegPath)), kKindBitmap);

  const auto gif = MakeGif(4, 2, {0, 1, 2, 3, 3, 2, 1, 0}, -1);
  const gdi::Picture keptGif = ex.LoadPicture(ByteArray{gif, 0, 1}, -1, 0, 0, 0, true);
  ASSERT_TRUE(keptGif);
  EXPECT_EQ(ex.FindRecord(keptGif), -1);  // one frame: a plain picture
  EXPECT_EQ(ex.PictureType(keptGif), kKindGif);
  EXPECT_EQ(ex.PictureType(ex.LoadPicture(ByteArray{gif, 0, 1})), kKindBitmap);

  // A picture the class never saw: its own type. A picture source comes back as itself.
  const auto plain = gdi::Picture::FromSurface(Gradient(3, 3));
  EXPECT_EQ(ex.PictureType(plain), kKindBitmap);
  EXPECT_TRUE(ex.LoadPicture(plain).SameObject(plain));
  EXPECT_EQ(ex.PictureType({}), kKindNone);
}

TEST(StdPictureExRowBytes, RowsArePaddedTo32Bits) {
  EXPECT_EQ(StdPictureEx::RowBytes(1, 1, 0), 4);
  EXPECT_EQ(StdPictureEx::RowBytes(1, 33, 1), 8);
  EXPECT_EQ(StdPictureEx::RowBytes(24, 3, 2), 24);   // 9 bytes padded to 12, two rows
  EXPECT_EQ(StdPictureEx::RowBytes(24, 3, -2), 24);  // top-down rows count alike
  EXPECT_EQ(StdPictureEx::RowBytes(32, 5, 3), 60);
  EXPECT_EQ(StdPictureEx::RowBytes(8, 0, 7), 0);
}

}  // namespace
}  // namespace vellumry
