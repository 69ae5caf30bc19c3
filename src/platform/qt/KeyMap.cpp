#include "platform/qt/KeyMap.h"

#include <QKeyEvent>

#include "platform/toolkit/Input.h"

namespace vellumry::presenter {

namespace {
int numpadCode(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + (key - Qt::Key_0);
  switch (key) {
    case Qt::Key_Asterisk:
      return 106;
    case Qt::Key_Plus:
      return 107;
    case Qt::Key_Minus:
      return 109;
    case Qt::Key_Period:
      return 110;
    case Qt::Key_Slash:
      return 111;
    default:
      return 0;
  }
}
}  // namespace

int keyCodeOf(const QKeyEvent& event) {
  const int key = event.key();
  if (event.modifiers() & Qt::KeypadModifier) {
    if (int code = numpadCode(key)) return code;
  }
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return 65 + (key - Qt::Key_A);
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return 48 + (key - Qt::Key_0);
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + (key - Qt::Key_F1);
  switch (key) {
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return 9;
    case Qt::Key_Clear:
      return 12;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return 13;
    case Qt::Key_Shift:
      return 16;
    case Qt::Key_Control:
      return 17;
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
      return 18;
    case Qt::Key_Pause:
      return 19;
    case Qt::Key_CapsLock:
      return 20;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Space:
      return 32;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_End:
      return 35;
    case Qt::Key_Home:
      return 36;
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    case Qt::Key_Print:
      return 44;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return 46;
    case Qt::Key_Meta:
      return 91;
    case Qt::Key_Menu:
      return 93;
    case Qt::Key_NumLock:
      return 144;
    case Qt::Key_ScrollLock:
      return 145;
    case Qt::Key_Semicolon:
      return 186;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return 187;
    case Qt::Key_Comma:
      return 188;
    case Qt::Key_Minus:
      return 189;
    case Qt::Key_Period:
      return 190;
    case Qt::Key_Slash:
      return 191;
    case Qt::Key_QuoteLeft:
      return 192;
    case Qt::Key_BracketLeft:
      return 219;
    case Qt::Key_Backslash:
      return 220;
    case Qt::Key_BracketRight:
      return 221;
    case Qt::Key_Apostrophe:
      return 222;
    default:
      return 0;
  }
}

int shiftMaskOf(Qt::KeyboardModifiers modifiers) {
  int mask = 0;
  if (modifiers & Qt::ShiftModifier) mask |= tk::user::kShiftMask;
  if (modifiers & Qt::ControlModifier) mask |= tk::user::kCtrlMask;
  if (modifiers & Qt::AltModifier) mask |= tk::user::kAltMask;
  return mask;
}

int buttonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return tk::user::kLeftButton;
    case Qt::RightButton:
      return tk::user::kRightButton;
    case Qt::MiddleButton:
      return tk::user::kMiddleButton;
    default:
      return 0;
  }
}

int buttonMaskOf(Qt::MouseButtons buttons) {
  int mask = 0;
  for (Qt::MouseButton b : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton})
    if (buttons & b) mask |= buttonOf(b);
  return mask;
}

}  // namespace vellumry::presenter
