// The load dispatch of StdPictureEx: arguments, sources, the sniff by content, the record table.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/StdPictureEx.h"

namespace vellumry {
namespace {

using namespace codecs::testing;
using namespace testsupport;

class StdPictureExTest : public ::testing::Test {
 protected:
  PictureServices services{15, 16u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
  TempFolder folder;
};

TEST(StdPictureExArguments, AreNormalised) {
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

TEST(StdPictureExRowBytes, RowsArePaddedTo32Bits) {
  EXPECT_EQ(StdPictureEx::RowBytes(1, 1, 0), 4);
  EXPECT_EQ(StdPictureEx::RowBytes(1, 33, 1), 8);
  EXPECT_EQ(StdPictureEx::RowBytes(24, 3, 2), 24);   // 9 bytes padded to 12, two rows
  EXPECT_EQ(StdPictureEx::RowBytes(24, 3, -2), 24);  // top-down rows count alike
  EXPECT_EQ(StdPictureEx::RowBytes(32, 5, 3), 60);
  EXPECT_EQ(StdPictureEx::RowBytes(8, 0, 7), 0);
}

TEST_F(StdPictureExTest, SourcesThatGiveNoPicture) {
  EXPECT_FALSE(ex.LoadPicture(PictureSource{}));
  EXPECT_FALSE(ex.LoadPicture(std::string()));
  EXPECT_FALSE(ex.LoadPicture(ByteArray{{0x42}, 0, 1}));                   // one element
  EXPECT_FALSE(ex.LoadPicture(ByteArray{MakePng(Gradient(8, 8)), 0, 2}));  // two dimensions
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
  const auto png = MakePng(Filled(12, 7, 0xFF336699, gdi::AlphaMode::kOpaque));
  const gdi::Picture picture = ex.LoadPicture(folder.Write("really-a-png.bmp", png));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{12, 7}));
  EXPECT_EQ(ex.PictureType(picture), 6);
  const auto pixels = picture.Pixels();
  ASSERT_TRUE(pixels);
  EXPECT_EQ(pixels->Pixel(3, 3) & 0xFFFFFF, 0x336699u);
  // The same bytes from an array read alike, and a lower bound doesn't matter.
  const gdi::Picture fromBytes = ex.LoadPicture(ByteArray{png, 5, 1});
  ASSERT_TRUE(fromBytes);
  EXPECT_EQ(ex.PictureType(fromBytes), 6);
}

// The kind PictureType gives (1 bitmap, 5 JPEG, 6 PNG, 7 GIF, 8 TIFF) and the Flags of the
// picture's row, 0 when it isn't managed.
TEST_F(StdPictureExTest, KindAndRowOfEachRoad) {
  const std::string jpeg = folder.Write("a.jpg", MakeJpeg(16, 8));
  const ByteArray gif{MakeGif(4, 2, {0, 1, 2, 3, 3, 2, 1, 0}, -1), 0, 1};
  const std::string tiff = folder.Path("d.tif");
  WriteTiff(tiff, 4, 4, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF});
  struct Case {
    const char* what;
    PictureSource source;
    bool keep;
    int32_t kind;
    uint32_t flags;
  };
  const Case cases[] = {
      // JPEG and a one-frame GIF go by the platform loader; kept, they still tell their kind.
      {"jpeg", jpeg, false, 1, 0},
      {"kept jpeg", jpeg, true, 5, 0},
      {"gif", gif, false, 1, 0},
      {"kept gif", gif, true, 7, 0},
      {"png", folder.Write("b.png", MakePng(Gradient(9, 9))), false, 6, 6},
      {"png with alpha: an alpha bitmap", folder.Write("c.png", MakePng(Filled(9, 9, 0x80FF0000))),
       false, 1, 1},
      // Current page 1 in bits 4-15, three pages in bits 16-27.
      {"kept tiff of three pages", tiff, true, 8, 8 | 1 << 4 | 3 << 16},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const gdi::Picture picture = ex.LoadPicture(c.source, -1, 0, 0, 0, c.keep);
    ASSERT_TRUE(picture);
    EXPECT_EQ(ex.PictureType(picture), c.kind);
    const int32_t row = ex.FindRecord(picture);
    EXPECT_EQ(ex.Record(row).Flags, c.flags);
    EXPECT_EQ(ex.RecordCount(), c.flags ? 1 : 0);
    // A managed picture reports transparent parts whatever its pixels.
    EXPECT_EQ((picture.Attributes() & gdi::kPictureTransparent) != 0, c.flags != 0);
    if (c.flags == 0) continue;
    EXPECT_EQ(ex.Record(row).PictureKey, picture.Handle());
    EXPECT_EQ(ex.Record(row).SourceBytes != nullptr, c.keep);
  }
  // A picture the class never saw: its own type.
  EXPECT_EQ(ex.PictureType(gdi::Picture::FromSurface(Gradient(3, 3))), 1);
  EXPECT_EQ(ex.PictureType({}), 0);
}

TEST_F(StdPictureExTest, PagesOfAKeptTiff) {
  const std::string tiff = folder.Path("pages.tif");
  WriteTiff(tiff, 4, 4, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF});
  const gdi::Picture first = ex.LoadPicture(tiff, -1, 0, 0, 0, true);
  ASSERT_TRUE(first);
  EXPECT_EQ(ex.SubImageCount(first), 3);
  EXPECT_EQ(ex.SubImageIndex(first), 1);
  // Out of range, or below 1: the picture itself, still on page 1.
  EXPECT_TRUE(ex.SubImage(first, 4).SameObject(first));
  EXPECT_TRUE(ex.SubImage(first, 0).SameObject(first));
  EXPECT_EQ(ex.SubImageIndex(first), 1);
  // Page 2 is a new picture that takes the row over.
  const gdi::Picture second = ex.SubImage(first, 2);
  ASSERT_TRUE(second);
  EXPECT_FALSE(second.SameObject(first));
  EXPECT_EQ(second.Pixels()->Pixel(1, 1) & 0xFFFFFF, 0x00FF00u);
  EXPECT_EQ(ex.SubImageIndex(second), 2);
  EXPECT_EQ(ex.PictureType(second), 8);
  EXPECT_EQ(ex.FindRecord(first), -1);
  EXPECT_EQ(ex.RecordCount(), 1);
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

}  // namespace
}  // namespace vellumry
