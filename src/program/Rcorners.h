#pragma once
// The rounded outline of a window, for any dialog.

namespace vellumry {

namespace tk {
class Form;
}

// Cuts `form` to a rectangle of its present size in whole pixels, with corners rounded by an
// ellipse of 40 by 40 pixels. A later change of size keeps the old outline until called again.
void pMakeround(tk::Form& form);

}  // namespace vellumry
