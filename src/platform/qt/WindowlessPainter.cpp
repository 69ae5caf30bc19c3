#include "platform/qt/WindowlessPainter.h"

#include <QPainter>
#include <QRegularExpression>
#include <algorithm>

#include "platform/gdi/Picture.h"
#include "platform/qt/Units.h"
#include "platform/toolkit/PictureControls.h"

namespace vellumry::presenter {

QImage renderPicture(const gdi::Picture& picture, QSize size) {
  if (!picture || size.isEmpty()) return {};
  const bool transparent = (picture.Attributes() & gdi::kPictureTransparent) != 0;
  gdi::Surface canvas(size.width(), size.height(),
                      transparent ? gdi::AlphaMode::kPremultiplied : gdi::AlphaMode::kOpaque);
  picture.Render(canvas, 0, 0, size.width(), size.height(), 0, picture.Height(), picture.Width(),
                 -picture.Height());
  // The canvas goes with this call: a conversion to the format it has already would only share
  // its pixels, so that case copies them. Opaque pixels come out truly opaque.
  const QImage view = canvas.view();
  return view.format() == QImage::Format_ARGB32_Premultiplied
             ? view.copy()
             : view.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void WindowlessPainter::paint(QPainter& painter, const tk::Control& c, const QRect& rect,
                              const QPalette& palette) {
  switch (c.kind()) {
    case tk::Kind::Image:
      paintImage(painter, static_cast<const tk::Image&>(c), rect);
      break;
    case tk::Kind::Label: {
      const auto& label = static_cast<const tk::Label&>(c);
      if (label.BackStyle() == 1) painter.fillRect(rect, qtColor(label.BackColor(), palette));
      painter.setPen(qtColor(label.ForeColor(), palette));
      const QFont windowFont = painter.font();
      if (label.FontSize() > 0) {
        QFont font = windowFont;
        font.setPointSizeF(label.FontSize());
        painter.setFont(font);
      }
      const int align = label.Alignment() == 1   ? Qt::AlignRight
                        : label.Alignment() == 2 ? Qt::AlignHCenter
                                                 : Qt::AlignLeft;
      const QString caption = QString::fromStdString(label.Caption());
      // A run of blanks holds a gap for a control that stands in it (the seconds list of the
      // settings): the words behind it end at the label's right edge, whatever the font.
      static const QRegularExpression gap(" {4,}");
      const QRegularExpressionMatch held = gap.match(caption);
      if (held.hasMatch() && !caption.contains('\n')) {
        painter.drawText(rect, Qt::AlignLeft | Qt::AlignTop, caption.left(held.capturedStart()));
        painter.drawText(rect, Qt::AlignRight | Qt::AlignTop, caption.mid(held.capturedEnd()));
      } else {
        // A label one line high keeps its caption on that line, running past its right edge
        // where the desktop's font is wider than the one it was laid out for ("Image Name").
        const bool oneLine = rect.height() < 2 * painter.fontMetrics().height();
        const int wrap = oneLine ? Qt::TextDontClip : Qt::TextWordWrap;
        painter.drawText(rect, align | Qt::AlignTop | wrap, caption);
      }
      painter.setFont(windowFont);
      break;
    }
    case tk::Kind::Shape: {
      const auto& shape = static_cast<const tk::Shape&>(c);
      QRectF area = rect;
      const int kind = shape.shapeKind();
      if (kind == 1 || kind == 3 || kind == 5) {  // square, circle, rounded square
        const int side = std::min(rect.width(), rect.height());
        area = QRectF(rect.x() + (rect.width() - side) / 2.0,
                      rect.y() + (rect.height() - side) / 2.0, side, side);
      }
      const int width = std::max(shape.BorderWidth(), 1);
      if (shape.BorderStyle() != 0) {
        painter.setPen(QPen(qtColor(shape.BorderColor(), palette), width, Qt::SolidLine,
                            Qt::SquareCap, Qt::MiterJoin));
        // The border lies inside the shape's bounds.
        area.adjust(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0);
      } else {
        painter.setPen(Qt::NoPen);
      }
      painter.setBrush(shape.FillStyle() == 0 ? QBrush(qtColor(shape.FillColor(), palette))
                                              : QBrush(Qt::NoBrush));
      if (kind == 2 || kind == 3) {
        painter.drawEllipse(area);
      } else if (kind == 4 || kind == 5) {
        const double r = std::min(area.width(), area.height()) / 10;
        painter.drawRoundedRect(area, r, r);
      } else {
        painter.drawRect(area);
      }
      break;
    }
    default:
      break;
  }
}

void WindowlessPainter::paintImage(QPainter& painter, const tk::Image& image, const QRect& rect) {
  const gdi::Picture& picture = image.Picture();
  if (!picture) return;
  QSize size = rect.size();
  if (!image.Stretch()) {
    gdi::Size natural = picture.pixelSize();
    size = QSize(natural.width, natural.height);
  }
  const QImage& pixels = drawnPicture(image, size);
  if (pixels.isNull()) return;
  painter.save();
  painter.setClipRect(rect, Qt::IntersectClip);
  painter.drawImage(rect.topLeft(), pixels);
  painter.restore();
}

const QImage& WindowlessPainter::drawnPicture(const tk::Image& image, QSize size) {
  QImage& kept = images_[&image];
  if (kept.size() != size) kept = renderPicture(image.Picture(), size);
  return kept;
}

}  // namespace vellumry::presenter
