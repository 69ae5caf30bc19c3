#pragma once
// The widget of a form, frame or picture box: paints its BackColor (and a picture box's
// picture), then its windowless controls in the order they were made, and routes the mouse
// over them to the model. Windowed controls inside it are child widgets and lie above.

#include <QImage>
#include <QWidget>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/qt/WindowlessPainter.h"

namespace vellumry::tk {
class Control;
}

namespace vellumry::presenter {

class Presenter;

class ContainerView : public QWidget {
 public:
  ContainerView(Presenter& presenter, tk::Control& control, QWidget* parent);

  // The model object shown, or nullptr once it is gone.
  tk::Control* control() const { return control_; }
  // The model object is going: nothing of it is touched any more.
  virtual void detach();

  // Windowless controls painted here, bottom first by `order`.
  void addWindowless(tk::Control& c, uint64_t order);
  void removeWindowless(const tk::Control& c);
  // Repaints where `c` stood and where it stands now; `contentChanged` drops kept pixels.
  void refreshWindowless(const tk::Control& c, bool contentChanged);
  // The picture box's picture changed.
  void pictureChanged();
  size_t windowlessCount() const { return windowless_.size(); }
  // Where windowless control `c` is painted, in pixels of this widget; nothing when it isn't.
  std::optional<QRect> shownRect(const tk::Control& c) const;
  const WindowlessPainter& painter() const { return painter_; }

 protected:
  Presenter& presenter() const { return presenter_; }
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Item {
    tk::Control* control;
    uint64_t order;
    QRect shown;  // where it was last placed, in pixels of this widget
  };
  Item* itemOf(const tk::Control& c);
  // The control under `pos`: the topmost visible, enabled Image or Label, else this one.
  tk::Control* hit(QPoint pos);
  QRect rectOf(const tk::Control& c) const;
  // Whether the event belongs to a child widget that let it pass.
  bool overChildWidget(QPoint pos) const;
  QPointF pointFor(const tk::Control& c, QPoint pos) const;

  Presenter& presenter_;
  tk::Control* control_;
  std::vector<Item> windowless_;
  WindowlessPainter painter_;
  QImage boxPicture_;  // a picture box's picture at natural size, drawn once
  tk::Control* pressed_ = nullptr;
  bool pressedTwice_ = false;  // the press was the second of a double click: no Click follows
};

}  // namespace vellumry::presenter
