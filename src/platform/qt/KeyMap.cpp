#include "platform/qt/KeyMap.h"

#include <QKeyEvent>

#include "platform/toolkit/Input.h"
#include "platform/toolkit/KeyCodes.h"

namespace vellumry::presenter {

namespace {
namespace key = tk::key;

struct KeyPair {
  int qt, code;
};

constexpr KeyPair kNumpad[] = {
    {Qt::Key_Asterisk, key::Multiply}, {Qt::Key_Plus, key::Add},
    {Qt::Key_Minus, key::Subtract},    {Qt::Key_Period, key::Decimal},
    {Qt::Key_Slash, key::Divide},
};

constexpr KeyPair kKeys[] = {
    {Qt::Key_Backspace, key::Back},
    {Qt::Key_Tab, key::Tab},
    {Qt::Key_Backtab, key::Tab},
    {Qt::Key_Clear, key::Clear},
    {Qt::Key_Return, key::Return},
    {Qt::Key_Enter, key::Return},
    {Qt::Key_Shift, key::Shift},
    {Qt::Key_Control, key::Ctrl},
    {Qt::Key_Alt, key::Alt},
    {Qt::Key_AltGr, key::Alt},
    {Qt::Key_Pause, key::Pause},
    {Qt::Key_CapsLock, key::CapsLock},
    {Qt::Key_Escape, key::Esc},
    {Qt::Key_Space, key::Space},
    {Qt::Key_PageUp, key::PageUp},
    {Qt::Key_PageDown, key::PageDown},
    {Qt::Key_End, key::End},
    {Qt::Key_Home, key::Home},
    {Qt::Key_Left, key::Left},
    {Qt::Key_Up, key::Up},
    {Qt::Key_Right, key::Right},
    {Qt::Key_Down, key::Down},
    {Qt::Key_Print, key::PrintScreen},
    {Qt::Key_Insert, key::Insert},
    {Qt::Key_Delete, key::Delete},
    {Qt::Key_Meta, key::Windows},
    {Qt::Key_Menu, key::Apps},
    {Qt::Key_NumLock, key::NumLock},
    {Qt::Key_ScrollLock, key::ScrollLock},
    {Qt::Key_Semicolon, key::Semicolon},
    {Qt::Key_Plus, key::Equals},
    {Qt::Key_Equal, key::Equals},
    {Qt::Key_Comma, key::Comma},
    {Qt::Key_Minus, key::Minus},
    {Qt::Key_Period, key::Period},
    {Qt::Key_Slash, key::Slash},
    {Qt::Key_QuoteLeft, key::Backquote},
    {Qt::Key_BracketLeft, key::OpenBracket},
    {Qt::Key_Backslash, key::Backslash},
    {Qt::Key_BracketRight, key::CloseBracket},
    {Qt::Key_Apostrophe, key::Quote},
};

template <size_t N>
int lookUp(const KeyPair (&pairs)[N], int qtKey) {
  for (const KeyPair& pair : pairs)
    if (pair.qt == qtKey) return pair.code;
  return 0;
}
}  // namespace

int keyCodeOf(const QKeyEvent& event) {
  const int k = event.key();
  if (event.modifiers() & Qt::KeypadModifier) {
    if (k >= Qt::Key_0 && k <= Qt::Key_9) return key::Numpad0 + (k - Qt::Key_0);
    if (int code = lookUp(kNumpad, k)) return code;
  }
  if (k >= Qt::Key_A && k <= Qt::Key_Z) return key::A + (k - Qt::Key_A);
  if (k >= Qt::Key_0 && k <= Qt::Key_9) return key::Digit0 + (k - Qt::Key_0);
  if (k >= Qt::Key_F1 && k <= Qt::Key_F24) return key::F1 + (k - Qt::Key_F1);
  return lookUp(kKeys, k);
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
