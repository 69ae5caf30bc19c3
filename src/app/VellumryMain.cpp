// vellumry [FOLDER|PICTURE]: the program on screen. A folder named on the command line is the
// start folder of this run (a picture named there: its folder).
#include <QApplication>
#include <QFileInfo>
#include <QScreen>

#include "platform/os/Folders.h"
#include "platform/qt/ClockDriver.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/QtHost.h"
#include "program/Program.h"
#include "shell/Main.h"

using namespace vellumry;

namespace {

// The start folder named on the command line, for this run only; a picture named there gives
// its folder and is selected once the grid has loaded.
void takeCommandLine(const QStringList& args, vellumry::Places& places) {
  if (args.size() < 2) return;
  QFileInfo named(args[1]);
  QString folder = named.isDir() ? named.absoluteFilePath() : named.absolutePath();
  if (!QFileInfo(folder).isDir()) return;
  places.startFolder = folder.toStdString();
  if (named.isFile()) places.startFile = named.fileName().toStdString();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QRect area = app.primaryScreen()->geometry();

  vellumry::Places places{os::SettingsFolder(), os::InstallFolder(), os::PicturesFolder()};
  takeCommandLine(app.arguments(), places);

  presenter::QtHost host;
  vellumry::Program program(host, tk::EventLoop::Clock::Real,
                            tk::Screen::ofPixels(area.width(), area.height()), places);
  presenter::Presenter presenter(program.runtime);
  host.setPresenter(&presenter);
  presenter.onProgramEnded = [&app] { app.quit(); };
  presenter::ClockDriver clock(program.runtime.loop());
  vellumry::Main(program);
  if (program.runtime.ended()) return 0;
  presenter.setTaskbarForm(program.Form0.form());
  clock.arm();
  return app.exec();
}
