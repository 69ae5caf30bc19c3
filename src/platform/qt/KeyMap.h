#pragma once
// Qt's keys, modifiers and buttons as the toolkit's numbers: key codes are the desktop's
// virtual-key numbers (Esc 27, F1 112, arrows 37 to 40, letters 65 to 90, ...).

#include <Qt>

class QKeyEvent;

namespace vellumry::presenter {

// The key code of `event`, or 0 for a key the toolkit has no number for.
int keyCodeOf(const QKeyEvent& event);
// Shift 1, Ctrl 2, Alt 4.
int shiftMaskOf(Qt::KeyboardModifiers modifiers);
// Left 1, right 2, middle 4; 0 for other buttons.
int buttonOf(Qt::MouseButton button);
// The held buttons as a mask of the same numbers.
int buttonMaskOf(Qt::MouseButtons buttons);

}  // namespace vellumry::presenter
