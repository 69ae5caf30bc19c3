// The grid's phases and the caption of a folder.
#include "ProgramFixture.h"

using namespace vellumry;

using GridModelTest = ProgramFixture;

TEST_F(GridModelTest, PhasesWithTheirFlags) {
  makeFiles(30);
  start();
  vellumry::Form1& f = form1();
  // Empty, until Timer6 clicks the start button once.
  EXPECT_FALSE(f.bLoaded);
  EXPECT_TRUE(f.Enabled());
  wait(499);
  EXPECT_EQ(f.Timer1.Interval(), 0);
  wait(1);
  // Loading.
  EXPECT_EQ(f.Timer1.Interval(), 12);
  EXPECT_FALSE(f.Enabled());
  EXPECT_EQ(f.MousePointer(), 11);
  EXPECT_EQ(f.nCount, 30);
  EXPECT_EQ(f.File2.ListIndex(), 0);
  wait(12 * 29);
  EXPECT_EQ(f.nLoad, 30);
  EXPECT_FALSE(f.bLoaded);
  wait(12);
  // Loaded.
  EXPECT_TRUE(f.bLoaded);
  EXPECT_EQ(f.Timer1.Interval(), 0);
  EXPECT_TRUE(f.Enabled());
  EXPECT_EQ(f.MousePointer(), 0);
  EXPECT_TRUE(f.Image2.Visible());
  EXPECT_FALSE(f.Image3.Visible());
  EXPECT_EQ(f.sExt, "JPG");
  EXPECT_EQ(f.File2.ListIndex(), 29);  // the selection stands on the last file
  EXPECT_EQ(f.Image1(30).ToolTipText(), "img30.jpg");
  // Emptying, one position a millisecond from the highest down.
  ASSERT_TRUE(tk::user::click(f.Image2));
  EXPECT_EQ(f.Timer2.Interval(), 1);
  EXPECT_TRUE(f.Enabled());
  wait(1);
  EXPECT_FALSE(f.Enabled());
  EXPECT_FALSE(f.Image1.exists(30));
  EXPECT_TRUE(f.Image1.exists(29));
  EXPECT_TRUE(f.bLoaded);
  wait(29);
  // Empty again, same folder, waiting for a click.
  EXPECT_FALSE(f.bLoaded);
  EXPECT_EQ(f.Timer2.Interval(), 0);
  EXPECT_EQ(f.Image1.Count(), 1u);
  EXPECT_EQ(f.Image123.Count(), 1u);
  EXPECT_TRUE(f.Enabled());
  EXPECT_EQ(f.nLoad, 1);
  EXPECT_EQ(f.File2.ListIndex(), 0);
  EXPECT_EQ(f.File2.Path(), pictures.string());
  EXPECT_FALSE(f.VScroll1.Visible());
  EXPECT_EQ(program->Form0().Caption(), "pictures");
  EXPECT_TRUE(f.Image3.Visible());
  EXPECT_FALSE(f.Image2.Visible());
  wait(1000);
  EXPECT_EQ(f.Timer1.Interval(), 0);  // nothing loads by itself again
}

TEST_F(GridModelTest, APictureNamedAtTheStartIsSelectedOnceLoaded) {
  makeFiles(30);
  program = std::make_unique<vellumry::Program>(
      host, tk::EventLoop::Clock::Virtual, tk::Screen::ofPixels(1024, 768),
      vellumry::Places{home.string(), home.string(), pictures.string(), "img7.jpg"});
  vellumry::Main(*program);
  wait(500 + 12 * 30);
  vellumry::Form1& f = form1();
  ASSERT_TRUE(f.bLoaded);
  EXPECT_EQ(f.File2.FileName(), "img7.jpg");
  EXPECT_TRUE(f.Frame3(0).Visible());
  EXPECT_EQ(f.nSel, f.File2.ListIndex() + 1);
  EXPECT_TRUE(program->places.startFile.empty());  // only once
}

TEST_F(GridModelTest, LoadingIgnoresTheUserUntilItEnds) {
  makeFiles(5);
  start();
  wait(500);
  EXPECT_FALSE(tk::user::click(form1().Image2));
  EXPECT_FALSE(tk::user::key(form1(), 27));
  wait(60);
  EXPECT_TRUE(form1().bLoaded);
  EXPECT_TRUE(tk::user::click(form1().Image2));
}

TEST_F(GridModelTest, CaptionOfAFolder) {
  vellumry::Form1& f = loaded();  // the empty pictures folder; its question took No
  auto spaced = root / "  my  holiday pics ";
  std::filesystem::create_directories(spaced);
  f.File2.setPath(spaced.string());
  f.pCaption();
  EXPECT_EQ(program->Form0().Caption(), "  my  holiday pics ");  // blanks kept
  f.File2.setPath("/");
  f.pCaption();
  EXPECT_EQ(program->Form0().Caption(), "Vellumry");
}

TEST_F(GridModelTest, CaptionComparesTheLinkUntrimmedAndThePathTrimmed) {
  vellumry::Form1& f = loaded();
  std::string folder = pictures.string();
  f.List(0).AddItem("Untrimmed");
  f.List(1).AddItem(folder + " ");
  f.List(0).AddItem("Holidays");
  f.List(1).AddItem(tk::toUpper(folder));
  f.pCaption();
  EXPECT_EQ(program->Form0().Caption(), "Holidays");
  EXPECT_EQ(f.List(0).ListIndex(), 1);
  EXPECT_EQ(f.List(1).ListIndex(), 1);
  EXPECT_EQ(program->links.iCurLink(), 1);
}

TEST_F(GridModelTest, EmptyingAfterYesDeletesOnlyTheMarkedFiles) {
  makeFiles(4);
  vellumry::Form1& f = loaded();
  for (int position : {2, 4}) {
    f.Img1.Load(position);
    program->fields.set("aDeleted", position, -1.0);
  }
  program->fields.set("nDeleted", {}, 2.0);
  host.queueAnswer(tk::mb::Yes);
  tk::user::click(f.Image2);
  EXPECT_EQ(f.nAfterClear, 12);
  EXPECT_NE(host.shown.back().find("picture. 2 files ?"), std::string::npos);
  wait(4);
  EXPECT_EQ(program->grid.nDeleted(), 0);
  EXPECT_TRUE(std::filesystem::exists(pictures / "img1.jpg"));
  EXPECT_FALSE(std::filesystem::exists(pictures / "img2.jpg"));
  EXPECT_TRUE(std::filesystem::exists(pictures / "img3.jpg"));
  EXPECT_FALSE(std::filesystem::exists(pictures / "img4.jpg"));
  EXPECT_EQ(f.File2.ListCount(), 2);  // the list was read again
  EXPECT_EQ(f.nAfterClear, 0);
}

TEST_F(GridModelTest, GoingToALinkEmptiesTheGridAndEntersItsFolder) {
  makeFiles(3);
  auto other = root / "other";
  makeFiles(2, other);
  vellumry::Form1& f = loaded();
  f.List(0).AddItem("Other");
  f.List(1).AddItem(other.string());
  f.List(1).setListIndex(0);
  f.pGoLink();
  EXPECT_TRUE(f.bSwitching);
  wait(3);
  EXPECT_EQ(f.File2.Path(), other.string());
  EXPECT_EQ(f.File2.ListCount(), 2);
  EXPECT_EQ(program->Form0().Caption(), "Other");
  EXPECT_FALSE(f.bLoaded);
}
