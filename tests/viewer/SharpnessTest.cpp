// The picture on screen is drawn from its file at the size it is shown, and the neighbours are
// decoded ahead at theirs.
#include <filesystem>

#include "ViewerFixture.h"
#include "picture/PictureServices.h"

using namespace vellumry;

namespace {

using SharpnessTest = ViewerFixture;

// Columns one pixel wide, black and white by turns: any scaling in between turns them grey.
void stripes(const std::filesystem::path& path, int w, int h) {
  QImage image(w, h, QImage::Format_RGB32);
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) image.setPixel(x, y, x % 2 ? 0xFFFFFFFF : 0xFF000000);
  ASSERT_TRUE(image.save(QString::fromStdString(path.string()), "PNG"));
}

TEST_F(SharpnessTest, APictureThatFitsIsShownPixelForPixelFromItsFile) {
  stripes(pictures / "a.png", 900, 600);
  Form2& v = open();
  auto shown = v.Image1.Picture().Pixels();
  ASSERT_TRUE(shown);
  ASSERT_EQ(shown->Dimensions(), (gdi::Size{900, 600}));
  for (int x : {0, 1, 450, 451, 898, 899}) {
    SCOPED_TRACE(x);
    EXPECT_EQ(shown->Pixel(x, 300) & 0xFFFFFF, x % 2 ? 0xFFFFFFu : 0u);
  }
}

TEST_F(SharpnessTest, TheNeighboursAreDecodedAheadAtTheirFittedSize) {
  picture("a.png", 64, 48);
  picture("b.png", 2000, 1900);
  picture("c.png", 3000, 600);
  open(1);
  program->pictures().drain();
  // Gone from the disk, the neighbours still show: their pixels were decoded ahead.
  std::filesystem::remove(pictures / "b.png");
  std::filesystem::remove(pictures / "c.png");
  Form2& v = viewer();
  tk::user::key(v, 39);
  wait(1);
  auto next = v.Image1.Picture().Pixels();
  ASSERT_TRUE(next);
  EXPECT_EQ(next->Dimensions(), (gdi::Size{1024, 973}));
  EXPECT_EQ(next->Pixel(500, 500), tk::pixelOf(0x5A28C8));  // the file's colour, not the form's
  tk::user::key(v, 37);
  tk::user::key(v, 37);
  wait(1);
  auto previous = v.Image1.Picture().Pixels();
  ASSERT_TRUE(previous);
  EXPECT_EQ(previous->Dimensions(), (gdi::Size{1024, 205}));
  EXPECT_EQ(previous->Pixel(500, 100), tk::pixelOf(0x5A28C8));
}

TEST_F(SharpnessTest, AClickOnACellDecodesTheViewersPictureAhead) {
  picture("a.png", 2000, 1900);
  picture("b.png", 64, 48);
  Form1& f = loaded();
  ASSERT_TRUE(tk::user::click(f.Image1(1)));
  program->pictures().drain();
  std::filesystem::remove(pictures / "a.png");
  ASSERT_TRUE(tk::user::dblClick(f.Image1(1)));
  wait(1);
  auto shown = viewer().Image1.Picture().Pixels();
  ASSERT_TRUE(shown);
  EXPECT_EQ(shown->Dimensions(), (gdi::Size{1024, 973}));
  EXPECT_EQ(shown->Pixel(500, 500), tk::pixelOf(0x5A28C8));
}

}  // namespace
