#include "tools/frmSet.h"

#include <cstdlib>
#include <string>

#include "platform/os/FileSystem.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "program/mTop.h"

namespace vellumry {

namespace {
constexpr uint32_t kDarkGrey = 0x00404040, kWhite = 0x00FFFFFF;
constexpr double kMinCell = 1264;  // a cell must be taller than this, as the grid wants it
constexpr double kPageTop = 400;
constexpr double kHeight = 4200;
constexpr double kPageHeight = 2840;

// Picks the item of a drop-down list that reads `text`; a text that isn't an item leaves the
// list as it was.
int16_t numberIn(const std::string& text) {
  return static_cast<int16_t>(std::strtol(text.c_str(), nullptr, 10));
}
}  // namespace

frmSet::frmSet(Program& program) : Form(program.runtime, "frmSet"), program_(program) {
  setCaption("Settings");
  // The design's boxes were measured for a small sans-serif text.
  setFontName("Arial");
  setFontSize(7.5);
  placeControls();
  btn.onClick = [this](int i) { btn_Click(i); };
  cbo.onClick = [this](int i) { cbo_Click(i); };
  cmb.onClick = [this](int i) { cmb_Click(i); };
  TabStrip1.onClick = [this] { TabStrip1_Click(); };
  fields().add("curTab", curTab);
  fields().add("rowsChecked", rowsChecked);
  fields().add("firstActivate", firstActivate);
}

void frmSet::placeControls() {
  Move(0, 0, 7935, kHeight);
  TabStrip1.Move(0, 0, 7815, 3735);
  TabStrip1.addTab("grid preview(stage 1)");
  TabStrip1.addTab("line preview(stage 2)");
  FrameList1(0).Move(720, 3240, 4215, 375);
  FrameList1(0).setBorderStyle(0);
  for (int page : {1, 2}) {
    FrameList1.Load(page).setVisible(true);
    FrameList1(page).setBorderStyle(0);
  }
  // The pages end where the note begins: elements of an array stack in index order, so a
  // taller page would cover the note.
  FrameList1(1).Move(0, 360, 7815, kPageHeight);
  FrameList1(2).Move(0, 5760, 7815, kPageHeight);

  struct Caption {
    int index, page;
    double left, top, width, height;
    const char* text;
  };
  const Caption labels[] = {
      {0, 1, 360, 360, 1515, 240, " **Select rows:"},
      {1, 2, 1560, 240, 4050, 240, "** Slideshow interval:                seconds"},
      {2, 0, 0, 120, 3495, 195, "** (Changes will appear when reloading images!)"},
      {3, 1, 4320, 360, 2340, 195, "**Grid preview background color:"},
      {4, 1, 3720, 0, 2970, 195, "**Color of the frame of the selected image:"}};
  // Element 0 stands in the form already; the others are loaded onto their page.
  const auto place = [this](auto& array, const Caption& c) {
    auto& control = c.index == 0 ? array(0) : array.Load(c.index);
    control.setVisible(true);
    control.setContainer(&FrameList1(c.page));
    control.Move(c.left, c.top, c.width, c.height);
    control.setCaption(c.text);
  };
  for (const Caption& c : labels) place(Label1, c);
  const Caption checks[] = {
      {0, 2, 0, 600, 6975, 615, "Show play commands when an animated gif is displayed"},
      {1, 1, 0, 2280, 7815, 615,
       "**Show folder name in text box when adding new link name (as a prompt)"},
      {2, 1, 0, 1320, 6735, 615,
       "Display \"linklist\" when starting the program (only if the list of links is not empty)"},
      {3, 1, 0, 1800, 4695, 615, "Show minimize button on program launch"},
      {4, 1, 0, 840, 6255, 495, "**Frame of images to screen proportion"},
      {6, 2, 0, 1200, 3855, 375, "Beep at the end of the file list"},
      {7, 2, 0, 1680, 4935, 375, "Stop scrolling at the end of the file list"}};
  for (const Caption& c : checks) place(Check, c);

  cbo(0).setContainer(&FrameList1(1));
  cbo(0).Move(1920, 240, 735, 405);
  cbo.Load(1).setVisible(true);
  cbo(1).setContainer(&FrameList1(2));
  cbo(1).Move(3840, 120, 735, 405);
  for (int i : {0, 1}) {
    cbo(i).setBackColor(kDarkGrey);
    cbo(i).setForeColor(kWhite);
  }

  btn(0).Move(6000, 3240, 855, 375);
  btn(0).setCaption("Save");
  btn.Load(1).setVisible(true);
  btn(1).Move(6840, 3240, 855, 375);
  btn(1).setCaption("Cancel");
  btn.Load(2).setContainer(&FrameList1(1));  // hidden until a rows value has been checked
  btn(2).Move(2880, 360, 735, 255);
  btn(2).setCaption("Check");

  cmb(0).setContainer(&FrameList1(1));
  cmb(0).Move(6840, 360, 735, 255);
  cmb.Load(1).setVisible(true);
  cmb(1).setContainer(&FrameList1(1));
  cmb(1).Move(6840, 0, 735, 255);
  for (int i : {0, 1}) cmb(i).setCaption("Collor");
  CD(0).setVisible(false);
}

void frmSet::Form_Load() {
  program_.Form1.form().setEnabled(false);
  pSettop(*this);
  curTab = 1;
  FrameList1(1).setTop(kPageTop);
  FrameList1(2).setTop(kPageTop);
  FrameList1(2).setVisible(false);
  setHeight(kHeight);
  const tk::Screen& screen = runtime().screen();
  setLeft(static_cast<double>(tk::intDiv(screen.Width, 2) - tk::intDiv(Width(), 2)));
  setTop(static_cast<double>(tk::intDiv(screen.Height, 2) - tk::intDiv(Height(), 2)));

  for (int rows = 2; rows <= 10; ++rows) cbo(0).AddItem(std::to_string(rows));
  cbo(1).AddItem("1");
  cbo(1).AddItem("3");
  for (int seconds = 5; seconds <= 60; seconds += 5) cbo(1).AddItem(std::to_string(seconds));

  cmb(0).setBackColor(static_cast<uint32_t>(program_.readSettingNumber("gformc")));
  cmb(1).setBackColor(static_cast<uint32_t>(program_.readSettingNumber("gselfrc")));

  // Three keys count as on only when they read "1", the others unless they read "0".
  const auto onWhenOne = [this](const char* key) { return program_.readSetting(key) == "1"; };
  const auto onUnlessZero = [this](const char* key) { return program_.readSetting(key) != "0"; };
  Check(0).setValue(program_.viewer.sAniGif() == "1");
  Check(2).setValue(onWhenOne("showll"));
  Check(1).setValue(onWhenOne("lnvar"));
  Check(3).setValue(onUnlessZero("showmb"));
  Check(4).setValue(onUnlessZero("frameprop"));
  Check(6).setValue(onUnlessZero("beeps"));
  Check(7).setValue(onUnlessZero("sautor"));
}

void frmSet::Form_Activate() {
  if (firstActivate) return;
  cbo(0).setText(program_.readSetting("rows"));
  cbo(1).setText(program_.readSetting("slsh"));
  btn(2).setVisible(false);
  firstActivate = true;
}

void frmSet::cbo_Click(int Index) {
  if (Index != 0) return;
  rowsChecked = numberIn(cbo(0).Text());
  const double screenHeight = tk::roundHalfEven(runtime().screen().Height);
  tk::Image& cell = program_.mainWindow().Image1(0);
  for (int16_t t = rowsChecked; t >= 2; --t) {
    cell.setHeight(static_cast<double>(tk::intDiv(screenHeight, t) - tk::intDiv(300, t)));
    if (cell.Height() > kMinCell) {
      rowsChecked = t;
      break;
    }
  }
  btn(2).setVisible(true);
}

void frmSet::cmb_Click(int Index) {
  tk::CommonDialog& picker = CD(0);
  picker.Color = cmb(Index).BackColor();
  picker.Flags = 1;  // start from that colour
  picker.ShowColor();
  cmb(Index).setBackColor(picker.Color);
}

void frmSet::TabStrip1_Click() {
  const int chosen = TabStrip1.selectedItem();
  if (chosen == curTab) return;
  FrameList1(chosen).setVisible(true);
  FrameList1(curTab).setVisible(false);
  curTab = static_cast<int16_t>(chosen);
}

void frmSet::btn_Click(int Index) {
  if (Index == 0) pSave();
  if (Index == 2) cbo(0).setText(std::to_string(rowsChecked));
  if (Index <= 1) pClose();
}

void frmSet::pSave() {
  const auto flag = [this](int i) { return std::string(Check(i).Value() == 1 ? "1" : "0"); };
  const auto colour = [this](int i) {
    return std::to_string(static_cast<int32_t>(cmb(i).BackColor()));
  };
  program_.writeSetting("rows", rowsChecked != 0 ? std::to_string(rowsChecked) : cbo(0).Text());
  program_.writeSetting("showll", flag(2));
  program_.writeSetting("lnvar", flag(1));
  program_.writeSetting("gformc", colour(0));
  program_.writeSetting("gselfrc", colour(1));
  program_.writeSetting("slsh", cbo(1).Text());
  program_.writeSetting("anigifp", flag(0));
  program_.viewer.setAniGif(flag(0));
  program_.writeSetting("showmb", flag(3));
  program_.writeSetting("frameprop", flag(4));
  program_.writeSetting("beeps", flag(6));
  program_.writeSetting("sautor", flag(7));
  // The settings as last saved; nothing reads this copy.
  const std::string copy = program_.places.programFolder + "/1.INI";
  os::CopyFile(program_.shell.sIniPath(), copy, true);  // replaces the old copy whole
}

void frmSet::pClose() {
  tk::Form& main = program_.Form1.form();
  main.setEnabled(true);
  program_.mainWindow().Timer5.setEnabled(true);  // gives the menu button the focus
  Unload();
}

}  // namespace vellumry
