#include "platform/codecs/Encoders.h"

namespace vellumry::codecs {

using gdi::AlphaMode;
using gdi::IconImage;
using gdi::Surface;

namespace {

int RowBytes(int bitsPerPixel, int width) { return ((bitsPerPixel * width + 31) / 32) * 4; }

// BITMAPINFOHEADER; `rows` is the height written (doubled for icons).
void putInfoHeader(std::vector<uint8_t>& out, int width, int rows, int bits, uint32_t imageSize) {
  putLe32(out, 40);
  putLe32(out, static_cast<uint32_t>(width));
  putLe32(out, static_cast<uint32_t>(rows));
  putLe16(out, 1);
  putLe16(out, static_cast<uint32_t>(bits));
  putLe32(out, 0);  // BI_RGB
  putLe32(out, imageSize);
  putLe32(out, 3780);  // 96 dots per inch, in dots per metre
  putLe32(out, 3780);
  putLe32(out, 0);
  putLe32(out, 0);
}

// Colour rows bottom-up in `bits` (24 or 32) per pixel.
void putPixels(std::vector<uint8_t>& out, const Surface& pixels, int bits) {
  const int pad = RowBytes(bits, pixels.Width()) - pixels.Width() * bits / 8;
  for (int y = pixels.Height() - 1; y >= 0; --y) {
    for (int x = 0; x < pixels.Width(); ++x) {
      const uint32_t p = pixels.pixel(x, y);
      out.push_back(gdi::blueOf(p));
      out.push_back(gdi::greenOf(p));
      out.push_back(gdi::redOf(p));
      if (bits == 32) out.push_back(gdi::alphaOf(p));
    }
    out.insert(out.end(), pad, 0);
  }
}

}  // namespace

void putLe16(std::vector<uint8_t>& out, uint32_t v) {
  out.push_back(static_cast<uint8_t>(v));
  out.push_back(static_cast<uint8_t>(v >> 8));
}

void putLe32(std::vector<uint8_t>& out, uint32_t v) {
  putLe16(out, v & 0xFFFF);
  putLe16(out, v >> 16);
}

std::vector<uint8_t> encodeBmp(const Surface& pixels) {
  const bool opaque = pixels.alpha() == AlphaMode::kOpaque;
  const int bits = opaque ? 24 : 32;
  const uint32_t imageSize = RowBytes(bits, pixels.Width()) * pixels.Height();
  std::vector<uint8_t> out;
  out.reserve(54 + imageSize);
  out.push_back('B');
  out.push_back('M');
  putLe32(out, 54 + imageSize);
  putLe32(out, 0);
  putLe32(out, 54);
  putInfoHeader(out, pixels.Width(), pixels.Height(), bits, imageSize);
  putPixels(out, pixels, bits);
  return out;
}

std::vector<uint8_t> encodeIco(const IconImage& icon) {
  const Surface& colour = icon.colour;
  const int bits = icon.hasAlpha() ? 32 : 24;
  const int maskRow = RowBytes(1, colour.Width());
  const uint32_t imageSize =
      40 + (RowBytes(bits, colour.Width()) + maskRow) * static_cast<uint32_t>(colour.Height());
  std::vector<uint8_t> out;
  putLe16(out, 0);
  putLe16(out, icon.isCursor ? 2 : 1);
  putLe16(out, 1);
  out.push_back(static_cast<uint8_t>(colour.Width() < 256 ? colour.Width() : 0));
  out.push_back(static_cast<uint8_t>(colour.Height() < 256 ? colour.Height() : 0));
  out.push_back(0);
  out.push_back(0);
  putLe16(out, icon.isCursor ? icon.hotspotX : 1);
  putLe16(out, icon.isCursor ? icon.hotspotY : bits);
  putLe32(out, imageSize);
  putLe32(out, 22);
  putInfoHeader(out, colour.Width(), colour.Height() * 2, bits, imageSize - 40);
  putPixels(out, colour, bits);
  for (int y = colour.Height() - 1; y >= 0; --y) {
    std::vector<uint8_t> row(maskRow, 0);
    for (int x = 0; x < colour.Width(); ++x) {
      if (icon.masked(x, y)) row[x / 8] |= static_cast<uint8_t>(0x80 >> (x % 8));
    }
    out.insert(out.end(), row.begin(), row.end());
  }
  return out;
}

}  // namespace vellumry::codecs
