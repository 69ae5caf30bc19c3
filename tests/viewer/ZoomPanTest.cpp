// The fit of a new picture, zooming in tenths with its limits, the bars and dragging, on a
// screen of 1024 by 768 pixels (15360 by 11520 twips).
#include "ViewerFixture.h"

using namespace vellumry;

namespace {

using ZoomPanTest = ViewerFixture;

constexpr int kUp = 38, kDown = 40, kRight = 39;

struct Placed {
  double width, height, left, top;
};

void expectPlaced(const Form2& v, Placed p) {
  EXPECT_DOUBLE_EQ(v.Image1.Width(), p.width);
  EXPECT_DOUBLE_EQ(v.Image1.Height(), p.height);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), p.left);
  EXPECT_DOUBLE_EQ(v.Image1.Top(), p.top);
}

TEST_F(ZoomPanTest, TheFirstZoomBringsBothBarsInTheMiddle) {
  picture("big.png", 2000, 1900);
  Form2& v = open();
  tk::user::key(v, kDown);
  // 16896 by 16051.2: 1536 and 1459.2 twips more.
  ASSERT_TRUE(v.VScroll1.Visible());
  ASSERT_TRUE(v.HScroll1.Visible());
  EXPECT_EQ(v.VScroll1.Max(), 453);
  EXPECT_EQ(v.VScroll1.Value(), 226);  // 226.5 to the even
  EXPECT_EQ(v.HScroll1.Max(), 154);
  EXPECT_EQ(v.HScroll1.Value(), 77);
  EXPECT_EQ(v.VScroll1.SmallChange(), 100);
  EXPECT_EQ(v.HScroll1.LargeChange(), 100);
  EXPECT_DOUBLE_EQ(v.HScroll1.Width(), 15360 - 255);
  expectPlaced(v, {16896, 16051.2, -770, -2260});
  EXPECT_TRUE(v.bKeepV);
  EXPECT_TRUE(v.bKeepH);
  EXPECT_EQ(v.ActiveControl(), &v.VScroll2);
}

TEST_F(ZoomPanTest, AZoomOnAScrolledPictureKeepsItsProportionalPoint) {
  picture("big.png", 2000, 1900);
  Form2& v = open();
  tk::user::key(v, kDown);
  tk::user::scroll(v.VScroll1, 453);  // the bottom
  tk::user::scroll(v.HScroll1, 0);    // the left edge
  EXPECT_DOUBLE_EQ(v.Image1.Top(), -4530);
  tk::user::key(v, kDown);
  // 18585.6 by 17656.32
  EXPECT_EQ(v.VScroll1.Max(), 614);
  EXPECT_EQ(v.VScroll1.Value(), 614);
  EXPECT_EQ(v.HScroll1.Max(), 323);
  EXPECT_EQ(v.HScroll1.Value(), 0);
  expectPlaced(v, {18585.6, 17656.32, 0, -6140});
}

struct FitCase {
  int w, h;
  Placed placed;
};

TEST_F(ZoomPanTest, TheFitRuleByShape) {
  const FitCase cases[] = {
      {1000, 3000, {3840, 11520, 5760, 0}},    // portrait: the form's height
      {500, 768, {7500, 11520, 3930, 0}},      // exactly the screen's height: the first case
      {3000, 600, {15360, 3072, 0, 4224}},     // landscape: the form's width
      {2000, 1900, {15360, 14592, 0, -1536}},  // landscape taller than the screen: still its width
      {1000, 1000, {11520, 11520, 1920, 0}},   // a larger square: the form's height
      {300, 300, {4500, 4500, 5430, 3510}},    // a smaller square: only centred
      {900, 700, {13500, 10500, 930, 510}},    // smaller than the screen: kept
  };
  for (const FitCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.w) + " by " + std::to_string(c.h));
    onlyPicture("a.png", c.w, c.h);
    Form2& v = open();
    expectPlaced(v, c.placed);
    EXPECT_FALSE(v.VScroll1.Visible());
    EXPECT_FALSE(v.HScroll1.Visible());
    program.reset();
  }
}

TEST_F(ZoomPanTest, TheZoomLimitsBeepWhateverTheSettingAndChangeNothing) {
  setting("beeps", "0");
  picture("big.png", 2000, 1900);
  Form2& v = open();
  for (int i = 0; i < 11; ++i) tk::user::key(v, kDown);
  EXPECT_EQ(beeps(), 0);
  const double width = v.Image1.Width(), height = v.Image1.Height();
  tk::user::key(v, kDown);  // 43823.9 + 3984 - 15360 is over 32000
  EXPECT_EQ(beeps(), 1);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), width);
  EXPECT_DOUBLE_EQ(v.Image1.Height(), height);
  EXPECT_DOUBLE_EQ(v.Image2.Width(), width);
}

TEST_F(ZoomPanTest, ZoomingOutStopsUnder150Twips) {
  picture("tiny.png", 20, 20);  // 300 twips
  Form2& v = open();
  for (int i = 0; i < 7; ++i) tk::user::key(v, kUp);  // down to 143.49
  EXPECT_EQ(beeps(), 0);
  EXPECT_NEAR(v.Image1.Width(), 143.489, 0.001);
  tk::user::key(v, kUp);
  EXPECT_EQ(beeps(), 1);
  EXPECT_NEAR(v.Image1.Width(), 143.489, 0.001);
}

TEST_F(ZoomPanTest, TheStepOfTheLastPictureTestsTheFirstZoomOfTheNext) {
  picture("a.png", 2000, 1900);
  picture("b.png", 64, 48);
  Form2& v = open();
  tk::user::key(v, kDown);
  tk::user::key(v, kRight);
  wait(1);
  EXPECT_DOUBLE_EQ(v.dStepW, 1536);
  tk::user::key(v, kDown);
  EXPECT_DOUBLE_EQ(v.dStepW, 96);
}

struct PointerCase {
  int w, h;
  int pointer;
};

TEST_F(ZoomPanTest, ThePointerOfADragGoesByTheBarsThatShow) {
  const PointerCase cases[] = {
      {1000, 3000, 7},  // only the vertical bar after a zoom
      {3000, 600, 9},   // only the horizontal one
      {2000, 1900, 5},  // both
      {64, 48, 1},      // none
  };
  for (const PointerCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.w) + " by " + std::to_string(c.h));
    onlyPicture("a.png", c.w, c.h);
    Form2& v = open();
    tk::user::key(v, kDown);
    tk::user::mouseDown(v.Image1, 1, 0, 10, 20);
    EXPECT_EQ(v.Image1.MousePointer(), c.pointer);
    EXPECT_EQ(v.lDownX, 10);
    EXPECT_EQ(v.lDownY, 20);
    tk::user::mouseUp(v.Image1, 1, 0, 10, 20);
    EXPECT_EQ(v.Image1.MousePointer(), 1);
    program.reset();
  }
}

TEST_F(ZoomPanTest, ADragMovesATwipAPixelAndStopsAtTheEdges) {
  picture("big.png", 2000, 1900);
  Form2& v = open();
  tk::user::key(v, kDown);  // left -770 of 16896, top -2260 of 16051.2
  tk::user::mouseDown(v.Image1, 1, 0, 100, 100);
  tk::user::mouseMove(v.Image1, 1, 0, 300, 50);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), -570);
  EXPECT_EQ(v.HScroll1.Value(), 57);
  EXPECT_DOUBLE_EQ(v.Image1.Top(), -2310);
  EXPECT_EQ(v.VScroll1.Value(), 231);
  EXPECT_DOUBLE_EQ(v.Shape1.Left(), -570);
  EXPECT_DOUBLE_EQ(v.Shape1.Height(), 16051.2);
  // Past the left edge: the place it would come to isn't below 0, so nothing moves.
  tk::user::mouseMove(v.Image1, 1, 0, 900, 50);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), -570);
  // Past the right edge likewise: the form beyond the picture never shows.
  tk::user::mouseMove(v.Image1, 1, 0, -1500, 50);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), -570);
  // Only while the left button alone is down.
  tk::user::mouseMove(v.Image1, 2, 0, 200, 50);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), -570);
}

TEST_F(ZoomPanTest, APictureMovedPastAnEdgeSnapsBackAtTheNextMove) {
  picture("big.png", 2000, 1900);
  Form2& v = open();
  tk::user::key(v, kDown);
  v.Image1.setLeft(40);
  v.Image1.setTop(-(16051.2 - 11520) - 100);  // the bottom edge inside the screen
  tk::user::mouseMove(v.Image1, 1, 0, 0, 0);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), 0);
  EXPECT_DOUBLE_EQ(v.Image1.Top(), 11520 - 16051.2);
  EXPECT_EQ(v.VScroll1.Value(), 226);  // left alone by the vertical snap
}

TEST_F(ZoomPanTest, ADragWithoutBarsMovesOnlyTheShape) {
  picture("a.png", 640, 480);
  Form2& v = open();
  tk::user::mouseDown(v.Image1, 1, 0, 10, 10);
  tk::user::mouseMove(v.Image1, 1, 0, 200, 200);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), (15360 - 9600) / 2);
  EXPECT_DOUBLE_EQ(v.Shape1.Left(), v.Image1.Left());
  EXPECT_DOUBLE_EQ(v.Shape1.Top(), v.Image1.Top());
  EXPECT_DOUBLE_EQ(v.Shape1.Width(), 9600);
}

}  // namespace
