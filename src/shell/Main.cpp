#include "shell/Main.h"

#include "gif/Form3.h"
#include "links/frmEdit.h"
#include "platform/os/Folders.h"
#include "platform/os/SettingsFile.h"
#include "program/Program.h"
#include "shell/Form0.h"
#include "shell/Form1.h"
#include "tools/About.h"
#include "tools/FormScreenCapture.h"
#include "tools/frmMenu.h"
#include "tools/frmSet.h"
#include "viewer/Form2.h"

namespace vellumry {

namespace {
// Gives `slot` a maker of forms of its kind, each made for `program`.
template <class T>
void give(Program& program, tk::FormSlot<T>& slot) {
  slot.setMaker([&program] { return std::make_unique<T>(program); });
}
}  // namespace

void Main(Program& program) {
  program.shell.sIniPath_ = program.places.programFolder + "/" + std::string(os::kSettingsFileName);
  os::createSettingsFileIfMissing(program.shell.sIniPath_);
  program.shell.sInstallDir_ = program.places.installFolder;
  program.shell.sDataDir_ = os::dataFolderFor(program.places.installFolder);
  give(program, program.Form0);
  give(program, program.Form1);
  give(program, program.Form2);
  give(program, program.Form3);
  give(program, program.FormScreenCapture);
  give(program, program.frmMenu);
  give(program, program.frmEdit);
  give(program, program.frmSet);
  give(program, program.About);
  program.playGif = [&program](const std::string& sFileName) { program.Form3().pLoad(sFileName); };
  program.settleGifWindow = [&program] {
    Form3& window = program.Form3();
    program.viewer.bBigPlay() ? window.pP() : window.pM();
  };
  program.runtime.dispatch([&] { program.Form0().Show(); });
}

}  // namespace vellumry
