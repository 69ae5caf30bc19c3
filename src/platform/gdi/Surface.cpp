#include "platform/gdi/Surface.h"

#include <algorithm>

namespace vellumry::gdi {

namespace {

QImage::Format qtFormat(AlphaMode alpha) {
  switch (alpha) {
    case AlphaMode::kStraight:
      return QImage::Format_ARGB32;
    case AlphaMode::kPremultiplied:
      return QImage::Format_ARGB32_Premultiplied;
    case AlphaMode::kOpaque:
    case AlphaMode::kUnknown:
      break;
  }
  return QImage::Format_RGB32;
}

}  // namespace

Surface::Surface(int width, int height, AlphaMode alpha)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      alpha_(alpha),
      pixels_(static_cast<size_t>(width_) * height_, 0u) {}

QImage Surface::view() {
  if (empty()) return {};
  return QImage(reinterpret_cast<uchar*>(pixels_.data()), width_, height_, width_ * 4,
                qtFormat(alpha_));
}

QImage Surface::view() const {
  if (empty()) return {};
  return QImage(reinterpret_cast<const uchar*>(pixels_.data()), width_, height_, width_ * 4,
                qtFormat(alpha_));
}

IndexedSurface::IndexedSurface(int width, int height)
    : width_(std::max(width, 0)),
      height_(std::max(height, 0)),
      indices_(static_cast<size_t>(width_) * height_, 0) {}

Surface IndexedSurface::toSurface() const {
  Surface out(width_, height_, AlphaMode::kOpaque);
  for (int y = 0; y < height_; ++y) {
    const uint8_t* in = Row(y);
    uint32_t* px = out.Row(y);
    for (int x = 0; x < width_; ++x) px[x] = colors_[in[x]] | 0xFF000000u;
  }
  return out;
}

IndexedSurface::ColorTable IndexedSurface::identityTable() {
  ColorTable table{};
  for (uint32_t i = 0; i < table.size(); ++i) table[i] = i;
  return table;
}

Rect clip(Rect rect, int width, int height) {
  const int left = std::max(rect.x, 0);
  const int top = std::max(rect.y, 0);
  const int right = std::min<int64_t>(int64_t{rect.x} + rect.width, width);
  const int bottom = std::min<int64_t>(int64_t{rect.y} + rect.height, height);
  if (right <= left || bottom <= top) return {};
  return {left, top, right - left, bottom - top};
}

}  // namespace vellumry::gdi
