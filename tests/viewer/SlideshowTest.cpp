// The slideshow on Timer2: its start and stop by Space, its rhythm and what ends it.
#include "ViewerFixture.h"

using namespace vellumry;

namespace {

class SlideshowTest : public ViewerFixture {
 protected:
  void SetUp() override {
    ViewerFixture::SetUp();
    setting("slsh", "1");
  }
};

constexpr int kSpace = 32, kEsc = 27, kDown = 40;

TEST_F(SlideshowTest, StepsEverySecondAndStopsOnTheLastFile) {
  setting("sautor", "1");
  pictureFiles(5);
  Form2& v = open(1);
  tk::user::key(v, kSpace);
  EXPECT_TRUE(v.Timer2.Enabled());
  EXPECT_EQ(v.Timer2.Interval(), 1000);
  EXPECT_FALSE(v.Image1.Visible());  // the bare colour until the first tick
  for (int index = 1; index <= 4; ++index) {
    wait(999);
    EXPECT_EQ(selected(), index - 1);
    wait(1);
    EXPECT_EQ(selected(), index);
  }
  EXPECT_FALSE(v.Timer2.Enabled());
  EXPECT_EQ(v.Timer2.Interval(), 1000);  // an end at the last file keeps the show's interval
  EXPECT_EQ(beeps(), 1);
  wait(5000);
  EXPECT_EQ(selected(), 4);
  EXPECT_TRUE(v.Image1.Visible());
}

TEST_F(SlideshowTest, WithoutStopAtEndTheShowRunsRoundTheList) {
  pictureFiles(3);
  Form2& v = open(2);
  tk::user::key(v, kSpace);
  wait(3000);
  EXPECT_EQ(selected(), 1);
  EXPECT_TRUE(v.Timer2.Enabled());
  EXPECT_EQ(beeps(), 1);  // once, on arriving at the last file
}

TEST_F(SlideshowTest, OnTheLastFileWithStopAtEndTheShowEndsAtItsFirstTick) {
  setting("sautor", "1");
  pictureFiles(3);
  Form2& v = open(3);
  tk::user::key(v, kSpace);
  wait(1000);
  EXPECT_FALSE(v.Timer2.Enabled());
  EXPECT_EQ(selected(), 2);
  EXPECT_EQ(beeps(), 1);
}

TEST_F(SlideshowTest, EscDuringAShowStopsItAndTheGridComesBack) {
  pictureFiles(3);
  Form2& v = open(1);
  tk::user::key(v, kSpace);
  wait(1000);
  tk::user::key(v, kEsc);
  EXPECT_FALSE(program->Form2.loaded());
  wait(3000);
  EXPECT_EQ(selected(), 1);
  EXPECT_TRUE(form1().Visible());
  EXPECT_EQ(program->viewer.ViewerUp, 0);
}

TEST_F(SlideshowTest, StopAfterAZoomPlacesThePictureAgainAtItsFittedSize) {
  picture("a.png", 2000, 1900);
  picture("b.png", 64, 48);
  Form2& v = open(1);
  tk::user::key(v, kDown);
  tk::user::key(v, kSpace);
  tk::user::key(v, kSpace);
  EXPECT_FALSE(v.Timer2.Enabled());
  EXPECT_EQ(v.Timer2.Interval(), 300);
  EXPECT_FALSE(v.Image1.Visible());
  EXPECT_DOUBLE_EQ(v.Image2.Width(), 16896);  // until Timer1 places it anew
  wait(1);
  EXPECT_TRUE(v.Image1.Visible());
  EXPECT_DOUBLE_EQ(v.Image1.Width(), 15360);
  EXPECT_DOUBLE_EQ(v.Image1.Height(), 14592);
  EXPECT_EQ(selected(), 0);
}

TEST_F(SlideshowTest, Timer3GivesTheFocusBackOnce) {
  pictureFiles(2);
  Form2& v = open(1);
  v.Image1.SetFocus();
  v.Timer3.setEnabled(true);
  wait(554);
  EXPECT_NE(v.ActiveControl(), &v.VScroll2);
  wait(1);
  EXPECT_EQ(v.ActiveControl(), &v.VScroll2);
  EXPECT_FALSE(v.Timer3.Enabled());
}

}  // namespace
