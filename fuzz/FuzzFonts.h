#pragma once
// Text in metafiles needs Qt's font database, which needs an application object: made once, on
// the offscreen platform, for the bodies that draw text.

#include <QGuiApplication>

namespace vellumry::fuzz {

inline void ensureFontDatabase() {
  if (QGuiApplication::instance()) return;
  static int argc = 1;
  static char name[] = "fuzz";
  static char* argv[] = {name, nullptr};
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static QGuiApplication app(argc, argv);
}

}  // namespace vellumry::fuzz
