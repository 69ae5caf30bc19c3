#pragma once
// The Qt widgets of the windowed controls: command button, check box, text box, list box,
// file list box, drop-down list, scroll bars and tab strip.

class QWidget;

namespace vellumry::tk {
class Control;
}

namespace vellumry::presenter {

class ControlTap;
class Presenter;

// Whether `c` shows as a Qt widget of its own (and not as a container or painted by one).
bool isWindowed(const tk::Control& c);
// Whether `c` holds other controls (a frame, a picture box), or is painted by its container.
bool isContainer(const tk::Control& c);
bool isWindowless(const tk::Control& c);

// Makes the widget of windowed control `c` inside `parent`, with a tap that hands the user's
// actions on it to the model. The widget is owned by `parent`.
QWidget* createWindowed(Presenter& presenter, tk::Control& c, QWidget* parent, ControlTap*& tap);

// Shows the control's own state on its widget (caption, items, selection, value, text, tabs)
// with the widget's signals blocked, so that nothing comes back to the model. A list's items
// are rebuilt only when `items` is set.
void syncWindowed(QWidget* widget, const tk::Control& c, bool items);

}  // namespace vellumry::presenter
