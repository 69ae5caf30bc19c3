#pragma once
// The whole screen of the model as a person would see it: the visible forms in their stacking
// order, each painted by the code that paints its window, at the place the model gives it.
// Needs a QApplication; works on the offscreen platform.

#include <QImage>
#include <QString>

#include "platform/gdi/Picture.h"

namespace vellumry::tk {
class Runtime;
}

namespace vellumry::presenter {

class Presenter;

// The screen's size comes from the model's Screen, in pixels; where no form stands it is black.
QImage renderScreen(const Presenter& presenter);
// The same for a program shown by no presenter: one is made for the moment, the forms stacked
// in the order they were loaded.
QImage renderScreen(tk::Runtime& runtime);

// `shot` as a bitmap picture of `twipsPerPixel`.
gdi::Picture asPicture(const QImage& shot, double twipsPerPixel);

// Writes the screen as a PNG file; false when it can't be written. `presenter` may be null.
bool saveShot(tk::Runtime& runtime, const Presenter* presenter, const QString& png);

}  // namespace vellumry::presenter
