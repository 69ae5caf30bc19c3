// Finding a link by its name, or a picture of the folder by its file name, with the dialog.
#include "links/Links.h"
#include "links/frmEdit.h"
#include "platform/toolkit/Value.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

void Links::btnFIND_Click() {
  frmEdit& dialog = program_.frmEdit();
  dialog.pShowMode("find");
  form_.setEnabled(false);
  dialog.Text1.setText("");
}

void Links::mnuFimg_Click() {
  frmEdit& dialog = program_.frmEdit();
  dialog.Label(0).setCaption("Image Name");
  dialog.pShowMode("find2");
  form_.setEnabled(false);
}

void Links::pFind() { searchList(form_.List(0), "Please type a LinkName!"); }

void Links::pFind2() { searchList(form_.File2, "Please type a Name (image name)!"); }

void Links::searchList(const tk::ListControl& list, const std::string& emptyMessage) {
  frmEdit& dialog = program_.frmEdit();
  tk::Runtime& rt = form_.runtime();
  if (tk::Trim(dialog.Text1.Text()).empty()) {
    rt.MsgBox(emptyMessage);
    dialog.Text1.setText("");
    dialog.Text1.SetFocus();
    return;
  }
  dialog.List(2).Clear();
  dialog.List(3).Clear();
  // The text as typed, blanks at its ends included; case doesn't count, nothing is a wildcard.
  const std::string wanted = tk::toUpper(dialog.Text1.Text());
  bool hit = false;
  for (int i = 0; i < list.ListCount(); ++i) {
    if (tk::toUpper(list.List(i)).find(wanted) == std::string::npos) continue;
    dialog.List(2).AddItem(list.List(i));
    dialog.List(3).AddItem(std::to_string(i));
    hit = true;
  }
  if (hit)
    program_.links.findDone_ = true;
  else
    rt.MsgBox("Not found", tk::mb::Exclamation, "Not found");
  dialog.pSefocus();
}

}  // namespace vellumry
