#pragma once

#include <QImage>
#include <array>
#include <bit>
#include <cstdint>
#include <span>
#include <vector>

namespace vellumry::gdi {

static_assert(std::endian::native == std::endian::little,
              "pixels are laid out as B, G, R, A bytes");

struct Size {
  int width = 0;
  int height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

// What the fourth byte of a 32-bit pixel means.
enum class AlphaMode {
  kOpaque,    // no alpha: the byte is ignored and drawn as 255
  kUnknown,   // the byte as read from a file whose format doesn't say (32-bit BMP); drawn opaque
  kStraight,  // colour not scaled by alpha
  kPremultiplied,  // colour already multiplied by alpha
};

// Pixel value as a 32-bit number: 0xAARRGGBB, so that in memory a pixel is B, G, R, A.
constexpr uint32_t argb(uint8_t a, uint8_t r, uint8_t g, uint8_t b) {
  return (uint32_t{a} << 24) | (uint32_t{r} << 16) | (uint32_t{g} << 8) | b;
}
constexpr uint8_t alphaOf(uint32_t p) { return static_cast<uint8_t>(p >> 24); }
constexpr uint8_t redOf(uint32_t p) { return static_cast<uint8_t>(p >> 16); }
constexpr uint8_t greenOf(uint32_t p) { return static_cast<uint8_t>(p >> 8); }
constexpr uint8_t blueOf(uint32_t p) { return static_cast<uint8_t>(p); }

// A 32-bit top-down pixel surface, rows without padding. Owns its pixels; copying copies them.
// Callers that size a surface from untrusted input check their budget before constructing.
class Surface {
 public:
  Surface() = default;
  // Pixels start as 0 (transparent black).
  Surface(int width, int height, AlphaMode alpha);

  int Width() const { return width_; }
  int Height() const { return height_; }
  Size dimensions() const { return {width_, height_}; }
  bool empty() const { return width_ == 0 || height_ == 0; }
  AlphaMode alpha() const { return alpha_; }
  void setAlpha(AlphaMode alpha) { alpha_ = alpha; }
  size_t byteSize() const { return pixels_.size() * sizeof(uint32_t); }

  uint32_t* Row(int y) { return pixels_.data() + static_cast<size_t>(y) * width_; }
  const uint32_t* Row(int y) const { return pixels_.data() + static_cast<size_t>(y) * width_; }
  uint32_t pixel(int x, int y) const { return Row(y)[x]; }
  void setPixel(int x, int y, uint32_t argb) { Row(y)[x] = argb; }
  std::span<uint32_t> Pixels() { return pixels_; }
  std::span<const uint32_t> Pixels() const { return pixels_; }

  // A QImage over these pixels (no copy), in the format that matches alpha(). Valid while the
  // surface lives and isn't resized.
  QImage view();
  QImage view() const;

 private:
  int width_ = 0;
  int height_ = 0;
  AlphaMode alpha_ = AlphaMode::kOpaque;
  std::vector<uint32_t> pixels_;
};

// An 8-bit surface: one colour-table index a pixel and a 256-entry table that can be swapped
// without touching the pixels. Table entries are 0xAARRGGBB; unused entries are 0.
class IndexedSurface {
 public:
  using ColorTable = std::array<uint32_t, 256>;

  IndexedSurface() = default;
  IndexedSurface(int width, int height);  // indices start as 0, the table as all 0

  int Width() const { return width_; }
  int Height() const { return height_; }
  bool empty() const { return width_ == 0 || height_ == 0; }

  uint8_t* Row(int y) { return indices_.data() + static_cast<size_t>(y) * width_; }
  const uint8_t* Row(int y) const { return indices_.data() + static_cast<size_t>(y) * width_; }
  uint8_t Index(int x, int y) const { return Row(y)[x]; }
  void setIndex(int x, int y, uint8_t index) { Row(y)[x] = index; }

  const ColorTable& colors() const { return colors_; }
  void setColors(const ColorTable& table) { colors_ = table; }

  // The pixels looked up through the table, opaque.
  Surface toSurface() const;

  // Entry i = (0, 0, i): a surface with this table keeps raw indices when colours are drawn in.
  static ColorTable identityTable();

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<uint8_t> indices_;
  ColorTable colors_{};
};

// `rect` cut to the bounds of a width x height area; an empty rect when nothing is left.
Rect clip(Rect rect, int width, int height);

}  // namespace vellumry::gdi
