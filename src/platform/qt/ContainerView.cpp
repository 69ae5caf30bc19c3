#include "platform/qt/ContainerView.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "platform/qt/KeyMap.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/Units.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/PictureControls.h"

namespace vellumry::presenter {

namespace {
uint32_t backColorOf(const tk::Control& c) {
  switch (c.kind()) {
    case tk::Kind::Form:
      return static_cast<const tk::Form&>(c).BackColor();
    case tk::Kind::Frame:
      return static_cast<const tk::Frame&>(c).BackColor();
    case tk::Kind::PictureBox:
      return static_cast<const tk::PictureBox&>(c).BackColor();
    default:
      return tk::kSystemFace;
  }
}

bool takesMouse(const tk::Control& c) {
  return c.kind() == tk::Kind::Image || c.kind() == tk::Kind::Label;
}
}  // namespace

ContainerView::ContainerView(Presenter& presenter, tk::Control& control, QWidget* parent)
    : QWidget(parent), presenter_(presenter), control_(&control) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ContainerView::detach() {
  control_ = nullptr;
  pressed_ = nullptr;
  windowless_.clear();
}

ContainerView::Item* ContainerView::itemOf(const tk::Control& c) {
  auto it = std::find_if(windowless_.begin(), windowless_.end(),
                         [&](const Item& item) { return item.control == &c; });
  return it == windowless_.end() ? nullptr : &*it;
}

std::optional<QRect> ContainerView::shownRect(const tk::Control& c) const {
  for (const Item& item : windowless_)
    if (item.control == &c) return item.shown;
  return std::nullopt;
}

QRect ContainerView::rectOf(const tk::Control& c) const { return pixelRect(c); }

void ContainerView::addWindowless(tk::Control& c, uint64_t order) {
  auto at = std::upper_bound(windowless_.begin(), windowless_.end(), order,
                             [](uint64_t o, const Item& item) { return o < item.order; });
  QRect shown = rectOf(c);
  windowless_.insert(at, Item{&c, order, shown});
  if (c.Visible()) update(shown);
}

void ContainerView::removeWindowless(const tk::Control& c) {
  if (Item* item = itemOf(c)) {
    update(item->shown);
    windowless_.erase(windowless_.begin() + (item - windowless_.data()));
  }
  painter_.forget(c);
  if (pressed_ == &c) pressed_ = nullptr;
}

void ContainerView::refreshWindowless(const tk::Control& c, bool contentChanged) {
  Item* item = itemOf(c);
  if (!item) return;
  // A one-line caption may run past its label's right edge: the rest of the row goes with it.
  const auto area = [&](QRect r) {
    return c.kind() == tk::Kind::Label ? r.adjusted(0, 0, width(), 0) : r;
  };
  update(area(item->shown));
  item->shown = rectOf(c);
  if (contentChanged) painter_.forget(c);
  update(area(item->shown));
}

void ContainerView::pictureChanged() {
  boxPicture_ = {};
  update();
}

void ContainerView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  if (!control_) {
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    return;
  }
  painter.fillRect(event->rect(), qtColor(backColorOf(*control_), palette()));
  if (control_->kind() == tk::Kind::PictureBox) {
    const gdi::Picture& picture = static_cast<const tk::PictureBox&>(*control_).Picture();
    if (picture && boxPicture_.isNull()) {
      gdi::Size natural = picture.pixelSize();
      boxPicture_ = renderPicture(picture, QSize(natural.width, natural.height));
    }
    if (!boxPicture_.isNull()) painter.drawImage(0, 0, boxPicture_);
  }
  for (const Item& item : windowless_) {
    if (item.control->Visible() && item.shown.intersects(event->rect()))
      painter_.paint(painter, *item.control, item.shown, palette());
  }
  if (control_->kind() == tk::Kind::Form && clientOrigin(control_->form()) != QPoint()) {
    painter.setPen(palette().color(QPalette::Shadow));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  if (control_->kind() == tk::Kind::Frame) {
    const auto& frame = static_cast<const tk::Frame&>(*control_);
    if (frame.BorderStyle() != 0) {
      painter.setPen(palette().color(QPalette::Mid));
      const int top = fontMetrics().height() / 2;
      painter.setBrush(Qt::NoBrush);
      painter.drawRect(QRect(0, top, width() - 1, height() - top - 1));
      if (!frame.Caption().empty()) {
        QString caption = QString::fromStdString(frame.Caption());
        QRect text(8, 0, fontMetrics().horizontalAdvance(caption) + 4, fontMetrics().height());
        painter.fillRect(text, qtColor(frame.BackColor(), palette()));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(text, Qt::AlignCenter, caption);
      }
    }
  }
}

tk::Control* ContainerView::hit(QPoint pos) {
  for (auto it = windowless_.rbegin(); it != windowless_.rend(); ++it) {
    const tk::Control& c = *it->control;
    if (takesMouse(c) && c.Visible() && c.Enabled() && it->shown.contains(pos)) return it->control;
  }
  return control_;
}

bool ContainerView::overChildWidget(QPoint pos) const {
  QWidget* child = childAt(pos);
  return child && child != this;
}

QPointF ContainerView::pointFor(const tk::Control& c, QPoint pos) const {
  const QPoint corner = &c != control_                  ? pixelRect(c).topLeft()
                       : c.kind() == tk::Kind::Form ? clientOrigin(c.form())
                                                    : QPoint();
  const QPoint local = pos - corner;
  return modelPoint(c, local);
}

void ContainerView::mousePressEvent(QMouseEvent* event) {
  const QPoint pos = event->position().toPoint();
  if (!control_ || overChildWidget(pos) || !buttonOf(event->button())) return event->ignore();
  presenter_.notePress(this);
  tk::Control* target = hit(pos);
  pressed_ = target;
  pressedTwice_ = false;
  QPointF at = pointFor(*target, pos);
  presenter_.noteInput(*target);
  tk::user::mouseDown(*target, buttonOf(event->button()), shiftMaskOf(event->modifiers()), at.x(),
                      at.y());
}

void ContainerView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint pos = event->position().toPoint();
  if (!control_ || overChildWidget(pos)) return event->ignore();
  if (event->button() != Qt::LeftButton || !presenter_.pressedLast(this))
    return mousePressEvent(event);
  tk::Control* target = hit(pos);
  pressed_ = target;
  pressedTwice_ = true;
  presenter_.noteInput(*target);
  tk::user::raiseDblClick(*target);
}

void ContainerView::mouseReleaseEvent(QMouseEvent* event) {
  tk::Control* target = pressed_;
  const int button = buttonOf(event->button());
  if (!control_ || !target || !button) return event->ignore();
  if (event->buttons() == Qt::NoButton) pressed_ = nullptr;
  const QPoint pos = event->position().toPoint();
  QPointF at = pointFor(*target, pos);
  presenter_.noteInput(*target);
  tk::user::mouseUp(*target, button, shiftMaskOf(event->modifiers()), at.x(), at.y());
  // The mouse up may have unloaded the control or its form.
  if (!presenter_.alive(target) || pressedTwice_ || button != tk::user::kLeftButton) return;
  const bool inside = target == control_ ? rect().contains(pos) : pixelRect(*target).contains(pos);
  if (inside) tk::user::raiseClick(*target);
}

void ContainerView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint pos = event->position().toPoint();
  if (!control_) return event->ignore();
  // While a button is held the control that got the press keeps the mouse.
  tk::Control* target = pressed_ && event->buttons() != Qt::NoButton ? pressed_ : hit(pos);
  if (target == control_ && overChildWidget(pos)) return event->ignore();
  QPointF at = pointFor(*target, pos);
  tk::user::mouseMove(*target, buttonMaskOf(event->buttons()), shiftMaskOf(event->modifiers()),
                      at.x(), at.y());
}

bool ContainerView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && control_) {
    auto* help = static_cast<QHelpEvent*>(event);
    tk::Control* target = hit(help->pos());
    const std::string& tip = target->ToolTipText();
    if (tip.empty()) {
      QToolTip::hideText();
      event->ignore();
    } else {
      QToolTip::showText(help->globalPos(), QString::fromStdString(tip), this);
    }
    return true;
  }
  return QWidget::event(event);
}

}  // namespace vellumry::presenter
