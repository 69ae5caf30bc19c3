// Where the cells stand, how the rows roll while the grid fills, and how it moves by rows under
// the scroll bar and the selection. At 1024 pixels of 15 twips S = 15360; at 768, T = 11520.
#include "ProgramFixture.h"

using namespace vellumry;

using LayoutTest = ProgramFixture;

namespace {
void expectFrameOn(Form1& f, int position) {
  EXPECT_TRUE(f.Frame3(0).Visible());
  EXPECT_EQ(f.Frame3(0).Left(), f.Image1(position).Left());
  EXPECT_EQ(f.Frame3(0).Top(), f.Image1(position).Top());
  EXPECT_EQ(f.nSel, position);
}
}  // namespace

// A folder of less than a row, which keeps the cells of the measuring for the loading; the
// example table; a low screen, where a wish of 6 rows goes down to 4; and a wish below 2 rows,
// which leaves the design height.
TEST_F(LayoutTest, CellSizesColumnsAndPagesFromTheSettings) {
  struct Row {
    int files, screenH;
    const char *rows, *frameprop;
    double h, w;
    int perRow, perPage;
    double l0, firstColumn;
    size_t measured;  // cells left by the measuring
  };
  for (Row r : {Row{3, 768, "4", "0", 2805, 2805, 0, 0, -2137.5, 667.5, 4},
                Row{100, 768, "4", "1", 2805, 3690, 4, 16, -3390, 300, 1},
                Row{100, 768, "10", "0", 1403, 1403, 10, 80, -738, 665, 1},
                Row{100, 400, "6", "0", 1425, 1425, 10, 40, -870, 555, 1},
                Row{100, 768, "1", "0", 1335, 1335, 11, 88, -997.5, 337.5, 1}}) {
    SCOPED_TRACE(std::to_string(r.files) + " " + r.rows + "/" + r.frameprop);
    makeFiles(r.files);
    setting("rows", r.rows);
    setting("frameprop", r.frameprop);
    start(1024, r.screenH);
    wait(500);
    Form1& f = form1();
    EXPECT_EQ(f.Image1(0).Height(), r.h);
    EXPECT_EQ(f.Image1(0).Width(), r.w);
    EXPECT_EQ(f.nPerRow, r.perRow);
    EXPECT_EQ(f.nPerPage, r.perPage);
    EXPECT_EQ(f.Image1(0).Left(), r.l0);
    EXPECT_EQ(f.Image1.Count(), r.measured);
    wait(12);
    EXPECT_EQ(f.Image1(1).Left(), r.firstColumn);
    EXPECT_EQ(f.Image1(1).Top(), 150);
    wait(12 * r.files);
    EXPECT_TRUE(f.bLoaded);
    EXPECT_TRUE(f.Image1(r.files).Visible());
    program.reset();
  }
}

TEST_F(LayoutTest, AFolderOfExactlyOnePageNeitherRollsNorScrollsAndAClickOnlyMovesTheFrame) {
  makeFiles(20);
  Form1& f = loaded();
  EXPECT_EQ(f.nRolled, 0);
  EXPECT_FALSE(f.VScroll1.Visible());
  EXPECT_FALSE(f.Label1.Visible());
  EXPECT_EQ(f.Image1(20).Top(), 150 + 3 * 2805);
  ASSERT_TRUE(tk::user::click(f.Image1(7)));
  expectFrameOn(f, 7);
  EXPECT_EQ(f.File2.ListIndex(), 6);
  EXPECT_EQ(f.Image1(7).Top(), 150 + 2805);
  EXPECT_EQ(f.ActiveControl(), &f.File2);
}

// 57 cells, 5 a row: 12 rows, 4 on the screen.
TEST_F(LayoutTest, TheBarAndTheSelectionMoveTwelveRowsByRows) {
  makeFiles(57);
  Form1& f = loaded();
  // The last rows stand on the screen; the first, rolled away, is hidden.
  EXPECT_TRUE(f.VScroll1.Visible());
  EXPECT_EQ(f.VScroll1.Value(), f.VScroll1.Max());
  EXPECT_EQ(f.Image1(57).Left(), 667.5 + 2805);
  EXPECT_FALSE(f.Image1(1).Visible());
  EXPECT_TRUE(f.Image1(41).Visible());
  EXPECT_FALSE(f.Frame3(0).Visible());  // no click has placed it yet
  tk::user::click(f.Image1(52));
  EXPECT_TRUE(f.Frame3(0).Visible());
  for (int value = 7; value >= 1; --value) {
    SCOPED_TRACE(value);
    ASSERT_TRUE(tk::user::scroll(f.VScroll1, value));
    EXPECT_EQ(f.Label1.Caption(), std::to_string(value));
    EXPECT_FALSE(f.Frame3(0).Visible());
    EXPECT_EQ(f.Image1(value * 5 + 1).Top(), 150);
    EXPECT_EQ(f.Image1(value * 5 - 4).Top(), 150 - 2805);  // the row above, cut off
  }
  EXPECT_FALSE(f.Image1(41).Visible());  // the old pages went
  ASSERT_TRUE(tk::user::scroll(f.VScroll1, 0));
  EXPECT_TRUE(f.Image1(1).Visible());
  EXPECT_EQ(f.Image1(1).Top(), 150);
  EXPECT_EQ(f.Image1(20).Top(), 150 + 3 * 2805);
  EXPECT_FALSE(f.Label1.Visible());
  EXPECT_EQ(f.File2.ListIndex(), 51);  // the selection stays
  // A selection off the screen lands in the page's last row, from below as from above.
  ASSERT_TRUE(tk::user::select(f.File2, 29));
  EXPECT_EQ(f.VScroll1.Value(), 2);
  EXPECT_EQ(f.Image1(30).Top(), 150 + 3 * 2805);
  expectFrameOn(f, 30);
  ASSERT_TRUE(tk::user::select(f.File2, 5));
  EXPECT_EQ(f.VScroll1.Value(), 0);
  expectFrameOn(f, 6);
  // Ctrl and Alt step through the folder with the frame on the screen; Ctrl on the first file
  // and Alt on the last do nothing.
  f.File2.setListIndex(0);
  const auto step = [&](int key, int at) {
    ASSERT_TRUE(tk::user::key(f, key));
    SCOPED_TRACE(at);
    expectFrameOn(f, at);
    const tk::Image& cell = f.Image1(at);
    EXPECT_TRUE(cell.Visible() && cell.Top() >= 150 && cell.Top() + cell.Height() <= 11520);
  };
  step(17, 1);
  for (int p = 2; p <= 57; ++p) step(18, p);
  step(18, 57);
  for (int p = 56; p >= 1; --p) step(17, p);
}
