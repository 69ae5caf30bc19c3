// Where the cells stand: their size from the settings, the measuring of a page, the centring
// of the columns, the placing of one cell after another and the rolling of rows.
#include "platform/toolkit/Numbers.h"
#include "shell/Form1.h"
#include "shell/Program.h"

namespace vellumry {

using tk::IntDiv;
using tk::resumeNext;

namespace {
constexpr double kMinCell = 1264;  // a cell must be taller than this
}

void Form1::pSizeCell() {
  double T = screenH(), S = screenW();
  tk::Image& cell = Image1(0);
  for (int16_t r = tk::CInt(program_.ReadSettingNumber("rows")); r >= 2; --r) {
    cell.setHeight(static_cast<double>(IntDiv(T, r) - IntDiv(300, r)));
    if (cell.Height() > kMinCell) break;
  }
  if (setting("frameprop") == "1") {
    for (int16_t r = tk::CInt(program_.ReadSettingNumber("rows")); r >= 2; --r) {
      cell.setWidth(static_cast<double>(IntDiv(S, r) - IntDiv(600, r)));
      if (cell.Width() > kMinCell) break;
    }
  } else {
    cell.setWidth(cell.Height());
  }
}

void Form1::pMeasure() {
  double S = screenW(), T = screenH();
  bool wrapped = false;
  for (int16_t i = 1; i != File2.ListCount() + 1; ++i) {
    tk::Image& cell = Image1.Load(i);
    const tk::Image& before = Image1(i - 1);
    cell.setTop(before.Top());
    cell.setLeft(cell.Width() + before.Left());
    if (cell.Width() + cell.Left() <= S) continue;
    if (!wrapped) {
      wrapped = true;
      nPerRow = static_cast<int16_t>(i - 1);
    }
    cell.setLeft(cell.Width() + Image1(0).Left());
    cell.setTop(cell.Height() + before.Top());
    if (cell.Height() + cell.Top() > T) {
      nPerPage = static_cast<int16_t>(i - 1);
      for (int16_t k = i; k >= 1; --k) Image1.Unload(k);
      File2.setListIndex(-1);
      return;
    }
  }
}

void Form1::pCentre() {
  double S = screenW(), w = Image1(0).Width();
  double k = w;
  while (k <= S) k += w;
  Image1(0).setLeft((S - (k + w)) / 2);
}

bool Form1::pPlaceCell(int16_t i) {
  tk::Image& cell = Image1(i);
  const tk::Image& before = Image1(i - 1);
  cell.setTop(before.Top());
  cell.setLeft(cell.Width() + before.Left());
  if (cell.Width() + cell.Left() <= screenW()) return false;
  cell.setLeft(cell.Width() + Image1(0).Left());
  cell.setTop(cell.Height() + before.Top());
  return cell.Height() + cell.Top() > screenH();
}

void Form1::pRollRow() {
  for (int16_t j = 1; j <= nPerRow; ++j) {
    resumeNext([&] { Image1(j).setVisible(false); });
    resumeNext([&] { Image123(j).setVisible(false); });
  }
  nRolled = static_cast<int16_t>(nRolled + nPerRow);
  for (int j = nPerRow; j <= nPerPage + nRolled && j - 1 != File2.ListCount(); ++j) {
    resumeNext([&] { Image1(j).setTop(Image1(j).Top() - Image1(j).Height()); });
    resumeNext([&] {
      tk::Image& pic = Image123(j);
      pic.setTop(Image1(j).Top() +
                 static_cast<double>(IntDiv(Image1(j).Height(), 2) - IntDiv(pic.Height(), 2)));
    });
  }
}

}  // namespace vellumry
