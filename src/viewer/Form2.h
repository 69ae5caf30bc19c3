#pragma once
// The full-screen viewer. It shows the file selected in Form1.File2 with the picture the grid
// already holds for it, walks the selection forwards and backwards, zooms and pans the picture
// and runs the slideshow. Image2 keeps the unscaled picture and the size it is to be shown at;
// Image1 is rebuilt from it at every size change, drawn from the file at that size.

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/ScrollBar.h"

namespace vellumry {

class Program;

// The help box of the viewers (F1): information icon, this title and text.
inline constexpr std::string_view kFastKeyTitle = "Fast key:";
inline constexpr std::string_view kFastKeyText =
    "Press the left or right arrow keys to move to the next or previous photo.\r\n"
    "Up or down arrow keys to zoom in or out on the photo.\r\n"
    "___\r\n\r\n"
    "Key 'esc' to exit or double-click the desktop.\r\n"
    "___\r\n\r\n"
    "Key 'space'  to start slideshow or stop slideshow.\r\n"
    "____________";

class Form2 : public tk::Form {
 public:
  explicit Form2(Program& program);

  tk::PictureBox Image1{this, "Image1"};
  tk::Image Image2{this, "Image2"};
  tk::ScrollBar VScroll1{this, "VScroll1", tk::Kind::VScrollBar};
  tk::ScrollBar HScroll1{this, "HScroll1", tk::Kind::HScrollBar};
  tk::ScrollBar VScroll2{this, "VScroll2", tk::Kind::VScrollBar};
  tk::Shape Shape1{this, "Shape1"};
  tk::Timer Timer1{this, "Timer1"};
  tk::Timer Timer2{this, "Timer2"};
  tk::Timer Timer3{this, "Timer3"};
  tk::CommonDialog CD{this, "CD"};

  bool bBeep = false, bStopAtEnd = false;
  bool bKeepV = false, bKeepH = false;
  double dRatioV = 0, dRatioH = 0;
  double dStepW = 0, dStepH = 0;
  int32_t lPicW = 0, lPicH = 0;
  int32_t lDownX = 0, lDownY = 0;

  // Next and previous with the end-of-list rules of `beeps` and `sautor`.
  void pbUp();
  void pbDown();

  // Life, keys and mouse (Form2.cpp).
  void Form_Load() override;
  void Form_KeyUp(int& KeyCode, int Shift) override;
  void Form_MouseDown(int Button, int Shift, double X, double Y) override;
  void Form_DblClick() override;
  void Form_Unload(int& Cancel) override;
  void Image1_DblClick();

  // Fit, zoom and pan (Form2Placing.cpp).
  void Timer1_Timer();
  void pPlace();
  void pPaint();
  void pZoomStep();
  void pZoomIn();
  void pZoomOut();
  void pSetBars();
  void VScroll1_Change();
  void HScroll1_Change();
  void Image1_MouseDown(int Button, double X, double Y);
  void Image1_MouseMove(int Button, double X, double Y);
  void Image1_MouseUp(int Button);

  // Slideshow and the focus timer (Form2Slideshow.cpp). pSlideshow is Space: it starts the
  // show, or stops it and has the picture placed afresh at its fitted size.
  void pSlideshow();
  void Timer2_Timer();
  void Timer3_Timer();

 private:
  void pNext();
  void pPrev();
  // What a move does first: the picture and its bars hidden, the next one starts centred.
  void leavePicture();
  void pGetPicture();
  // The right button's menu of the viewers, at the pointer.
  void pPopup();
  // Decodes the next and the previous file's pictures at their fitted size on a worker, so that
  // stepping finds them ready.
  void decodeNeighboursAhead();
  // Steps of a zoom after its limit test: one step more (1) or less (-1) at the same point.
  void zoomBy(int direction);
  // Shows `bar` for a picture `excess` twips larger than the screen, at the place the last zoom
  // kept (`keep`, `ratio`) or else in the middle.
  void showBar(tk::ScrollBar& bar, double excess, bool keep, double ratio);
  // One axis of a drag of Image1 by `travel` (the pointer's pixels, taken as twips): up to the
  // picture's edges, `bar` following; a picture found past its edges snaps back.
  void dragAlong(tk::ScrollBar& bar, double (tk::Control::*place)() const,
                 void (tk::Control::*setPlace)(double), double length, double screen, double travel,
                 bool barFollowsEdge);
  // The end-of-list rules around a move: none at the end (`atEnd`) when stopping there, a beep
  // on arriving there, and the slideshow ends there.
  void stepWithEndRules(const std::function<bool()>& atEnd, void (Form2::*move)());
  void addFields();

  static constexpr double kBarThickness = 255;
  static constexpr int kSlideIdleMs = 300;

  Program& program_;
};

}  // namespace vellumry
