// Keys, clicks and popup menus of the main window, and the sliding panel.
#include "ProgramFixture.h"
#include "platform/toolkit/KeyCodes.h"

using namespace vellumry;

using CommandsTest = ProgramFixture;

TEST_F(CommandsTest, ShiftSlidesThePanelOutAndBackAndTheStripBringsItBack) {
  makeFiles(3);
  Form1& f = loaded();
  tk::user::key(f, tk::key::Shift);
  wait(500);  // ten ticks: 1000 twips out
  EXPECT_EQ(f.Frame2.Left(), -1000);
  tk::user::key(f, tk::key::Shift);  // during the slide out: turns back at once
  EXPECT_FALSE(f.Timer3.Enabled());
  wait(1000);
  EXPECT_EQ(f.Frame2.Left(), 0);
  EXPECT_FALSE(f.Label.Visible());
  tk::user::click(f.btn(0));  // "< Hide"
  wait(50 * 41);
  EXPECT_EQ(f.Frame2.Left(), -3935 - 65);
  EXPECT_TRUE(f.Label.Visible());
  tk::user::mouseMove(f.Label, 0, 0, 10, 10);
  wait(50 * 40);
  EXPECT_TRUE(f.Label.Visible());  // it goes only when the panel has arrived
  wait(50 * 2);
  EXPECT_EQ(f.Frame2.Left(), 0);
  EXPECT_FALSE(f.Label.Visible());
}

// The viewer opens on the file without moving the grid; Esc there gives Form1 its keys back.
TEST_F(CommandsTest, ADoubleClickOnTheFirstPageOpensTheViewer) {
  makeFiles(57);
  Form1& f = loaded();
  tk::user::scroll(f.VScroll1, 0);
  ASSERT_TRUE(tk::user::dblClick(f.Image1(8)));
  EXPECT_TRUE(program->Form2().Visible());
  EXPECT_EQ(f.File2.ListIndex(), 7);
  EXPECT_EQ(f.VScroll1.Value(), 0);
  EXPECT_TRUE(f.Frame3(0).Visible());
  ASSERT_TRUE(tk::user::key(program->Form2(), tk::key::Esc));
  wait(1);
  EXPECT_FALSE(program->Form2.loaded());
  ASSERT_TRUE(tk::user::key(f, tk::key::Ctrl));  // Ctrl: the previous file
  EXPECT_EQ(f.File2.ListIndex(), 6);
}

// Before the grid is loaded, a right click on a cell only selects its file, and the file list
// offers only Find Image.
TEST_F(CommandsTest, PopupsComeUpWhereTheyBelongWithTheirEntries) {
  makeFiles(3);
  start();
  Form1& f = form1();
  f.File2.setListIndex(2);
  host.shown.clear();
  f.Image1_MouseDown(1, tk::user::kRightButton);
  EXPECT_EQ(f.File2.ListIndex(), 0);
  EXPECT_TRUE(host.shown.empty());
  f.File2_MouseDown(tk::user::kRightButton);
  EXPECT_EQ(host.shown.back(), "popup mnuFimg0 0 -> none");
  f.Frame1_MouseDown(tk::user::kRightButton);
  EXPECT_EQ(host.shown.back(), "popup mnumenu 0 -> none");
  frmMenu& m = program->frmMenu();
  EXPECT_FALSE(m.Visible());
  EXPECT_FALSE(m.mnuSllist.Enabled());  // greyed with an empty link list
  EXPECT_FALSE(m.L7.Enabled());
  EXPECT_EQ(m.mnuHelp.Shortcut(), "F1");
  const auto entries = [](const tk::Menu& menu) {
    std::string all;
    for (const tk::Menu* entry : menu.children()) all += entry->Caption() + "|";
    return all;
  };
  EXPECT_EQ(entries(m.mnumenu),
            "-|Add to Link List|Show Link List|-|Settings|Help                  |About|-|Minimize|"
            "Exit|");
  EXPECT_EQ(entries(m.mnuSaveimg0), "Find Image|Save Image As|Delete Selected File|File Info|");
  EXPECT_EQ(entries(m.mnuLinkList),
            "-|Hide Link List|-|Edit Link Name|Remove Link Name|Find Link Name|-| A > Z| Z > A|"
            "Open Folder|");
  EXPECT_EQ(entries(m.mnuSaveimg2),
            "Save Image As|Open text from multiline textbox|File Info|Minimize|-|Exit|");
  EXPECT_EQ(entries(m.mnuFimg0), "Find Image|");
}

TEST_F(CommandsTest, TheLinkListPanelAndItsMenu) {
  makeFiles(3);
  start();
  Form1& f = form1();
  f.List(0).AddItem("Pictures");
  f.List(1).AddItem(pictures.string());
  f.pCaption();  // selects the link of the folder
  host.queueMenuPick("mnuSllist");
  tk::user::click(f.btnmenu);
  frmMenu& m = program->frmMenu();
  EXPECT_EQ(m.mnuSllist.Caption(), "Hide Link List");
  EXPECT_TRUE(f.List(0).Visible());
  EXPECT_EQ(f.File2.Top(), 2570);
  EXPECT_EQ(f.File2.Height(), 4185);
  EXPECT_EQ(f.List(0).ListIndex(), 0);
  host.queueMenuPick("mnuOfo2");
  tk::user::mouseDown(f.List(0), 2);
  EXPECT_EQ(host.shown.back(), "open \"" + pictures.string() + "\"");
  EXPECT_EQ(program->Form0().WindowState(), 1);
  program->Form0().setWindowState(0);
  host.queueMenuPick("mHllist");
  tk::user::mouseDown(f.List(0), 2);
  EXPECT_FALSE(f.List(0).Visible());
  EXPECT_EQ(f.File2.Top(), 35);
  EXPECT_EQ(m.mnuSllist.Caption(), "Show Link List");
}
