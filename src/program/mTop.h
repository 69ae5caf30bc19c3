#pragma once
// Staying on top, for any dialog.

namespace vellumry {

namespace tk {
class Form;
}

// Keeps `form` above every other window, where it stays.
void pSettop(tk::Form& form);

}  // namespace vellumry
