#include "program/mTop.h"

#include "platform/toolkit/Form.h"

namespace vellumry {

void pSettop(tk::Form& form) { form.setTopMost(true); }

}  // namespace vellumry
