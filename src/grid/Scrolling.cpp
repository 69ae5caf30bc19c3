// Moving through a loaded grid: the row offset lives in Label1's caption, the selection in
// File2, and the frame Frame3(0) shows it.
#include "platform/toolkit/Numbers.h"
#include "shell/Form1.h"
#include "shell/Program.h"

namespace vellumry {

using tk::resumeNext;

namespace {
int16_t captionNumber(const tk::Label& label) { return tk::CInt(tk::toNumber(label.Caption())); }
}  // namespace

void Form1::pSyncPage() {
  Frame3(0).setVisible(false);
  Label1.setCaption(std::to_string(VScroll1.Value()));
}

void Form1::Label1_Change() {
  if (!Label1.Caption().empty() && Timer2.Interval() == 0) {
    int a = captionNumber(Label1) * nPerRow;
    int b = nPerPage + a;
    if (bLoaded) {
      int k = nShownFirst != 0 ? nShownFirst - nPerRow : 0;
      int limit = nShownFirst != 0 ? nShownLast + nShownFirst : nShownLast + nPerRow;
      while (k != limit) {
        Image1(k + 1).setVisible(false);
        Image123(k + 1).setVisible(false);
        if (++k == File2.ListCount()) break;
      }
      pShowPage();
    }
    nShownFirst = static_cast<int16_t>(a);
    nShownLast = static_cast<int16_t>(b);
  }
  Label1.setVisible(Label1.Caption() != "0");
}

void Form1::pShowPage() {
  int p = 0, first = 1, last = 0;
  resumeNext([&] { p = captionNumber(Label1); });
  if (Label1.Caption() != "0") first = p * nPerRow + 1 - nPerRow;
  last = nPerPage + nPerRow + p * nPerRow;
  nLoad = 1;
  const tk::Image& anchor = Image1(0);
  for (int i = first; i <= last && i <= File2.ListCount(); ++i) {
    resumeNext([&] { Image1(i).setVisible(true); });
    resumeNext([&] {
      if (nLoad == 1)
        Image1(i).setTop(Label1.Caption() == "0" ? anchor.Top() : anchor.Top() - anchor.Height());
      else
        Image1(i).setTop(Image1(i - 1).Top());
    });
    resumeNext([&] {
      if (nLoad == 1)
        Image1(i).setLeft(anchor.Width() + anchor.Left());
      else
        Image1(i).setLeft(Image1(i).Width() + Image1(i - 1).Left());
    });
    resumeNext([&] {
      tk::Image& cell = Image1(i);
      if (cell.Width() + cell.Left() <= screenW()) return;
      cell.setLeft(cell.Width() + anchor.Left());
      cell.setTop(cell.Height() + Image1(i - 1).Top());
    });
    resumeNext([&] {
      Image123(i).setLeft(Image1(i).Left() + (Image1(i).Width() - 200) / 2 -
                          Image123(i).Width() / 2 + 100);
    });
    resumeNext([&] {
      Image123(i).setTop(Image1(i).Top() + (Image1(i).Height() - 200) / 2 -
                         Image123(i).Height() / 2 + 100);
    });
    resumeNext([&] { Image123(i).setVisible(true); });
    nLoad = static_cast<int16_t>(nLoad + 1);
  }
}

void Form1::pFrameSel() {
  nSel = static_cast<int16_t>(File2.ListIndex() + 1);
  const tk::Image& cell = Image1(nSel);
  Frame3(0).Move(cell.Left(), cell.Top(), cell.Width(), cell.Height());
  Frame3(0).setVisible(true);
}

void Form1::pSelPage() {
  int k = File2.ListIndex() + 1;
  resumeNext([&] {
    const tk::Image& cell = Image1(k);
    if (cell.Visible() && cell.Top() >= 150 && cell.Top() + cell.Height() <= screenH()) return;
    int page = 0, a = 0, b = nPerPage;
    while (k > b && nPerRow > 0) {
      a += nPerRow;
      b = nPerPage + a;
      ++page;
    }
    Label1.setCaption(std::to_string(page));
  });
  resumeNext([&] { VScroll1.setValue(captionNumber(Label1)); });
  resumeNext([&] { pFrameSel(); });
}

void Form1::VScroll1_Change() {
  pSyncPage();
  Label1.setCaption(std::to_string(VScroll1.Value()));
}

void Form1::File2_Click() {
  if (bLoaded) resumeNext([&] { pSelPage(); });
}

}  // namespace vellumry
