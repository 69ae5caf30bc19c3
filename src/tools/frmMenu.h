#pragma once
// The form that owns the popup menus. It is never shown; each entry forwards to a routine of
// the window that popped it up.

#include <initializer_list>
#include <string>

#include "platform/toolkit/Form.h"
#include "platform/toolkit/Menu.h"

namespace vellumry {

class Program;

class frmMenu : public tk::Form {
 public:
  explicit frmMenu(Program& program);

  tk::Menu mnuLinkList{this, "mnuLinkList", "MenuLL"};
  tk::Menu L9{this, "L9", "-"}, mHllist{this, "mHllist", "Hide Link List"}, L6{this, "L6", "-"},
      mnuEllist{this, "mnuEllist", "Edit Link Name"},
      mnuRllist{this, "mnuRllist", "Remove Link Name"},
      mnuFllist{this, "mnuFllist", "Find Link Name"}, L8{this, "L8", "-"},
      mnuAz{this, "mnuAz", " A > Z"}, mnuZa{this, "mnuZa", " Z > A"},
      mnuOfo2{this, "mnuOfo2", "Open Folder"};

  tk::Menu mnuSaveimg2{this, "mnuSaveimg2", "SaveImg"};
  tk::Menu mnuSaveimg22{this, "mnuSaveimg22", "Save Image As"},
      mOpentxt{this, "mOpentxt", "Open text from multiline textbox"},
      mnuImgI22{this, "mnuImgI22", "File Info"}, mnuMin{this, "mnuMin", "Minimize"},
      mnuL1{this, "mnuL1", "-"}, mnuExit2{this, "mnuExit2", "Exit"};

  tk::Menu mnuFimg0{this, "mnuFimg0", "Find Image"};
  tk::Menu mnuFimg00{this, "mnuFimg00", "Find Image"};

  tk::Menu mnuSaveimg0{this, "mnuSaveimg0", "SaveImg"};
  tk::Menu mnuFimg{this, "mnuFimg", "Find Image"},
      mnuSaveimg00{this, "mnuSaveimg00", "Save Image As"},
      mDelselected{this, "mDelselected", "Delete Selected File"},
      mnuImgI{this, "mnuImgI", "File Info"};

  tk::Menu mnumenu{this, "mnumenu", "Menu"};
  tk::Menu L7{this, "L7", "-"}, mnuAllist{this, "mnuAllist", "Add to Link List"},
      mnuSllist{this, "mnuSllist", "Show Link List"}, L3{this, "L3", "-"},
      mnuSet{this, "mnuSet", "Settings"}, mnuHelp{this, "mnuHelp", "Help                  "},
      mnuAbout{this, "mnuAbout", "About"}, line1{this, "line1", "-"},
      mnuMinimize{this, "mnuMinimize", "Minimize"}, mnuExit{this, "mnuExit", "Exit"};

  // The marking entry's caption for the selected file: marking, or taking the mark back.
  void pDelcaption();
  void mnuSllist_Click();
  void mnuOfo2_Click();
  void mnuRllist_Click();
  void mnuSaveimg22_Click();
  void mnuHelp_Click();
  void mnuMinimize_Click();
  void mnuMin_Click();
  void mnuExit_Click();
  void mnuExit2_Click();

 private:
  // The full path of the file selected in the main window's file list.
  std::string selectedFile();
  void popup(tk::Menu& top, std::initializer_list<tk::Menu*> entries);
  Program& program_;
};

}  // namespace vellumry
