// Opening the viewer, walking the file list with its end rules, the keys and the way out.
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ViewerFixture.h"

using namespace vellumry;

namespace {

using NavigationTest = ViewerFixture;

constexpr int kRight = 39, kLeft = 37, kUp = 38, kDown = 40, kAlt = 18, kCtrl = 17;
constexpr int kSpace = 32, kF1 = 112, kEsc = 27;

struct EndCase {
  const char* sautor;
  const char* beeps;
  int startPosition;  // of three files
  int key;
  int expectedIndex;
  int expectedBeeps;
};

TEST_F(NavigationTest, TheEndsOfTheListByStopAndBeepSettings) {
  const EndCase cases[] = {
      {"1", "1", 3, kRight, 2, 1},  // stays on the last file and beeps
      {"1", "0", 3, kRight, 2, 0},
      {"0", "1", 3, kRight, 0, 0},  // a ring: the first file, no longer the last, no beep
      {"0", "0", 3, kRight, 0, 0},
      {"1", "1", 1, kLeft, 0, 1},
      {"1", "0", 1, kLeft, 0, 0},
      {"0", "1", 1, kLeft, 2, 0},
      {"0", "0", 1, kLeft, 2, 0},
      {"0", "1", 2, kRight, 2, 1},  // arriving on the last file beeps
      {"1", "1", 2, kLeft, 0, 1},   // and on the first
  };
  pictureFiles(3);
  for (const EndCase& c : cases) {
    SCOPED_TRACE(std::string("sautor ") + c.sautor + " beeps " + c.beeps + " from " +
                 std::to_string(c.startPosition) + " key " + std::to_string(c.key));
    setting("sautor", c.sautor);
    setting("beeps", c.beeps);
    open(c.startPosition);
    host.shown.clear();
    key(c.key);
    EXPECT_EQ(selected(), c.expectedIndex);
    EXPECT_EQ(beeps(), c.expectedBeeps);
    program.reset();
  }
}

TEST_F(NavigationTest, StayingOnTheLastFileBeepsAtEveryTry) {
  pictureFiles(2);
  setting("sautor", "1");
  open(2);
  host.shown.clear();
  key(kRight);
  key(kRight);
  EXPECT_EQ(selected(), 1);
  EXPECT_EQ(beeps(), 2);
}

TEST_F(NavigationTest, BothSettingsMissingMeanStopAndBeep) {
  pictureFiles(2);
  std::ifstream in(iniPath());
  std::stringstream kept;
  for (std::string line; std::getline(in, line);)
    if (line.rfind("beeps=", 0) != 0 && line.rfind("sautor=", 0) != 0) kept << line << "\n";
  in.close();
  std::ofstream(iniPath()) << kept.str();
  ASSERT_EQ(setting("beeps"), "?");
  open(2);
  EXPECT_TRUE(viewer().bBeep);
  EXPECT_TRUE(viewer().bStopAtEnd);
  host.shown.clear();
  key(kRight);
  EXPECT_EQ(selected(), 1);
  EXPECT_EQ(beeps(), 1);
}

TEST_F(NavigationTest, AltAndCtrlAloneStepAndUpAndDownZoomInALongList) {
  pictureFiles(3);
  Form2& v = open(2);
  key(kAlt);
  EXPECT_EQ(selected(), 2);
  key(kCtrl);
  key(kCtrl);
  EXPECT_EQ(selected(), 0);
  wait(1);
  key(kDown);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), 64 * 15 * 1.1);
  key(kUp);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), 64 * 15 * 1.1 * 0.9);
  EXPECT_EQ(selected(), 0);
}

TEST_F(NavigationTest, AStepHidesThePictureAndItsBarsUntilTimer1PlacesTheNext) {
  picture("a.png", 2000, 1900);
  picture("b.png", 64, 48);
  Form2& v = open(1);
  key(kDown);
  ASSERT_TRUE(v.VScroll1.Visible());
  key(kRight);
  EXPECT_FALSE(v.Image1.Visible());
  EXPECT_FALSE(v.VScroll1.Visible());
  EXPECT_FALSE(v.HScroll1.Visible());
  EXPECT_FALSE(v.bKeepV);
  wait(1);
  EXPECT_TRUE(v.Image1.Visible());
  EXPECT_EQ(v.Image1.Width(), 64 * 15);
  EXPECT_EQ(v.Image1.Left(), (15360 - 64 * 15) / 2);
}

TEST_F(NavigationTest, InAFolderOfOneFileTheArrowsZoomAndSpaceDoesNothing) {
  picture("only.png", 640, 480);
  Form2& v = open(1);
  const double fitted = v.Image1.Width();
  key(kRight);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), fitted * 1.1);
  key(kLeft);
  EXPECT_DOUBLE_EQ(v.Image1.Width(), fitted * 1.1 * 0.9);
  key(kAlt);
  key(kCtrl);
  key(kSpace);
  EXPECT_FALSE(v.Timer2.Enabled());
  EXPECT_DOUBLE_EQ(v.Image1.Width(), fitted * 1.1 * 0.9);
  EXPECT_EQ(selected(), 0);
  host.queueAnswer(1);
  key(kF1);
  EXPECT_EQ(host.shown.back(),
            "msgbox 64 \"Fast key:\" \"Press the left or right arrow keys to move to the next or "
            "previous photo.\\r\\nUp or down arrow keys to zoom in or out on the photo.\\r\\n___"
            "\\r\\n\\r\\nKey 'esc' to exit or double-click the desktop.\\r\\n___\\r\\n\\r\\nKey "
            "'space'  to start slideshow or stop slideshow.\\r\\n____________\" -> 1");
  key(kEsc);
  EXPECT_FALSE(program->Form2.loaded());
}

TEST_F(NavigationTest, AMarkedPositionShowsItsPlainPicture) {
  pictureFiles(2);
  Form1& f = loaded();
  const gdi::Picture plain = f.Image123(2).Picture();
  f.Img1.Load(2).setPicture(plain);
  f.Image123(2).setPicture({});  // the grid shows the cross there
  program->fields.set("aDeleted", 2, -1.0);
  ASSERT_TRUE(tk::user::dblClick(f.Image1(2)));
  EXPECT_TRUE(viewer().Image2.Picture().SameObject(plain));
}

TEST_F(NavigationTest, OpeningReadsTheSelectionAndLeavingKeepsIt) {
  pictureFiles(4);
  Form1& f = loaded();
  ASSERT_TRUE(tk::user::dblClick(f.Image1(3)));
  EXPECT_TRUE(viewer().Image2.Picture().SameObject(f.Image123(3).Picture()));
  key(kRight);
  EXPECT_TRUE(viewer().Image2.Picture().SameObject(f.Image123(4).Picture()));
  wait(1);
  EXPECT_TRUE(tk::user::dblClick(viewer().Image1));
  EXPECT_FALSE(program->Form2.loaded());
  EXPECT_EQ(f.File2.ListIndex(), 3);
  EXPECT_EQ(program->viewer.ViewerUp(), 0);
}

TEST_F(NavigationTest, ARightClickPopsTheViewersMenuWithoutTheSideText) {
  pictureFiles(2);
  Form2& v = open(1);
  host.queueMenuPick("");
  tk::user::mouseDown(v, 2);
  EXPECT_EQ(host.shown.back().rfind("popup mnuSaveimg2", 0), 0u) << host.shown.back();
  EXPECT_FALSE(program->frmMenu().mOpentxt.Visible());
}

}  // namespace
