// Each file's picture fitted into its cell by the roads and rules of the grid; a file that can't
// be read costs its own cell.
#include <set>

#include "GridFixture.h"
#include "codecs/PictureBombs.h"

using namespace vellumry;

namespace {

using ThumbnailsTest = GridFixture;

TEST_F(ThumbnailsTest, EveryKindOfPictureFittedByTheRulesInTheirOrder) {
  struct Fit {
    std::string name, from;  // `from`: a format to draw the picture in, or a sample to copy
    int w, h;                // natural size in pixels
    double fitW, fitH;       // in twips, in a cell of inner size 1570
  };
  std::vector<Fit> fits = {
      {"a-tall.png", "PNG", 200, 314, 1000, 1570},    // exactly ch high: rule A, same height
      {"b-small.png", "PNG", 20, 20, 100, 100},       // smaller than the cell: kept
      {"c-square.png", "PNG", 354, 354, 1570, 1570},  // the full cell: only rule C fits it
      {"d-wide.jpeg", "JPG", 700, 350, 1570, 785},    // wide: rule B, by the plain road
      {"e-huge.png", "PNG", 2000, 1000, 1570, 785},   // rule B, then nothing more
      {"f.PNG", "PNG", 40, 30, 200, 150},             // the ending's case is no matter
      {"g-bubble.png", "assets/samples/bubble.png", 512, 512, 1570, 1570},
      {"h-dusk.jpg", "assets/samples/dusk.jpg", 800, 600, 1570, 1177.5},
      {"i-frame.bmp", "assets/samples/frame.bmp", 300, 200, 1500, 1000},
      {"j-oval.tif", "assets/samples/oval.tif", 720, 480, 1570, 2400.0 * 1570 / 3600},
      {"k-sun.gif", "assets/samples/sun.gif", 400, 400, 1570, 1570},
      {"l-tile.ico", "assets/samples/tile.ico", 32, 32, 160, 160},  // of 16, 32 and 64: 32
      {"z.bmp", "PNG", 40, 30, 200, 150}};  // PNG data behind a BMP name: the content decides
  const fs::path cursor = "../shared/corpus/faint-graphics-editor/tests/test-data/24bipp-6x6.cur";
  if (fs::exists(cursor)) fits.push_back({"m-pointer.cur", cursor.string(), 6, 6, 30, 30});
  for (const Fit& c : fits) {
    if (c.from.size() == 3)
      picture(pictures / c.name, c.w, c.h, QColor(200, 40, 90, 128), c.from.c_str());
    else
      fs::copy_file(c.from, pictures / c.name);
  }
  listed();
  Form1& f = toTheEnd();
  for (const Fit& c : fits) {
    SCOPED_TRACE(c.name);
    const int i = position(c.name);
    const tk::Image& pic = f.Image123(i);
    EXPECT_EQ(program->grid.aPicW(i), c.w * 5);  // natural sizes in twips
    EXPECT_EQ(program->grid.aPicH(i), c.h * 5);
    EXPECT_DOUBLE_EQ(pic.Width(), c.fitW);
    EXPECT_DOUBLE_EQ(pic.Height(), c.fitH);
    EXPECT_DOUBLE_EQ(pic.Left(), f.Image1(i).Left() + 1570 / 2.0 - c.fitW / 2 + 100);
    EXPECT_DOUBLE_EQ(pic.Top(), f.Image1(i).Top() + 1570 / 2.0 - c.fitH / 2 + 100);
    EXPECT_TRUE(pic.Visible());
    EXPECT_TRUE(pic.Stretch());
    EXPECT_TRUE(pic.Picture().Pixels({1, 1}) || pic.Picture().icon());  // it really decodes
  }
  EXPECT_EQ(f.sExt, "BMP");  // the last file's letters
  // The PNG road flattens onto the grid's colour: Picture1 handed its image on.
  EXPECT_FALSE(f.Image123(position("f.PNG")).Picture().Attributes() & gdi::kPictureTransparent);
}

// Broken, gone or cut short between the listing and the reading, or a bomb that claims more
// than the pixel budget of 1 GiB and is refused from its header. The other bombs decode small.
TEST_F(ThumbnailsTest, AFileThatCantBeReadCostsOnlyItsCell) {
  std::set<std::string> unread = {
      "png-65535x65535.png",    "png-2147483647x1.png",  "jpeg-65535x65535.jpg",
      "gif-65535x65535.gif",    "tiff-65535x65535.tif",  "tiff-2147483647x2147483647.tif",
      "bmp-2147483647x1.bmp",   "bmp-1x-2147483648.bmp", "ico-png-65535x65535.ico",
      "ico-bmp-2147483647.ico", "gif-frame-far-out.gif"};
  unread.insert({"b.jpg", "c.png", "d.gif", "f.png", "g.png"});
  const auto bombs = codecs::testing::pictureBombs();
  for (const auto& bomb : bombs)
    std::ofstream(pictures / bomb.name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bomb.bytes.data()),
               static_cast<std::streamsize>(bomb.bytes.size()));
  for (const char* name : {"a.png", "e.png", "f.png", "g.png"}) picture(pictures / name);
  std::ofstream(pictures / "b.jpg") << "this is no picture";
  std::ofstream(pictures / "c.png");  // 0 bytes
  std::ofstream(pictures / "d.gif") << "GIF89a";
  listed(4096, 2160, "6");  // 66 cells: all on one page, none rolled out of sight
  fs::remove(pictures / "f.png");
  fs::resize_file(pictures / "g.png", 20);
  Form1& f = toTheEnd();
  ASSERT_EQ(f.nCount, static_cast<int>(bombs.size()) + 7);
  for (int i = 1; i <= f.nCount; ++i) {
    const std::string name = f.File2.List(i - 1);
    SCOPED_TRACE(name);
    const tk::Image& pic = f.Image123(i);
    EXPECT_TRUE(f.Image1(i).Visible());
    EXPECT_EQ(f.Image1(i).ToolTipText(), name);
    EXPECT_EQ(pic.Visible(), !unread.contains(name));
    EXPECT_EQ(program->grid.aPicW(i) > 0, !unread.contains(name));
    EXPECT_TRUE(!pic.Visible() || pic.Picture().Pixels({1, 1}) || pic.Picture().icon());
  }
}

TEST_F(ThumbnailsTest, AFolderThatVanishesWhileItLoadsEndsTheLoad) {
  for (const char* name : {"a.png", "b.png", "c.png"}) picture(pictures / name);
  listed();
  fs::remove_all(pictures);
  ASSERT_EQ(toTheEnd().nCount, 3);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(program->grid.aPicW(i), 0);
}

}  // namespace
