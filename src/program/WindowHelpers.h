#pragma once
// Two one-call helpers for windows that any dialog uses: the rounded outline and staying on top.

namespace vellumry {

namespace tk {
class Form;
}

// Cuts `form` to a rectangle of its present size in whole pixels, with corners rounded by an
// ellipse of 40 by 40 pixels. A later change of size keeps the old outline until called again.
void pMakeround(tk::Form& form);

// Keeps `form` above every other window, where it stays.
void pSettop(tk::Form& form);

}  // namespace vellumry
