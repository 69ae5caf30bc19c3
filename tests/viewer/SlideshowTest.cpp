// The slideshow on Timer2: its start and stop by Space, its rhythm and what ends it.
#include "ViewerFixture.h"
#include "codecs/TestImages.h"

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
  EXPECT_EQ(program->viewer.ViewerUp(), 0);
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

// The next GIF of a show starts on the bare background, not over the last frame of the one
// before: a small animation after a large one leaves nothing of the large one around it.
TEST_F(SlideshowTest, TheNextGifOfAShowStartsOnTheBareBackground) {
  const auto gif = [](int side) {
    const auto frame = [side](uint8_t index) {
      return codecs::testing::GifFrameSpec{
          0, 0, side, side, std::vector<uint8_t>(static_cast<size_t>(side * side), index), 10};
    };
    return codecs::testing::MakeAnimatedGif(side, side, {frame(1), frame(2)}, 0);
  };
  for (const auto& [name, side] : {std::pair{"a.gif", 300}, std::pair{"b.gif", 20}}) {
    const std::vector<uint8_t> bytes = gif(side);
    std::ofstream(pictures / name, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }
  open(1);
  wait(100);
  key(kSpace);
  wait(1000);
  ASSERT_EQ(selected(), 1);
  wait(100);
  const Form3& player = program->Form3();
  ASSERT_TRUE(player.Visible());
  const gdi::Picture& shown = player.picBkg.Picture();
  gdi::Surface pixels(1024, 768, gdi::AlphaMode::kOpaque);
  shown.Render(pixels, 0, 0, 1024, 768, 0, shown.Height(), shown.Width(), -shown.Height());
  EXPECT_EQ(pixels.Pixel(400, 300) & 0xFFFFFFu, 0x404040u);  // where the large one stood
  EXPECT_NE(pixels.Pixel(512, 384) & 0xFFFFFFu, 0x404040u);  // the small one in the middle
}
