#include "program/Program.h"

#include "picture/Module1.h"
#include "picture/PictureServices.h"
#include "platform/os/SettingsFile.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/INIFunctions.h"

namespace vellumry {

Program::Program(tk::Host& host, tk::EventLoop::Clock clock, tk::Screen screen, Places where)
    : runtime(screen, host, clock),
      places(std::move(where)),
      pictures_(std::make_unique<PictureServices>(screen.TwipsPerPixelX)),
      module1_(std::make_unique<Module1>(*pictures_,
                                         [this] { return mainWindow().Frame1.BackColor(); })),
      Form0(runtime),
      Form1(runtime),
      Form2(runtime),
      Form3(runtime),
      FormScreenCapture(runtime),
      frmMenu(runtime),
      frmEdit(runtime),
      frmSet(runtime),
      About(runtime) {
  pictures_->setPoster(
      [this](PictureServices::Call call) { runtime.loop().post(std::move(call)); });
  shell.addFields(fields);
  grid.addFields(fields);
  links.addFields(fields);
  viewer.addFields(fields);
  tools.addFields(fields);
}

Program::~Program() = default;

Form1Controls& Program::mainWindow() { return static_cast<Form1Controls&>(Form1.form()); }

std::string Program::readSetting(const std::string& key) const {
  return ReadIni(shell.sIniPath(), std::string(os::kSettingsSection), key, "?");
}

long Program::readSettingNumber(const std::string& key) const {
  return readIniNumber(shell.sIniPath(), std::string(os::kSettingsSection), key);
}

void Program::writeSetting(const std::string& key, const std::string& value) const {
  WriteIni(shell.sIniPath(), std::string(os::kSettingsSection), key, value);
}

void Program::pMinimise(std::optional<uint8_t> viewerUp) {
  FormScreenCapture.form().Show();
  if (viewerUp) viewer.setViewerUp(*viewerUp);
  tk::Form& owner = Form0.form();
  owner.setLeft(0);
  owner.setWindowState(1);
}

void Program::pQuit() {
  writeSetting("dest", "");
  for (tk::Form* f : std::vector<tk::Form*>(runtime.Forms())) f->Unload();
  runtime.End();
}

void Program::startHelp() {
  if (!runtime.host().run(shell.sInstallDir() + "/tomeview"))
    tk::raise(tk::err::FileNotFound, "tomeview");
}

void Program::openFolder(const std::string& path) {
  if (!runtime.host().open(path)) tk::raise(tk::err::FileNotFound, path);
}

int32_t Program::ConvertTwipsToPixels(int32_t twips, uint8_t direction) {
  const tk::Screen& s = runtime.screen();
  return tk::CLng(twips / (direction == 0 ? s.TwipsPerPixelX : s.TwipsPerPixelY));
}

}  // namespace vellumry
