#include "links/frmEdit.h"

#include "links/Links.h"
#include "platform/os/Utf.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/Value.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "program/Rcorners.h"
#include "program/mTop.h"

namespace vellumry {

namespace {
constexpr uint32_t kWhite = 0x00FFFFFF, kBlack = 0;
// The window's bottom stays this far above the screen's edge, clear of the task bar.
constexpr double kTaskbarTwips = 450;
}  // namespace

frmEdit::frmEdit(Program& program) : Form(program.runtime, "frmEdit"), program_(program) {
  // A thin fixed border and no title bar; activating cuts the rounded outline.
  setBorderStyle(1);
  setControlBox(false);
  setBackColor(tk::kSystemHighlight);
  Move(0, 0, 4290, 3390);
  Label(0).Move(120, 120, 1005, 240);
  Label(0).setCaption("Link Name:");
  Label(0).setForeColor(kWhite);
  Label(0).setBackStyle(0);
  Label.Load(1).setVisible(true);
  Label(1).Move(4080, 360, 2325, 360);
  Label(1).setCaption("");
  Label(1).setForeColor(kBlack);
  Text1.Move(120, 360, 3975, 375);
  List(0).setVisible(false);
  List.Load(2).Move(120, 840, 3975, 1560);
  List(2).setToolTipText("Click twice to open");
  List(2).setBackColor(tk::kSystemFace);
  List.Load(3).Move(4080, 840, 2295, 1815);
  btn(0).Move(2160, 2880, 975, 375);
  btn.Load(1).setVisible(true);
  btn(1).Move(3120, 2880, 975, 375);
  btn(1).setCaption("Cancel");

  btn.onClick = [this](int i) { btn_Click(i); };
  List.onClick = [this](int i) { List_Click(i); };
  Text1.onDblClick = [this] { Text1_DblClick(); };
  fields().add("dragX", dragX);
  fields().add("dragY", dragY);
}

void frmEdit::pShowMode(const std::string& mode) {
  const bool finding = mode == "find" || mode == "find2";
  program_.links.linkMode_ = mode;
  btn(0).setCaption(finding ? "Find" : mode == "add" ? "Add" : "Edit");
  setHeight(finding ? 3390 : 1380);
  List(2).setVisible(finding);
  for (int i : {0, 1}) btn(i).setTop(finding ? 2760 : 840);
  Show();
}

void frmEdit::Form_Activate() {
  const tk::Screen& screen = runtime().screen();
  setLeft((screen.Width - Width()) / 2);
  setTop((screen.Height - Height()) / 2);
  pSettop(*this);
  pMakeround(*this);
  List(2).Clear();
  List(3).Clear();
  if (!Text1.Text().empty()) selectAllText();
  Text1.SetFocus();
}

void frmEdit::btn_Click(int Index) {
  if (Index == 1) {
    program_.Form1.form().setEnabled(true);
    Label(0).setCaption("Link Name");
    Hide();
    return;
  }
  Links& links = Links::of(program_);
  const std::string& mode = program_.links.linkMode();
  if (mode == "add") links.pAdd();
  if (mode == "edit") links.pEdit();
  if (mode == "find") links.pFind();
  if (mode == "find2") links.pFind2();
}

void frmEdit::List_Click(int Index) {
  if (Index != 2 || !program_.links.findDone()) return;
  List(3).setListIndex(List(2).ListIndex());
  if (List(3).ListIndex() < 0) return;
  const int position = std::stoi(List(3).Text());
  Form1Controls& main = program_.mainWindow();
  if (program_.links.linkMode() == "find2")
    main.File2.setListIndex(position);
  else
    main.List(0).setListIndex(position);
}

void frmEdit::Text1_DblClick() { pSefocus(); }

void frmEdit::pSefocus() {
  if (tk::Trim(Text1.Text()).empty()) return;
  selectAllText();
  Text1.SetFocus();
}

void frmEdit::selectAllText() {
  Text1.setSelStart(0);
  Text1.setSelLength(static_cast<int>(os::charsFromUtf8(Text1.Text()).size()));
}

void frmEdit::Form_MouseDown(int Button, int, double X, double Y) {
  if (Button != tk::user::kLeftButton) return;
  dragX = tk::CLng(X);
  dragY = tk::CLng(Y);
}

void frmEdit::Form_MouseMove(int Button, int, double X, double Y) {
  // The buttons held, as bits: the left one moves the window whatever else is down.
  if ((Button & tk::user::kLeftButton) == 0) return;
  Move(Left() + X - dragX, Top() + Y - dragY, Width(), Height());
}

void frmEdit::Form_MouseUp(int, int, double, double) {
  const tk::Screen& screen = runtime().screen();
  if (Left() < 0) setLeft(0);
  if (screen.Width - Width() < Left()) setLeft(screen.Width - Width());
  if (Top() < 0) setTop(0);
  if (screen.Height - Height() - kTaskbarTwips < Top())
    setTop(screen.Height - Height() - kTaskbarTwips);
}

}  // namespace vellumry
