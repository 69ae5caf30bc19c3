#include "shell/Program.h"

#include "platform/os/SettingsFile.h"
#include "platform/toolkit/Numbers.h"
#include "shell/INIFunctions.h"

namespace vellumry {

Program::Program(tk::Host& host, tk::EventLoop::Clock clock, tk::Screen screen, Places where)
    : runtime(screen, host, clock),
      places(std::move(where)),
      pictures(screen.TwipsPerPixelX),
      module1(pictures, [this] { return Form1().Frame1.BackColor(); }),
      Form0(runtime, [this] { return std::make_unique<vellumry::Form0>(*this); }),
      Form1(runtime, [this] { return std::make_unique<vellumry::Form1>(*this); }),
      Form2(runtime, [this] { return std::make_unique<vellumry::Form2>(runtime); }),
      Form3(runtime, [this] { return std::make_unique<vellumry::Form3>(runtime); }),
      FormScreenCapture(runtime,
                        [this] { return std::make_unique<vellumry::FormScreenCapture>(*this); }),
      frmMenu(runtime, [this] { return std::make_unique<vellumry::frmMenu>(*this); }) {
  fields.add("sIniPath", sIniPath);
  fields.add("sInstallDir", sInstallDir);
  fields.add("sDest", sDest);
  fields.add("lSlideMs", lSlideMs);
  fields.add("sAniGif", sAniGif);
  fields.add("vScreenPxW", vScreenPxW);
  fields.add("vScreenPxH", vScreenPxH);
  fields.add("ViewerUp", ViewerUp);
  fields.add("bBigPlay", bBigPlay);
  fields.add("iCurLink", iCurLink);
  fields.add("nDeleted", nDeleted);
  fields.addArray("aDeleted", aDeleted);
  fields.addArray("aPicH", aPicH);
  fields.addArray("aPicW", aPicW);
  fields.add("linkMode", linkMode);
  fields.add("findDone", findDone);
  fields.add("sortAsc", sortAsc);
  fields.add("delShot", delShot);
  fields.add("delShotW", delShotW);
  fields.add("delShotH", delShotH);
  fields.add("sideText", sideText);
}

Program::~Program() = default;

std::string Program::ReadSetting(const std::string& key) const {
  return ReadIni(sIniPath, std::string(os::kSettingsSection), key, "?");
}

long Program::ReadSettingNumber(const std::string& key) const {
  return ReadIniNumber(sIniPath, std::string(os::kSettingsSection), key);
}

void Program::WriteSetting(const std::string& key, const std::string& value) const {
  WriteIni(sIniPath, std::string(os::kSettingsSection), key, value);
}

void Program::pMinimise(std::optional<uint8_t> viewerUp) {
  FormScreenCapture().Show();
  if (viewerUp) ViewerUp = *viewerUp;
  Form0().setLeft(0);
  Form0().setWindowState(1);
}

void Program::StartHelp() {
  if (!runtime.host().Run(sInstallDir + "/tomeview")) tk::raise(tk::err::FileNotFound, "tomeview");
}

void Program::OpenFolder(const std::string& path) {
  if (!runtime.host().Open(path)) tk::raise(tk::err::FileNotFound, path);
}

int32_t Program::ConvertTwipsToPixels(int32_t twips, uint8_t direction) {
  const tk::Screen& s = runtime.screen();
  return tk::CLng(twips / (direction == 0 ? s.TwipsPerPixelX : s.TwipsPerPixelY));
}

void Main(Program& program) {
  program.sIniPath = program.places.programFolder + "/" + std::string(os::kSettingsFileName);
  os::CreateSettingsFileIfMissing(program.sIniPath);
  program.sInstallDir = program.places.installFolder;
  program.runtime.dispatch([&] { program.Form0().Show(); });
}

}  // namespace vellumry
