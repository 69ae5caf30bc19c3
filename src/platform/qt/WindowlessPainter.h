#pragma once
// Paints the windowless controls (Image, Label, Shape) that a container draws itself, so that
// thousands of them cost no widget each. Keeps, per Image, its picture drawn at the size it
// shows, until told that the picture or the size changed.

#include <QImage>
#include <QPalette>
#include <QRect>
#include <unordered_map>

class QPainter;

namespace vellumry::gdi {
class Picture;
}

namespace vellumry::tk {
class Control;
class Image;
class Label;
class Shape;
}  // namespace vellumry::tk

namespace vellumry::presenter {

class WindowlessPainter {
 public:
  // Draws `c` into `rect` (pixels of the container).
  void paint(QPainter& painter, const tk::Control& c, const QRect& rect, const QPalette& palette);
  // Drops what is kept for `c`: its picture or size changed, or it is gone.
  void forget(const tk::Control& c) { images_.erase(&c); }
  size_t keptImages() const { return images_.size(); }

 private:
  void paintImage(QPainter& painter, const tk::Image& image, const QRect& rect);
  const QImage& drawnPicture(const tk::Image& image, QSize size);

  std::unordered_map<const tk::Control*, QImage> images_;
};

// `picture`'s pixels drawn at `size` (stretched), transparent where the picture is.
QImage renderPicture(const gdi::Picture& picture, QSize size);

}  // namespace vellumry::presenter
