// The user's actions on the widgets reach the model once each, through the toolkit's input,
// and only while the form takes input.

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QWindow>
#include <tuple>

#include "qt/QtFixture.h"

using namespace vellumry;

using Log = std::vector<std::string>;

namespace {

// The middle of the row `row` of `list`, in the viewport's pixels.
QPoint rowCentre(QListWidget* list, int row) {
  return list->visualItemRect(list->item(row)).center();
}

class InputTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f = &p.form();
    f->List1.AddItem("a");
    f->List1.AddItem("b");
    f->List1.AddItem("c");
    f->Show();
    p.log.clear();
  }
  QtProgram p;
  PanelForm* f = nullptr;
};

TEST_F(InputTest, AButtonClickRunsClickOnce) {
  QTest::mouseClick(p.widgetOf<QPushButton>(f->Command1), Qt::LeftButton);
  EXPECT_EQ(p.count("Command1_Click"), 1);
  EXPECT_EQ(f->ActiveControl(), &f->Command1);  // a click focuses
}

TEST_F(InputTest, AListRowClickSelectsOnceWithoutEchoARightPressLeavesTheSelection) {
  QListWidget* list = p.widgetOf<QListWidget>(f->List1);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rowCentre(list, 1));
  EXPECT_EQ(f->List1.ListIndex(), 1);
  EXPECT_EQ(list->currentRow(), 1);
  QTest::mousePress(list->viewport(), Qt::RightButton, {}, rowCentre(list, 2));
  QTest::mouseRelease(list->viewport(), Qt::RightButton, {}, rowCentre(list, 2));
  EXPECT_EQ(p.log, (Log{"List1_MouseDown 1", "List1_Click 1", "List1_MouseDown 2"}));
  EXPECT_EQ(f->List1.ListIndex(), 1);
  EXPECT_EQ(list->currentRow(), 1);
}

TEST_F(InputTest, AClickHandlerThatMovesTheSelectionWins) {
  QListWidget* list = p.widgetOf<QListWidget>(f->List1);
  f->List1.onClick = [this] {
    p.log.push_back("List1_Click " + std::to_string(f->List1.ListIndex()));
    if (f->List1.ListIndex() == 1) f->List1.setListIndex(2);
  };
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rowCentre(list, 1));
  EXPECT_EQ(p.count("List1_Click 1"), 1);
  EXPECT_EQ(p.count("List1_Click 2"), 1);
  EXPECT_EQ(list->currentRow(), 2);
}

TEST_F(InputTest, ValuesTheUserSetsReachTheModel) {
  p.widgetOf<QScrollBar>(f->VScroll1)->triggerAction(QAbstractSlider::SliderSingleStepAdd);
  EXPECT_EQ(f->VScroll1.Value(), 1);
  QTest::mouseClick(p.widgetOf<QCheckBox>(f->Check1), Qt::LeftButton, {}, QPoint(8, 10));
  EXPECT_EQ(f->Check1.Value(), 1);
  QLineEdit* edit = p.widgetOf<QLineEdit>(f->Text1);
  QTest::mouseClick(edit, Qt::LeftButton);
  QTest::keyClicks(edit, "ok");
  EXPECT_EQ(f->Text1.Text(), "ok");
  // Typing inside the text leaves the caret after what was typed.
  edit->setCursorPosition(1);
  QTest::keyClicks(edit, "n");
  EXPECT_EQ(std::tuple(f->Text1.Text(), edit->cursorPosition(), f->Text1.SelStart()),
            std::tuple("onk", 2, 2));
  p.log.pop_back();
  p.widgetOf<QTabBar>(f->Tabs1)->setCurrentIndex(1);
  EXPECT_EQ(f->Tabs1.selectedItem(), 2);
  EXPECT_EQ(p.log, (Log{"VScroll1_Change 1", "Check1_Click 1", "Text1_Change o", "Text1_Change ok",
                        "Tabs1_Click 2"}));
}

TEST_F(InputTest, ARefusedValueGoesBackOnTheWidget) {
  // The bar is disabled in the model behind a widget that still moves: the model keeps its value.
  QScrollBar* bar = p.widgetOf<QScrollBar>(f->VScroll1);
  f->VScroll1.setValue(4);
  f->setEnabled(false);
  bar->setValue(6);
  EXPECT_EQ(f->VScroll1.Value(), 4);
  EXPECT_EQ(bar->value(), 4);
}

TEST_F(InputTest, AnImageGetsButtonShiftStateAndTwipsRelativeToItself) {
  // Image1(0) stands at 220, 180 px, 40 x 40 px; the form counts 15 twips a pixel. Buttons are
  // 1 left, 2 right, 4 middle; the shift state 1 Shift, 2 Ctrl, 4 Alt.
  const struct {
    Qt::MouseButton button;
    Qt::KeyboardModifier modifier;
    const char* down;
  } presses[] = {
      {Qt::LeftButton, Qt::ShiftModifier, "Image1_MouseDown 0 1 1 150 60"},
      {Qt::RightButton, Qt::ControlModifier, "Image1_MouseDown 0 2 2 150 60"},
      {Qt::MiddleButton, Qt::AltModifier, "Image1_MouseDown 0 4 4 150 60"},
  };
  f->Image1(0).setVisible(true);
  for (const auto& press : presses) {
    p.log.clear();
    QTest::mousePress(&p.window(), press.button, press.modifier, QPoint(230, 184));
    QTest::mouseRelease(&p.window(), press.button, press.modifier, QPoint(230, 184));
    ASSERT_FALSE(p.log.empty());
    EXPECT_EQ(p.log.front(), press.down);
  }
}

TEST_F(InputTest, ADoubleClickGivesClickThenDblClickAndOneMoreMouseUp) {
  f->Image1(0).setVisible(true);
  QTest::mouseDClick(p.window().windowHandle(), Qt::LeftButton, {}, QPoint(230, 184));
  EXPECT_EQ(p.log, (Log{"Image1_MouseDown 0 1 0 150 60", "Image1_MouseUp 0 1", "Image1_Click 0",
                        "Image1_DblClick 0", "Image1_MouseUp 0 1"}));
}

// The click that closed a window gave the first press of a double click: the second press
// lands on the window below as a press of its own, not as a double click.
TEST_F(InputTest, ADoubleClickWhoseFirstPressWentElsewhereIsAPress) {
  f->Image1(0).setVisible(true);
  QWidget elsewhere;
  p.presenter->notePress(&elsewhere);
  QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(230, 184), QPointF(230, 184),
                     Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&p.window(), &second);
  EXPECT_EQ(p.log, (Log{"Image1_MouseDown 0 1 0 150 60"}));
}

TEST_F(InputTest, AClickNeedsPressAndReleaseOnAShownImage) {
  f->Image1(0).setVisible(true);
  QTest::mousePress(&p.window(), Qt::LeftButton, {}, QPoint(230, 184));
  QTest::mouseRelease(&p.window(), Qt::LeftButton, {}, QPoint(10, 290));
  EXPECT_EQ(p.log, (Log{"Image1_MouseDown 0 1 0 150 60", "Image1_MouseUp 0 1"}));
  // A hidden image lets the click through to the form.
  f->Image1(0).setVisible(false);
  p.log.clear();
  QTest::mouseClick(&p.window(), Qt::LeftButton, {}, QPoint(230, 184));
  EXPECT_EQ(p.log, (Log{"Form_Click"}));
}

TEST_F(InputTest, KeysReachTheFormAsTheirCodesAtPressAndRelease) {
  // Esc 27, F1 112, Shift 16, Ctrl 17, Alt 18, arrows 37 to 40; the shift state 1 Shift,
  // 2 Ctrl, 4 Alt. A modifier goes down by itself before the key, as on a keyboard, and counts
  // in the shift state while it is down.
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    Log seen;
  } keys[] = {
      {Qt::Key_Escape, {}, {"Form_KeyDown 27 0", "Form_KeyUp 27 0"}},
      {Qt::Key_F1,
       Qt::ControlModifier,
       {"Form_KeyDown 17 2", "Form_KeyDown 112 2", "Form_KeyUp 112 2", "Form_KeyUp 17 0"}},
      {Qt::Key_Left,
       Qt::ShiftModifier,
       {"Form_KeyDown 16 1", "Form_KeyDown 37 1", "Form_KeyUp 37 1", "Form_KeyUp 16 0"}},
      {Qt::Key_Up,
       Qt::ControlModifier,
       {"Form_KeyDown 17 2", "Form_KeyDown 38 2", "Form_KeyUp 38 2", "Form_KeyUp 17 0"}},
      {Qt::Key_Right,
       Qt::AltModifier,
       {"Form_KeyDown 18 4", "Form_KeyDown 39 4", "Form_KeyUp 39 4", "Form_KeyUp 18 0"}},
      // An arrow of the number pad.
      {Qt::Key_Down, Qt::KeypadModifier, {"Form_KeyDown 40 0", "Form_KeyUp 40 0"}},
  };
  f->setKeyPreview(true);
  QWindow* native = p.window().windowHandle();
  ASSERT_NE(native, nullptr);
  for (const auto& k : keys) {
    SCOPED_TRACE(k.key);
    p.log.clear();
    QTest::keyClick(native, k.key, k.modifiers);
    Log seen;  // the list, which has the focus, may act on arrows too
    std::copy_if(p.log.begin(), p.log.end(), std::back_inserter(seen),
                 [](const std::string& line) { return line.starts_with("Form_Key"); });
    EXPECT_EQ(seen, k.seen);
  }
}

TEST_F(InputTest, KeysGoToTheFormOfTheWindowTheyArePressedIn) {
  Log otherLog;
  tk::FormSlot<PanelForm> other(p.runtime,
                                [&] { return std::make_unique<PanelForm>(p.runtime, otherLog); });
  f->setKeyPreview(true);
  other().setKeyPreview(true);
  other().Show();
  otherLog.clear();
  QTest::keyClick(p.presenter->window(other())->windowHandle(), Qt::Key_Escape);
  EXPECT_EQ(otherLog, (Log{"Form_KeyDown 27 0", "Form_KeyUp 27 0"}));
  EXPECT_TRUE(p.log.empty());
  other().Unload();
}

TEST_F(InputTest, ADisabledFormTakesNoInputButStillPaints) {
  f->Image1(0).setVisible(true);
  f->setKeyPreview(true);
  f->setEnabled(false);
  QListWidget* list = p.widgetOf<QListWidget>(f->List1);
  QTest::mouseClick(p.widgetOf<QPushButton>(f->Command1), Qt::LeftButton);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rowCentre(list, 1));
  QTest::mouseClick(&p.window(), Qt::LeftButton, {}, QPoint(230, 184));
  QTest::keyClick(p.window().windowHandle(), Qt::Key_Escape);
  p.window().close();
  EXPECT_TRUE(p.log.empty());
  EXPECT_EQ(f->List1.ListIndex(), -1);
  EXPECT_TRUE(list->selectedItems().isEmpty());
  EXPECT_TRUE(p.window().isVisible());
  EXPECT_TRUE(p.widgetOf<QPushButton>(f->Command1)->isEnabled());  // not greyed
}

TEST_F(InputTest, ClosingTheWindowAsksTheFormWhichMayRefuse) {
  f->cancelUnload = 1;
  p.window().close();
  EXPECT_EQ(p.log, (Log{"Form_QueryUnload 0"}));
  EXPECT_TRUE(f->isLoaded());
  EXPECT_TRUE(p.window().isVisible());
  f->cancelUnload = 0;
  p.window().close();
  EXPECT_FALSE(p.panel.loaded());
}

TEST_F(InputTest, AnActionThatUnloadsTheFormEndsQuietly) {
  f->Command1.onClick = [this] { f->Unload(); };
  QTest::mouseClick(p.widgetOf<QPushButton>(f->Command1), Qt::LeftButton);
  EXPECT_FALSE(p.panel.loaded());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(p.presenter->zOrder().empty());
}

}  // namespace
