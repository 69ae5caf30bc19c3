// Qt's keys, modifiers and buttons as the toolkit's numbers.

#include <gtest/gtest.h>

#include <QKeyEvent>

#include "platform/qt/KeyMap.h"

using namespace vellumry;

namespace {

int code(int key, Qt::KeyboardModifiers modifiers = {}) {
  QKeyEvent e(QEvent::KeyPress, key, modifiers);
  return presenter::keyCodeOf(e);
}

TEST(KeyMap, KeysBecomeTheDesktopsKeyCodes) {
  EXPECT_EQ(code(Qt::Key_Escape), 27);
  EXPECT_EQ(code(Qt::Key_Return), 13);
  EXPECT_EQ(code(Qt::Key_Enter), 13);
  EXPECT_EQ(code(Qt::Key_Space), 32);
  EXPECT_EQ(code(Qt::Key_PageUp), 33);
  EXPECT_EQ(code(Qt::Key_PageDown), 34);
  EXPECT_EQ(code(Qt::Key_End), 35);
  EXPECT_EQ(code(Qt::Key_Home), 36);
  EXPECT_EQ(code(Qt::Key_Left), 37);
  EXPECT_EQ(code(Qt::Key_Up), 38);
  EXPECT_EQ(code(Qt::Key_Right), 39);
  EXPECT_EQ(code(Qt::Key_Down), 40);
  EXPECT_EQ(code(Qt::Key_Delete), 46);
  EXPECT_EQ(code(Qt::Key_Shift), 16);
  EXPECT_EQ(code(Qt::Key_Control), 17);
  EXPECT_EQ(code(Qt::Key_Alt), 18);
  EXPECT_EQ(code(Qt::Key_F1), 112);
  EXPECT_EQ(code(Qt::Key_F12), 123);
  EXPECT_EQ(code(Qt::Key_A), 65);
  EXPECT_EQ(code(Qt::Key_Z), 90);
  EXPECT_EQ(code(Qt::Key_0), 48);
  EXPECT_EQ(code(Qt::Key_9), 57);
  EXPECT_EQ(code(Qt::Key_unknown), 0);
}

TEST(KeyMap, TheNumberPadHasCodesOfItsOwn) {
  EXPECT_EQ(code(Qt::Key_5, Qt::KeypadModifier), 101);
  EXPECT_EQ(code(Qt::Key_Plus, Qt::KeypadModifier), 107);
  EXPECT_EQ(code(Qt::Key_Plus), 187);
  // Keys of the pad without a number of their own keep the usual one.
  EXPECT_EQ(code(Qt::Key_Left, Qt::KeypadModifier), 37);
}

TEST(KeyMap, ModifiersAndButtonsBecomeMasks) {
  EXPECT_EQ(presenter::shiftMaskOf(Qt::ShiftModifier), 1);
  EXPECT_EQ(presenter::shiftMaskOf(Qt::ControlModifier | Qt::AltModifier), 6);
  EXPECT_EQ(presenter::shiftMaskOf(Qt::KeypadModifier), 0);
  EXPECT_EQ(presenter::buttonOf(Qt::LeftButton), 1);
  EXPECT_EQ(presenter::buttonOf(Qt::RightButton), 2);
  EXPECT_EQ(presenter::buttonOf(Qt::MiddleButton), 4);
  EXPECT_EQ(presenter::buttonOf(Qt::BackButton), 0);
  EXPECT_EQ(presenter::buttonMaskOf(Qt::LeftButton | Qt::MiddleButton), 5);
}

}  // namespace
