#include "platform/qt/Units.h"

#include "platform/toolkit/Form.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::presenter {

namespace {
int px(double units, double perPixel) {
  return static_cast<int>(tk::roundHalfEven(units / perPixel));
}

bool countsInPixels(const tk::Control& c) {
  if (c.kind() == tk::Kind::Form) return static_cast<const tk::Form&>(c).ScaleMode() == 3;
  if (c.kind() == tk::Kind::PictureBox)
    return static_cast<const tk::PictureBox&>(c).ScaleMode() == 3;
  return false;
}
}  // namespace

QPointF unitsPerPixelInside(const tk::Control& container) {
  if (countsInPixels(container)) return {1, 1};
  const tk::Screen& s = container.runtime().screen();
  return {s.TwipsPerPixelX, s.TwipsPerPixelY};
}

QRect pixelRect(const tk::Control& c) {
  // Places are twips inside any container: its ScaleMode counts only for its own drawing and
  // mouse, which is how the program places the controls of its pixel-scaled windows.
  const tk::Screen& s = c.runtime().screen();
  const QPointF per{s.TwipsPerPixelX, s.TwipsPerPixelY};
  const QRect r{px(c.Left(), per.x()), px(c.Top(), per.y()), px(c.Width(), per.x()),
                px(c.Height(), per.y())};
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
