// vellumry [FOLDER|PICTURE]: the program on screen. A folder named on the command line is the
// start folder of this run (a picture named there: its folder).
#include <QApplication>
#include <QScreen>

#include "platform/os/Folders.h"
#include "platform/qt/ClockDriver.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/QtHost.h"
#include "program/Program.h"
#include "shell/CommandLine.h"
#include "shell/Main.h"

using namespace vellumry;

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QRect area = app.primaryScreen()->geometry();

  vellumry::Places places{os::settingsFolder(), os::installFolder(), os::picturesFolder()};
  // Names are bytes: taken as they stand, not through Qt's text.
  takeCommandLine(std::vector<std::string>(argv, argv + argc), places);

  presenter::QtHost host;
  vellumry::Program program(host, tk::EventLoop::Clock::Real,
                            tk::Screen::ofPixels(area.width(), area.height()), places);
  presenter::Presenter presenter(program.runtime);
  presenter.setTaskbarForm("Form0");
  host.setPresenter(&presenter);
  presenter.onProgramEnded = [&app] { app.quit(); };
  presenter::ClockDriver clock(program.runtime.loop());
  vellumry::Main(program);
  if (program.runtime.ended()) return 0;
  clock.arm();
  return app.exec();
}
