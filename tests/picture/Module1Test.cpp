// Module1: errors, sizes, flattening over the grid's colour, the first page of a TIFF, and the
// picture box that hands out its picture.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "codecs/TestMetafiles.h"
#include "picture/Module1.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "platform/toolkit/Error.h"

namespace vellumry {
namespace {

using namespace codecs::testing;
using namespace testsupport;

class Module1Test : public ::testing::Test {
 protected:
  PictureServices services{15, 16u << 20, 1};
  uint32_t gridColor = 0x00402010;  // 0x00BBGGRR
  Module1 module1{services, [this] { return gridColor; }};
  TempFolder folder;
  BoxProgram program;
  tk::PictureBox& box = program.form().Picture1;
};

TEST_F(Module1Test, FailuresRaiseNumberedErrorsNamingTheFile) {
  const std::string bad = folder.Write("not a picture.png", {'n', 'o', 'p', 'e', '!'});
  const std::string missing = folder.Path("missing.tif");
  const std::vector<uint8_t> emf = {1, 0, 0, 0, 108, 0, 0, 0};  // a header record cut short
  struct Case {
    GdiSource source;
    int number;
    std::string description;
  };
  const Case cases[] = {
      {bad, 999, "Error loading picture " + bad},
      {missing, 999, "Error loading picture " + missing},
      {ByteArray{{1, 2, 3, 4, 5}, 0, 1}, 999, "Error loading picture"},
      {ByteArray{emf, 0, 1}, 999, "Error loading picture"},
      {GdiSource{7}, 998, "Passed invalid parameter as PicFile"},
  };
  int32_t w = -1, h = -1;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.description);
    try {
      module1.LoadGdiPicture(c.source, w, h, 0xFFFFFF, false);
      ADD_FAILURE() << "no error raised";
    } catch (const tk::Error& error) {
      EXPECT_EQ(error.Number, c.number);
      EXPECT_EQ(error.Source, "GDI+ Module");
      EXPECT_EQ(error.Description, c.description);
    }
  }
  EXPECT_FALSE(module1.LoadGdiPicture(GdiSource{}, w, h, 0, false));
}

TEST_F(Module1Test, SizesOwnOrAsked) {
  const std::string path = folder.Write("a.jpg", MakeJpeg(64, 48));
  struct Case {
    int32_t width, height;
    bool retainRatio;
    gdi::Size expected;
    int32_t widthAfter, heightAfter;  // only -1 is written back, as the image's two sizes
  };
  const Case cases[] = {
      {-1, 10, false, {64, 48}, 64, 48},
      {-1, 0, false, {64, 48}, 64, 48},
      {32, 40, false, {32, 40}, 32, 40},  // the pixels stretched to the size asked
      // Sizes of 0 or below give a bitmap without pixels.
      {0, 10, false, {0, 10}, 0, 10},
      {12, 0, false, {12, 0}, 12, 0},
      {-5, 10, true, {0, 10}, -5, 10},
      {0, 0, true, {0, 0}, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::Message() << c.width << " x " << c.height);
    int32_t w = c.width, h = c.height;
    const gdi::Picture picture = module1.LoadGdiPicture(path, w, h, 0xFFFFFF, c.retainRatio);
    EXPECT_EQ(picture.Type(), gdi::PictureType::kBitmap);
    EXPECT_EQ(picture.PixelSize(), c.expected);
    EXPECT_EQ(w, c.widthAfter);
    EXPECT_EQ(h, c.heightAfter);
    if (c.expected.width > 0 && c.expected.height > 0) {
      ASSERT_TRUE(picture.Pixels());
      EXPECT_EQ(picture.Pixels()->Dimensions(), c.expected);
    }
  }
}

TEST_F(Module1Test, NativeIsTheImagesSizeElseTheBoxsInnerSizeInPixels) {
  const std::string path = folder.Write("a.jpg", MakeJpeg(64, 48));
  // 15 twips a pixel across, 12 down: a box of 200 x 100 pixels; a border takes two a side.
  program.runtime.screen().TwipsPerPixelY = 12;
  box.setWidth(3000);
  box.setHeight(1200);
  struct Case {
    bool native;
    int borderStyle;
    gdi::Size expected;
  };
  for (const Case& c :
       {Case{true, 1, {64, 48}}, Case{false, 1, {196, 96}}, Case{false, 0, {200, 100}}}) {
    SCOPED_TRACE(::testing::Message() << "native " << c.native << ", border " << c.borderStyle);
    box.setBorderStyle(c.borderStyle);
    module1.ShowPictureGdi(path, box, c.native);
    EXPECT_EQ(box.Picture().PixelSize(), c.expected);
  }
}

TEST_F(Module1Test, RatioKeptCentresOnTheRoundedDrawnSize) {
  // A 200 x 74 image in 20 x 10 is drawn 20 x 7.4, rounded to 7: its top is (10 - 7) / 2 = 1.5,
  // rounded to 2, not (10 - 7.4) / 2 = 1.3. Turned a quarter, the same for the left edge.
  struct Case {
    gdi::Size image, box;
    gdi::Rect drawn;
  };
  const uint32_t red = 0xFF0000u, grid = 0x102040u;
  for (const Case& c :
       {Case{{200, 74}, {20, 10}, {0, 2, 20, 7}}, Case{{74, 200}, {10, 20}, {2, 0, 7, 20}}}) {
    SCOPED_TRACE(::testing::Message() << c.image.width << " x " << c.image.height);
    const std::string path =
        folder.Write("red.png", MakePng(Filled(c.image.width, c.image.height, 0xFFFF0000)));
    int32_t w = c.box.width, h = c.box.height;
    const gdi::Picture picture = module1.LoadGdiPicture(path, w, h, 0xFFFFFF, true);
    ASSERT_TRUE(picture.Pixels());
    const gdi::Surface& out = *picture.Pixels();
    ASSERT_EQ(out.Dimensions(), c.box);
    for (int y = 0; y < c.box.height; ++y) {
      std::string seen, wanted;
      for (int x = 0; x < c.box.width; ++x) {
        const uint32_t colour = out.Pixel(x, y) & 0xFFFFFF;
        seen += colour == red ? 'r' : colour == grid ? '.' : '?';
        const bool inside = x >= c.drawn.x && x < c.drawn.x + c.drawn.width && y >= c.drawn.y &&
                            y < c.drawn.y + c.drawn.height;
        wanted += inside ? 'r' : '.';
      }
      EXPECT_EQ(seen, wanted) << "row " << y;
    }
  }
}

TEST_F(Module1Test, TransparencyShowsTheGridColour) {
  // Half-transparent red on the left, clear on the right.
  gdi::Surface pixels = Filled(10, 4, 0x00000000);
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 5; ++x) pixels.SetPixel(x, y, 0x80FF0000);
  }
  const std::string path = folder.Write("alpha.png", MakePng(pixels));
  box.setAutoSize(true);
  module1.ShowPictureGdi(path, box, true);
  const gdi::Picture picture = box.Picture();
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
  module1.ShowPictureGdi(path, box, true);
  EXPECT_EQ(box.Picture().Pixels()->Pixel(8, 2) & 0xFFFFFF, 0xFFFFFFu);
}

TEST_F(Module1Test, AnEmfIsFlattenedOverTheGridColour) {
  const std::string path = folder.Write(
      "a.emf",
      Emf(40, {EmfBrush(1, 0x0000FF), EmfSelect(1), kEmfNullPen, EmfRectangle(0, 0, 20, 40)}));
  module1.ShowPictureGdi(path, box, true);
  const gdi::Picture picture = box.Picture();
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.Type(), gdi::PictureType::kBitmap);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{40, 40}));
  const auto out = picture.Pixels();
  ASSERT_TRUE(out);
  EXPECT_EQ(out->Pixel(10, 20) & 0xFFFFFF, 0xFF0000u);
  EXPECT_EQ(out->Pixel(30, 20) & 0xFFFFFF, 0x102040u);  // undrawn: the grid colour
}

TEST_F(Module1Test, FirstPageOfATiff) {
  const std::string path = folder.Path("pages.tif");
  WriteTiff(path, 6, 5, {0xFF00FF00, 0xFFFF0000});
  int32_t w = -1, h = -1;
  const gdi::Picture picture = module1.LoadGdiPicture(path, w, h, 0, false);
  ASSERT_TRUE(picture.Pixels());
  EXPECT_EQ(picture.Pixels()->Pixel(3, 3) & 0xFFFFFF, 0x00FF00u);
}

TEST_F(Module1Test, TheBoxKeepsItsPictureOnFailureAndHandsOutAnOpaqueOneAsItsImage) {
  box.setAutoSize(true);
  module1.ShowPictureGdi(folder.Write("a.png", MakePng(Gradient(30, 20))), box, true);
  const gdi::Picture shown = box.Picture();
  ASSERT_TRUE(shown);
  EXPECT_THROW(module1.ShowPictureGdi(folder.Path("gone.png"), box, true), tk::Error);
  EXPECT_TRUE(box.Picture().SameObject(shown));
  EXPECT_TRUE(box.Image().SameObject(shown));
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
