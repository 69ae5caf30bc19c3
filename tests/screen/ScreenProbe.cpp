// screen_probe [--save FILE] [X Y]...: reads the whole X screen once and prints the colour of
// each point as #RRGGBB, one a line, and/or saves the screen as a PNG. The screen test uses it
// to see what the program really put on the display.
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <cstdio>
#include <cstdlib>
#include <cstring>

int main(int argc, char** argv) {
  // Reading a real display is the point: never an offscreen stand-in inherited from a test run.
  qputenv("QT_QPA_PLATFORM", "xcb");
  QGuiApplication app(argc, argv);
  QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return 2;
  const QImage shot = screen->grabWindow(0).toImage();
  if (shot.isNull()) return 2;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--save") == 0 && i + 1 < argc) {
      if (!shot.save(argv[++i], "PNG")) return 3;
      continue;
    }
    if (i + 1 >= argc) return 1;
    const int x = std::atoi(argv[i]), y = std::atoi(argv[++i]);
    if (!shot.valid(x, y)) return 1;
    std::printf("#%06X\n", static_cast<unsigned>(shot.pixel(x, y) & 0xFFFFFFu));
  }
  return 0;
}
