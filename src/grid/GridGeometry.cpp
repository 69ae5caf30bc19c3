// Where the cells stand: their size from the settings, the measuring of a page, the centring
// of the columns, the placing of one cell after another and the rolling of rows.
#include "grid/Grid.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

using tk::intDiv;
using tk::resumeNext;

namespace {
constexpr double kMinCell = 1264;  // a cell must be taller than this
}

void Grid::pSizeCell() {
  double T = form_.screenH(), S = form_.screenW();
  tk::Image& cell = form_.Image1(0);
  for (int16_t r = tk::CInt(program_.readSettingNumber("rows")); r >= 2; --r) {
    cell.setHeight(static_cast<double>(intDiv(T, r) - intDiv(300, r)));
    if (cell.Height() > kMinCell) break;
  }
  if (program_.readSetting("frameprop") == "1") {
    for (int16_t r = tk::CInt(program_.readSettingNumber("rows")); r >= 2; --r) {
      cell.setWidth(static_cast<double>(intDiv(S, r) - intDiv(600, r)));
      if (cell.Width() > kMinCell) break;
    }
  } else {
    cell.setWidth(cell.Height());
  }
}

void Grid::pMeasure() {
  double S = form_.screenW(), T = form_.screenH();
  bool wrapped = false;
  for (int32_t i = 1; i != form_.File2.ListCount() + 1; ++i) {
    tk::Image& cell = form_.Image1.Load(i);
    const tk::Image& before = form_.Image1(i - 1);
    cell.setTop(before.Top());
    cell.setLeft(cell.Width() + before.Left());
    if (cell.Width() + cell.Left() <= S) continue;
    if (!wrapped) {
      wrapped = true;
      nPerRow = static_cast<int32_t>(i - 1);
    }
    cell.setLeft(cell.Width() + form_.Image1(0).Left());
    cell.setTop(cell.Height() + before.Top());
    if (cell.Height() + cell.Top() > T) {
      nPerPage = static_cast<int32_t>(i - 1);
      for (int32_t k = i; k >= 1; --k) form_.Image1.Unload(k);
      form_.File2.setListIndex(-1);
      return;
    }
  }
}

void Grid::pCentre() {
  double S = form_.screenW(), w = form_.Image1(0).Width();
  double k = w;
  while (k <= S) k += w;
  form_.Image1(0).setLeft((S - (k + w)) / 2);
}

bool Grid::pPlaceCell(int32_t i) {
  tk::Image& cell = form_.Image1(i);
  const tk::Image& before = form_.Image1(i - 1);
  cell.setTop(before.Top());
  cell.setLeft(cell.Width() + before.Left());
  if (cell.Width() + cell.Left() <= form_.screenW()) return false;
  cell.setLeft(cell.Width() + form_.Image1(0).Left());
  cell.setTop(cell.Height() + before.Top());
  return cell.Height() + cell.Top() > form_.screenH();
}

void Grid::pRollRow() {
  for (int32_t j = 1; j <= nPerRow; ++j) {
    resumeNext([&] { form_.Image1(j).setVisible(false); });
    resumeNext([&] { form_.Image123(j).setVisible(false); });
  }
  nRolled = static_cast<int32_t>(nRolled + nPerRow);
  for (int j = nPerRow; j <= nPerPage + nRolled && j - 1 != form_.File2.ListCount(); ++j) {
    resumeNext([&] { form_.Image1(j).setTop(form_.Image1(j).Top() - form_.Image1(j).Height()); });
    resumeNext([&] {
      tk::Image& pic = form_.Image123(j);
      pic.setTop(form_.Image1(j).Top() + static_cast<double>(intDiv(form_.Image1(j).Height(), 2) -
                                                             intDiv(pic.Height(), 2)));
    });
  }
}

}  // namespace vellumry
