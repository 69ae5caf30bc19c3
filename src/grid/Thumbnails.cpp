// The loading of the grid, one position a tick.
#include "picture/PlainLoader.h"
#include "picture/StdPictureEx.h"
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
  Program& p = program_;
  sExt = File2.FileName();
  Image1(i).setToolTipText(sExt);
  sExt = tk::toUpper(sExt.size() > 3 ? sExt.substr(sExt.size() - 3) : sExt);

  std::string path = File2.Path() + "/" + File2.FileName();
  tk::Image& pic = Image123(i);
  if (sExt == "EMF" || sExt == "PNG" || sExt == "TIF") {
    p.module1.ShowPictureGdi(path, Picture1, true);
    pic.setPicture(Picture1.Image());
  } else if (sExt == "BMP" || sExt == "ICO") {
    Picture1.setPicture(p.pictures.stdPictureEx().LoadPicture(path));
    pic.setPicture(Picture1.Picture());
  } else {
    pic.setPicture(LoadPicture(p.pictures, path));
  }

  if (i < 1 || i >= static_cast<int>(p.aPicH.size())) tk::raise(tk::err::SubscriptOutOfRange);
  p.aPicH[static_cast<size_t>(i)] = tk::CLng(pic.Height());
  p.aPicW[static_cast<size_t>(i)] = tk::CLng(pic.Width());
  const tk::Image& cell = Image1(i);
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
  if (pic.Height() >= Image1(0).Height()) fitHeight();
  if (pic.Width() >= Image1(0).Width()) fitWidth();
  pic.setLeft(cell.Left() + cw / 2 - pic.Width() / 2 + 100);
  pic.setTop(cell.Top() + ch / 2 - pic.Height() / 2 + 100);
  pic.setVisible(true);

  const tk::Screen& screen = runtime().screen();
  p.pictures.prefetch(pic.Picture(),
                      {static_cast<int>(tk::roundHalfEven(pic.Width() / screen.TwipsPerPixelX)),
                       static_cast<int>(tk::roundHalfEven(pic.Height() / screen.TwipsPerPixelY))});
}

}  // namespace vellumry
