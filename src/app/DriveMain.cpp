// vellumry-drive [--screen]: runs a script of user actions from standard input on a headless
// program. With --screen the program's windows follow it live and are checked after every line.
#include <QApplication>
#include <cstring>
#include <iostream>
#include <optional>

#include "app/Driver.h"
#include "app/LiveScreen.h"
#include "platform/qt/ScreenShot.h"
#include "program/Program.h"

using namespace vellumry;

int main(int argc, char** argv) {
  const bool live = argc > 1 && std::strcmp(argv[1], "--screen") == 0;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);  // for the pictures of the screen that `shot` takes
  vellumry::Driver driver(std::cout);
  driver.shot = [](vellumry::Program& program, const std::string& png) {
    return presenter::saveShot(program.runtime, nullptr, QString::fromStdString(png));
  };
  driver.host().drawScreen = [&driver] {
    tk::Runtime& runtime = driver.program()->runtime;
    return presenter::asPicture(presenter::renderScreen(runtime), runtime.screen().TwipsPerPixelX);
  };
  std::optional<LiveScreen> screen;  // made after the driver: it goes first
  if (live) screen.emplace(driver);
  return driver.run(std::cin) == 0 ? 0 : 1;
}
