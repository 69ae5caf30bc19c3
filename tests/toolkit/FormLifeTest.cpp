// Forms: made on first touch, shown, unloaded (also from their own handlers), keys, menus, the
// end of the program, and programs side by side.
#include <gtest/gtest.h>

#include "platform/toolkit/Input.h"
#include "platform/toolkit/KeyCodes.h"
#include "toolkit/TestForms.h"

using namespace vellumry;

using Log = std::vector<std::string>;

namespace {
// A program whose form is shown, with what that wrote down cleared.
class ShownForm : public ::testing::Test {
 protected:
  void SetUp() override {
    f.Show();
    p.log.clear();
  }
  TestProgram p;
  LogForm& f = p.form();
};
}  // namespace

TEST(FormLife, LoadedOnFirstTouchAndShownWithResizeAndActivate) {
  TestProgram p;
  EXPECT_FALSE(p.form.loaded());
  LogForm& f = p.form();
  LogForm& again = p.form();
  EXPECT_EQ(&f, &again);
  EXPECT_FALSE(f.Visible());
  f.Show();
  EXPECT_EQ(p.log, (Log{"Form_Load", "Form_Resize", "Form_Activate"}));
  EXPECT_EQ(p.runtime.Forms().size(), 1u);
  EXPECT_EQ(f.ActiveControl(), &f.List1);  // the first control that takes the focus
}

TEST(FormLife, QueryUnloadCanCancelAndUnloadedFormsAreMadeAnew) {
  TestProgram p;
  p.form().cancelQuery = 1;
  EXPECT_FALSE(p.form().Unload());
  EXPECT_TRUE(p.form.loaded());
  p.form().cancelQuery = 0;
  EXPECT_TRUE(p.form().Unload());
  EXPECT_FALSE(p.form.loaded());
  EXPECT_TRUE(p.runtime.Forms().empty());
  p.log.clear();
  p.form();  // touching it again loads a new one
  EXPECT_EQ(p.log, (Log{"Form_Load"}));
}

TEST_F(ShownForm, AFormUnloadsItselfFromItsOwnClick) {
  f.Command1.onClick = [this] {
    f.Unload();
    f.Label1.setCaption("still here");  // the object lives until the event returns
  };
  tk::user::click(f.Command1);
  EXPECT_EQ(p.log, (Log{"Form_QueryUnload", "Form_Unload", "Label1_Change still here"}));
  EXPECT_FALSE(p.form.loaded());
}

TEST_F(ShownForm, AGestureStopsAtAFormItsFirstEventUnloaded) {
  f.Command1.onMouseDown = [this](int, int, double, double) { f.Unload(); };
  EXPECT_TRUE(tk::user::dblClick(f.Command1));  // the rest of the gesture finds no form
  EXPECT_EQ(p.log, (Log{"Form_QueryUnload", "Form_Unload"}));
  EXPECT_FALSE(p.form.loaded());
}

TEST_F(ShownForm, KeyPreviewSeesKeysFirstAndCanSwallowThem) {
  f.Command1.SetFocus();
  tk::user::key(f, tk::key::Esc);
  EXPECT_EQ(p.log, (Log{"Command1_KeyUp 27"}));
  f.setKeyPreview(true);
  p.log.clear();
  tk::user::key(f, tk::key::F1, tk::user::kCtrlMask);
  EXPECT_EQ(p.log, (Log{"Form_KeyUp 112 2", "Command1_KeyUp 112"}));
  f.swallowKeys = true;
  p.log.clear();
  tk::user::key(f, 113);
  EXPECT_EQ(p.log, (Log{"Form_KeyUp 113 0"}));
}

TEST_F(ShownForm, DisabledFormsAndHiddenControlsGetNoInput) {
  f.setEnabled(false);
  EXPECT_FALSE(tk::user::click(f.Command1));
  EXPECT_FALSE(tk::user::key(f, tk::key::Esc));
  f.setEnabled(true);
  f.Command1.setVisible(false);
  EXPECT_FALSE(tk::user::click(f.Command1));
  EXPECT_THROW(f.Command1.SetFocus(), tk::Error);
  EXPECT_TRUE(p.log.empty());
  EXPECT_TRUE(tk::user::click(f));
  EXPECT_EQ(p.log, (Log{"Form_Click"}));
}

TEST_F(ShownForm, AClickTurnsACheckBoxOverAndRaisesItsClickOnce) {
  ASSERT_TRUE(tk::user::click(f.Check1));
  ASSERT_TRUE(tk::user::click(f.Check1));
  f.Check1.setValue(2);
  ASSERT_TRUE(tk::user::click(f.Check1));  // greyed: the click clears it
  EXPECT_EQ(p.log, (Log{"Check1_Click 1", "Check1_Click 0", "Check1_Click 2", "Check1_Click 0"}));
}

TEST_F(ShownForm, PopupMenuRunsThePickAfterItClosed) {
  f.mnuTop.add(f.mnuOne);
  f.mnuTop.add(f.mnuSep);
  f.mnuTop.add(f.mnuTwo);
  f.mnuTwo.onClick = [&] { p.log.push_back("mnuTwo_Click after " + p.host.shown.back()); };
  p.host.queueMenuPick("mnuTwo");
  p.host.queueMenuPick("mnuOne");
  f.mnuOne.setEnabled(false);
  f.PopupMenu(f.mnuTop, 2);
  f.PopupMenu(f.mnuTop);  // a greyed entry can't be picked
  EXPECT_EQ(p.log, (Log{"mnuTwo_Click after popup mnuTop 2 -> mnuTwo"}));
  EXPECT_EQ(p.host.shown.back(), "popup mnuTop 0 -> none");
}

TEST(FormLife, MessageBoxesTakeQueuedAnswersOrTheClosingOne) {
  TestProgram p;
  p.host.queueAnswer(tk::mb::Yes);
  EXPECT_EQ(p.runtime.MsgBox("Delete?", 36), tk::mb::Yes);
  EXPECT_EQ(p.runtime.MsgBox("Save?", 35, "Title"), tk::mb::Cancel);
  EXPECT_EQ(p.runtime.MsgBox("Really?", 36), tk::mb::No);
  EXPECT_EQ(p.runtime.MsgBox("Note", 64, ""), tk::mb::OK);
  // Asked for no title, a box carries the program's; an empty title stays empty.
  EXPECT_EQ(p.host.shown[0], "msgbox 36 \"Vellumry\" \"Delete?\" -> 6");
  EXPECT_EQ(p.host.shown[1], "msgbox 35 \"Title\" \"Save?\" -> 2 (no answer queued)");
  EXPECT_EQ(p.host.shown[3], "msgbox 64 \"\" \"Note\" -> 1 (no answer queued)");
}

TEST_F(ShownForm, EndStopsEverythingWithoutEvents) {
  f.Timer1.setInterval(10);
  p.runtime.End();
  p.runtime.loop().advance(100);
  EXPECT_TRUE(p.log.empty());
  EXPECT_TRUE(p.runtime.Forms().empty());
  EXPECT_FALSE(tk::user::click(f.Command1));
}

TEST(FormLife, TwoProgramsLiveSideBySide) {
  TestProgram a, b(tk::Screen::ofPixels(800, 600));
  a.form().Timer1.setInterval(10);
  b.form().Timer1.setInterval(10);
  a.log.clear();
  b.log.clear();
  a.runtime.loop().advance(30);
  EXPECT_EQ(a.log.size(), 3u);
  EXPECT_TRUE(b.log.empty());
  EXPECT_EQ(b.runtime.screen().Width, 12000);
}

// A key's release is a key stroke of the form only when its press came there too: the press of
// the Esc that closed a popup menu went to the menu.
TEST_F(ShownForm, AReleaseWhosePressWentElsewhereIsNoKeyStroke) {
  f.setKeyPreview(true);
  EXPECT_FALSE(tk::user::keyUp(f, 27));
  EXPECT_TRUE(tk::user::keyDown(f, 27));
  EXPECT_TRUE(tk::user::keyUp(f, 27));
  EXPECT_FALSE(tk::user::keyUp(f, 27));  // one release a press
  EXPECT_EQ(p.log, (Log{"Form_KeyUp 27 0"}));
}

// The window with the keyboard: the one shown, shown again or focused last, never a window
// parked off the screen or minimised; when it goes, the topmost that can take it.
TEST(FormLife, TheKeyboardGoesToTheWindowInFrontThatCanTakeIt) {
  TestProgram p(tk::Screen::ofPixels(800, 600));
  std::vector<std::string> otherLog, parkedLog;
  tk::FormSlot<LogForm> other(p.runtime,
                              [&] { return std::make_unique<LogForm>(p.runtime, otherLog); });
  tk::FormSlot<LogForm> parked(p.runtime,
                               [&] { return std::make_unique<LogForm>(p.runtime, parkedLog); });
  const auto place = [](LogForm& f, double left) { f.Move(left, 0, 12000, 9000); };
  place(p.form(), 0);
  place(other(), 0);
  place(parked(), -12000);
  p.form().Show();
  other().Show();
  parked().Show();  // on top, but off the screen
  EXPECT_EQ(p.runtime.ActiveForm(), &other());
  EXPECT_EQ(p.runtime.stacking().back(), &parked());
  p.form().Show();  // shown again: to the front
  EXPECT_EQ(p.runtime.ActiveForm(), &p.form());
  other().Command1.SetFocus();  // focus brings its window forward
  EXPECT_EQ(p.runtime.ActiveForm(), &other());
  other().Unload();
  EXPECT_EQ(p.runtime.ActiveForm(), &p.form());
  p.form().setWindowState(1);
  EXPECT_EQ(p.runtime.ActiveForm(), nullptr);
  parked().setLeft(0);
  p.form().setWindowState(0);  // restored: in front again
  EXPECT_EQ(p.runtime.ActiveForm(), &p.form());
}
