// Keeping the page, the row offset and the selection frame in step.
#include "platform/toolkit/Numbers.h"
#include "shell/Form1.h"
#include "shell/Program.h"

namespace vellumry {

void Form1::pSyncPage() {
  Frame3(0).setVisible(false);
  Label1.setCaption(std::to_string(VScroll1.Value()));
}

void Form1::Label1_Change() {
  if (!Label1.Caption().empty() && Timer2.Interval() == 0) {
    int a = tk::CInt(tk::toNumber(Label1.Caption())) * nPerRow;
    int b = nPerPage + a;
    // Laying out the new page of a loaded grid comes with the scrolling.
    nShownFirst = static_cast<int16_t>(a);
    nShownLast = static_cast<int16_t>(b);
  }
  Label1.setVisible(Label1.Caption() != "0");
}

void Form1::VScroll1_Change() {
  pSyncPage();
  Label1.setCaption(std::to_string(VScroll1.Value()));
}

}  // namespace vellumry
