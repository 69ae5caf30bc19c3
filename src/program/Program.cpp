#include "program/Program.h"

#include "platform/os/SettingsFile.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/INIFunctions.h"

namespace vellumry {

Program::Program(tk::Host& host, tk::EventLoop::Clock clock, tk::Screen screen, Places where)
    : runtime(screen, host, clock),
      places(std::move(where)),
      pictures(screen.TwipsPerPixelX),
      module1(pictures, [this] { return mainWindow().Frame1.BackColor(); }),
      Form0(runtime),
      Form1(runtime),
      Form2(runtime),
      Form3(runtime),
      FormScreenCapture(runtime),
      frmMenu(runtime),
      frmEdit(runtime),
      frmSet(runtime),
      About(runtime) {
  pictures.setPoster([this](PictureServices::Call call) { runtime.loop().post(std::move(call)); });
  fields.add("sIniPath", shell.sIniPath);
  fields.add("sInstallDir", shell.sInstallDir);
  fields.add("sDataDir", shell.sDataDir);
  fields.add("sDest", shell.sDest);
  fields.add("vScreenPxW", shell.vScreenPxW);
  fields.add("vScreenPxH", shell.vScreenPxH);
  fields.addArray("aPicH", grid.aPicH);
  fields.addArray("aPicW", grid.aPicW);
  fields.add("iCurLink", links.iCurLink);
  fields.add("linkMode", links.linkMode);
  fields.add("findDone", links.findDone);
  fields.add("sortAsc", links.sortAsc);
  fields.add("ViewerUp", viewer.ViewerUp);
  fields.add("lSlideMs", viewer.lSlideMs);
  fields.add("sAniGif", viewer.sAniGif);
  fields.add("bBigPlay", viewer.bBigPlay);
  fields.add("nDeleted", tools.nDeleted);
  fields.addArray("aDeleted", tools.aDeleted);
  fields.add("delShot", tools.delShot);
  fields.add("delShotW", tools.delShotW);
  fields.add("delShotH", tools.delShotH);
  fields.add("sideText", tools.sideText);
}

Program::~Program() = default;

Form1Controls& Program::mainWindow() { return static_cast<Form1Controls&>(Form1.form()); }

std::string Program::ReadSetting(const std::string& key) const {
  return ReadIni(shell.sIniPath, std::string(os::kSettingsSection), key, "?");
}

long Program::ReadSettingNumber(const std::string& key) const {
  return ReadIniNumber(shell.sIniPath, std::string(os::kSettingsSection), key);
}

void Program::WriteSetting(const std::string& key, const std::string& value) const {
  WriteIni(shell.sIniPath, std::string(os::kSettingsSection), key, value);
}

void Program::pMinimise(std::optional<uint8_t> viewerUp) {
  FormScreenCapture.form().Show();
  if (viewerUp) viewer.ViewerUp = *viewerUp;
  tk::Form& owner = Form0.form();
  owner.setLeft(0);
  owner.setWindowState(1);
}

void Program::pQuit() {
  WriteSetting("dest", "");
  for (tk::Form* f : std::vector<tk::Form*>(runtime.Forms())) f->Unload();
  runtime.End();
}

void Program::StartHelp() {
  if (!runtime.host().Run(shell.sInstallDir + "/tomeview"))
    tk::raise(tk::err::FileNotFound, "tomeview");
}

void Program::OpenFolder(const std::string& path) {
  if (!runtime.host().Open(path)) tk::raise(tk::err::FileNotFound, path);
}

int32_t Program::ConvertTwipsToPixels(int32_t twips, uint8_t direction) {
  const tk::Screen& s = runtime.screen();
  return tk::CLng(twips / (direction == 0 ? s.TwipsPerPixelX : s.TwipsPerPixelY));
}

}  // namespace vellumry
