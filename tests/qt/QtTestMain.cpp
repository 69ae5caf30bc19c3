// Qt wants one application for the whole process, made before the first widget and gone before
// the program's static objects go.

#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
