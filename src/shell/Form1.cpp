#include "shell/Form1.h"

#include "picture/PlainLoader.h"
#include "platform/os/FileSystem.h"
#include "platform/toolkit/Numbers.h"
#include "shell/Program.h"

namespace vellumry {

namespace {
constexpr const char* kPattern = ";*.emf;*.jpg;*.jpeg;*.bmp;*.gif;*.png;*.cur;*.ico;*.wmf;*.tif";
constexpr uint32_t kDesignFrameColor = 0x000080FF;
}  // namespace

// The design: places in twips, captions and tool tips as the window is drawn before Form_Load.
Form1::Form1(Program& program) : Form(program.runtime, "Form1"), program_(program) {
  setBorderStyle(0);
  setKeyPreview(true);
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
  // The stored pictures lie beside the program; without them the images stand empty.
  for (auto [image, file] :
       {std::pair{&Image2, "start.png"}, std::pair{&Image3, "start-passive.png"},
        std::pair{&Image4, "exit.png"}, std::pair{&Image5, "mark.gif"}}) {
    tk::resumeNext([&] {
      image->setPicture(LoadPicture(program.pictures, program.sInstallDir + "/ui/" + file));
    });
  }
  for (tk::Timer* t : {&Timer3, &Timer4, &Timer5, &Timer6}) t->setEnabled(false);
  Timer3.setInterval(50);
  Timer4.setInterval(50);
  Timer5.setInterval(500);
  Timer6.setInterval(500);

  Timer1.onTimer = [this] { Timer1_Timer(); };
  Timer2.onTimer = [this] { Timer2_Timer(); };
  Timer5.onTimer = [this] { Timer5_Timer(); };
  Timer6.onTimer = [this] { Timer6_Timer(); };
  Image2.onClick = [this] { Image2_Click(); };
  Image3.onMouseMove = [this](int, int, double, double) { Image3_MouseMove(); };
  Frame2.onMouseMove = [this](int, int, double, double) { Frame2_MouseMove(); };
  Label1.onChange = [this] { Label1_Change(); };
  VScroll1.onChange = [this] { VScroll1_Change(); };
  File2.onClick = [this] { File2_Click(); };
  File2.onDblClick = [this] { File2_DblClick(); };
  File2.onMouseDown = [this](int button, int, double, double) { File2_MouseDown(button); };
  Image1.onClick = [this](int i) { Image1_Click(i); };
  Image1.onDblClick = [this](int i) { Image1_DblClick(i); };
  Image1.onMouseDown = [this](int i, int button, int, double, double) {
    Image1_MouseDown(i, button);
  };
  Frame1.onMouseDown = [this](int button, int, double, double) { Frame1_MouseDown(button); };
  List.onMouseDown = [this](int i, int button, int, double, double) { List_MouseDown(i, button); };
  btnmenu.onClick = [this] { btnmenu_Click(); };
  btn.onClick = [this](int i) { btn_Click(i); };
  Image4.onClick = [this] { Image4_Click(); };
  Label3.onClick = [this] { Label3_Click(); };
  Label.onMouseMove = [this](int, int, double, double) { Label_MouseMove(); };
  Timer3.onTimer = [this] { Timer3_Timer(); };
  Timer4.onTimer = [this] { Timer4_Timer(); };

  auto& f = fields();
  f.add("nLoad", nLoad);
  f.add("nSel", nSel);
  f.add("nCount", nCount);
  f.add("nClear", nClear);
  f.add("sExt", sExt);
  f.add("nPerRow", nPerRow);
  f.add("nRolled", nRolled);
  f.add("nAfterClear", nAfterClear);
  f.add("nPerPage", nPerPage);
  f.add("nShownFirst", nShownFirst);
  f.add("nShownLast", nShownLast);
  f.add("bLoaded", bLoaded);
  f.add("bSwitching", bSwitching);
}

std::string Form1::setting(const std::string& key) const { return program_.ReadSetting(key); }

double Form1::screenW() const { return tk::CLng(runtime().screen().Width); }
double Form1::screenH() const { return tk::CLng(runtime().screen().Height); }

void Form1::Form_Load() {
  Program& p = program_;
  const tk::Screen& screen = runtime().screen();
  p.iCurLink = -1;
  p.nDeleted = 0;
  pAct();
  Move(0, 0, screen.Width, screen.Height);
  Frame1.Move(0, 0, screen.Width, screen.Height);
  nLoad = 1;
  VScroll1.setSmallChange(1);
  VScroll1.setLargeChange(1);
  VScroll1.setLeft(screen.Width - VScroll1.Width());
  btn(1).setLeft(screen.Width - btn(1).Width());
  if (setting("showmb") != "0") {
    VScroll1.setHeight(screen.Height - btn(1).Height() - 55);
    VScroll1.setTop(btn(1).Height() + 55);
  } else {
    btn(1).setVisible(false);
    VScroll1.setHeight(screen.Height);
    VScroll1.setTop(0);
  }
  nRolled = 0;
  bLoaded = false;
  p.vScreenPxW = p.ConvertTwipsToPixels(tk::CLng(screen.Width), 0);
  p.vScreenPxH = p.ConvertTwipsToPixels(tk::CLng(screen.Height), 1);
  Label.setHeight(screen.Height);
  p.sDest = setting("dest");
  if (p.sDest.empty() || !os::FolderExists(p.sDest)) p.sDest = p.places.picturesFolder;
  File2.setPath(p.sDest);
  // The link list comes from list0.txt once the link store is there.
  Timer6.setEnabled(true);
  Label3.setCaption(setting("Inw"));
  Label3.setCaption(Label3.Caption() != ">" ? ">" : "<");
  pPanelWidth();
}

void Form1::pPanelWidth() {
  bool wide = Label3.Caption() != "<";
  Frame2.setWidth(wide ? 3935 : 1935);
  Label3.setCaption(wide ? "<" : ">");
  Label3.setLeft(wide ? 3680 : 1680);
  List(0).setWidth(wide ? 3815 : 1815);
  File2.setWidth(wide ? 3815 : 1815);
}

void Form1::Timer5_Timer() {
  Timer5.setEnabled(false);
  if (Enabled()) btnmenu.SetFocus();
}

void Form1::Timer6_Timer() {
  Timer6.setEnabled(false);
  Image2_Click();
  if (File2.ListCount() < 1) {
    int answer = runtime().MsgBox(
        "  No images in the own folder of this record!\r\n\r\nDo you want to close: 'Vellumry'?",
        36, "");
    if (answer == tk::mb::Yes) return runtime().End();
  }
  if (setting("showll") != "0" && List(0).ListCount() > 0) program_.frmMenu().mnuSllist_Click();
}

void Form1::Form_QueryUnload(int& Cancel, int) {
  program_.WriteSetting("Inw", Label3.Caption());
  if (program_.nDeleted != 0) {
    Cancel = 1;
    pAskDelete(1);
  }
}

void Form1::Form_Unload(int&) { pQuit(); }

void Form1::pQuit() {
  program_.WriteSetting("dest", "");
  for (tk::Form* f : std::vector<tk::Form*>(runtime().Forms())) f->Unload();
  runtime().End();
}

}  // namespace vellumry
