// The loading of the grid, one position a tick.
#include "grid/Grid.h"
#include "picture/Module1.h"
#include "picture/PictureServices.h"
#include "picture/PlainLoader.h"
#include "picture/StdPictureEx.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

using tk::resumeNext;

void Grid::Timer1_Timer() {
  int32_t i = nLoad;
  resumeNext([&] { form_.Image1.Load(i); });
  resumeNext([&] { form_.Image1(i).setVisible(true); });
  resumeNext([&] {
    if (!pPlaceCell(i)) return;
    resumeNext([&] { pRollRow(); });
    resumeNext([&] { form_.VScroll1.setMax(form_.VScroll1.Max() + 1); });
    resumeNext([&] { form_.VScroll1.setValue(form_.VScroll1.Max()); });
    resumeNext([&] { form_.Label1.setCaption(std::to_string(form_.VScroll1.Value())); });
    form_.VScroll1.setVisible(true);
  });
  resumeNext([&] { form_.Image123.Load(i); });
  resumeNext([&] { pres(i); });
  resumeNext([&] {
    if (form_.File2.ListIndex() < form_.File2.ListCount() - 1)
      form_.File2.setListIndex(form_.File2.ListIndex() + 1);
  });
  nLoad = static_cast<int32_t>(nLoad + 1);
  if (nLoad == nCount + 1) {
    form_.Timer1.setInterval(0);
    resumeNext([&] { pFoldername(); });
  }
}

void Grid::pres(int32_t& i) {
  Program& p = program_;
  sExt = form_.File2.FileName();
  form_.Image1(i).setToolTipText(sExt);
  sExt = tk::toUpper(sExt.size() > 3 ? sExt.substr(sExt.size() - 3) : sExt);

  std::string path = form_.File2.Path() + "/" + form_.File2.FileName();
  tk::Image& pic = form_.Image123(i);
  if (sExt == "EMF" || sExt == "PNG" || sExt == "TIF") {
    p.module1().ShowPictureGdi(path, form_.Picture1, true);
    pic.setPicture(form_.Picture1.Image());
  } else if (sExt == "BMP" || sExt == "ICO") {
    form_.Picture1.setPicture(p.pictures().stdPictureEx().LoadPicture(path));
    pic.setPicture(form_.Picture1.Picture());
  } else {
    pic.setPicture(LoadPicture(p.pictures(), path));
  }

  if (i < 1 || i >= static_cast<int>(p.grid.aPicH_.size())) tk::raise(tk::err::SubscriptOutOfRange);
  p.grid.aPicH_[static_cast<size_t>(i)] = tk::CLng(pic.Height());
  p.grid.aPicW_[static_cast<size_t>(i)] = tk::CLng(pic.Width());
  const tk::Image& cell = form_.Image1(i);
  double ch = cell.Height() - 200, cw = cell.Width() - 200;
  pic.setStretch(true);
  double pw = pic.Width(), ph = pic.Height();
  if (pw == 0 || ph == 0) tk::raise(11, "Division by zero");
  double fitH = ph * cw / pw, fitW = pw * ch / ph;
  // Each rule first puts the picture in the cell's corner; the centring below replaces that.
  auto fitHeight = [&] {
    pic.setLeft(cell.Left());
    pic.setTop(cell.Top());
    pic.setHeight(ch);
    pic.setWidth(fitW);
  };
  auto fitWidth = [&] {
    pic.setLeft(cell.Left());
    pic.setTop(cell.Top());
    pic.setWidth(cw);
    pic.setHeight(fitH);
  };
  if (ph > pw && ph >= ch) fitHeight();
  if (pic.Height() < pic.Width() && pic.Width() >= cw) fitWidth();
  if (pic.Height() >= form_.Image1(0).Height()) fitHeight();
  if (pic.Width() >= form_.Image1(0).Width()) fitWidth();
  pic.setLeft(cell.Left() + cw / 2 - pic.Width() / 2 + 100);
  pic.setTop(cell.Top() + ch / 2 - pic.Height() / 2 + 100);
  pic.setVisible(true);

  const tk::Screen& screen = form_.runtime().screen();
  p.pictures().prefetch(
      pic.Picture(), {static_cast<int>(tk::roundHalfEven(pic.Width() / screen.TwipsPerPixelX)),
                      static_cast<int>(tk::roundHalfEven(pic.Height() / screen.TwipsPerPixelY))});
}

}  // namespace vellumry
