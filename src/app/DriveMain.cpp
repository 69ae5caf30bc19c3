// vellumry-drive: runs a script of user actions from standard input on a headless program.
#include <QApplication>
#include <iostream>

#include "app/Driver.h"
#include "platform/qt/ScreenShot.h"

using namespace vellumry;

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);  // for the pictures of the screen that `shot` takes
  vellumry::Driver driver(std::cout);
  driver.shot = [](vellumry::Program& program, const std::string& png) {
    return presenter::saveShot(program.runtime, nullptr, QString::fromStdString(png));
  };
  driver.host().screenPicture = [&driver] {
    tk::Runtime& runtime = driver.program()->runtime;
    return presenter::asPicture(presenter::renderScreen(runtime), runtime.screen().TwipsPerPixelX);
  };
  return driver.run(std::cin) == 0 ? 0 : 1;
}
