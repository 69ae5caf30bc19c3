// Adding, editing, removing, sorting, selecting and opening links.
#include <algorithm>

#include "grid/Grid.h"
#include "links/LinkFile.h"
#include "links/Links.h"
#include "links/frmEdit.h"
#include "platform/os/FileSystem.h"
#include "platform/os/Folders.h"
#include "platform/toolkit/Value.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

namespace {
constexpr const char* kCrLf = "\r\n";

// The separator of the link list file can't stand in a name or a folder: the file has no way
// to tell it from a real separator, and the names would fall out of step with their folders.
bool holdsSeparator(const std::string& text) {
  return text.find(kLinkSeparator) != std::string::npos;
}

// Whether the typed `text` names the same as the stored `item`: the typed side trimmed, both
// sides upper-cased.
bool sameAs(const std::string& text, const std::string& item) {
  return tk::toUpper(tk::Trim(text)) == tk::toUpper(item);
}

// The box that names the link which already goes to a folder.
std::string sameLinkText(const std::string& name, const std::string& target) {
  return std::string("The name: ") + kCrLf + name + kCrLf + kCrLf +
         " is with the same link : " + kCrLf + tk::Trim(target) + " !";
}
}  // namespace

void Links::btnADD_Click() {
  const std::string path = form_.File2.Path();
  tk::Runtime& rt = form_.runtime();
  for (int i = 0; i != form_.List(0).ListCount(); ++i) {
    if (!sameAs(path, form_.List(1).List(i))) continue;
    rt.MsgBox(sameLinkText(form_.List(0).List(i), form_.List(1).List(i)), tk::mb::Information, "");
    return;
  }
  if (holdsSeparator(path)) {
    rt.MsgBox("This folder can't be a link: its path holds *%*.");
    return;
  }
  // Shown first: its activation selects what the box held before, which the new text replaces.
  frmEdit& dialog = program_.frmEdit();
  dialog.pShowMode("add");
  form_.setEnabled(false);
  dialog.Label(1).setCaption(path);
  const bool prompt = program_.readSetting("lnvar") != "0";
  dialog.Text1.setText(prompt ? os::lastComponent(path) : "");
}

bool Links::nameRefused(const std::string& emptyMessage, bool clearEmpty) {
  frmEdit& dialog = program_.frmEdit();
  const std::string& typed = dialog.Text1.Text();
  if (tk::Trim(typed).empty()) {
    form_.runtime().MsgBox(emptyMessage);
    if (clearEmpty) dialog.Text1.setText("");
    dialog.Text1.SetFocus();
    return true;
  }
  if (!holdsSeparator(typed)) return false;
  form_.runtime().MsgBox("Please type a Link Name without *%*.");
  return true;
}

void Links::pAdd() {
  frmEdit& dialog = program_.frmEdit();
  tk::ListBox& names = form_.List(0);
  tk::ListBox& targets = form_.List(1);
  tk::Runtime& rt = form_.runtime();
  const std::string typed = dialog.Text1.Text(), target = dialog.Label(1).Caption();
  if (nameRefused("Please type a Link Name.", false)) return;
  for (int i = 0; i != names.ListCount(); ++i) {
    if (sameAs(typed, names.List(i))) {
      rt.MsgBox("The name: " + tk::Trim(names.List(i)) +
                "  already exist! Please type a different name.");
      return;
    }
    if (sameAs(target, targets.List(i))) {
      rt.MsgBox("The name: " + names.List(i) +
                " with the same link : " + tk::Trim(targets.List(i)) + " (link alredy exist)!");
      return;
    }
  }
  const int added = names.ListCount();
  appendTyped();
  names.setListIndex(added);
  targets.setListIndex(added);
  storeAndClose();
}

void Links::btnEDIT_Click() {
  if (form_.List(0).ListIndex() < 0) {
    form_.runtime().MsgBox("Please select a LinkName for edition!");
    return;
  }
  frmEdit& dialog = program_.frmEdit();
  dialog.pShowMode("edit");
  form_.setEnabled(false);
  dialog.Label(1).setCaption(form_.List(1).Text());
  dialog.Text1.setText(form_.List(0).Text());
}

void Links::pEdit() {
  frmEdit& dialog = program_.frmEdit();
  tk::ListBox& names = form_.List(0);
  tk::ListBox& targets = form_.List(1);
  tk::Runtime& rt = form_.runtime();
  const std::string typed = dialog.Text1.Text(), target = dialog.Label(1).Caption();
  if (nameRefused("Please type a LinkName!", true)) return;
  const int sel = names.ListIndex();
  for (int i = 0; i != names.ListCount(); ++i) {
    if (i == names.ListIndex()) continue;  // the record under edit never conflicts with itself
    if (sameAs(typed, names.List(i))) {
      rt.MsgBox("The name: " + tk::Trim(typed) + kCrLf + "alredy exist!", tk::mb::Information, "");
      return;
    }
    if (sameAs(target, targets.List(i))) {
      rt.MsgBox(sameLinkText(names.List(i), target), tk::mb::Information, "");
      return;
    }
  }
  names.setListIndex(sel);
  targets.setListIndex(sel);
  if (sel >= 0 && !tk::Trim(target).empty()) {
    // The edited record leaves its place and goes last.
    names.RemoveItem(sel);
    targets.RemoveItem(sel);
    appendTyped();
    names.setListIndex(names.ListCount() - 1);
  }
  storeAndClose();
}

void Links::appendTyped() {
  frmEdit& dialog = program_.frmEdit();
  form_.List(0).AddItem(tk::Trim(dialog.Text1.Text()));
  dialog.Text1.setText("");
  form_.List(1).AddItem(tk::Trim(dialog.Label(1).Caption()));
  dialog.Label(1).setCaption("");
}

void Links::storeAndClose() {
  btnSAVE_Click();
  form_.setEnabled(true);
  frmEdit& dialog = program_.frmEdit();
  dialog.Text1.setText("");
  dialog.Hide();
}

void Links::btnREMOVE_Click() {
  tk::ListBox& names = form_.List(0);
  if (names.ListIndex() < 0) {
    form_.runtime().MsgBox("Plese select a Link Name (click over it)!");
    return;
  }
  names.RemoveItem(names.ListIndex());
  form_.List(1).RemoveItem(form_.List(1).ListIndex());
  btnSAVE_Click();
}

void Links::btnAz_Click() {
  program_.links.sortAsc_ = true;
  pSortlist();
}

void Links::btnZa_Click() {
  program_.links.sortAsc_ = false;
  pSortlist();
}

void Links::pSortlist() {
  // A failure ends the sort where it stands, silently and unsaved.
  tk::resumeNext([&] {
    frmEdit& dialog = program_.frmEdit();
    tk::ListBox& names = form_.List(0);
    tk::ListBox& targets = form_.List(1);
    dialog.List(2).Clear();
    dialog.List(3).Clear();
    program_.links.findDone_ = false;
    sSortName = names.ListIndex() >= 0 ? names.Text() : "";
    std::vector<std::string> sorted;
    for (int i = 0; i != names.ListCount(); ++i) sorted.push_back(tk::Trim(names.List(i)));
    // Binary order of the bytes: every capital before every small letter.
    std::stable_sort(sorted.begin(), sorted.end(),
                     [ascending = program_.links.sortAsc()](const auto& a, const auto& b) {
                       return ascending ? a < b : b < a;
                     });
    // Each name takes the target of the first record of exactly that name: equal names share
    // one, and a name that only its blanks told apart finds none, reading past the list's end.
    std::vector<std::string> sortedTargets;
    for (const std::string& name : sorted) {
      int j = 0;
      while (j != names.ListCount() && names.List(j) != name) ++j;
      sortedTargets.push_back(tk::Trim(targets.List(j)));
    }
    names.Clear();
    targets.Clear();
    for (size_t k = 0; k != sorted.size(); ++k) {
      names.AddItem(sorted[k]);
      targets.AddItem(sortedTargets[k]);
    }
    int selected = -1;
    for (int j = 0; j != names.ListCount(); ++j)
      if (!sSortName.empty() && names.List(j) == sSortName) selected = j;
    names.setListIndex(selected);
    btnSAVE_Click();
  });
}

void Links::List_Click(int Index) {
  if (Index != 0) return;
  if (program_.grid.nDeleted() != 0 && !listBusy) {
    // Marked files are asked about before any link is taken.
    listBusy = true;
    form_.List(0).setListIndex(-1);
    grid_.pAskDelete(Grid::kAskLink);
    return;
  }
  listBusy = false;
  form_.List(1).setListIndex(form_.List(0).ListIndex());
}

void Links::List_DblClick(int Index) {
  if (Index != 0) return;
  const std::string target = form_.List(1).Text();
  if (!os::FolderExists(target)) return pInvalidLink();
  if (target != form_.File2.Path()) grid_.pGoLink();
}

void Links::pInvalidLink() {
  form_.runtime().MsgBox(std::string("The Link does not exist! ") + kCrLf + form_.List(1).Text() +
                             kCrLf + kCrLf +
                             " You must remove the name of the link: " + form_.List(0).Text(),
                         tk::mb::Information, "Invalid Path");
}

}  // namespace vellumry
