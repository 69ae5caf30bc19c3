#pragma once
// Compares what a presenter shows with the model it shows: every loaded form's window and every
// control's widget (shown or hidden, place and size in pixels, parent), the stacking of the
// windows and the window that has the keyboard. Used after every step of a live run.

#include <optional>
#include <string>

namespace vellumry::presenter {

class Presenter;

// The first disagreement, said in a line ("Form2.Image1 shows at 0,0 60x40, the model has it
// at 10,0 60x40"), or nothing when the screen says what the model says. Let Qt handle its
// pending events first.
std::optional<std::string> screenDisagreement(const Presenter& presenter);

}  // namespace vellumry::presenter
