// Qt wants one application for the whole process, made before the first widget and gone before
// the program's static objects go.

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  // Listing the tests runs this too, without the environment ctest gives the tests themselves.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
