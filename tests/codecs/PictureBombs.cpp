#include "codecs/PictureBombs.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

#include "codecs/TestImages.h"

namespace vellumry::codecs::testing {

namespace {

using Bytes = std::vector<uint8_t>;

void u8(Bytes& out, unsigned value) { out.push_back(static_cast<uint8_t>(value)); }
void u16le(Bytes& out, unsigned value) { u8(out, value & 0xFF), u8(out, value >> 8 & 0xFF); }
void u32le(Bytes& out, uint32_t value) { u16le(out, value & 0xFFFF), u16le(out, value >> 16); }
void u32be(Bytes& out, uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) u8(out, value >> shift & 0xFF);
}
void append(Bytes& out, const Bytes& more) { out.insert(out.end(), more.begin(), more.end()); }

// --- PNG ---

void pngChunk(Bytes& out, const char* type, const Bytes& data) {
  u32be(out, static_cast<uint32_t>(data.size()));
  const size_t start = out.size();
  out.insert(out.end(), type, type + 4);
  append(out, data);
  u32be(out,
        static_cast<uint32_t>(crc32(0, out.data() + start, static_cast<uInt>(out.size() - start))));
}

// A zlib stream of `size` zero bytes.
Bytes deflatedZeros(uint64_t size) {
  z_stream z{};
  deflateInit(&z, 9);
  const Bytes zeros(1 << 20, 0);
  Bytes out;
  uint8_t buffer[1 << 16];
  do {
    const uint64_t chunk = std::min<uint64_t>(size, zeros.size());
    size -= chunk;
    z.next_in = const_cast<Bytef*>(zeros.data());
    z.avail_in = static_cast<uInt>(chunk);
    const int flush = size == 0 ? Z_FINISH : Z_NO_FLUSH;
    do {
      z.next_out = buffer;
      z.avail_out = sizeof buffer;
      deflate(&z, flush);
      out.insert(out.end(), buffer, buffer + (sizeof buffer - z.avail_out));
    } while (z.avail_out == 0);
  } while (size > 0);
  deflateEnd(&z);
  return out;
}

// A PNG of grey (colour type 0) or RGB (2) whose image data inflates to `inflated` zero bytes.
Bytes png(uint32_t width, uint32_t height, int colourType, uint64_t inflated) {
  Bytes out = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Bytes header;
  u32be(header, width), u32be(header, height);
  u8(header, 8), u8(header, static_cast<unsigned>(colourType)), u8(header, 0), u8(header, 0),
      u8(header, 0);
  pngChunk(out, "IHDR", header);
  pngChunk(out, "IDAT", deflatedZeros(inflated));
  pngChunk(out, "IEND", {});
  return out;
}

// --- JPEG ---

// A small real JPEG whose frame header claims width x height: the scan data runs out at once.
Bytes jpegClaiming(uint16_t width, uint16_t height) {
  Bytes out = makeJpeg(16, 16);
  for (size_t i = 0; i + 8 < out.size(); ++i) {
    if (out[i] == 0xFF && out[i + 1] == 0xC0) {
      out[i + 5] = height >> 8, out[i + 6] = height & 0xFF;
      out[i + 7] = width >> 8, out[i + 8] = width & 0xFF;
      break;
    }
  }
  return out;
}

// --- GIF ---

// One 1 x 1 frame at (left, top) claiming width x height, its data a single pixel of index 0.
void GifFrame(Bytes& out, unsigned left, unsigned top, unsigned width, unsigned height) {
  u8(out, 0x21), u8(out, 0xF9), u8(out, 4), u8(out, 0), u16le(out, 10), u8(out, 0), u8(out, 0);
  u8(out, 0x2C), u16le(out, left), u16le(out, top), u16le(out, width), u16le(out, height);
  u8(out, 0);
  append(out, {2, 2, 0x44, 0x01, 0});  // clear, 0, end of information
}

Bytes gif(unsigned screenWidth, unsigned screenHeight, int frames, unsigned frameSize,
          unsigned frameOffset) {
  Bytes out = {'G', 'I', 'F', '8', '9', 'a'};
  u16le(out, screenWidth), u16le(out, screenHeight);
  u8(out, 0x80), u8(out, 0), u8(out, 0);  // a table of two colours
  append(out, {0, 0, 0, 255, 255, 255});
  for (int i = 0; i < frames; ++i) GifFrame(out, frameOffset, frameOffset, frameSize, frameSize);
  u8(out, 0x3B);
  return out;
}

// --- TIFF ---

struct TiffEntry {
  uint16_t tag, type;
  uint32_t value;
};

void tiffDirectory(Bytes& out, std::vector<TiffEntry> entries, uint32_t next) {
  u16le(out, static_cast<unsigned>(entries.size()));
  for (const TiffEntry& e : entries) {
    u16le(out, e.tag), u16le(out, e.type), u32le(out, 1);
    if (e.type == 3) {
      u16le(out, e.value), u16le(out, 0);
    } else {
      u32le(out, e.value);
    }
  }
  u32le(out, next);
}

std::vector<TiffEntry> greyStrip(uint32_t width, uint32_t height, uint16_t sizeType,
                                 uint32_t pixelsAt) {
  return {{256, sizeType, width},
          {257, sizeType, height},
          {258, 3, 8},
          {259, 3, 1},
          {262, 3, 1},
          {273, 4, pixelsAt},
          {277, 3, 1},
          {278, 4, height},
          {279, 4, 1}};
}

// `pages` one-pixel pages, the last leading back to the first.
Bytes tiffCycle(int pages) {
  Bytes out = {'I', 'I', 42, 0};
  u32le(out, 16);
  u32le(out, 0), u32le(out, 0);  // offset 8: the pixel
  const uint32_t directorySize = 2 + 9 * 12 + 4;
  for (int page = 0; page < pages; ++page) {
    const uint32_t next = page + 1 < pages ? 16 + (page + 1) * directorySize : 16;
    tiffDirectory(out, greyStrip(1, 1, 3, 8), next);
  }
  return out;
}

Bytes tiffClaiming(uint32_t width, uint32_t height, uint16_t sizeType) {
  Bytes out = {'I', 'I', 42, 0};
  u32le(out, 16);
  u32le(out, 0), u32le(out, 0);
  tiffDirectory(out, greyStrip(width, height, sizeType, 8), 0);
  return out;
}

// --- BMP and ICO ---

Bytes bitmapInfoHeader(int32_t width, int32_t height, int bits, int compression,
                       uint32_t imageSize) {
  Bytes out;
  u32le(out, 40), u32le(out, static_cast<uint32_t>(width)),
      u32le(out, static_cast<uint32_t>(height));
  u16le(out, 1), u16le(out, static_cast<unsigned>(bits)),
      u32le(out, static_cast<uint32_t>(compression));
  u32le(out, imageSize), u32le(out, 2835), u32le(out, 2835), u32le(out, 0), u32le(out, 0);
  return out;
}

Bytes bmp(int32_t width, int32_t height, int bits, int compression, const Bytes& palette,
          const Bytes& pixels) {
  const uint32_t offset = 14 + 40 + static_cast<uint32_t>(palette.size());
  Bytes out = {'B', 'M'};
  u32le(out, offset + static_cast<uint32_t>(pixels.size())), u32le(out, 0), u32le(out, offset);
  append(out,
         bitmapInfoHeader(width, height, bits, compression, static_cast<uint32_t>(pixels.size())));
  append(out, palette);
  append(out, pixels);
  return out;
}

// Runs longer than a row, a jump far past the corner, pixels past the last row, and no end.
Bytes rleOutOfBounds(bool fourBit) {
  Bytes data = {255, 0x11, 0, 2, 200, 200, 255, 0x22, 0, 0};  // a run, a jump, a run, line end
  for (int row = 0; row < 40; ++row) append(data, {0, 6, 1, 2, 3, 4, 5, 6, 0, 0});
  append(data, {0, 2, 255, 255, 0, 255, 1, 2, 3, 4, 5, 6});  // a jump; an absolute run cut short
  Bytes palette;
  for (int i = 0; i < (fourBit ? 16 : 256); ++i)
    u32le(palette, static_cast<uint32_t>(i * 0x010101));
  return bmp(16, 16, fourBit ? 4 : 8, fourBit ? 2 : 1, palette, data);
}

Bytes ico(uint16_t entries, const Bytes& image) {
  Bytes out;
  u16le(out, 0), u16le(out, 1), u16le(out, entries);
  const uint32_t imageAt = 6 + 16u * entries;
  for (int i = 0; i < entries; ++i) {
    u8(out, 0), u8(out, 0), u8(out, 0), u8(out, 0), u16le(out, 1), u16le(out, 32);
    u32le(out, static_cast<uint32_t>(image.size())), u32le(out, imageAt);
  }
  append(out, image);
  return out;
}

}  // namespace

std::vector<PictureBomb> pictureBombs() {
  constexpr uint32_t kMax16 = 65535, kMax31 = 0x7FFFFFFF;
  const Bytes bigPng = png(kMax16, kMax16, 2, 1000);
  Bytes bmpInIcon = bitmapInfoHeader(kMax31, 2, 32, 0, 0);
  bmpInIcon.resize(bmpInIcon.size() + 64);
  return {
      {"png-65535x65535.png", bigPng},
      {"png-2147483647x1.png", png(kMax31, 1, 0, 1000)},
      {"png-inflating-without-end.png", png(64, 64, 0, uint64_t{64} << 20)},
      {"jpeg-65535x65535.jpg", jpegClaiming(kMax16, kMax16)},
      {"jpeg-16000x16000-cut.jpg", jpegClaiming(16000, 16000)},
      {"gif-65535x65535.gif", gif(kMax16, kMax16, 1, 1, 0)},
      {"gif-frame-far-out.gif", gif(1, 1, 1, kMax16, kMax16)},
      {"gif-100000-frames.gif", gif(1, 1, 100000, 1, 0)},
      {"tiff-65535x65535.tif", tiffClaiming(kMax16, kMax16, 3)},
      {"tiff-2147483647x2147483647.tif", tiffClaiming(kMax31, kMax31, 4)},
      {"tiff-10000-pages-cycle.tif", tiffCycle(10000)},
      {"bmp-2147483647x1.bmp", bmp(kMax31, 1, 24, 0, {}, Bytes(64, 0))},
      {"bmp-1x-2147483648.bmp", bmp(1, INT32_MIN, 24, 0, {}, Bytes(64, 0))},
      {"bmp-rle8-past-rows.bmp", rleOutOfBounds(false)},
      {"bmp-rle4-past-rows.bmp", rleOutOfBounds(true)},
      {"ico-png-65535x65535.ico", ico(1, bigPng)},
      {"ico-bmp-2147483647.ico", ico(1, bmpInIcon)},
      {"ico-65535-entries.ico", ico(kMax16, png(16, 16, 2, 16 * 49))},
  };
}

PictureBomb largestPng() {
  return {"png-16384x16383-zeros.png", png(16384, 16383, 0, uint64_t{16385} * 16383)};
}

}  // namespace vellumry::codecs::testing
