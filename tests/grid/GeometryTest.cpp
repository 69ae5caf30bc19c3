// The sizes and places of the cells.
#include "ProgramFixture.h"

using GeometryTest = ProgramFixture;

namespace {
struct Row {
  const char* rows;
  const char* frameprop;
  double h, w;
  int perRow, perPage;
  double l0, firstColumn;
};
}  // namespace

TEST_F(GeometryTest, TheExampleTableAt1024By768) {
  makeFiles(100);
  for (Row r : {Row{"4", "0", 2805, 2805, 5, 20, -2137.5, 667.5},
                Row{"4", "1", 2805, 3690, 4, 16, -3390, 300},
                Row{"10", "0", 1403, 1403, 10, 80, -738, 665}}) {
    SCOPED_TRACE(std::string(r.rows) + "/" + r.frameprop);
    setting("rows", r.rows);
    setting("frameprop", r.frameprop);
    start();
    wait(500);
    vellumry::Form1& f = form1();
    EXPECT_EQ(f.Image1(0).Height(), r.h);
    EXPECT_EQ(f.Image1(0).Width(), r.w);
    EXPECT_EQ(f.nPerRow, r.perRow);
    EXPECT_EQ(f.nPerPage, r.perPage);
    EXPECT_EQ(f.Image1(0).Left(), r.l0);
    EXPECT_EQ(f.Image1(0).Top(), 150);
    EXPECT_EQ(f.Image1.Count(), 1u);  // pMeasure took its cells away again
    EXPECT_EQ(f.File2.ListIndex(), 0);
    wait(12);
    EXPECT_EQ(f.Image1(1).Left(), r.firstColumn);
    EXPECT_EQ(f.Image1(1).Top(), 150);
    program.reset();
  }
}

TEST_F(GeometryTest, TheRowsWishGoesDownOnALowScreen) {
  setting("rows", "6");
  start(1024, 400);  // T = 6000
  EXPECT_EQ(form1().Image1(0).Height(), 1425);
  program.reset();
  setting("rows", "1");
  start();
  EXPECT_EQ(form1().Image1(0).Height(), 1335);  // below 2 the design height stands
}

TEST_F(GeometryTest, RowsRollAsTheGridFillsAndTheLastRowsStayOnScreen) {
  makeFiles(57);
  vellumry::Form1& f = loaded();
  EXPECT_EQ(f.nRolled, 40);
  EXPECT_EQ(f.VScroll1.Max(), 8);
  EXPECT_EQ(f.VScroll1.Value(), 8);
  EXPECT_TRUE(f.VScroll1.Visible());
  EXPECT_EQ(f.Label1.Caption(), "8");
  EXPECT_EQ(f.nShownFirst, 40);
  EXPECT_EQ(f.nShownLast, 60);
  // The last of 12 rows stands in the fourth row of the screen; the first is hidden.
  EXPECT_EQ(f.Image1(57).Top(), 150 + 3 * 2805);
  EXPECT_EQ(f.Image1(56).Left(), 667.5);
  EXPECT_EQ(f.Image1(57).Left(), 667.5 + 2805);
  EXPECT_FALSE(f.Image1(1).Visible());
  EXPECT_TRUE(f.Image1(41).Visible());
}

TEST_F(GeometryTest, AFolderOfExactlyOnePageNeitherRollsNorScrolls) {
  makeFiles(20);
  vellumry::Form1& f = loaded();
  EXPECT_EQ(f.nRolled, 0);
  EXPECT_FALSE(f.VScroll1.Visible());
  EXPECT_EQ(f.Image1(20).Top(), 150 + 3 * 2805);
  EXPECT_EQ(f.Label1.Caption(), "0");
  EXPECT_FALSE(f.Label1.Visible());
}

TEST_F(GeometryTest, ASmallFolderKeepsTheCellsOfTheMeasuring) {
  makeFiles(3);  // less than a row: nPerRow stays 0
  start();
  wait(500);
  EXPECT_EQ(form1().nPerRow, 0);
  EXPECT_EQ(form1().nPerPage, 0);
  EXPECT_TRUE(form1().Image1.exists(3));
  wait(36);
  EXPECT_TRUE(form1().bLoaded);
  EXPECT_TRUE(form1().Image1(3).Visible());
}

TEST_F(GeometryTest, TwoThousandFilesLoadWithoutFailing) {
  makeFiles(2000);
  vellumry::Form1& f = loaded();
  EXPECT_TRUE(f.bLoaded);
  EXPECT_EQ(f.Image1.Count(), 2001u);
  EXPECT_EQ(f.VScroll1.Max(), 396);  // 400 rows, 4 on the page
  EXPECT_EQ(f.Image1(2000).Top(), 150 + 3 * 2805);
  EXPECT_EQ(f.File2.ListIndex(), 1999);
}
