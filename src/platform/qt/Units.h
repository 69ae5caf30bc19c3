#pragma once
// From the model's lengths (twips, or pixels inside a ScaleMode 3 container) to the pixels of
// Qt widgets and back; and the model's colours as Qt colours.

#include <QColor>
#include <QPalette>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <cstdint>

namespace vellumry::tk {
class Control;
class Form;
}

namespace vellumry::presenter {

// Model units of one pixel inside `container` (a form, frame or picture box): its scale.
QPointF unitsPerPixelInside(const tk::Control& container);

// Where `c` stands in pixels: relative to its container, or on the screen for a form. Each edge
// is rounded half to even, as the toolkit rounds lengths.
QRect pixelRect(const tk::Control& c);

// Where the client area of a form's window begins: inside the thin line that a bordered form
// without a title bar draws itself, else at the window's corner.
QPoint clientOrigin(const tk::Form& form);

// A point in pixels relative to `c`, as the X and Y of its mouse events: in the units of its
// own scale for a form or picture box, else in those of its container.
QPointF modelPoint(const tk::Control& c, QPoint pixels);

// 0x00BBGGRR, or a system colour (top bit set) taken from `palette`.
QColor qtColor(uint32_t color, const QPalette& palette);
// A Qt colour as 0x00BBGGRR.
uint32_t modelColor(const QColor& color);

}  // namespace vellumry::presenter
