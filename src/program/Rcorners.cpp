#include "program/Rcorners.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry {

namespace {
constexpr int kCornerPixels = 40;
}  // namespace

void pMakeround(tk::Form& form) {
  const tk::Screen& screen = form.runtime().screen();
  form.setWindowRegion({tk::CLng(form.Width() / screen.TwipsPerPixelX),
                        tk::CLng(form.Height() / screen.TwipsPerPixelY), kCornerPixels,
                        kCornerPixels});
}

}  // namespace vellumry
