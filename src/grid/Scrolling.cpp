// Moving through a loaded grid: the row offset lives in Label1's caption, the selection in
// form_.File2, and the frame form_.Frame3(0) shows it.
#include "grid/Grid.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

using tk::resumeNext;

namespace {
int32_t captionNumber(const tk::Label& label) { return tk::CLng(tk::toNumber(label.Caption())); }
}  // namespace

void Grid::pSyncPage() {
  form_.Frame3(0).setVisible(false);
  form_.Label1.setCaption(std::to_string(form_.VScroll1.Value()));
}

void Grid::Label1_Change() {
  if (!form_.Label1.Caption().empty() && form_.Timer2.Interval() == 0) {
    int a = captionNumber(form_.Label1) * nPerRow;
    int b = nPerPage + a;
    if (bLoaded) {
      int k = nShownFirst != 0 ? nShownFirst - nPerRow : 0;
      int limit = nShownFirst != 0 ? nShownLast + nShownFirst : nShownLast + nPerRow;
      while (k != limit) {
        form_.Image1(k + 1).setVisible(false);
        form_.Image123(k + 1).setVisible(false);
        if (++k == form_.File2.ListCount()) break;
      }
      pShowPage();
    }
    nShownFirst = static_cast<int32_t>(a);
    nShownLast = static_cast<int32_t>(b);
  }
  form_.Label1.setVisible(form_.Label1.Caption() != "0");
}

void Grid::pShowPage() {
  int p = 0, first = 1, last = 0;
  resumeNext([&] { p = captionNumber(form_.Label1); });
  if (form_.Label1.Caption() != "0") first = p * nPerRow + 1 - nPerRow;
  last = nPerPage + nPerRow + p * nPerRow;
  nLoad = 1;
  const tk::Image& anchor = form_.Image1(0);
  for (int i = first; i <= last && i <= form_.File2.ListCount(); ++i) {
    resumeNext([&] { form_.Image1(i).setVisible(true); });
    resumeNext([&] {
      if (nLoad == 1)
        form_.Image1(i).setTop(form_.Label1.Caption() == "0" ? anchor.Top()
                                                             : anchor.Top() - anchor.Height());
      else
        form_.Image1(i).setTop(form_.Image1(i - 1).Top());
    });
    resumeNext([&] {
      if (nLoad == 1)
        form_.Image1(i).setLeft(anchor.Width() + anchor.Left());
      else
        form_.Image1(i).setLeft(form_.Image1(i).Width() + form_.Image1(i - 1).Left());
    });
    resumeNext([&] {
      tk::Image& cell = form_.Image1(i);
      if (cell.Width() + cell.Left() <= form_.screenW()) return;
      cell.setLeft(cell.Width() + anchor.Left());
      cell.setTop(cell.Height() + form_.Image1(i - 1).Top());
    });
    resumeNext([&] {
      form_.Image123(i).setLeft(form_.Image1(i).Left() + (form_.Image1(i).Width() - 200) / 2 -
                                form_.Image123(i).Width() / 2 + 100);
    });
    resumeNext([&] {
      form_.Image123(i).setTop(form_.Image1(i).Top() + (form_.Image1(i).Height() - 200) / 2 -
                               form_.Image123(i).Height() / 2 + 100);
    });
    resumeNext([&] { form_.Image123(i).setVisible(true); });
    nLoad = static_cast<int32_t>(nLoad + 1);
  }
}

void Grid::pFrameSel() {
  nSel = static_cast<int32_t>(form_.File2.ListIndex() + 1);
  const tk::Image& cell = form_.Image1(nSel);
  form_.Frame3(0).Move(cell.Left(), cell.Top(), cell.Width(), cell.Height());
  form_.Frame3(0).setVisible(true);
}

void Grid::pSelPage() {
  int k = form_.File2.ListIndex() + 1;
  resumeNext([&] {
    const tk::Image& cell = form_.Image1(k);
    if (cell.Visible() && cell.Top() >= 150 && cell.Top() + cell.Height() <= form_.screenH())
      return;
    int page = 0, a = 0, b = nPerPage;
    while (k > b && nPerRow > 0) {
      a += nPerRow;
      b = nPerPage + a;
      ++page;
    }
    form_.Label1.setCaption(std::to_string(page));
  });
  resumeNext([&] { form_.VScroll1.setValue(captionNumber(form_.Label1)); });
  resumeNext([&] { pFrameSel(); });
}

void Grid::VScroll1_Change() {
  pSyncPage();
  form_.Label1.setCaption(std::to_string(form_.VScroll1.Value()));
}

void Grid::File2_Click() {
  if (bLoaded) resumeNext([&] { pSelPage(); });
}

}  // namespace vellumry
