#pragma once
// The program over folders of real pictures, and the grid's positions found by file name.
#include <QColor>
#include <QImage>

#include "ProgramFixture.h"

namespace fs = std::filesystem;

class GridFixture : public ProgramFixture {
 protected:
  // A picture of `w` by `h` pixels of `colour` at `file`, made under a plain name first: Qt
  // would read the bytes of an odd name as text.
  void picture(const fs::path& file, int w = 40, int h = 30,
               QColor colour = QColor(200, 40, 90, 128), const char* format = "PNG") {
    QImage image(w, h, QImage::Format_ARGB32);
    image.fill(colour);
    const fs::path plain = root / "made";
    ASSERT_TRUE(image.save(QString::fromStdString(plain.string()), format));
    fs::rename(plain, file);
  }
  // Starts with `rows` on a screen of `w` by `h` pixels of 5 twips, and runs until the folder
  // is listed. At 768 pixels two rows make cells of 1770 twips, inner size 1570.
  vellumry::Form1& listed(int w = 4096, int h = 768, const char* rows = "2") {
    setting("rows", rows);
    program = std::make_unique<vellumry::Program>(
        host, vellumry::tk::EventLoop::Clock::Virtual, vellumry::tk::Screen::ofPixels(w, h, 5),
        vellumry::Places{home.string(), home.string(), pictures.string()});
    program->runtime.onUncaught = [](const vellumry::tk::Error& e) {
      ADD_FAILURE() << "uncaught error " << e.Number << ": " << e.Description;
    };
    vellumry::Main(*program);
    waitUntil([&] { return form1().File2.ListCount() != 0; });
    return form1();
  }
  vellumry::Form1& toTheEnd() {
    waitUntil([&] { return form1().Timer1.Interval() == 0 && form1().bLoaded; });
    return form1();
  }
  int position(const std::string& name) {
    for (int i = 0; i < form1().File2.ListCount(); ++i)
      if (form1().File2.List(i) == name) return i + 1;
    ADD_FAILURE() << "not listed: " << name;
    return 0;
  }
};
