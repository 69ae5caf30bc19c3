#pragma once
// The link list: the part of the main window that keeps named links to folders in List(0)
// (names) and List(1) (targets), stores them in the link list file after every change, adds,
// edits, removes, sorts, finds and opens them. Its fields stand in the form's field table.

#include <string>

namespace vellumry {

class Program;
class Form1Controls;
class Grid;
namespace tk {
class ListControl;
}

class Links {
 public:
  // Wires the link list's events of `form`; `grid` opens links and asks about marked files.
  Links(Program& program, Form1Controls& form, Grid& grid);
  // The link part of the program's main window, for the dialog and the menus.
  static Links& of(Program& program);

  // True while List_Click takes the selection away because marked files are pending.
  bool listBusy = false;
  // The selected name, kept across a sort.
  std::string sSortName;

  // The file and the store (Links.cpp).
  void pLoadlist();
  void btnSAVE_Click();

  // Adding, editing, removing, sorting, selecting and opening (LinkOperations.cpp).
  void btnADD_Click();
  void pAdd();
  void btnEDIT_Click();
  void pEdit();
  void btnREMOVE_Click();
  void btnAz_Click();
  void btnZa_Click();
  void pSortlist();
  void List_Click(int Index);
  void List_DblClick(int Index);
  // Tells that the selected link's folder is gone; the link stays for the user to remove.
  void pInvalidLink();

  // Finding links and pictures (Finding.cpp).
  void btnFIND_Click();
  void mnuFimg_Click();
  void pFind();
  void pFind2();

 private:
  // The path of the link list file, beside the settings file.
  std::string listPath() const;
  // True when the name typed in the dialog can't be stored: empty (then `emptyMessage` is
  // shown, and with `clearEmpty` the blanks go) or holding the file's separator.
  bool nameRefused(const std::string& emptyMessage, bool clearEmpty);
  // Appends the dialog's name and target, trimmed, as a record, and empties both.
  void appendTyped();
  // Saves the list and closes the dialog, giving the main window back.
  void storeAndClose();
  // Searches the items of `list` for the dialog's text, lists the hits in the dialog.
  void searchList(const tk::ListControl& list, const std::string& emptyMessage);
  Program& program_;
  Form1Controls& form_;
  Grid& grid_;
};

}  // namespace vellumry
