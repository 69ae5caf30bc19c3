// Module1: errors, sizes, flattening over the grid's colour, the first page of a TIFF, and the
// picture box that hands out its picture.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "picture/Module1.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "platform/toolkit/Error.h"

using namespace vellumry;

namespace vellumry {
namespace {

using codecs::testing::Gradient;
using codecs::testing::MakeJpeg;
using codecs::testing::MakePng;
using testsupport::Filled;
using testsupport::TempFolder;
using testsupport::WriteTiff;

class Module1Test : public ::testing::Test {
 protected:
  PictureServices services{15, 16u << 20, 1};
  uint32_t gridColor = 0x00402010;  // 0x00BBGGRR
  Module1 module1{services, [this] { return gridColor; }};
  TempFolder folder;
  testsupport::BoxProgram program;

  // The error LoadGdiPicture raises for `source`.
  tk::Error Raised(const GdiSource& source) {
    int32_t w = -1, h = -1;
    try {
      module1.LoadGdiPicture(source, w, h, 0xFFFFFF, false);
    } catch (const tk::Error& error) {
      return error;
    }
    ADD_FAILURE() << "no error raised";
    return tk::Error(0, "", "");
  }
};

TEST_F(Module1Test, ErrorsNameTheFile) {
  const std::string bad = folder.Write("not a picture.png", {'n', 'o', 'p', 'e', '!'});
  tk::Error error = Raised(bad);
  EXPECT_EQ(error.Number, 999);
  EXPECT_EQ(error.Source, "GDI+ Module");
  EXPECT_EQ(error.Description, "Error loading picture " + bad);
  error = Raised(folder.Path("missing.tif"));
  EXPECT_EQ(error.Description, "Error loading picture " + folder.Path("missing.tif"));
  error = Raised(ByteArray{{1, 2, 3, 4, 5}, 0, 1});
  EXPECT_EQ(error.Number, 999);
  EXPECT_EQ(error.Description, "Error loading picture");
  error = Raised(GdiSource{7});
  EXPECT_EQ(error.Number, 998);
  EXPECT_EQ(error.Source, "GDI+ Module");
  EXPECT_EQ(error.Description, "Passed invalid parameter as PicFile");
  // Metafiles have no decoder yet.
  const std::vector<uint8_t> emf = {1, 0, 0, 0, 108, 0, 0, 0};
  EXPECT_EQ(Raised(ByteArray{emf, 0, 1}).Number, 999);

  int32_t w = -1, h = -1;
  EXPECT_FALSE(module1.LoadGdiPicture(GdiSource{}, w, h, 0, false));
}

TEST_F(Module1Test, FailureLeavesTheBoxAsItWas) {
  program.form().Picture1.setAutoSize(true);
  module1.ShowPictureGdi(folder.Write("a.png", MakePng(Gradient(30, 20))), program.form().Picture1,
                         true);
  const gdi::Picture before = program.form().Picture1.Picture();
  ASSERT_TRUE(before);
  EXPECT_THROW(module1.ShowPictureGdi(folder.Path("gone.png"), program.form().Picture1, true),
               tk::Error);
  EXPECT_TRUE(program.form().Picture1.Picture().SameObject(before));
}

TEST_F(Module1Test, SizesOwnOrAsked) {
  const std::string path = folder.Write("a.jpg", MakeJpeg(64, 48));
  // -1 in either size gives the image's own two sizes, written back.
  int32_t w = -1, h = 10;
  gdi::Picture picture = module1.LoadGdiPicture(path, w, h, 0xFFFFFF, false);
  EXPECT_EQ(w, 64);
  EXPECT_EQ(h, 48);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{64, 48}));
  // A size asked for is the picture's natural size, its pixels stretched to it.
  w = 32;
  h = 40;
  picture = module1.LoadGdiPicture(path, w, h, 0xFFFFFF, false);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{32, 40}));
  ASSERT_TRUE(picture.Pixels());
  EXPECT_EQ(picture.Pixels()->Dimensions(), (gdi::Size{32, 40}));
  // Native: exactly the image's size whatever the box's.
  program.form().Picture1.setWidth(5000);
  program.form().Picture1.setHeight(5000);
  module1.ShowPictureGdi(path, program.form().Picture1, true);
  EXPECT_EQ(program.form().Picture1.Picture().PixelSize(), (gdi::Size{64, 48}));
}

TEST_F(Module1Test, NotNativeTakesTheBoxsInnerSizeInPixels) {
  const std::string path = folder.Write("a.jpg", MakeJpeg(64, 48));
  // 15 twips a pixel across, 12 down; a border takes two pixels a side.
  program.runtime.screen().TwipsPerPixelY = 12;
  struct Row {
    int borderStyle;
    gdi::Size expected;
  };
  for (const Row& row : {Row{1, {196, 96}}, Row{0, {200, 100}}}) {
    tk::PictureBox& box = program.form().Picture1;
    box.setBorderStyle(row.borderStyle);
    box.setWidth(3000);
    box.setHeight(1200);
    module1.ShowPictureGdi(path, box, false);
    EXPECT_EQ(box.Picture().PixelSize(), row.expected) << "border " << row.borderStyle;
  }
}

TEST_F(Module1Test, RatioKeptCentresOnTheRoundedDrawnSize) {
  // A 200 x 74 image in 20 x 10 is drawn 20 x 7.4, rounded to 7: its top is (10 - 7) / 2 = 1.5,
  // rounded to 2, not (10 - 7.4) / 2 = 1.3. Turned a quarter, the same for the left edge.
  struct Row {
    gdi::Size image, box;
    gdi::Rect drawn;
  };
  const uint32_t red = 0xFF0000u, grid = 0x102040u;
  for (const Row& row :
       {Row{{200, 74}, {20, 10}, {0, 2, 20, 7}}, Row{{74, 200}, {10, 20}, {2, 0, 7, 20}}}) {
    const std::string path =
        folder.Write("red.png", MakePng(Filled(row.image.width, row.image.height, 0xFFFF0000)));
    int32_t w = row.box.width, h = row.box.height;
    const gdi::Picture picture = module1.LoadGdiPicture(path, w, h, 0xFFFFFF, true);
    ASSERT_TRUE(picture.Pixels());
    const gdi::Surface& out = *picture.Pixels();
    ASSERT_EQ(out.Dimensions(), row.box);
    for (int y = 0; y < row.box.height; ++y) {
      std::string seen, wanted;
      for (int x = 0; x < row.box.width; ++x) {
        const uint32_t colour = out.Pixel(x, y) & 0xFFFFFF;
        seen += colour == red ? 'r' : colour == grid ? '.' : '?';
        const bool inside = x >= row.drawn.x && x < row.drawn.x + row.drawn.width &&
                            y >= row.drawn.y && y < row.drawn.y + row.drawn.height;
        wanted += inside ? 'r' : '.';
      }
      EXPECT_EQ(seen, wanted) << "row " << y;
    }
  }
}

TEST_F(Module1Test, SizesOfZeroOrBelowGiveABitmapWithoutPixels) {
  const std::string path = folder.Write("a.png", MakePng(Gradient(64, 48)));
  struct Row {
    int32_t width, height;
    bool retainRatio;
    gdi::Size expected;
  };
  for (const Row& row : {Row{0, 10, false, {0, 10}}, Row{12, 0, false, {12, 0}},
                         Row{-5, 10, true, {0, 10}}, Row{0, 0, true, {0, 0}}}) {
    int32_t w = row.width, h = row.height;
    const gdi::Picture picture = module1.LoadGdiPicture(path, w, h, 0xFFFFFF, row.retainRatio);
    EXPECT_EQ(picture.Type(), gdi::PictureType::kBitmap) << row.width << " x " << row.height;
    EXPECT_EQ(picture.PixelSize(), row.expected) << row.width << " x " << row.height;
    EXPECT_EQ(w, row.width);  // only -1 is written back
    EXPECT_EQ(h, row.height);
  }
  // -1 beside a size of 0 still gives the image's own two sizes.
  int32_t w = -1, h = 0;
  EXPECT_EQ(module1.LoadGdiPicture(path, w, h, 0xFFFFFF, false).PixelSize(), (gdi::Size{64, 48}));
  EXPECT_EQ(h, 48);
}

TEST_F(Module1Test, TransparencyShowsTheGridColour) {
  // Half-transparent red on the left, clear on the right.
  gdi::Surface pixels = Filled(10, 4, 0x00000000);
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 5; ++x) pixels.SetPixel(x, y, 0x80FF0000);
  }
  const std::string path = folder.Write("alpha.png", MakePng(pixels));
  program.form().Picture1.setAutoSize(true);
  module1.ShowPictureGdi(path, program.form().Picture1, true);
  const gdi::Picture picture = program.form().Picture1.Picture();
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.Attributes() & gdi::kPictureTransparent, 0u);
  const auto out = picture.Pixels();
  ASSERT_TRUE(out);
  EXPECT_EQ(out->Pixel(8, 2) & 0xFFFFFF, 0x102040u);  // the grid colour, not the white passed
  const uint32_t blended = out->Pixel(2, 2);
  EXPECT_NEAR(gdi::RedOf(blended), (255 + 0x10) / 2, 2);
  EXPECT_NEAR(gdi::GreenOf(blended), 0x20 / 2, 2);
  EXPECT_NEAR(gdi::BlueOf(blended), 0x40 / 2, 2);
  // The colour is read at each load.
  gridColor = 0x00FFFFFF;
  module1.ShowPictureGdi(path, program.form().Picture1, true);
  EXPECT_EQ(program.form().Picture1.Picture().Pixels()->Pixel(8, 2) & 0xFFFFFF, 0xFFFFFFu);
}

TEST_F(Module1Test, FirstPageOfATiff) {
  const std::string path = folder.Path("pages.tif");
  WriteTiff(path, 6, 5, {0xFF00FF00, 0xFFFF0000});
  int32_t w = -1, h = -1;
  const gdi::Picture picture = module1.LoadGdiPicture(path, w, h, 0, false);
  ASSERT_TRUE(picture.Pixels());
  EXPECT_EQ(picture.Pixels()->Pixel(3, 3) & 0xFFFFFF, 0x00FF00u);
}

TEST_F(Module1Test, BoxHandsOutItsOpaquePictureAsItsImage) {
  tk::PictureBox& box = program.form().Picture1;
  box.setAutoSize(true);
  module1.ShowPictureGdi(folder.Write("a.png", MakePng(Gradient(30, 20))), box, true);
  EXPECT_TRUE(box.Image().SameObject(box.Picture()));
  // A picture with transparent parts, or a box of another size, is painted onto a canvas.
  box.setPicture(gdi::Picture::FromSurface(Filled(30, 20, 0x80FF0000)));
  gdi::Picture image = box.Image();
  EXPECT_FALSE(image.SameObject(box.Picture()));
  EXPECT_EQ(image.Attributes() & gdi::kPictureTransparent, 0u);
  box.setAutoSize(false);
  box.setPicture(gdi::Picture::FromSurface(Gradient(30, 20)));
  box.setWidth(600);
  image = box.Image();
  EXPECT_FALSE(image.SameObject(box.Picture()));
  EXPECT_EQ(image.PixelSize(), (gdi::Size{40, 20}));
}

}  // namespace
}  // namespace vellumry
