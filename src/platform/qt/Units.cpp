#include "platform/qt/Units.h"

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::presenter {

namespace {
int px(double units, double perPixel) {
  return static_cast<int>(tk::roundHalfEven(units / perPixel));
}

}  // namespace

QPointF unitsPerPixelInside(const tk::Control& container) {
  const tk::Screen& s = container.runtime().screen();
  return {s.TwipsPerPixelX / container.innerUnitX(), s.TwipsPerPixelY / container.innerUnitY()};
}

QRect pixelRect(const tk::Control& c) {
  const tk::Screen& s = c.runtime().screen();
  const QPointF per{s.TwipsPerPixelX, s.TwipsPerPixelY};
  const QRect r{px(c.leftTwips(), per.x()), px(c.topTwips(), per.y()),
                px(c.widthTwips(), per.x()), px(c.heightTwips(), per.y())};
  const bool onForm = c.kind() != tk::Kind::Form && c.Container() == &c.form();
  return onForm ? r.translated(clientOrigin(c.form())) : r;
}

QPoint clientOrigin(const tk::Form& form) {
  return form.BorderStyle() != 0 && !form.hasTitleBar() ? QPoint(1, 1) : QPoint(0, 0);
}

QPointF modelPoint(const tk::Control& c, QPoint pixels) {
  const bool ownScale = c.kind() == tk::Kind::Form || c.kind() == tk::Kind::PictureBox;
  QPointF per = unitsPerPixelInside(ownScale || !c.Container() ? c : *c.Container());
  return {pixels.x() * per.x(), pixels.y() * per.y()};
}

QColor qtColor(uint32_t color, const QPalette& palette) {
  switch (color) {
    case tk::kSystemFace:
      return palette.color(QPalette::Button);
    case tk::kSystemHighlight:
      return palette.color(QPalette::Highlight);
    case tk::kSystemText:
      return palette.color(QPalette::ButtonText);
    default:
      break;
  }
  if (color & 0x80000000u) return palette.color(QPalette::Window);
  return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

uint32_t modelColor(const QColor& color) {
  return static_cast<uint32_t>(color.red()) | static_cast<uint32_t>(color.green()) << 8 |
         static_cast<uint32_t>(color.blue()) << 16;
}

}  // namespace vellumry::presenter
