// Placing the viewer's picture: the fit of a new picture, zooming in tenths, the scroll bars
// and dragging. Each size change starts again from Image2's unscaled picture and draws it at
// the new size, so zooming loses nothing.
#include "platform/gdi/Blit.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/MousePointer.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "viewer/DecodeAhead.h"
#include "viewer/FitRule.h"
#include "viewer/Form2.h"

namespace vellumry {

namespace {
constexpr int kPixels = 3;
// The zoom limits: more than this over the screen, or less than the other on either side.
constexpr double kMostOverScreen = 32000, kLeastSide = 150;
// A bar counts tens of twips; one click on it or beside it moves the picture 1000 twips.
constexpr double kTwipsPerBarStep = 10;
constexpr int kBarClick = 100;

int Pixels(double length) { return static_cast<int>(tk::roundHalfEven(length)); }
}  // namespace

void Form2::Timer1_Timer() {
  Image1.setPicture(Image2.Picture());
  lPicH = tk::CLng(Image1.Height());
  lPicW = tk::CLng(Image1.Width());
  if (const auto shown = fitToForm(Image1.Width(), Image1.Height(), Width(), Height())) {
    Image1.setHeight(shown->height);
    Image1.setWidth(shown->width);
  }
  Image1.setLeft(Width() / 2 - Image1.Width() / 2);
  Image1.setTop(Height() / 2 - Image1.Height() / 2);
  Image2.setWidth(Image1.Width());
  Image2.setHeight(Image1.Height());
  pPaint();
  Timer1.setInterval(0);
  Image1.setVisible(true);
  pPlace();
  decodeNeighboursAhead();
}

void Form2::pPlace() {
  Image1.setVisible(false);
  Image1.setPicture(Image2.Picture());
  Image1.setPicture(Image1.Image());
  Image1.setWidth(Image2.Width());
  Image1.setHeight(Image2.Height());
  Image1.setLeft((Width() - Image1.Width()) / 2);
  Image1.setTop((Height() - Image1.Height()) / 2);
  pPaint();
  Image1.setVisible(true);
}

void Form2::pPaint() {
  Image1.setScaleMode(kPixels);
  Image1.setAutoRedraw(true);
  const int sw = Pixels(Image1.ScaleWidth()), sh = Pixels(Image1.ScaleHeight());
  if (sw < 1 || sh < 1) return;  // nothing to paint on
  // The whole picture stretched over the whole box, drawn from its source at exactly this
  // size. Its own size is in hundredths of a millimetre, 26.46 to a pixel at 96 dots per inch,
  // so the source is the picture whole whatever the display.
  const gdi::Picture& picture = Image1.Picture();
  gdi::Surface canvas(sw, sh, gdi::AlphaMode::kOpaque);
  gdi::fill(canvas, {0, 0, sw, sh}, tk::pixelOf(Image1.BackColor()));
  picture.Render(canvas, 0, 0, sw, sh, 0, picture.Height(), picture.Width(), -picture.Height());
  Image1.setPicture(
      gdi::Picture::fromSurface(std::move(canvas), runtime().screen().TwipsPerPixelX));
}

void Form2::pZoomStep() {
  dStepW = Image1.Width() / 10;
  dStepH = Image1.Height() / 10;
}

void Form2::pZoomIn() {
  const tk::Screen& screen = runtime().screen();
  // Tested with the step of the last zoom, before the new one is taken.
  if (Image1.Width() + dStepW - screen.Width > kMostOverScreen ||
      Image1.Height() + dStepH - screen.Height > kMostOverScreen) {
    runtime().host().Beep();
    return;
  }
  zoomBy(+1);
}

void Form2::pZoomOut() {
  if (Image1.Height() < kLeastSide || Image1.Width() < kLeastSide) {
    runtime().host().Beep();
    return;
  }
  zoomBy(-1);
}

void Form2::zoomBy(int direction) {
  pZoomStep();
  // Where the bars stand, so that the zoom keeps the same proportional point in view.
  if (VScroll1.Visible())
    dRatioV = VScroll1.Value() == 0 ? 0 : double(VScroll1.Max()) / VScroll1.Value();
  if (HScroll1.Visible())
    dRatioH = HScroll1.Value() == 0 ? 0 : double(HScroll1.Max()) / HScroll1.Value();
  Image2.setWidth(Image2.Width() + direction * dStepW);
  Image2.setHeight(Image2.Height() + direction * dStepH);
  pPlace();
  pSetBars();
}

void Form2::showBar(tk::ScrollBar& bar, double excess, bool keep, double ratio) {
  bar.setVisible(true);
  bar.setMax(tk::CLng(excess / kTwipsPerBarStep));
  if (keep)
    bar.setValue(ratio == 0 ? 0 : tk::CLng(bar.Max() / ratio));
  else
    bar.setValue(tk::CLng(bar.Max() / 2.0));  // a bar that has just come starts in the middle
  bar.setSmallChange(kBarClick);
  bar.setLargeChange(bar.SmallChange());
  VScroll2.SetFocus();
}

void Form2::pSetBars() {
  const tk::Screen& screen = runtime().screen();
  if (Image1.Height() <= screen.Height) {
    VScroll1.setVisible(false);
    HScroll1.setWidth(screen.Width);
  } else {
    showBar(VScroll1, Image1.Height() - screen.Height, bKeepV, dRatioV);
    HScroll1.setWidth(screen.Width - kBarThickness);
  }
  if (Image1.Width() > screen.Width)
    showBar(HScroll1, Image1.Width() - screen.Width, bKeepH, dRatioH);
  else
    HScroll1.setVisible(false);
  bKeepV = VScroll1.Visible();
  if (bKeepV) Image1.setTop(VScroll1.Value() * -kTwipsPerBarStep);
  bKeepH = HScroll1.Visible();
  if (bKeepH) Image1.setLeft(HScroll1.Value() * -kTwipsPerBarStep);
}

void Form2::VScroll1_Change() {
  Image1.setTop(VScroll1.Value() * -kTwipsPerBarStep);
  VScroll2.SetFocus();
}

void Form2::HScroll1_Change() {
  Image1.setLeft(HScroll1.Value() * -kTwipsPerBarStep);
  VScroll2.SetFocus();
}

void Form2::Image1_MouseDown(int Button, double X, double Y) {
  if (Button == tk::user::kRightButton) {
    pPopup();
    return;
  }
  if (Button != tk::user::kLeftButton) return;
  lDownX = tk::CLng(X);
  lDownY = tk::CLng(Y);
  const bool across = HScroll1.Visible(), down = VScroll1.Visible();
  Image1.setMousePointer(across && down ? tk::pointer::SizeAll
                         : across       ? tk::pointer::SizeWE
                         : down         ? tk::pointer::SizeNS
                                        : tk::pointer::Arrow);
}

void Form2::Image1_MouseUp(int Button) {
  if (Button == tk::user::kLeftButton) Image1.setMousePointer(tk::pointer::Arrow);
}

void Form2::Image1_MouseMove(int Button, double X, double Y) {
  if (Button != tk::user::kLeftButton) return;
  const tk::Screen& screen = runtime().screen();
  // The pointer's travel in pixels moves the picture as many twips, so the picture follows the
  // pointer slowly; setting a bar's Value rounds the place to its ten twips.
  if (HScroll1.Visible()) {
    dragAlong(HScroll1, &tk::Control::Left, &tk::Control::setLeft, Image1.Width(), screen.Width,
              X - lDownX, true);
  }
  if (VScroll1.Visible()) {
    dragAlong(VScroll1, &tk::Control::Top, &tk::Control::setTop, Image1.Height(), screen.Height,
              Y - lDownY, false);
  }
  Shape1.Move(Image1.Left(), Image1.Top(), Image1.Width(), Image1.Height());
}

void Form2::dragAlong(tk::ScrollBar& bar, double (tk::Control::*place)() const,
                      void (tk::Control::*setPlace)(double), double length, double screen,
                      double travel, bool barFollowsEdge) {
  const double at = (Image1.*place)();
  if (at > 0) {
    (Image1.*setPlace)(0);
  } else if (length + at >= screen) {
    const double moved = at + travel;
    if (moved < 0 && moved > screen - length) {
      (Image1.*setPlace)(moved);
      bar.setValue(tk::CLng(-(Image1.*place)() / kTwipsPerBarStep));
    }
  } else {  // the far edge has come inside the screen
    (Image1.*setPlace)(screen - length);
    if (barFollowsEdge) bar.setValue(bar.Max());
  }
}

void Form2::decodeNeighboursAhead() {
  const tk::FileListBox& list = program_.mainWindow().File2;
  const int count = list.ListCount();
  if (count < 2) return;
  for (int step : {1, -1}) decodeForViewer(program_, (list.ListIndex() + step + count) % count + 1);
}

}  // namespace vellumry
