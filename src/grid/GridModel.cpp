// The grid's phases: empty, loading, loaded, emptying; the start button and changes of folder.
#include <algorithm>
#include <utility>

#include "grid/Grid.h"
#include "platform/os/FileSystem.h"
#include "platform/os/Folders.h"
#include "platform/os/Trash.h"
#include "platform/toolkit/MousePointer.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

using tk::resumeNext;

void Grid::pAct() {
  bSwitching = false;
  pSizeCell();
  pThumbnailCache();
  form_.Image1(0).setLeft(-form_.Image1(0).Width());
  form_.Frame1.setBackColor(static_cast<uint32_t>(program_.readSettingNumber("gformc")));
  form_.Frame3(0).setBorderColor(static_cast<uint32_t>(program_.readSettingNumber("gselfrc")));
  program_.viewer.setSlideMs(static_cast<int32_t>(program_.readSettingNumber("slsh") * 1000));
  program_.viewer.setAniGif(program_.readSetting("anigifp"));
  form_.Timer5.setEnabled(true);
}

void Grid::Image2_Click() {
  bSwitching = false;
  resumeNext([&] { pSyncPage(); });
  if (bLoaded) {
    if (program_.grid.nDeleted() != 0)
      resumeNext([&] { pAskDelete(kAskStartButton); });
    else
      resumeNext([&] { pClearGrid(); });
    return;
  }
  if (form_.File2.ListCount() < 1) return;
  resumeNext([&] { pAct(); });
  resumeNext([&] { pMeasure(); });
  form_.setEnabled(false);
  form_.setMousePointer(tk::pointer::Hourglass);
  nCount = static_cast<int32_t>(form_.File2.ListCount());
  program_.grid.fit(nCount);
  pCentre();
  resumeNext([&] { form_.File2.setListIndex(0); });
  form_.Timer1.setInterval(12);
}

void Grid::pFoldername() {
  form_.setEnabled(true);
  bLoaded = true;
  form_.setMousePointer(tk::pointer::Default);
  form_.Image2.setVisible(true);
  form_.Image3.setVisible(false);
  if (form_.VScroll1.Visible()) {
    form_.VScroll1.setValue(form_.VScroll1.Max());
    form_.VScroll1.SetFocus();
  } else {
    form_.File2.SetFocus();
  }
  pCaption();
  // A picture the program was opened with is selected once, at the end of the first loading.
  std::string file = std::exchange(program_.places.startFile, {});
  if (!file.empty()) form_.File2.setFileName(file);
}

void Grid::pNewFolder() {
  if (program_.grid.nDeleted() != 0) pClearDeleted();
  pCaption();
  if (form_.File2.ListCount() < 1) {
    form_.Image3.setEnabled(false);
    form_.Image3.setVisible(false);
    form_.Image2.setVisible(false);
  } else {
    form_.Image2.setVisible(false);
    form_.Image3.setVisible(true);
    form_.Image3.setEnabled(true);
  }
}

void Grid::pClearDeleted() {
  Program& p = program_;
  for (int k = 1; k < static_cast<int>(p.grid.aDeleted_.size()); ++k) {
    if (!p.grid.marked(k)) continue;
    form_.Img1.Unload(k);
    p.grid.aDeleted_[static_cast<size_t>(k)] = 0;
    --p.grid.nDeleted_;
  }
}

void Grid::pCaption() {
  Program& p = program_;
  form_.List(0).setListIndex(-1);
  form_.List(1).setListIndex(-1);
  std::string folder = tk::toUpper(tk::Trim(form_.File2.Path()));
  for (int i = 0; i < form_.List(1).ListCount(); ++i) {
    if (folder != tk::toUpper(form_.List(1).List(i))) continue;
    p.Form0.form().setCaption(form_.List(0).List(i));
    form_.List(0).setListIndex(i);
    form_.List(1).setListIndex(i);
    p.links.setCurLink(static_cast<int16_t>(i));
    return;
  }
  std::string caption = os::lastComponent(form_.File2.Path());
  p.Form0.form().setCaption(tk::Trim(caption).empty() ? "Vellumry" : caption);
}

void Grid::pClearGrid() {
  form_.File2.setListIndex(form_.File2.ListCount() - 1);
  nClear = static_cast<int32_t>(form_.File2.ListCount());
  form_.Timer2.setInterval(1);
}

void Grid::pAskDelete(uint8_t code) {
  pFinddelsel();
  std::string count = program_.grid.nDeleted() > 1
                          ? std::to_string(program_.grid.nDeleted()) + " files"
                          : std::string("file");
  int answer = form_.runtime().MsgBox(
      "Press keys with stroke to move the next or the previous  picture. " + count + " ?",
      tk::mb::YesNoCancel + tk::mb::Question, "");
  if (answer == tk::mb::Yes) {
    nAfterClear = static_cast<uint8_t>(code + kDeleteMarked);
    pClearGrid();
  } else if (answer == tk::mb::No) {
    if (code == kAskClosing) return program_.pQuit();
    nAfterClear = code;
    pClearGrid();
  } else {
    nAfterClear = 0;
  }
}

void Grid::pGoLink() {
  resumeNext([&] { pSyncPage(); });
  if (bLoaded) {
    resumeNext([&] { pClearGrid(); });
  } else {
    resumeNext([&] { form_.File2.setPath(form_.List(1).Text()); });
    resumeNext([&] { pNewFolder(); });
  }
  bSwitching = true;
  form_.VScroll1.setVisible(false);
}

void Grid::Timer2_Timer() {
  Program& p = program_;
  resumeNext([&] {
    if (form_.File2.ListCount() > 0 && !bSwitching) form_.File2.setListIndex(nClear - 1);
  });
  if (nClear > 0) {
    resumeNext([&] { pSyncPage(); });
    form_.setEnabled(false);
    form_.setMousePointer(tk::pointer::Hourglass);
    resumeNext([&] { form_.Image1.Unload(nClear); });
    resumeNext([&] { form_.Image123.Unload(nClear); });
    resumeNext([&] {
      if (p.grid.nDeleted() == 0) return;
      const int position = form_.File2.ListIndex() + 1;
      if (!p.grid.marked(position)) return;
      p.grid.aDeleted_[static_cast<size_t>(position)] = 0;
      // A file that vanished meanwhile is no error: its mark goes all the same.
      if (nAfterClear > kDeleteMarked)
        os::discardFile(form_.File2.Path() + "/" + form_.File2.FileName());
      --p.grid.nDeleted_;
      form_.Img1.Unload(position);
    });
    --nClear;
  }
  if (nClear > 0) return;
  form_.Timer2.setInterval(0);
  if (nAfterClear == kAskClosing + kDeleteMarked) return program_.pQuit();
  nLoad = 1;
  nSel = nCount = nClear = 0;
  sExt.clear();
  nPerRow = nRolled = nPerPage = nShownFirst = nShownLast = 0;
  bLoaded = false;
  resumeNext([&] {
    if (form_.File2.ListCount() >= 1) form_.File2.setListIndex(0);
  });
  resumeNext([&] { form_.Label1.setCaption(""); });
  resumeNext([&] {
    form_.VScroll1.setValue(0);
    form_.VScroll1.setMax(0);
    form_.VScroll1.setMin(0);
    form_.VScroll1.setVisible(false);
  });
  resumeNext([&] { pSyncPage(); });
  p.Form0.form().setCaption("Vellumry Ostrel");
  nAfterClear = 0;
  resumeNext([&] { form_.File2.setPath(form_.List(1).Text()); });
  resumeNext([&] { form_.File2.Refresh(); });
  resumeNext([&] { pNewFolder(); });
  form_.setEnabled(true);
  form_.setMousePointer(tk::pointer::Default);
}

void Grid::Image3_MouseMove() {
  if (form_.File2.ListCount() < 1) {
    form_.Image3.setEnabled(false);
    form_.Image2.setVisible(false);
  } else {
    form_.Image2.setVisible(true);
    form_.Image3.setVisible(false);
  }
}

void Grid::Frame2_MouseMove() {
  if (bLoaded) return;
  form_.Image2.setVisible(false);
  form_.Image3.setVisible(form_.File2.ListCount() >= 1);
}

}  // namespace vellumry
