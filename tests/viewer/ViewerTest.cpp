// The full-screen viewer on a headless program whose folder holds pictures made for each test:
// the walk through the list with its end rules, the keys, the slideshow and its timers, the fit,
// zoom, bars and drag, and the pictures drawn from their files at the size they are shown. The
// driver script viewer.drive shows a whole run: a fit, the bars of a first zoom, and a show
// stepping every second up to the last file.
#include <QColor>
#include <QImage>
#include <algorithm>
#include <fstream>

#include "ProgramFixture.h"
#include "codecs/TestImages.h"
#include "gif/Form3.h"
#include "gif/cGIFViewer.h"
#include "picture/PictureServices.h"
#include "platform/toolkit/KeyCodes.h"
#include "viewer/FitRule.h"

using namespace vellumry;

namespace {

// On a screen of 1024 by 768 pixels, 15360 by 11520 twips, with the settings file's own values
// unless a test says otherwise: a show of 5 seconds that doesn't stop at the end, and beeps.
class ViewerTest : public ProgramFixture {
 protected:
  // A PNG of `w` by `h` pixels in the colour 0x5A28C8; or in columns one pixel wide, black and
  // white by turns, which any scaling in between turns grey.
  void picture(const std::string& name, int w, int h, bool stripes = false) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(QColor(200, 40, 90));
    for (int y = 0; stripes && y < h; ++y)
      for (int x = 0; x < w; ++x) image.setPixel(x, y, x % 2 ? 0xFFFFFFFF : 0xFF000000);
    ASSERT_TRUE(image.save(QString::fromStdString((pictures / name).string()), "PNG"));
  }
  void pictureFiles(int count) {
    for (int i = 1; i <= count; ++i) picture("p" + std::to_string(i) + ".png", 64, 48);
  }
  // The program afresh, the grid loaded and position `i` double-clicked; Timer1 has placed it.
  Form2& open(int i = 1) {
    program.reset();
    EXPECT_TRUE(tk::user::dblClick(loaded().Image1(i)));
    wait(1);
    return program->Form2();
  }
  void emptyFolder() {
    std::filesystem::remove_all(pictures);
    std::filesystem::create_directories(pictures);
  }
  // The viewer on a folder of one picture.
  Form2& openOnly(int w, int h) {
    emptyFolder();
    picture("a.png", w, h);
    return open();
  }
  // The viewer on a folder of one GIF file of `bytes`.
  Form2& openOnlyGif(const std::vector<uint8_t>& bytes) {
    emptyFolder();
    std::ofstream(pictures / "a.gif", std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
    return open();
  }
  int selected() { return form1().File2.ListIndex(); }
  int beeps() const { return int(std::count(host.shown.begin(), host.shown.end(), "beep")); }
  void key(int code) { tk::user::key(program->Form2(), code); }
  // Image1 drawn from its file's pixels at `size`, not in the form's colour.
  void expectFromFile(gdi::Size size) {
    const auto shown = program->Form2().Image1.Picture().Pixels();
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->dimensions(), size);
    EXPECT_EQ(shown->pixel(size.width / 2, size.height / 2), tk::pixelOf(0x5A28C8));
  }
};

TEST_F(ViewerTest, TheEndsOfTheListBySautorAndBeeps) {
  const struct {
    const char* settings;  // all the settings file holds
    int start, key;        // from position `start` of three files
    int index, beeps;
  } cases[] = {
      {"sautor=1\nbeeps=1", 3, tk::key::Right, 2, 1},  // stays on the last file and beeps
      {"sautor=1\nbeeps=0", 3, tk::key::Right, 2, 0},
      {"sautor=0\nbeeps=1", 3, tk::key::Right, 0,
       0},  // a ring: the first file, not the last, no beep
      {"sautor=1\nbeeps=1", 1, tk::key::Left, 0, 1},
      {"sautor=0\nbeeps=1", 1, tk::key::Left, 2, 0},
      {"sautor=0\nbeeps=1", 2, tk::key::Right, 2, 1},  // arriving on the last file beeps
      {"sautor=1\nbeeps=1", 2, tk::key::Left, 0, 1},   // and on the first
      {"", 3, tk::key::Right, 2, 1},                   // both keys missing: stop and beep
      {"sautor=0\nbeeps=1", 2, tk::key::Alt, 2, 1},  // Alt and Ctrl alone walk like Right and Left
      {"sautor=0\nbeeps=1", 2, tk::key::Ctrl, 0, 1},
      {"sautor=0\nbeeps=1", 2, tk::key::Up, 1, 0},  // Up and Down zoom instead
  };
  pictureFiles(3);
  for (const auto& c : cases) {
    SCOPED_TRACE("row " + std::to_string(&c - cases));
    std::ofstream(iniPath()) << "[Settings]\n" << c.settings << "\n";
    open(c.start);
    host.shown.clear();
    key(c.key);
    EXPECT_EQ(selected(), c.index);
    EXPECT_EQ(beeps(), c.beeps);
  }
}

TEST_F(ViewerTest, InAFolderOfOneFileTheArrowsZoomAndSpaceDoesNothing) {
  Form2& v = openOnly(640, 480);
  key(tk::key::Right);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), 9600 * 1.1);
  for (int k : {tk::key::Left, tk::key::Alt, tk::key::Ctrl, tk::key::Space}) key(k);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), 9600 * 1.1 * 0.9);
  EXPECT_FALSE(v.Timer2.Enabled());
  host.queueAnswer(1);
  key(tk::key::F1);
  EXPECT_EQ(host.shown.back(),
            "msgbox 64 \"Fast key:\" \"Press the left or right arrow keys to move to the next or "
            "previous photo.\\r\\nUp or down arrow keys to zoom in or out on the photo.\\r\\n___"
            "\\r\\n\\r\\nKey 'esc' to exit or double-click the desktop.\\r\\n___\\r\\n\\r\\nKey "
            "'space'  to start slideshow or stop slideshow.\\r\\n____________\" -> 1");
}

TEST_F(ViewerTest, AMarkedPositionShowsItsPlainPictureAndADoubleClickLeaves) {
  pictureFiles(3);
  Form1& f = loaded();
  const gdi::Picture plain = f.Image123(2).Picture();
  host.queueMenuPick("mDelselected");  // marked as a person marks it: the cell's menu
  ASSERT_TRUE(tk::user::mouseDown(f.Image1(2), tk::user::kRightButton));
  ASSERT_EQ(program->grid.nDeleted(), 1);
  ASSERT_FALSE(f.Image123(2).Picture().sameObject(plain));  // the grid shows the cross there
  ASSERT_TRUE(tk::user::dblClick(f.Image1(1)));
  key(tk::key::Right);  // a marked position shows its plain picture
  EXPECT_TRUE(program->Form2().Image2.Picture().sameObject(plain));
  wait(1);
  EXPECT_TRUE(tk::user::dblClick(program->Form2().Image1));
  EXPECT_FALSE(program->Form2.loaded());
}

// A stop by Space has the picture placed afresh from Image2 at its fitted size; a step hides it
// and its bars until Timer1 places the next one, centred.
TEST_F(ViewerTest, AStopBySpaceFitsAZoomedPictureAgainAndAStepHidesItsBars) {
  picture("a.png", 2000, 1900);
  picture("b.png", 64, 48);
  Form2& v = open(1);
  key(tk::key::Down);
  key(tk::key::Space);
  key(tk::key::Space);
  EXPECT_FALSE(v.Timer2.Enabled());
  EXPECT_EQ(v.Timer2.Interval(), 300);
  EXPECT_FALSE(v.Image1.Visible());
  EXPECT_DOUBLE_EQ(v.Image2.Width(), 16896);  // until Timer1 places it anew
  wait(1);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), 15360);
  ASSERT_TRUE(v.VScroll1.Visible());  // Timer1 leaves the bars alone
  key(tk::key::Right);
  EXPECT_FALSE(v.Image1.Visible());
  EXPECT_FALSE(v.VScroll1.Visible());
  EXPECT_FALSE(v.HScroll1.Visible());
  wait(1);
  EXPECT_TRUE(v.Image1.Visible());
  EXPECT_EQ(v.Image1.Left(), (15360 - 64 * 15) / 2);
  // The step of the last picture's zoom stays until the first zoom of this one.
  EXPECT_DOUBLE_EQ(v.dStepW, 1536);
  key(tk::key::Down);
  EXPECT_DOUBLE_EQ(v.dStepW, 96);
}

TEST_F(ViewerTest, AShowStartsOnTheBareColourAndRunsRoundTheListUntilEsc) {
  pictureFiles(3);
  Form2& v = open(2);
  key(tk::key::Space);
  EXPECT_FALSE(v.Image1.Visible());  // the bare colour until the first tick
  wait(15000);
  EXPECT_EQ(selected(), 1);
  EXPECT_EQ(beeps(), 1);  // once, on arriving at the last file
  key(tk::key::Esc);
  wait(15000);
  EXPECT_EQ(selected(), 1);  // the show went with the viewer
}

TEST_F(ViewerTest, AShowStartedOnTheLastFileEndsAtItsFirstTickKeepingItsInterval) {
  setting("sautor", "1");
  pictureFiles(2);
  Form2& v = open(2);
  key(tk::key::Space);
  wait(5000);
  EXPECT_FALSE(v.Timer2.Enabled());
  EXPECT_EQ(v.Timer2.Interval(), 5000);
  EXPECT_EQ(selected(), 1);
  EXPECT_EQ(beeps(), 1);  // a beep at every try while the show stays there
}

// A GIF of one frame stops its player at once, which hands the focus back to the bar through
// Timer3.
TEST_F(ViewerTest, Timer3GivesTheFocusBackOnce) {
  Form2& v = openOnlyGif(codecs::testing::makeGif(2, 1, {0, 1}, -1));
  ASSERT_TRUE(v.Timer3.Enabled());
  v.Image1.SetFocus();
  wait(553);
  EXPECT_NE(v.ActiveControl(), &v.VScroll2);
  wait(1);
  EXPECT_EQ(v.ActiveControl(), &v.VScroll2);
  EXPECT_FALSE(v.Timer3.Enabled());
}

// A small animation after a large one in a show leaves nothing of the large one around it.
TEST_F(ViewerTest, TheNextGifOfAShowStartsOnTheBareBackground) {
  for (const auto& [name, side] : {std::pair{"a.gif", 300}, {"b.gif", 20}}) {
    const codecs::testing::GifFrameSpec frame{
        0, 0, side, side, std::vector<uint8_t>(side * side, 1), 10};
    const auto bytes = codecs::testing::makeAnimatedGif(side, side, {frame, frame}, 0);
    std::ofstream(pictures / name, std::ios::binary) << std::string(bytes.begin(), bytes.end());
  }
  open(1);
  key(tk::key::Space);
  wait(5100);
  ASSERT_TRUE(program->Form3().Visible());  // the second GIF plays
  const auto screen = program->Form3().picBkg.Picture().Pixels();
  ASSERT_TRUE(screen && screen->dimensions() == (gdi::Size{1024, 768}));
  EXPECT_EQ(screen->pixel(400, 300) & 0xFFFFFFu, 0x404040u);  // where the large one stood
  EXPECT_NE(screen->pixel(512, 384) & 0xFFFFFFu, 0x404040u);  // the small one in the middle
}

// Asked for a background from a surface without one, the player keeps its canvas, but the
// animation was paused for the call and plays on: one frame further.
TEST_F(ViewerTest, ABackgroundFromNoSurfaceLeavesTheCanvasAndPlaysOn) {
  const codecs::testing::GifFrameSpec whole{0, 0, 4, 4, std::vector<uint8_t>(16, 1), 50};
  const codecs::testing::GifFrameSpec patch{0, 0, 2, 2, std::vector<uint8_t>(4, 2), 50};
  openOnlyGif(codecs::testing::makeAnimatedGif(4, 4, {whole, patch, whole}, 0));
  cGIFViewer& player = *program->Form3().gifViewer;
  ASSERT_EQ(player.AnimationState(), 1);
  ASSERT_EQ(player.AnimationIndex(), 1);
  EXPECT_FALSE(player.SetAnimationBkg(1, {}, 0, 0, 0, 0, 0));
  EXPECT_EQ(player.AnimationState(), 1);
  EXPECT_EQ(player.AnimationIndex(), 2);
}

// Minimised from its menu, the GIF window takes its smaller size first (pM), unless its
// animation fills the screen (pP).
TEST_F(ViewerTest, MinimisingFromTheGifMenuSettlesTheGifWindowFirst) {
  const codecs::testing::GifFrameSpec frame{0, 0, 4, 4, std::vector<uint8_t>(16, 1), 50};
  const auto bytes = codecs::testing::makeAnimatedGif(4, 4, {frame, frame}, 0);
  for (const bool big : {false, true}) {
    openOnlyGif(bytes);
    Form3& window = program->Form3();
    ASSERT_TRUE(window.Visible());
    program->fields.set("bBigPlay", std::nullopt, big);
    window.cboStretchMode.setListIndex(0);
    host.queueMenuPick("mnuMin");
    tk::user::mouseDown(window.picBkg, tk::user::kRightButton);
    EXPECT_EQ(window.cboStretchMode.ListIndex(), big ? 0 : 3) << big;
    EXPECT_EQ(program->viewer.bBigPlay(), big) << big;
    EXPECT_EQ(program->viewer.ViewerUp(), 3) << big;
  }
}

TEST(FitToForm, ShrinksOnceByTheLongerSide) {
  // A natural size in twips on the form of 15360 by 11520, and the width and height shown; 0 by
  // 0 where the natural size stays untouched.
  const double cases[][4] = {
      {15000, 45000, 3840, 11520},   // portrait: the form's height
      {7500, 11520, 7500, 11520},    // exactly the form's height: the first case
      {15000, 15000, 11520, 11520},  // a larger square: the form's height
      {4500, 4500, 0, 0},            // a smaller square: kept
      {11520.4, 11520.2, 0, 0},      // square once rounded, but not as it stands
      {1234.56, 789.01, 0, 0},       // smaller: kept to the fraction
  };
  for (const auto& c : cases) {
    const ShownSize s = fitToForm(c[0], c[1], 15360, 11520).value_or(ShownSize{});
    EXPECT_EQ(std::pair(s.width, s.height), std::pair(c[2], c[3])) << c[0] << " by " << c[1];
  }
}

TEST_F(ViewerTest, TheZoomLimitsBeepWhateverTheSettingAndChangeNothing) {
  setting("beeps", "0");
  // A picture, its key, and the zooms it takes before the limit.
  const int cases[][4] = {
      {2000, 1900, tk::key::Down, 11},  // then 43823.9 + 3984 - 15360 is over 32000
      {20, 20, tk::key::Up, 7},         // 300 twips down to 143.49, under 150
      // Either side alone is enough.
      {4000, 200, tk::key::Down, 11},  // the width as above, the height far inside
      {600, 12, tk::key::Up, 2},       // 180 twips high down to 145.8, 7290 wide
  };
  for (const auto& c : cases) {
    Form2& v = openOnly(c[0], c[1]);
    host.shown.clear();
    for (int i = 0; i < c[3]; ++i) key(c[2]);
    EXPECT_EQ(beeps(), 0) << c[0];
    const double width = v.Image1.Width();
    key(c[2]);
    EXPECT_EQ(beeps(), 1) << c[0];
    EXPECT_DOUBLE_EQ(v.Image1.Width(), width) << c[0];
  }
}

TEST_F(ViewerTest, ThePointerOfADragGoesByTheBarsThatShow) {
  // A picture zoomed once, and the pointer while the left button is down on it.
  const int cases[][3] = {
      {1000, 3000, 7},  // only the vertical bar
      {3000, 600, 9},   // only the horizontal one
      {2000, 1900, 5},  // both
      {64, 48, 1},      // none: a drag moves only the shape
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c[0]);
    Form2& v = openOnly(c[0], c[1]);
    key(tk::key::Down);
    const double left = v.Image1.Left();
    tk::user::mouseDown(v.Image1, 1, 0, 10, 20);
    EXPECT_EQ(v.Image1.MousePointer(), c[2]);
    tk::user::mouseMove(v.Image1, 1, 0, 50, 60);
    if (c[2] == 1) {
      EXPECT_DOUBLE_EQ(v.Image1.Left(), left);
    }
    EXPECT_DOUBLE_EQ(v.Shape1.Left(), v.Image1.Left());
    tk::user::mouseUp(v.Image1, 1, 0, 10, 20);
    EXPECT_EQ(v.Image1.MousePointer(), 1);
  }
}

TEST_F(ViewerTest, AZoomedPictureMovesByItsBarsAndByDraggingAndKeepsItsPointAtTheNextZoom) {
  Form2& v = openOnly(2000, 1900);
  key(tk::key::Down);  // 16896 by 16051.2 at left -770, top -2260: both bars in the middle
  EXPECT_EQ(v.VScroll1.SmallChange(), 100);
  EXPECT_EQ(v.HScroll1.LargeChange(), 100);
  EXPECT_DOUBLE_EQ(v.HScroll1.Width(), 15360 - 255);
  EXPECT_EQ(v.ActiveControl(), &v.VScroll2);
  // A drag moves the picture a twip a pixel, its bars following.
  tk::user::mouseDown(v.Image1, 1, 0, 100, 100);
  tk::user::mouseMove(v.Image1, 1, 0, 300, 50);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), -570);
  EXPECT_EQ(v.HScroll1.Value(), 57);
  EXPECT_DOUBLE_EQ(v.Image1.Top(), -2310);
  EXPECT_EQ(v.VScroll1.Value(), 231);
  // Past either edge the form beyond would show, so nothing moves; nor with another button.
  for (const auto& [button, x] : {std::pair{1, 900}, {1, -1500}, {2, 200}}) {
    tk::user::mouseMove(v.Image1, button, 0, x, 100);
    EXPECT_DOUBLE_EQ(v.Image1.Left(), -570) << x;
  }
  // Moved past an edge by other means, it snaps back at the next move.
  v.Image1.setLeft(40);
  v.Image1.setTop(11520 - 16051.2 - 100);  // the bottom edge inside the screen
  tk::user::mouseMove(v.Image1, 1, 0, 0, 0);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), 0);
  EXPECT_DOUBLE_EQ(v.Image1.Top(), 11520 - 16051.2);
  EXPECT_EQ(v.VScroll1.Value(), 231);  // left alone by the vertical snap
  // Scrolled to the bottom left, a zoom keeps the picture there.
  tk::user::scroll(v.VScroll1, 453);
  tk::user::scroll(v.HScroll1, 0);
  EXPECT_DOUBLE_EQ(v.Image1.Top(), -4530);
  key(tk::key::Down);  // 18585.6 by 17656.32
  EXPECT_EQ(v.VScroll1.Max(), 614);
  EXPECT_EQ(v.VScroll1.Value(), 614);
  EXPECT_EQ(v.HScroll1.Max(), 323);
  EXPECT_EQ(v.HScroll1.Value(), 0);
  EXPECT_DOUBLE_EQ(v.Image1.Left(), 0);
  EXPECT_DOUBLE_EQ(v.Image1.Top(), -6140);
}

// Gone from the disk, pictures still show once their pixels were decoded ahead: the neighbours
// of the one shown, and the one of a cell clicked in the grid.
TEST_F(ViewerTest, APictureThatFitsShowsPixelForPixelAndOthersAreDecodedAhead) {
  picture("a.png", 900, 600, true);
  picture("b.png", 2000, 1900);
  picture("c.png", 1000, 3000);
  picture("d.png", 3000, 600);
  ASSERT_TRUE(tk::user::click(loaded().Image1(3)));
  ASSERT_TRUE(tk::user::dblClick(form1().Image1(1)));
  wait(1);
  const auto shown = program->Form2().Image1.Picture().Pixels();
  ASSERT_TRUE(shown);
  ASSERT_EQ(shown->dimensions(), (gdi::Size{900, 600}));
  for (int x : {0, 1, 450, 451, 898, 899})
    EXPECT_EQ(shown->pixel(x, 300) & 0xFFFFFF, x % 2 ? 0xFFFFFFu : 0u) << x;
  program->pictures().drain();
  for (const char* name : {"b.png", "c.png", "d.png"}) std::filesystem::remove(pictures / name);
  key(tk::key::Left);  // the previous
  wait(1);
  expectFromFile({1024, 205});
  key(tk::key::Right);
  key(tk::key::Right);  // the next
  wait(1);
  expectFromFile({1024, 973});
  key(tk::key::Right);  // the clicked one
  wait(1);
  expectFromFile({256, 768});
}

}  // namespace
