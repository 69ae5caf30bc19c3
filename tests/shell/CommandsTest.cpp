// Keys, clicks and popup menus of the main window, and the sliding panel.
#include "ProgramFixture.h"

using namespace vellumry;

using CommandsTest = ProgramFixture;

namespace {
std::vector<std::string> captions(const tk::Menu& menu) {
  std::vector<std::string> out;
  for (const tk::Menu* entry : menu.children()) out.push_back(entry->Caption());
  return out;
}
}  // namespace

TEST_F(CommandsTest, ShiftSlidesThePanelOutAndBackAndTheStripBringsItBack) {
  makeFiles(3);
  vellumry::Form1& f = loaded();
  tk::user::key(f, 16);
  wait(500);  // ten ticks: 1000 twips out
  EXPECT_EQ(f.Frame2.Left(), -1000);
  tk::user::key(f, 16);  // during the slide out: turns back at once
  EXPECT_FALSE(f.Timer3.Enabled());
  wait(1000);
  EXPECT_EQ(f.Frame2.Left(), 0);
  EXPECT_FALSE(f.Label.Visible());
  tk::user::click(f.btn(0));  // "< Hide"
  wait(50 * 41);
  EXPECT_EQ(f.Frame2.Left(), -3935 - 65);
  EXPECT_FALSE(f.Timer3.Enabled());
  EXPECT_TRUE(f.Label.Visible());
  tk::user::mouseMove(f.Label, 0, 0, 10, 10);
  wait(50 * 40);
  EXPECT_TRUE(f.Label.Visible());  // it goes only when the panel has arrived
  wait(50 * 2);
  EXPECT_EQ(f.Frame2.Left(), 0);
  EXPECT_FALSE(f.Label.Visible());
}

TEST_F(CommandsTest, EscAndTheExitImageClose) {
  makeFiles(2);
  loaded();
  tk::user::key(form1(), 27);
  EXPECT_TRUE(program->runtime.ended());
  EXPECT_EQ(setting("dest"), "");
}

TEST_F(CommandsTest, F1MinimisesAndStartsTheHelpProgram) {
  makeFiles(2);
  loaded();
  tk::user::key(form1(), 112);
  EXPECT_EQ(program->Form0().WindowState(), 1);
  EXPECT_EQ(program->Form0().Left(), 0);
  EXPECT_FALSE(form1().Visible());
  EXPECT_FALSE(program->FormScreenCapture.loaded());  // it went at its activation
  EXPECT_EQ(host.shown.back(), "run \"" + home.string() + "/tomeview\"");
  program->Form0().setWindowState(0);
  EXPECT_TRUE(form1().Visible());
}

TEST_F(CommandsTest, ADoubleClickOnTheFirstPageOpensTheViewerWithoutMovingTheGrid) {
  makeFiles(57);
  vellumry::Form1& f = loaded();
  tk::user::scroll(f.VScroll1, 0);
  ASSERT_TRUE(tk::user::dblClick(f.Image1(8)));
  EXPECT_TRUE(program->Form2.loaded());
  EXPECT_TRUE(program->Form2().Visible());
  EXPECT_EQ(f.File2.ListIndex(), 7);
  EXPECT_EQ(f.VScroll1.Value(), 0);
  EXPECT_TRUE(f.Frame3(0).Visible());
}

TEST_F(CommandsTest, EscLeavesTheViewerAndTheGridTakesItsKeysAgain) {
  makeFiles(3);
  vellumry::Form1& f = loaded();
  ASSERT_TRUE(tk::user::dblClick(f.Image1(2)));
  ASSERT_TRUE(tk::user::key(program->Form2(), 27));
  wait(1);
  EXPECT_FALSE(program->Form2.loaded());
  EXPECT_TRUE(f.Visible());
  EXPECT_EQ(program->viewer.ViewerUp(), 0);
  ASSERT_TRUE(tk::user::key(f, 17));  // Ctrl: the previous file, so Form1 has its keys back
  EXPECT_EQ(f.File2.ListIndex(), 0);
}

TEST_F(CommandsTest, PopupsComeUpWhereTheyBelongWithTheirEntries) {
  makeFiles(3);
  start();
  wait(500);
  vellumry::Form1& f = form1();
  // Before the grid is loaded: a right click on a cell only selects its file.
  host.shown.clear();
  wait(12);
  f.setEnabled(true);  // let the click through while loading
  tk::user::mouseDown(f.Image1(1), 2);
  EXPECT_EQ(f.File2.ListIndex(), 0);
  EXPECT_TRUE(host.shown.empty());
  tk::user::mouseDown(f.File2, 2);
  EXPECT_EQ(host.shown.back(), "popup mnuFimg0 0 -> none");
  wait(100);
  ASSERT_TRUE(f.bLoaded);
  tk::user::mouseDown(f.Image1(2), 2);
  EXPECT_EQ(host.shown.back(), "popup mnuSaveimg0 0 -> none");
  tk::user::mouseDown(f.File2, 2);
  EXPECT_EQ(host.shown.back(), "popup mnuSaveimg0 0 -> none");
  tk::user::mouseDown(f.Frame1, 2);
  EXPECT_EQ(host.shown.back(), "popup mnumenu 0 -> none");
  tk::user::click(f.btnmenu);
  EXPECT_EQ(host.shown.back(), "popup mnumenu 2 1815 6840 -> none");  // right of the button
  tk::user::mouseDown(f.List(0), 2);                                  // hidden: no popup
  EXPECT_EQ(host.shown.back(), "popup mnumenu 2 1815 6840 -> none");

  vellumry::frmMenu& m = program->frmMenu();
  EXPECT_FALSE(m.Visible());
  EXPECT_EQ(captions(m.mnumenu),
            (std::vector<std::string>{"-", "Add to Link List", "Show Link List", "-", "Settings",
                                      "Help                  ", "About", "-", "Minimize", "Exit"}));
  EXPECT_EQ(m.mnuHelp.Shortcut(), "F1");
  EXPECT_FALSE(m.mnuSllist.Enabled());  // greyed with an empty link list
  EXPECT_FALSE(m.L7.Enabled());
  EXPECT_EQ(captions(m.mnuSaveimg0),
            (std::vector<std::string>{"Find Image", "Save Image As", "Delete Selected File",
                                      "File Info"}));
  EXPECT_EQ(
      captions(m.mnuLinkList),
      (std::vector<std::string>{"-", "Hide Link List", "-", "Edit Link Name", "Remove Link Name",
                                "Find Link Name", "-", " A > Z", " Z > A", "Open Folder"}));
  EXPECT_EQ(captions(m.mnuSaveimg2),
            (std::vector<std::string>{"Save Image As", "Open text from multiline textbox",
                                      "File Info", "Minimize", "-", "Exit"}));
  EXPECT_EQ(captions(m.mnuFimg0), (std::vector<std::string>{"Find Image"}));
}

TEST_F(CommandsTest, TheLinkListPanelAndItsMenu) {
  makeFiles(3);
  vellumry::Form1& f = loaded();
  f.List(0).AddItem("Pictures");
  f.List(1).AddItem(pictures.string());
  f.pCaption();  // selects the link of the folder
  host.queueMenuPick("mnuSllist");
  tk::user::click(f.btnmenu);
  vellumry::frmMenu& m = program->frmMenu();
  EXPECT_EQ(m.mnuSllist.Caption(), "Hide Link List");
  EXPECT_TRUE(f.List(0).Visible());
  EXPECT_EQ(f.File2.Top(), 2570);
  EXPECT_EQ(f.File2.Height(), 4185);
  EXPECT_EQ(f.List(0).ListIndex(), 0);
  host.queueMenuPick("mnuOfo2");
  tk::user::mouseDown(f.List(0), 2);
  EXPECT_EQ(host.shown[host.shown.size() - 2], "popup mnuLinkList 2 3815 85 -> mnuOfo2");
  EXPECT_EQ(host.shown.back(), "open \"" + pictures.string() + "\"");
  EXPECT_EQ(program->Form0().WindowState(), 1);
  program->Form0().setWindowState(0);
  host.queueMenuPick("mHllist");
  tk::user::mouseDown(f.List(0), 2);
  EXPECT_FALSE(f.List(0).Visible());
  EXPECT_EQ(f.File2.Top(), 35);
  EXPECT_EQ(m.mnuSllist.Caption(), "Show Link List");
}

TEST_F(CommandsTest, ExitEntriesClose) {
  makeFiles(3);
  loaded();
  program->Form2().Show();
  host.queueMenuPick("mnuExit2");
  program->Form2().PopupMenu(program->frmMenu().mnuSaveimg2);
  EXPECT_TRUE(program->runtime.ended());
}
