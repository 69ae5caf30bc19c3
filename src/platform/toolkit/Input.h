#pragma once
// What a user does, turned into the toolkit's events: the presenter and the driver both come
// through here. Each action is one event from outside; an action on a disabled form, or on a
// control that is hidden or disabled, is dropped and returns false.

#include <optional>
#include <string>

namespace vellumry::tk {

class CheckBox;
class Control;
class Form;
class ListControl;
class ScrollBar;
class TabStrip;
class TextBox;

namespace user {

inline constexpr int kLeftButton = 1, kRightButton = 2, kMiddleButton = 4;
inline constexpr int kShiftMask = 1, kCtrlMask = 2, kAltMask = 4;

// Whether input can reach `c` now.
bool accepts(const Control& c);

bool mouseDown(Control& c, int button, int shift = 0, double x = 0, double y = 0);
bool mouseUp(Control& c, int button, int shift = 0, double x = 0, double y = 0);
bool mouseMove(Control& c, int button, int shift, double x, double y);
// Mouse down, mouse up, Click.
bool click(Control& c, int button = kLeftButton);
// The click, then DblClick and a second mouse up, as the toolkit gives a double click.
bool dblClick(Control& c);
// The parts of a click as a pointer gives them one by one: Click after the left button went up
// over the control, DblClick in place of the second mouse down of a double click.
bool raiseClick(Control& c);
bool raiseDblClick(Control& c);
// Key down and key up, through the form's key preview to the control with the focus.
bool key(Form& f, int keyCode, int shift = 0);
// The two halves of `key`, for a keyboard that tells press and release apart.
bool keyDown(Form& f, int keyCode, int shift = 0);
bool keyUp(Form& f, int keyCode, int shift = 0);
// The user picks item `index` of a list: focus and ListIndex, which raises Click.
bool select(ListControl& list, int index);
bool type(TextBox& box, const std::string& text, std::optional<int> caret = std::nullopt);
bool scroll(ScrollBar& bar, int value);
// The user sets a check box (Value, which raises Click) or picks tab `item` (from 1).
bool check(CheckBox& box, int value);
bool pickTab(TabStrip& tabs, int item);

}  // namespace user
}  // namespace vellumry::tk
