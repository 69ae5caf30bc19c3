// The grid's phases: empty, loading, loaded, emptying; the start button and changes of folder.
#include <algorithm>
#include <utility>

#include "platform/os/FileSystem.h"
#include "platform/toolkit/Numbers.h"
#include "shell/Form1.h"
#include "shell/Program.h"

namespace vellumry {

using tk::resumeNext;

void Form1::pAct() {
  bSwitching = false;
  pSizeCell();
  Image1(0).setLeft(-Image1(0).Width());
  Frame1.setBackColor(static_cast<uint32_t>(program_.ReadSettingNumber("gformc")));
  Frame3(0).setBorderColor(static_cast<uint32_t>(program_.ReadSettingNumber("gselfrc")));
  program_.lSlideMs = static_cast<int32_t>(program_.ReadSettingNumber("slsh") * 1000);
  program_.sAniGif = setting("anigifp");
  Timer5.setEnabled(true);
}

void Form1::Image2_Click() {
  resumeNext([&] { bSwitching = false; });
  resumeNext([&] { pSyncPage(); });
  if (bLoaded) {
    if (program_.nDeleted != 0)
      resumeNext([&] { pAskDelete(2); });
    else
      resumeNext([&] { pClearGrid(); });
    return;
  }
  if (File2.ListCount() < 1) return;
  resumeNext([&] { pAct(); });
  resumeNext([&] { pMeasure(); });
  resumeNext([&] { setEnabled(false); });
  resumeNext([&] { setMousePointer(11); });
  resumeNext([&] { nCount = static_cast<int16_t>(File2.ListCount()); });
  resumeNext([&] { pCentre(); });
  resumeNext([&] { File2.setListIndex(0); });
  resumeNext([&] { Timer1.setInterval(12); });
}

void Form1::pFoldername() {
  setEnabled(true);
  bLoaded = true;
  setMousePointer(0);
  Image2.setVisible(true);
  Image3.setVisible(false);
  if (VScroll1.Visible()) {
    VScroll1.setValue(VScroll1.Max());
    VScroll1.SetFocus();
  } else {
    File2.SetFocus();
  }
  pCaption();
  // A picture the program was opened with is selected once, at the end of the first loading.
  std::string file = std::exchange(program_.places.startFile, {});
  if (!file.empty()) File2.setFileName(file);
}

void Form1::pNewFolder() {
  if (program_.nDeleted != 0) pClearDeleted();
  pCaption();
  if (File2.ListCount() < 1) {
    Image3.setEnabled(false);
    Image3.setVisible(false);
    Image2.setVisible(false);
  } else {
    Image2.setVisible(false);
    Image3.setVisible(true);
    Image3.setEnabled(true);
  }
}

void Form1::pClearDeleted() {
  Program& p = program_;
  for (int k = 1; k <= 999; ++k) {
    if (p.aDeleted[static_cast<size_t>(k)] == 0) continue;
    Img1.Unload(k);
    p.aDeleted[static_cast<size_t>(k)] = 0;
    --p.nDeleted;
  }
}

namespace {
std::string trim(const std::string& s) {
  auto first = s.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

// The last part of a folder's path, blanks kept; empty for the root.
std::string lastPart(const std::string& path) { return path.substr(path.rfind('/') + 1); }
}  // namespace

void Form1::pCaption() {
  Program& p = program_;
  List(0).setListIndex(-1);
  List(1).setListIndex(-1);
  std::string folder = tk::toUpper(trim(File2.Path()));
  for (int i = 0; i < List(1).ListCount(); ++i) {
    if (folder != tk::toUpper(List(1).List(i))) continue;
    p.Form0().setCaption(List(0).List(i));
    List(0).setListIndex(i);
    List(1).setListIndex(i);
    p.iCurLink = static_cast<int16_t>(i);
    return;
  }
  std::string caption = lastPart(File2.Path());
  p.Form0().setCaption(trim(caption).empty() ? "Vellumry" : caption);
}

void Form1::pClearGrid() {
  File2.setListIndex(File2.ListCount() - 1);
  nClear = static_cast<int16_t>(File2.ListCount());
  Timer2.setInterval(1);
}

void Form1::pAskDelete(uint8_t code) {
  std::string count =
      program_.nDeleted > 1 ? std::to_string(program_.nDeleted) + " files" : std::string("file");
  int answer = runtime().MsgBox(
      "Press keys with stroke to move the next or the previous  picture. " + count + " ?", 35, "");
  if (answer == tk::mb::Yes) {
    nAfterClear = static_cast<uint8_t>(code + 10);
    pClearGrid();
  } else if (answer == tk::mb::No) {
    if (code == 1) return pQuit();
    nAfterClear = code;
    pClearGrid();
  } else {
    nAfterClear = 0;
  }
}

void Form1::pGoLink() {
  resumeNext([&] { pSyncPage(); });
  if (bLoaded) {
    resumeNext([&] { pClearGrid(); });
  } else {
    resumeNext([&] { File2.setPath(List(1).Text()); });
    resumeNext([&] { pNewFolder(); });
  }
  resumeNext([&] { bSwitching = true; });
  resumeNext([&] { VScroll1.setVisible(false); });
}

void Form1::Timer2_Timer() {
  Program& p = program_;
  resumeNext([&] {
    if (File2.ListCount() > 0 && !bSwitching) File2.setListIndex(nClear - 1);
  });
  if (nClear > 0) {
    resumeNext([&] { pSyncPage(); });
    resumeNext([&] { setEnabled(false); });
    resumeNext([&] { setMousePointer(11); });
    resumeNext([&] { Image1.Unload(nClear); });
    resumeNext([&] { Image123.Unload(nClear); });
    resumeNext([&] {
      if (p.nDeleted == 0) return;
      auto position = static_cast<size_t>(File2.ListIndex() + 1);
      if (position >= p.aDeleted.size() || p.aDeleted[position] == 0) return;
      p.aDeleted[position] = 0;
      if (nAfterClear > 10) {
        std::string file = File2.Path() + "/" + File2.FileName();
        if (os::FileExists(file)) os::DeleteFile(file);
      }
      --p.nDeleted;
      Img1.Unload(static_cast<int>(position));
    });
    --nClear;
  }
  if (nClear > 0) return;
  Timer2.setInterval(0);
  if (nAfterClear == 11) return pQuit();
  nLoad = 1;
  nSel = nCount = nClear = 0;
  sExt.clear();
  nPerRow = nRolled = nPerPage = nShownFirst = nShownLast = 0;
  bLoaded = false;
  resumeNext([&] {
    if (File2.ListCount() >= 1) File2.setListIndex(0);
  });
  resumeNext([&] { Label1.setCaption(""); });
  resumeNext([&] {
    VScroll1.setValue(0);
    VScroll1.setMax(0);
    VScroll1.setMin(0);
    VScroll1.setVisible(false);
  });
  resumeNext([&] { pSyncPage(); });
  resumeNext([&] { p.Form0().setCaption("Vellumry Ostrel"); });
  nAfterClear = 0;
  resumeNext([&] { File2.setPath(List(1).Text()); });
  resumeNext([&] { File2.Refresh(); });
  resumeNext([&] { pNewFolder(); });
  resumeNext([&] { setEnabled(true); });
  resumeNext([&] { setMousePointer(0); });
}

void Form1::Image3_MouseMove() {
  if (File2.ListCount() < 1) {
    Image3.setEnabled(false);
    Image2.setVisible(false);
  } else {
    Image2.setVisible(true);
    Image3.setVisible(false);
  }
}

void Form1::Frame2_MouseMove() {
  if (bLoaded) return;
  Image2.setVisible(false);
  Image3.setVisible(File2.ListCount() >= 1);
}

}  // namespace vellumry
