// The start of the program from its settings, the panel, and the ways it closes.
#include "ProgramFixture.h"
#include "shell/CommandLine.h"

using namespace vellumry;

using StartTest = ProgramFixture;

TEST_F(StartTest, PanelWidthFollowsInw) {
  struct Case {
    const char* inw;
    double width;
    const char* caption;
  };
  for (Case c :
       {Case{">", 1935, ">"}, Case{"<", 3935, "<"}, Case{"x", 3935, "<"}, Case{"", 3935, "<"}}) {
    SCOPED_TRACE(c.inw);
    setting("Inw", c.inw);
    start();
    EXPECT_EQ(form1().Frame2.Width(), c.width);
    EXPECT_EQ(form1().Label3.Caption(), c.caption);
    EXPECT_EQ(form1().File2.Width(), c.width - 120);
    program.reset();
  }
}

TEST_F(StartTest, ShowmbZeroHidesTheMinimiseButtonAndTheBarTakesTheHeight) {
  start();
  EXPECT_TRUE(form1().btn(1).Visible());
  EXPECT_EQ(form1().VScroll1.Top(), 195 + 55);
  EXPECT_EQ(form1().VScroll1.Height(), 11520 - 195 - 55);
  EXPECT_EQ(form1().btn(1).Left(), 15360 - 255);
  program.reset();
  setting("showmb", "0");
  start();
  EXPECT_FALSE(form1().btn(1).Visible());
  EXPECT_EQ(form1().VScroll1.Top(), 0);
  EXPECT_EQ(form1().VScroll1.Height(), 11520);
}

TEST_F(StartTest, StartFolderFromDestOrTheUsersFolder) {
  auto other = root / "other";
  makeFiles(2, other);
  setting("dest", other.string());
  start();
  EXPECT_EQ(form1().File2.Path(), other.string());
  EXPECT_EQ(form1().File2.ListCount(), 2);
  program.reset();
  for (std::string dest : {std::string(""), (root / "gone").string()}) {
    setting("dest", dest);
    start();
    EXPECT_EQ(form1().File2.Path(), pictures.string());
    program.reset();
  }
  EXPECT_TRUE(host.shown.empty());  // no message on the way
}

TEST_F(StartTest, AFolderNamedOnTheCommandLineIsTheStartFolderOfThatRunOnly) {
  auto named = root / "named", saved = root / "saved";
  makeFiles(1, named);
  makeFiles(1, saved);
  setting("dest", saved.string());
  startFolder = named.string();
  start();
  EXPECT_EQ(form1().File2.Path(), named.string());
  program->runtime.End();  // ended without pQuit, as a killed program is
  program.reset();
  EXPECT_EQ(setting("dest"), saved.string());
  startFolder.clear();
  start();
  EXPECT_EQ(form1().File2.Path(), saved.string());
}

TEST(CommandLineTest, AFolderOrAPictureNamedGivesTheStartFolderAndNothingElseChanges) {
  const auto folder =
      std::filesystem::temp_directory_path() / ("vellumry-args-" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "a b.png") << "x";
  struct Case {
    std::vector<std::string> args;
    std::string startFolder, startFile;
  };
  for (const Case& c :
       {Case{{"vellumry"}, "", ""}, Case{{"vellumry", folder.string()}, folder.string(), ""},
        Case{{"vellumry", (folder / "a b.png").string()}, folder.string(), "a b.png"},
        Case{{"vellumry", (folder / "none").string()}, "", ""}}) {
    SCOPED_TRACE(c.args.back());
    vellumry::Places places{"/home", "/install", "/pictures"};
    vellumry::TakeCommandLine(c.args, places);
    EXPECT_EQ(places.startFolder, c.startFolder);
    EXPECT_EQ(places.startFile, c.startFile);
    EXPECT_EQ(places.picturesFolder, "/pictures");  // never a stand-in for an empty one
  }
  std::filesystem::remove_all(folder);
}

TEST_F(StartTest, SettingsAreReadAsTheyStand) {
  setting("slsh", "60");
  setting("frameprop", "2");
  setting("anigifp", "0");
  setting("gformc", "not a number");
  start();
  EXPECT_EQ(program->viewer.lSlideMs(), 60000);
  EXPECT_EQ(program->viewer.sAniGif(), "0");
  EXPECT_EQ(form1().Image1(0).Width(), form1().Image1(0).Height());  // "2" is square
  EXPECT_EQ(form1().Frame1.BackColor(), 4210752u);                   // the default colour
  EXPECT_EQ(program->shell.vScreenPxW(), 1024);
  EXPECT_EQ(program->shell.vScreenPxH(), 768);
  EXPECT_EQ(program->Form0().Left(), -15360);
}

TEST_F(StartTest, AnEmptyFolderAsksAndYesEndsWithoutWriting) {
  start();
  host.queueAnswer(tk::mb::Yes);
  wait(500);
  ASSERT_EQ(host.shown.size(), 1u);
  EXPECT_EQ(
      host.shown[0],
      "msgbox 36 \"\" \"  No images in the own folder of this record!\\r\\n\\r\\nDo you want to "
      "close: 'Vellumry'?\" -> 6");
  EXPECT_TRUE(program->runtime.ended());
  EXPECT_EQ(setting("Inw"), "<");  // nothing written: the default stands
}

TEST_F(StartTest, AnEmptyFolderAnsweredNoLeavesTheEmptyGrid) {
  setting("dest", "");
  start();
  host.queueAnswer(tk::mb::No);
  wait(500);
  EXPECT_FALSE(program->runtime.ended());
  EXPECT_TRUE(form1().Visible());
  EXPECT_TRUE(form1().Enabled());
  EXPECT_FALSE(form1().bLoaded);
  EXPECT_EQ(form1().Timer1.Interval(), 0);
}

TEST_F(StartTest, ClosingWritesInwAndEmptiesDest) {
  setting("Inw", ">");
  setting("dest", pictures.string());
  makeFiles(1);
  start();
  form1().Unload();
  EXPECT_TRUE(program->runtime.ended());
  EXPECT_EQ(setting("Inw"), ">");
  EXPECT_EQ(setting("dest"), "");
}

TEST_F(StartTest, ClosingWithMarksAsksAndCancelKeepsEverything) {
  makeFiles(3);
  vellumry::Form1& f = loaded();
  program->fields.set("nDeleted", {}, 1.0);
  program->fields.set("aDeleted", 2, -1.0);
  host.queueAnswer(tk::mb::Cancel);
  EXPECT_FALSE(f.Unload());
  EXPECT_FALSE(program->runtime.ended());
  EXPECT_EQ(program->grid.nDeleted(), 1);
  EXPECT_EQ(f.nAfterClear, 0);
  host.queueAnswer(tk::mb::No);
  f.Unload();
  EXPECT_TRUE(program->runtime.ended());
  EXPECT_TRUE(std::filesystem::exists(pictures / "img2.jpg"));
  EXPECT_NE(host.shown.back().find("picture. file ?"), std::string::npos);
}

TEST_F(StartTest, MinimisingAndRestoringThroughForm0) {
  makeFiles(1);
  loaded();
  vellumry::Form0& f0 = program->Form0();
  program->viewer.setViewerUp(2);
  program->Form2().Show();
  f0.setLeft(0);
  f0.setWindowState(1);
  EXPECT_FALSE(form1().Visible());
  EXPECT_FALSE(program->Form2().Visible());
  f0.setWindowState(0);
  EXPECT_TRUE(form1().Visible());
  EXPECT_TRUE(program->Form2().Visible());
  EXPECT_TRUE(program->Form2().Timer3.Enabled());
  EXPECT_EQ(f0.Left(), -f0.Width());
}

TEST_F(StartTest, ClosingTheTaskBarEntryWhileAViewerIsMinimisedClosesAll) {
  makeFiles(1);
  loaded();
  vellumry::Form0& f0 = program->Form0();
  program->viewer.setViewerUp(3);
  program->Form2().Show();
  program->Form3().Show();
  f0.setWindowState(1);
  f0.Unload(0);
  EXPECT_TRUE(program->runtime.ended());
  EXPECT_EQ(program->viewer.ViewerUp(), 0);
  EXPECT_EQ(setting("dest"), "");
}
