#include "platform/toolkit/Input.h"

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/Runtime.h"
#include "platform/toolkit/ScrollBar.h"

namespace tk::user {

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
  if (!mouseDown(c, button)) return false;
  mouseUp(c, button);
  if (button == kLeftButton) act(c, [&] { fire(c.onClick); });
  return true;
}

bool dblClick(Control& c) {
  if (!click(c)) return false;
  act(c, [&] { fire(c.onDblClick); });
  mouseUp(c, kLeftButton);
  return true;
}

bool key(Form& f, int keyCode, int shift) {
  if (!accepts(f)) return false;
  auto phase = [&](auto member) {
    f.runtime().dispatch([&] {
      int code = keyCode;
      Control* target = f.ActiveControl();
      if (f.KeyPreview() || !target) fire(f.*member, code, shift);
      if (code != 0 && target) fire(target->*member, code, shift);
    });
  };
  phase(&Control::onKeyDown);
  phase(&Control::onKeyUp);
  return true;
}

bool select(ListControl& list, int index) {
  return act(list, [&] {
    focusOnPress(list);
    list.setListIndex(index);
  });
}

bool type(TextBox& box, const std::string& text) {
  return act(box, [&] {
    focusOnPress(box);
    box.setText(text);
  });
}

bool scroll(ScrollBar& bar, int value) {
  return act(bar, [&] { bar.setValue(value); });
}

}  // namespace tk::user
