#include "tools/frmMenu.h"

#include "grid/Grid.h"
#include "links/Links.h"
#include "platform/os/FileSystem.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "program/mOpenFile.h"
#include "tools/About.h"
#include "tools/Imginfo.h"
#include "tools/Saveimg.h"
#include "tools/frmSet.h"

namespace vellumry {

frmMenu::frmMenu(Program& program) : Form(program.runtime, "frmMenu"), program_(program) {
  popup(mnuLinkList,
        {&L9, &mHllist, &L6, &mnuEllist, &mnuRllist, &mnuFllist, &L8, &mnuAz, &mnuZa, &mnuOfo2});
  popup(mnuSaveimg2, {&mnuSaveimg22, &mOpentxt, &mnuImgI22, &mnuMin, &mnuL1, &mnuExit2});
  popup(mnuFimg0, {&mnuFimg00});
  popup(mnuSaveimg0, {&mnuFimg, &mnuSaveimg00, &mDelselected, &mnuImgI});
  popup(mnumenu, {&L7, &mnuAllist, &mnuSllist, &L3, &mnuSet, &mnuHelp, &mnuAbout, &line1,
                  &mnuMinimize, &mnuExit});
  mnuHelp.setShortcut("F1");

  mHllist.onClick = [this] { mnuSllist_Click(); };
  mnuSllist.onClick = [this] { mnuSllist_Click(); };
  mnuOfo2.onClick = [this] { mnuOfo2_Click(); };
  mnuEllist.onClick = [this] { Links::of(program_).btnEDIT_Click(); };
  mnuRllist.onClick = [this] { mnuRllist_Click(); };
  mnuFllist.onClick = [this] { Links::of(program_).btnFIND_Click(); };
  mnuAz.onClick = [this] { Links::of(program_).btnAz_Click(); };
  mnuZa.onClick = [this] { Links::of(program_).btnZa_Click(); };
  mnuAllist.onClick = [this] { Links::of(program_).btnADD_Click(); };
  mnuFimg.onClick = [this] { Links::of(program_).mnuFimg_Click(); };
  mnuFimg00.onClick = [this] { Links::of(program_).mnuFimg_Click(); };
  mnuSaveimg00.onClick = [this] { pSaveimg(program_, selectedFile()); };
  mDelselected.onClick = [this] { Grid::of(program_).pdelsel(); };
  mnuSaveimg22.onClick = [this] { mnuSaveimg22_Click(); };
  mnuHelp.onClick = [this] { mnuHelp_Click(); };
  mnuMinimize.onClick = [this] { mnuMinimize_Click(); };
  mnuMin.onClick = [this] { mnuMin_Click(); };
  mnuExit.onClick = [this] { mnuExit_Click(); };
  mnuExit2.onClick = [this] { mnuExit2_Click(); };
  mnuImgI.onClick = [this] { pImginfo(program_, selectedFile()); };
  mnuImgI22.onClick = [this] { pImginfo(program_, selectedFile()); };
  mOpentxt.onClick = [this] { pOpenfile(program_.runtime, program_.tools.sideText()); };
  mnuSet.onClick = [this] { program_.frmSet().Show(); };
  mnuAbout.onClick = [this] { mnuAbout_Click(program_); };
}

void frmMenu::popup(tk::Menu& top, std::initializer_list<tk::Menu*> entries) {
  top.setVisible(false);  // a popup only, never in a menu bar
  for (tk::Menu* entry : entries) {
    top.add(*entry);
    if (entry->separator()) entry->setEnabled(false);
  }
}

void frmMenu::pDelcaption() {
  const bool marked = program_.grid.marked(program_.mainWindow().File2.ListIndex() + 1);
  mDelselected.setCaption(marked ? "Undo Delete Selected File" : "Delete Selected File");
}

void frmMenu::mnuSllist_Click() {
  Form1Controls& f = program_.mainWindow();
  if (mnuSllist.Caption() == "Show Link List") {
    mnuSllist.setCaption("Hide Link List");
    f.List(0).setVisible(true);
    f.List(0).setListIndex(program_.links.iCurLink());
    f.List(1).setListIndex(program_.links.iCurLink());
    f.File2.setTop(2570);
    f.File2.setHeight(4185);
  } else {
    mnuSllist.setCaption("Show Link List");
    f.List(0).setVisible(false);
    f.File2.setTop(35);
    f.File2.setHeight(6720);
  }
}

void frmMenu::mnuOfo2_Click() {
  Form1Controls& f = program_.mainWindow();
  if (f.List(0).ListIndex() < 0) {
    runtime().MsgBox("Please select a Link Name", tk::mb::OKOnly);
    return;
  }
  std::string path = f.List(1).List(f.List(0).ListIndex());
  if (!os::FolderExists(path)) return Links::of(program_).pInvalidLink();
  program_.pMinimise(ViewerState::kGrid);
  program_.openFolder(path);
}

void frmMenu::mnuRllist_Click() {
  Links::of(program_).btnREMOVE_Click();
  // The panel of an empty list goes away.
  if (program_.mainWindow().List(0).ListCount() < 1) mnuSllist_Click();
}

void frmMenu::mnuSaveimg22_Click() {
  tk::Form* f3 = program_.Form3.peekForm();
  program_.viewer.setViewerUp(f3 && f3->Visible() ? ViewerState::kGifViewer : ViewerState::kViewer);
  pSaveimg(program_, selectedFile());
}

std::string frmMenu::selectedFile() {
  const tk::FileListBox& files = program_.mainWindow().File2;
  return files.Path() + "/" + files.FileName();
}

void frmMenu::mnuHelp_Click() {
  program_.pMinimise(std::nullopt);
  program_.startHelp();
}

void frmMenu::mnuMinimize_Click() { program_.pMinimise(ViewerState::kGrid); }

void frmMenu::mnuMin_Click() {
  tk::Form* f3 = program_.Form3.peekForm();
  const bool gifShown = f3 && f3->Visible();
  if (gifShown) program_.settleGifWindow();
  program_.pMinimise(gifShown ? ViewerState::kGifViewer : ViewerState::kViewer);
}

void frmMenu::mnuExit_Click() { program_.Form1.form().Unload(); }

void frmMenu::mnuExit2_Click() {
  if (tk::Form* f2 = program_.Form2.peekForm()) f2->Unload();
  program_.Form1.form().Unload();
}

}  // namespace vellumry
