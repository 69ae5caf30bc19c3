// vellumry [FOLDER]: the program on screen. A folder named on the command line is the start
// folder of this run (a picture named there: its folder); with none, and nothing in the user's
// pictures folder, the bundled samples are shown.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QScreen>

#include "platform/os/Folders.h"
#include "platform/os/SettingsFile.h"
#include "platform/qt/ClockDriver.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/QtHost.h"
#include "platform/toolkit/ListControls.h"
#include "shell/INIFunctions.h"
#include "shell/Program.h"

using namespace vellumry;

namespace {

constexpr const char* kPicturePattern =
    ";*.emf;*.jpg;*.jpeg;*.bmp;*.gif;*.png;*.cur;*.ico;*.wmf;*.tif";

bool holdsPictures(const std::string& folder) {
  for (const QString& name : QDir(QString::fromStdString(folder)).entryList(QDir::Files))
    if (tk::matchesPattern(name.toStdString(), kPicturePattern)) return true;
  return false;
}

// The start folder named on the command line, as a `dest` good for this one start; a picture
// named there gives its folder and is selected once the grid has loaded.
void takeCommandLine(const QStringList& args, const std::string& settingsFile,
                     vellumry::Places& places) {
  if (args.size() < 2) return;
  QFileInfo named(args[1]);
  QString folder = named.isDir() ? named.absoluteFilePath() : named.absolutePath();
  if (!QFileInfo(folder).isDir()) return;
  WriteIni(settingsFile, std::string(os::kSettingsSection), "dest", folder.toStdString());
  if (named.isFile()) places.startFile = named.fileName().toStdString();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QRect area = app.primaryScreen()->geometry();

  vellumry::Places places{os::SettingsFolder(), os::InstallFolder(), os::PicturesFolder()};
  std::string settingsFile = places.programFolder + "/" + std::string(os::kSettingsFileName);
  os::CreateSettingsFileIfMissing(settingsFile);
  takeCommandLine(app.arguments(), settingsFile, places);
  std::string samples = QCoreApplication::applicationDirPath().toStdString() + "/samples";
  if (!holdsPictures(places.picturesFolder) && holdsPictures(samples))
    places.picturesFolder = samples;

  presenter::QtHost host;
  vellumry::Program program(host, tk::EventLoop::Clock::Real,
                            tk::Screen::ofPixels(area.width(), area.height()), places);
  presenter::Presenter presenter(program.runtime);
  host.setPresenter(&presenter);
  presenter.onProgramEnded = [&app] { app.quit(); };
  presenter::ClockDriver clock(program.runtime.loop());
  vellumry::Main(program);
  if (program.runtime.ended()) return 0;
  presenter.setTaskbarForm(program.Form0());
  clock.arm();
  return app.exec();
}
