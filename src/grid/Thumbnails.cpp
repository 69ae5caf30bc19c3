// The loading of the grid, one position a tick.
#include "platform/toolkit/Numbers.h"
#include "shell/Form1.h"
#include "shell/Program.h"

namespace vellumry {

using tk::resumeNext;

void Form1::Timer1_Timer() {
  int16_t i = nLoad;
  resumeNext([&] { Image1.Load(i); });
  resumeNext([&] { Image1(i).setVisible(true); });
  resumeNext([&] {
    if (!pPlaceCell(i)) return;
    resumeNext([&] { pRollRow(); });
    resumeNext([&] { VScroll1.setMax(VScroll1.Max() + 1); });
    resumeNext([&] { VScroll1.setValue(VScroll1.Max()); });
    resumeNext([&] { Label1.setCaption(std::to_string(VScroll1.Value())); });
    resumeNext([&] { VScroll1.setVisible(true); });
  });
  resumeNext([&] { Image123.Load(i); });
  resumeNext([&] { pres(i); });
  resumeNext([&] {
    if (File2.ListIndex() < File2.ListCount() - 1) File2.setListIndex(File2.ListIndex() + 1);
  });
  nLoad = static_cast<int16_t>(nLoad + 1);
  if (nLoad == nCount + 1) {
    resumeNext([&] { Timer1.setInterval(0); });
    resumeNext([&] { pFoldername(); });
  }
}

void Form1::pres(int16_t& i) {
  sExt = File2.FileName();
  Image1(i).setToolTipText(sExt);
  sExt = tk::toUpper(sExt.size() > 3 ? sExt.substr(sExt.size() - 3) : sExt);
  // The pictures themselves come with the picture engine.
}

}  // namespace vellumry
