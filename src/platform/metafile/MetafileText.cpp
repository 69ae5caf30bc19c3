// The text of a metafile: its font at the output's scale, its alignment, and its drawing.
#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

#include "platform/metafile/MetafileCanvas.h"

namespace vellumry::metafile {

namespace {
// Text larger than this many output pixels is left out: it can't be legible in the picture, and
// Qt would rasterise its glyphs at that size.
constexpr double kMaxTextPixels = 4096;
}  // namespace

std::optional<QFont> MetafileCanvas::textFont(double scaleY) const {
  const FontSpec& asked = dc_.font;
  QFont font(asked.face);
  font.setItalic(asked.italic);
  font.setUnderline(asked.underline);
  font.setStrikeOut(asked.strikeOut);
  font.setWeight(
      static_cast<QFont::Weight>(std::clamp(asked.weight == 0 ? 400 : asked.weight, 1, 1000)));
  double pixels = (asked.height == 0 ? 12 : std::abs(asked.height)) * scaleY;
  if (pixels > kMaxTextPixels || !std::isfinite(pixels)) return std::nullopt;
  font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
  if (asked.height > 0) {
    // A positive height is the cell: ascent and descent together.
    const QFontMetricsF cell(font);
    const double em = pixels * pixels / std::max(1.0, cell.ascent() + cell.descent());
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(em))));
  }
  return font;
}

void MetafileCanvas::DrawText(const Text& text) {
  // Fonts come from the application's font database: a program without one draws no text.
  if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return;
  if (text.text.isEmpty() && !text.box) return;
  const QTransform toOutput = logicalToOutput();
  const double scaleX = std::hypot(toOutput.m11(), toOutput.m12());
  const double scaleY = std::hypot(toOutput.m21(), toOutput.m22());
  const std::optional<QFont> font = textFont(scaleY);
  if (!font) return;
  const QFontMetricsF metrics(*font);

  const bool updatePosition = dc_.textAlign & 1;
  const QPointF anchor = updatePosition ? dc_.position : text.at;
  std::vector<double> offsets;  // output pixels from the start of each character
  double width = 0;
  if (text.advances.size() >= static_cast<size_t>(text.text.size())) {
    for (qsizetype i = 0; i < text.text.size(); ++i) {
      offsets.push_back(width);
      width += text.advances[static_cast<size_t>(i)] * scaleX;
    }
  } else {
    width = metrics.horizontalAdvance(text.text);
  }
  double x = 0;
  const uint32_t horizontal = dc_.textAlign & 6, vertical = dc_.textAlign & 24;
  if (horizontal == 6) x = -width / 2;
  if (horizontal == 2) x = -width;
  const double y = vertical == 24 ? 0 : vertical == 8 ? -metrics.descent() : metrics.ascent();
  if (updatePosition) {
    const double advance = horizontal == 2 ? -width : horizontal == 6 ? 0 : width;
    dc_.position = anchor + QPointF(scaleX == 0 ? 0 : advance / scaleX, 0);
  }

  painter_.resetTransform();
  if (text.box && (text.options & 2)) {
    painter_.setTransform(toOutput);
    painter_.fillRect(text.box->normalized(), dc_.bkColor);
  }
  painter_.save();
  if (text.box && (text.options & 4)) {
    painter_.setTransform(toOutput);
    painter_.setClipRect(text.box->normalized(), Qt::IntersectClip);
  }
  const QPointF origin = toOutput.map(anchor);
  const double flip = toOutput.m22() < 0 ? -1 : 1;
  painter_.setTransform(QTransform::fromTranslate(origin.x(), origin.y()));
  painter_.rotate(-dc_.font.escapement / 10.0 * flip);
  if (dc_.opaqueBackground && !(text.options & 2)) {
    painter_.fillRect(QRectF(x, y - metrics.ascent(), width, metrics.height()), dc_.bkColor);
  }
  painter_.setFont(*font);
  painter_.setPen(dc_.textColor);
  if (offsets.empty()) {
    painter_.drawText(QPointF(x, y), text.text);
  } else {
    for (qsizetype i = 0; i < text.text.size(); ++i) {
      painter_.drawText(QPointF(x + offsets[static_cast<size_t>(i)], y), QString(text.text[i]));
    }
  }
  painter_.restore();
}

}  // namespace vellumry::metafile
