#include "platform/toolkit/Input.h"

#include <QString>

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/Runtime.h"
#include "platform/toolkit/ScrollBar.h"

namespace vellumry::tk::user {

bool accepts(const Control& c) {
  const Form& f = c.form();
  return f.isLoaded() && f.Visible() && f.Enabled() && !f.runtime().ended() && c.reachable();
}

namespace {
// Runs `action` as one event when `c` accepts input.
template <class F>
bool act(Control& c, F&& action) {
  if (!accepts(c)) return false;
  c.runtime().dispatch(action);
  return true;
}

// Runs the events of one gesture as one event from outside, so that a control a handler
// unloads halfway stays alive (and refuses the rest) until the gesture is over.
template <class F>
bool gesture(Control& c, F&& events) {
  bool taken = false;
  c.runtime().dispatch([&] { taken = events(); });
  return taken;
}

void focusOnPress(Control& c) {
  if (&c != &c.form() && c.focusable() && c.reachable()) c.SetFocus();
}
}  // namespace

bool mouseDown(Control& c, int button, int shift, double x, double y) {
  return act(c, [&] {
    focusOnPress(c);
    fire(c.onMouseDown, button, shift, x, y);
  });
}

bool mouseUp(Control& c, int button, int shift, double x, double y) {
  return act(c, [&] { fire(c.onMouseUp, button, shift, x, y); });
}

bool mouseMove(Control& c, int button, int shift, double x, double y) {
  return act(c, [&] { fire(c.onMouseMove, button, shift, x, y); });
}

bool click(Control& c, int button) {
  return gesture(c, [&] {
    if (!mouseDown(c, button)) return false;
    mouseUp(c, button);
    if (button != kLeftButton) return true;
    // A check box turns over under a click; its new value raises the Click.
    if (auto* box = dynamic_cast<CheckBox*>(&c)) {
      act(*box, [box] { box->setValue(box->Value() == 0 ? 1 : 0); });
    } else {
      raiseClick(c);
    }
    return true;
  });
}

bool dblClick(Control& c) {
  return gesture(c, [&] {
    if (!click(c)) return false;
    raiseDblClick(c);
    mouseUp(c, kLeftButton);
    return true;
  });
}

bool raiseClick(Control& c) {
  return act(c, [&] { fire(c.onClick); });
}

bool raiseDblClick(Control& c) {
  return act(c, [&] { fire(c.onDblClick); });
}

namespace {
// One phase of a key: the form sees it first when it previews keys or nothing has the focus.
bool keyPhase(Form& f, int keyCode, int shift, std::function<void(int&, int)> Control::*member) {
  if (!accepts(f)) return false;
  f.runtime().dispatch([&] {
    int code = keyCode;
    Control* target = f.ActiveControl();
    if (f.KeyPreview() || !target) fire(f.*member, code, shift);
    if (code != 0 && target) fire(target->*member, code, shift);
  });
  return true;
}
}  // namespace

bool key(Form& f, int keyCode, int shift) {
  return gesture(f, [&] {
    if (!keyDown(f, keyCode, shift)) return false;
    keyUp(f, keyCode, shift);
    return true;
  });
}

bool keyDown(Form& f, int keyCode, int shift) {
  if (!accepts(f)) return false;
  f.keyPressed(keyCode);  // before the handlers, which may unload the form
  return keyPhase(f, keyCode, shift, &Control::onKeyDown);
}

bool keyUp(Form& f, int keyCode, int shift) {
  if (!f.keyReleased(keyCode)) return false;
  return keyPhase(f, keyCode, shift, &Control::onKeyUp);
}

bool select(ListControl& list, int index) {
  return act(list, [&] {
    focusOnPress(list);
    list.setListIndex(index);
  });
}

bool type(TextBox& box, const std::string& text, std::optional<int> caret) {
  return act(box, [&] {
    focusOnPress(box);
    box.setText(text);
    // The caret stays after what was typed: where the widget says, else at the end.
    box.setSelStart(caret.value_or(static_cast<int>(QString::fromStdString(text).size())));
  });
}

bool scroll(ScrollBar& bar, int value) {
  return act(bar, [&] { bar.setValue(value); });
}

bool check(CheckBox& box, int value) {
  return act(box, [&] {
    focusOnPress(box);
    box.setValue(value);
  });
}

bool pickTab(TabStrip& tabs, int item) {
  return act(tabs, [&] {
    focusOnPress(tabs);
    tabs.setSelectedItem(item);
  });
}

}  // namespace vellumry::tk::user
