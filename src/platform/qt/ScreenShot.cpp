#include "platform/qt/ScreenShot.h"

#include <QPainter>
#include <algorithm>

#include "platform/qt/FormWindow.h"
#include "platform/qt/Presenter.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::presenter {

QImage renderScreen(const Presenter& presenter) {
  const tk::Screen& s = presenter.runtime().screen();
  QImage screen(static_cast<int>(tk::roundHalfEven(s.Width / s.TwipsPerPixelX)),
                static_cast<int>(tk::roundHalfEven(s.Height / s.TwipsPerPixelY)),
                QImage::Format_ARGB32_Premultiplied);
  screen.fill(Qt::black);
  QPainter painter(&screen);
  for (const FormWindow* window : presenter.zOrder()) {
    const QRect place = presenter.screenRect(*window->form());
    // render() needs a mutable widget, though it changes nothing of it.
    const_cast<FormWindow*>(window)->render(&painter, place.topLeft(), QRegion(),
                                            QWidget::DrawWindowBackground | QWidget::DrawChildren);
  }
  return screen;
}

QImage renderScreen(tk::Runtime& runtime) {
  tk::Observer* before = runtime.observer();
  QImage shot;
  {
    Presenter presenter(runtime);
    shot = renderScreen(presenter);
  }
  runtime.setObserver(before);
  return shot;
}

gdi::Picture asPicture(const QImage& shot, double twipsPerPixel) {
  const QImage rgb = shot.convertToFormat(QImage::Format_RGB32);
  gdi::Surface pixels(rgb.width(), rgb.height(), gdi::AlphaMode::kOpaque);
  for (int y = 0; y < rgb.height(); ++y) {
    const auto* row = reinterpret_cast<const uint32_t*>(rgb.constScanLine(y));
    std::copy(row, row + rgb.width(), pixels.Row(y));
  }
  return gdi::Picture::fromSurface(std::move(pixels), twipsPerPixel);
}

bool saveShot(tk::Runtime& runtime, const Presenter* presenter, const QString& png) {
  const QImage shot = presenter ? renderScreen(*presenter) : renderScreen(runtime);
  return shot.save(png, "PNG");
}

}  // namespace vellumry::presenter
