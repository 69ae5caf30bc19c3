#include "program/Form1Controls.h"

#include "picture/PlainLoader.h"
#include "platform/toolkit/Numbers.h"
#include "program/Program.h"

namespace vellumry {

namespace {
constexpr const char* kPattern = ";*.emf;*.jpg;*.jpeg;*.bmp;*.gif;*.png;*.cur;*.ico;*.wmf;*.tif";
constexpr uint32_t kDesignFrameColor = 0x000080FF;
}  // namespace

Form1Controls::Form1Controls(Program& program) : Form(program.runtime, "Form1") {
  setBorderStyle(0);
  setKeyPreview(true);
  placeGrid();
  placePanel();
  placeOthers();
  loadStoredPictures(program);
}

void Form1Controls::placeGrid() {
  Frame1.Move(4800, 2400, 3975, 3375);
  Frame1.setBorderStyle(0);
  for (tk::Control* c :
       {static_cast<tk::Control*>(&Image1(0)), static_cast<tk::Control*>(&Image123(0)),
        static_cast<tk::Control*>(&Img1(0)), static_cast<tk::Control*>(&Frame3(0)),
        static_cast<tk::Control*>(&Label)})
    c->setContainer(&Frame1);
  Frame3(0).Move(0, 0, 2295, 2055);
  Frame3(0).setBorderWidth(4);
  Frame3(0).setBorderColor(kDesignFrameColor);
  Frame3(0).setVisible(false);
  Label.Move(0, 0, 150, 8055);
  Label.setBackColor(tk::kSystemHighlight);
  Label.setVisible(false);
  Image1(0).Move(0, 150, 1575, 1335);
  Image1(0).setStretch(true);
  Image1(0).setVisible(false);
  Image123(0).Move(0, 0, 765, 975);
  Image123(0).setVisible(false);
  Img1(0).Move(3480, 0, 975, 375);
  Img1(0).setVisible(false);
}

void Form1Controls::placePanel() {
  Frame2.Move(0, 45, 1935, 7935);
  Frame2.setBorderStyle(0);
  File2.setContainer(&Frame2);
  File2.Move(0, 30, 1815, 6720);
  File2.setPattern(kPattern);
  List.Load(1);
  List(0).setContainer(&Frame2);
  List(0).Move(0, 30, 1815, 2370);
  List(0).setToolTipText("Click twise to open");
  List(0).setVisible(false);
  List(1).Move(1800, 0, 1695, 2400);
  for (tk::Image* img : {&Image2, &Image3}) {
    img->setContainer(&Frame2);
    img->setStretch(true);
    img->Move(240, 6940, 480, 480);
  }
  Image2.setVisible(false);
  Image4.setContainer(&Frame2);
  Image4.setStretch(true);
  Image4.Move(1080, 7440, 480, 480);
  Image4.setToolTipText("Exit");
  btnmenu.setContainer(&Frame2);
  btnmenu.Move(1080, 6840, 735, 255);
  btnmenu.setCaption("Menu");
  btn(0).setContainer(&Frame2);
  btn(0).Move(1080, 7140, 735, 255);
  btn(0).setCaption("< Hide");
  btn.Load(1);
  btn(1).setContainer(this);
  btn(1).Move(0, 0, 255, 195);
  btn(1).setCaption("__");
  btn(1).setToolTipText("Minimize");
  btn(1).setVisible(true);
  Label3.setContainer(&Frame2);
  Label3.Move(1680, 7680, 240, 240);
  Label1.setContainer(&Frame2);
  Label1.Move(360, 7680, 285, 195);
  Label1.setVisible(false);
}

void Form1Controls::placeOthers() {
  VScroll1.Move(0, 0, 255, 7935);
  VScroll1.setMax(0);
  VScroll1.setVisible(false);
  Picture1.Move(1080, 5760, 1215, 495);
  Picture1.setAutoSize(true);
  Picture1.setVisible(false);
  Frame4.Move(0, 0, 2415, 1815);
  Frame4.setVisible(false);
  for (tk::Image* img : {&Image5, &Image2123}) img->setContainer(&Frame4);
  Image5.Move(0, 0, 256, 256);
  Image5.setStretch(true);
  Image2123.Move(0, 0, 1575, 1215);
  for (tk::Timer* t : {&Timer3, &Timer4, &Timer5, &Timer6}) t->setEnabled(false);
  Timer3.setInterval(50);
  Timer4.setInterval(50);
  Timer5.setInterval(500);
  Timer6.setInterval(500);
}

void Form1Controls::loadStoredPictures(Program& program) {
  // The stored pictures lie beside the program; without them the images stand empty.
  for (auto [image, file] :
       {std::pair{&Image2, "start.png"}, std::pair{&Image3, "start-passive.png"},
        std::pair{&Image4, "exit.png"}, std::pair{&Image5, "mark.gif"}}) {
    tk::resumeNext([&] {
      image->setPicture(LoadPicture(program.pictures(), program.shell.sDataDir() + "/ui/" + file));
    });
  }
}

double Form1Controls::screenW() const { return tk::CLng(runtime().screen().Width); }
double Form1Controls::screenH() const { return tk::CLng(runtime().screen().Height); }

}  // namespace vellumry
