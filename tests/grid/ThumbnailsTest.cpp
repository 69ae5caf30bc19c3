// Each file's picture fitted into its cell by the roads and rules of the grid.
#include <QImage>
#include <set>

#include "ProgramFixture.h"
#include "codecs/PictureBombs.h"

using namespace vellumry;

namespace {

class ThumbnailsTest : public ProgramFixture {
 protected:
  void SetUp() override {
    ProgramFixture::SetUp();
    setting("rows",
            "2");  // at 5 twips a pixel: cells of 1770, inner size 1570 = 314 pixels, 5 a row
  }
  void picture(const std::string& name, int w, int h, const char* format) {
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(QColor(200, 40, 90, 128));
    ASSERT_TRUE(image.save(QString::fromStdString((pictures / name).string()), format));
  }
  vellumry::Form1& load(int width = 2048, int height = 768) {
    program = std::make_unique<vellumry::Program>(
        host, tk::EventLoop::Clock::Virtual, tk::Screen::ofPixels(width, height, 5),
        vellumry::Places{home.string(), home.string(), pictures.string()});
    vellumry::Main(*program);
    wait(500);
    while (form1().Timer1.Interval() != 0) wait(12);
    return form1();
  }
  // Position of `name` in the folder.
  int position(const std::string& name) {
    for (int i = 0; i < form1().File2.ListCount(); ++i)
      if (form1().File2.List(i) == name) return i + 1;
    ADD_FAILURE() << name;
    return 0;
  }
  void expectCentred(int i, double w, double h) {
    vellumry::Form1& f = form1();
    const tk::Image& pic = f.Image123(i);
    EXPECT_DOUBLE_EQ(pic.Width(), w);
    EXPECT_DOUBLE_EQ(pic.Height(), h);
    EXPECT_DOUBLE_EQ(pic.Left(), f.Image1(i).Left() + 1570 / 2.0 - w / 2 + 100);
    EXPECT_DOUBLE_EQ(pic.Top(), f.Image1(i).Top() + 1570 / 2.0 - h / 2 + 100);
    EXPECT_TRUE(pic.Visible());
    EXPECT_TRUE(pic.Stretch());
  }
};

TEST_F(ThumbnailsTest, TheFittingRulesInTheirOrder) {
  picture("a-tall.png", 200, 314, "PNG");    // exactly ch high: rule A, same height
  picture("b-small.png", 20, 20, "PNG");     // 100 by 100 twips: kept
  picture("c-square.png", 354, 354, "PNG");  // the full cell: only rule C fits it
  picture("d-wide.jpeg", 700, 350, "JPG");   // wide: rule B; .jpeg goes by the plain road
  picture("e-huge.png", 2000, 1000, "PNG");  // rule B, then nothing more
  vellumry::Form1& f = load();
  ASSERT_EQ(f.Image1(0).Height(), 1770);
  expectCentred(position("a-tall.png"), 1000, 1570);
  expectCentred(position("b-small.png"), 100, 100);
  expectCentred(position("c-square.png"), 1570, 1570);
  expectCentred(position("d-wide.jpeg"), 1570, 785);
  expectCentred(position("e-huge.png"), 1570, 785);
  int huge = position("e-huge.png");
  EXPECT_EQ(program->grid.aPicW(huge), 10000);  // natural sizes in twips
  EXPECT_EQ(program->grid.aPicH(huge), 5000);
  EXPECT_EQ(f.sExt, "PNG");  // the last file's letters
}

TEST_F(ThumbnailsTest, EachEndingTakesItsRoad) {
  picture("x.PNG", 40, 30, "PNG");
  picture("y.jpeg", 40, 30, "JPG");
  picture("z.bmp", 40, 30, "PNG");  // PNG data behind a BMP name: the content decides
  vellumry::Form1& f = load();
  for (const char* name : {"x.PNG", "y.jpeg", "z.bmp"}) {
    SCOPED_TRACE(name);
    int i = position(name);
    EXPECT_TRUE(f.Image123(i).Visible());
    EXPECT_EQ(program->grid.aPicW(i), 200);
    EXPECT_EQ(program->grid.aPicH(i), 150);
  }
  // The PNG road flattens onto the grid's colour: Picture1 handed its image on.
  EXPECT_FALSE(f.Image123(position("x.PNG")).Picture().Attributes() & gdi::kPictureTransparent);
}

TEST_F(ThumbnailsTest, EveryKindOfPictureFillsItsCell) {
  const std::filesystem::path cursor =
      "../shared/corpus/faint-graphics-editor/tests/test-data/24bipp-6x6.cur";
  if (!std::filesystem::exists(cursor)) GTEST_SKIP() << "no corpus beside the project";
  std::filesystem::copy_file(cursor, pictures / "pointer.cur");
  for (const char* sample :
       {"bubble.png", "dusk.jpg", "frame.bmp", "oval.tif", "sun.gif", "tile.ico"})
    std::filesystem::copy_file(std::filesystem::path("assets/samples") / sample, pictures / sample);
  std::ofstream(pictures / "broken.png") << "\x89PNG\r\n\x1a\n and then nothing";
  vellumry::Form1& f = load();
  ASSERT_TRUE(f.bLoaded);
  struct Kind {
    const char* file;
    int width, height;  // natural size in pixels
  };
  for (Kind k : {Kind{"bubble.png", 512, 512}, Kind{"dusk.jpg", 800, 600},
                 Kind{"frame.bmp", 300, 200}, Kind{"oval.tif", 720, 480}, Kind{"sun.gif", 400, 400},
                 // Of a 16/32/64 icon the grid shows the 32 x 32 image.
                 Kind{"tile.ico", 32, 32}, Kind{"pointer.cur", 6, 6}}) {
    SCOPED_TRACE(k.file);
    int i = position(k.file);
    EXPECT_EQ(program->grid.aPicW(i), k.width * 5);
    EXPECT_EQ(program->grid.aPicH(i), k.height * 5);
    const tk::Image& pic = f.Image123(i);
    EXPECT_TRUE(pic.Visible());
    EXPECT_LE(std::max(pic.Width(), pic.Height()), 1570);
    EXPECT_TRUE(pic.Picture().Pixels({1, 1}) || pic.Picture().Icon());  // it really decodes
  }
  EXPECT_FALSE(f.Image123(position("broken.png")).Visible());
}

TEST_F(ThumbnailsTest, ABrokenFileCostsOnlyItsCell) {
  picture("a.png", 40, 30, "PNG");
  std::ofstream(pictures / "b.jpg") << "this is no picture";
  std::ofstream(pictures / "c.png");  // 0 bytes
  std::ofstream(pictures / "d.gif") << "GIF89a";
  picture("e.png", 40, 30, "PNG");
  vellumry::Form1& f = load();
  EXPECT_TRUE(f.bLoaded);
  for (int i : {2, 3, 4}) {
    SCOPED_TRACE(i);
    EXPECT_TRUE(f.Image1(i).Visible());
    EXPECT_EQ(f.Image1(i).ToolTipText(), f.File2.List(i - 1));
    EXPECT_FALSE(f.Image123(i).Visible());
    EXPECT_EQ(program->grid.aPicW(i), 0);
  }
  EXPECT_TRUE(f.Image123(1).Visible());
  EXPECT_TRUE(f.Image123(5).Visible());
}

TEST_F(ThumbnailsTest, PictureBombsCostOnlyTheirCells) {
  // Claims beyond the pixel budget of 1 GiB are refused from the header; the rest decode small.
  const std::set<std::string> refused = {
      "png-65535x65535.png",    "png-2147483647x1.png",  "jpeg-65535x65535.jpg",
      "gif-65535x65535.gif",    "tiff-65535x65535.tif",  "tiff-2147483647x2147483647.tif",
      "bmp-2147483647x1.bmp",   "bmp-1x-2147483648.bmp", "ico-png-65535x65535.ico",
      "ico-bmp-2147483647.ico", "gif-frame-far-out.gif"};
  const auto bombs = codecs::testing::PictureBombs();
  for (const auto& bomb : bombs) {
    std::ofstream(pictures / bomb.name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bomb.bytes.data()),
               static_cast<std::streamsize>(bomb.bytes.size()));
  }
  picture("zz-after.png", 40, 30, "PNG");
  setting("rows", "5");  // 45 cells: all on one page, none rolled out of sight
  vellumry::Form1& f = load(4096, 2160);
  ASSERT_TRUE(f.bLoaded);
  ASSERT_EQ(f.nCount, static_cast<int>(bombs.size()) + 1);
  for (const auto& bomb : bombs) {
    SCOPED_TRACE(bomb.name);
    const int i = position(bomb.name);
    const tk::Image& pic = f.Image123(i);
    if (refused.contains(bomb.name)) {
      EXPECT_FALSE(pic.Visible());
      EXPECT_EQ(program->grid.aPicW(i), 0);
    } else {
      ASSERT_TRUE(pic.Visible());
      EXPECT_GT(program->grid.aPicW(i), 0);
      EXPECT_TRUE(pic.Picture().Pixels({1, 1}) || pic.Picture().Icon());
    }
  }
  EXPECT_TRUE(f.Image123(position("zz-after.png")).Visible());
}

}  // namespace
