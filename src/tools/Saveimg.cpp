#include "tools/Saveimg.h"

#include <algorithm>

#include "platform/os/FileSystem.h"
#include "platform/os/Utf.h"
#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/DialogControls.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "program/mOpenFile.h"

namespace vellumry {

namespace {
// Ask before overwriting (2), the path must exist (2048).
constexpr int kSaveFlags = 2050;

// The window that ViewerUp names.
tk::Form& windowOnTop(Program& program) {
  switch (program.viewer.ViewerUp()) {
    case ViewerState::kGifViewer:
      return program.Form3.form();
    case ViewerState::kViewer:
      return program.Form2.form();
    default:
      return program.Form1.form();
  }
}

// Asks for the copy's name in `cd` and copies `path` there.
void askAndCopy(Program& program, tk::CommonDialog& cd, const std::string& path) {
  const std::string ext = saveExtension(path);
  cd.CancelError = false;
  cd.Filter = "Files (*." + ext + ") |*." + ext;
  cd.DefaultExt = ext;
  cd.DialogTitle = "Save Image As";
  cd.Flags = kSaveFlags;
  tk::resumeNext([&] { cd.ShowSave(); });
  if (!cd.FileName.empty()) {
    if (!pFileexists(path))
      program.runtime.MsgBox(path + " does not exist!", tk::mb::Exclamation, "Source File Missing");
    else
      os::CopyFile(path, cd.FileName, true);
  }
  cd.FileName.clear();  // the next call starts clean
}
}  // namespace

std::string saveExtension(const std::string& path) {
  std::u32string chars = os::charsFromUtf8(path);
  chars.erase(chars.begin(), chars.end() - std::min<size_t>(chars.size(), 4));
  std::erase(chars, U'.');
  return os::utf8FromChars(chars);
}

void pSaveimg(Program& program, const std::string& path) {
  tk::Form* gifWindow = program.Form3.peekForm();
  const bool gifShown = gifWindow && gifWindow->Visible();
  // A window without a dialog asks nothing and copies nothing, but still gets its keys back.
  tk::resumeNext([&] {
    askAndCopy(program, tk::controlOf<tk::CommonDialog>(windowOnTop(program), "CD"), path);
  });
  if (gifShown) program.Form2.form().Show();
  pResumeview(program);
}

void pResumeview(Program& program) {
  tk::resumeNext([&] {
    switch (program.viewer.ViewerUp()) {
      case ViewerState::kGifViewer:
        return tk::controlOf<tk::Timer>(program.Form3.form(), "Timer1").setEnabled(true);
      case ViewerState::kViewer:
        return tk::controlOf<tk::Timer>(program.Form2.form(), "Timer3").setEnabled(true);
      default:
        return program.mainWindow().Timer5.setEnabled(true);
    }
  });
}

}  // namespace vellumry
