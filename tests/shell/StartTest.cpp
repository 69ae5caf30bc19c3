// The start of the program from its settings and its command line, the panel, and the ways it
// is minimised, restored and closed.
#include <functional>

#include "ProgramFixture.h"
#include "platform/toolkit/KeyCodes.h"
#include "shell/CommandLine.h"

using namespace vellumry;

using StartTest = ProgramFixture;

TEST_F(StartTest, PanelWidthFollowsInw) {
  struct Case {
    const char* inw;
    double width;
    const char* caption;
  };
  for (Case c : {Case{">", 1935, ">"}, Case{"x", 3935, "<"}, Case{"", 3935, "<"}}) {
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
  for (const char* showmb : {"1", "0"}) {
    SCOPED_TRACE(showmb);
    setting("showmb", showmb);
    start();
    const double top = showmb[0] == '1' ? 195 + 55 : 0;  // below the button, or at the top
    EXPECT_EQ(form1().btn(1).Visible(), top != 0);
    EXPECT_EQ(form1().btn(1).Left(), 15360 - 255);
    EXPECT_EQ(form1().VScroll1.Top(), top);
    EXPECT_EQ(form1().VScroll1.Height(), 11520 - top);
    program.reset();
  }
}

// A folder named on the command line is the start folder of that run only: dest stays as it is.
TEST_F(StartTest, StartFolderFromTheCommandLineOrDestOrTheUsersFolder) {
  const auto named = root / "named", saved = root / "saved";
  makeFiles(1, named);
  makeFiles(1, saved);
  struct Case {
    std::string dest, named, folder;
  };
  for (const Case& c : {Case{saved.string(), "", saved.string()}, Case{"", "", pictures.string()},
                        Case{(root / "gone").string(), "", pictures.string()},
                        Case{saved.string(), named.string(), named.string()}}) {
    SCOPED_TRACE(c.dest + " " + c.named);
    setting("dest", c.dest);
    startFolder = c.named;
    start();
    EXPECT_EQ(form1().File2.Path(), c.folder);
    program.reset();
    EXPECT_EQ(setting("dest"), c.dest);
  }
  EXPECT_TRUE(host.shown.empty());  // no message on the way
}

TEST_F(StartTest, AFolderOrAPictureNamedOnTheCommandLineGivesTheStartFolderAndNothingElse) {
  std::ofstream(pictures / "a b.png") << "x";
  const std::string folder = pictures.string();
  struct Case {
    std::vector<std::string> args;
    std::string startFolder, startFile;
  };
  for (const Case& c : {Case{{"vellumry"}, "", ""}, Case{{"vellumry", folder}, folder, ""},
                        Case{{"vellumry", folder + "/a b.png"}, folder, "a b.png"},
                        Case{{"vellumry", folder + "/none"}, "", ""}}) {
    SCOPED_TRACE(c.args.back());
    Places places{"/home", "/install", "/pictures"};
    takeCommandLine(c.args, places);
    EXPECT_EQ(places.startFolder, c.startFolder);
    EXPECT_EQ(places.startFile, c.startFile);
    EXPECT_EQ(places.picturesFolder, "/pictures");  // never a stand-in for an empty one
  }
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
}

// Yes ends the program at once and writes nothing; No leaves the empty grid up.
TEST_F(StartTest, AnEmptyFolderAsksWhetherToClose) {
  setting("Inw", "x");
  setting("dest", pictures.string());
  for (int answer : {tk::mb::No, tk::mb::Yes}) {
    start();
    host.shown.clear();
    host.queueAnswer(answer);
    wait(500);
    EXPECT_EQ(host.shown, std::vector<std::string>{
                              "msgbox 36 \"\" \"  No images in the own folder of this record!\\r\\n"
                              "\\r\\nDo you want to close: 'Vellumry'?\" -> " +
                              std::to_string(answer)});
    EXPECT_EQ(program->runtime.ended(), answer == tk::mb::Yes);
    EXPECT_EQ(form1().Enabled() && form1().Visible() && !form1().bLoaded, answer == tk::mb::No);
    program.reset();
  }
  EXPECT_EQ(setting("Inw"), "x");
  EXPECT_EQ(setting("dest"), pictures.string());
}

// Each way out writes the panel's width as it stands and empties dest.
TEST_F(StartTest, EveryWayOutWritesInwAndEmptiesDest) {
  makeFiles(1);
  const std::vector<std::pair<std::string, std::function<void()>>> ways = {
      {"Esc", [&] { tk::user::key(form1(), tk::key::Esc); }},
      {"the exit image", [&] { tk::user::click(form1().Image4); }},
      {"a double click on the form", [&] { tk::user::dblClick(form1()); }},
      {"the viewer's Exit", [&] {
         program->Form2().Show();
         host.queueMenuPick("mnuExit2");
         program->Form2().PopupMenu(program->frmMenu().mnuSaveimg2);
       }}};
  for (const auto& [name, close] : ways) {
    SCOPED_TRACE(name);
    setting("Inw", ">");
    setting("dest", pictures.string());
    loaded();
    tk::user::click(form1().Label3);  // wide
    close();
    EXPECT_TRUE(program->runtime.ended());
    EXPECT_EQ(setting("Inw"), "<");
    EXPECT_EQ(setting("dest"), "");
    program.reset();
  }
}

// F1 minimises and starts the help program. Minimised with the viewer up, everything goes;
// restored, the viewer comes back with its timer. Closing the task-bar entry while the GIF viewer
// is minimised closes all.
TEST_F(StartTest, MinimisingRestoringAndClosingThroughForm0) {
  makeFiles(1);
  loaded();
  Form0& f0 = program->Form0();
  tk::user::key(form1(), tk::key::F1);
  EXPECT_EQ(f0.WindowState(), 1);
  EXPECT_EQ(f0.Left(), 0);
  EXPECT_FALSE(form1().Visible());
  EXPECT_FALSE(program->FormScreenCapture.loaded());  // it went at its activation
  EXPECT_EQ(host.shown.back(), "run \"" + home.string() + "/tomeview\"");
  f0.setWindowState(0);
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
  program->viewer.setViewerUp(3);
  program->Form3().Show();
  f0.setWindowState(1);
  f0.Unload(0);
  EXPECT_TRUE(program->runtime.ended());
  EXPECT_EQ(program->viewer.ViewerUp(), 0);
  EXPECT_EQ(setting("dest"), "");
}
