// Scrolling by rows and the selection that the grid follows.
#include "ProgramFixture.h"

using namespace vellumry;

using ScrollingTest = ProgramFixture;

namespace {
bool onScreen(vellumry::Form1& f, int position) {
  const tk::Image& cell = f.Image1(position);
  return cell.Visible() && cell.Top() >= 150 && cell.Top() + cell.Height() <= 11520;
}
void expectFrameOn(vellumry::Form1& f, int position) {
  EXPECT_TRUE(f.Frame3(0).Visible());
  EXPECT_EQ(f.Frame3(0).Left(), f.Image1(position).Left());
  EXPECT_EQ(f.Frame3(0).Top(), f.Image1(position).Top());
  EXPECT_EQ(f.nSel, position);
}
}  // namespace

TEST_F(ScrollingTest, AFolderOnOneScreenOnlyMovesTheFrame) {
  makeFiles(12);
  vellumry::Form1& f = loaded();
  EXPECT_FALSE(f.VScroll1.Visible());
  EXPECT_FALSE(f.Label1.Visible());
  double top = f.Image1(7).Top();
  ASSERT_TRUE(tk::user::click(f.Image1(7)));
  expectFrameOn(f, 7);
  EXPECT_EQ(f.File2.ListIndex(), 6);
  EXPECT_EQ(f.Image1(7).Top(), top);
  EXPECT_EQ(f.Label1.Caption(), "0");
  EXPECT_EQ(f.ActiveControl(), &f.File2);
}

TEST_F(ScrollingTest, RowOffsetsLayOutThePage) {
  makeFiles(57);
  vellumry::Form1& f = loaded();
  EXPECT_FALSE(f.Frame3(0).Visible());  // no click has placed it yet
  ASSERT_TRUE(tk::user::scroll(f.VScroll1, 1));
  EXPECT_EQ(f.Label1.Caption(), "1");
  EXPECT_EQ(f.Image1(1).Top(), 150 - 2805);  // the row above, cut off
  EXPECT_EQ(f.Image1(6).Top(), 150);
  EXPECT_EQ(f.Image1(1).Left(), 667.5);
  EXPECT_EQ(f.nShownFirst, 5);
  EXPECT_EQ(f.nShownLast, 25);
  EXPECT_FALSE(f.Image1(41).Visible());  // the old page went
  ASSERT_TRUE(tk::user::scroll(f.VScroll1, 0));
  EXPECT_TRUE(f.Image1(1).Visible());
  EXPECT_EQ(f.Image1(1).Top(), 150);
  EXPECT_EQ(f.Image1(20).Top(), 150 + 3 * 2805);
  EXPECT_FALSE(f.Label1.Visible());
}

TEST_F(ScrollingTest, ASelectionBeyondTheScreenLandsInThePagesLastRow) {
  makeFiles(57);
  vellumry::Form1& f = loaded();
  tk::user::scroll(f.VScroll1, 0);
  ASSERT_TRUE(tk::user::select(f.File2, 29));  // position 30, row 5
  EXPECT_EQ(f.Label1.Caption(), "2");
  EXPECT_EQ(f.VScroll1.Value(), 2);
  EXPECT_EQ(f.Image1(30).Top(), 150 + 3 * 2805);
  expectFrameOn(f, 30);
  ASSERT_TRUE(tk::user::select(f.File2, 5));  // position 6, row 1: from below, also the last row
  EXPECT_EQ(f.VScroll1.Value(), 0);
  expectFrameOn(f, 6);
}

TEST_F(ScrollingTest, CtrlAndAltStepThroughTheFolderWithTheFrameOnScreen) {
  makeFiles(57);
  vellumry::Form1& f = loaded();
  f.File2.setListIndex(0);
  tk::user::key(f, 17);  // Ctrl on the first file
  EXPECT_EQ(f.File2.ListIndex(), 0);
  expectFrameOn(f, 1);
  for (int i = 1; i < 57; ++i) {
    ASSERT_TRUE(tk::user::key(f, 18));
    ASSERT_TRUE(onScreen(f, i + 1)) << i + 1;
    ASSERT_EQ(f.nSel, i + 1);
  }
  tk::user::key(f, 18);  // Alt on the last file
  EXPECT_EQ(f.File2.ListIndex(), 56);
  for (int i = 56; i > 0; --i) {
    ASSERT_TRUE(tk::user::key(f, 17));
    ASSERT_TRUE(onScreen(f, i)) << i;
    expectFrameOn(f, i);
  }
}

TEST_F(ScrollingTest, TheScrollBarMovesOneRowAStepAndHidesTheFrame) {
  makeFiles(57);
  vellumry::Form1& f = loaded();
  tk::user::click(f.Image1(52));
  EXPECT_TRUE(f.Frame3(0).Visible());
  for (int value = 7; value >= 0; --value) {
    ASSERT_TRUE(tk::user::scroll(f.VScroll1, value));
    EXPECT_FALSE(f.Frame3(0).Visible());
    EXPECT_EQ(f.Image1(value * 5 + 1).Top(), 150);
  }
  EXPECT_EQ(f.File2.ListIndex(), 51);  // the selection stays
}
