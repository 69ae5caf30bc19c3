#pragma once
// A headless program whose folder holds pictures of given sizes, with the viewer opened on one.

#include <QColor>
#include <QImage>

#include "ProgramFixture.h"

class ViewerFixture : public ProgramFixture {
 protected:
  // A plain PNG of `w` by `h` pixels in the pictures folder.
  void picture(const std::string& name, int w, int h) {
    QImage image(w, h, QImage::Format_RGB32);
    image.fill(QColor(200, 40, 90));
    ASSERT_TRUE(image.save(QString::fromStdString((pictures / name).string()), "PNG"));
  }
  // The folder emptied, then a picture as `picture` makes it.
  void onlyPicture(const std::string& name, int w, int h) {
    std::filesystem::remove_all(pictures);
    std::filesystem::create_directories(pictures);
    picture(name, w, h);
  }
  // `count` small pictures p1.png, p2.png, ...
  void pictureFiles(int count) {
    for (int i = 1; i <= count; ++i) picture("p" + std::to_string(i) + ".png", 64, 48);
  }
  // Loads the grid on a 1024 by 768 screen and double-clicks position `i`; the picture is
  // placed once Timer1 has fired.
  vellumry::Form2& open(int i = 1) {
    vellumry::Form1& f = loaded();
    EXPECT_TRUE(vellumry::tk::user::dblClick(f.Image1(i)));
    wait(1);
    return program->Form2();
  }
  vellumry::Form2& viewer() { return program->Form2(); }
  int selected() { return form1().File2.ListIndex(); }
  int beeps() const {
    return static_cast<int>(std::count(host.shown.begin(), host.shown.end(), "beep"));
  }
  void key(int code) { vellumry::tk::user::key(viewer(), code); }
};
