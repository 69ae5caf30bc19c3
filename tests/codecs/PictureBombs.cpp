#include "codecs/PictureBombs.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

#include "codecs/TestImages.h"

namespace vellumry::codecs::testing {

namespace {

using Bytes = std::vector<uint8_t>;

void U8(Bytes& out, unsigned value) { out.push_back(static_cast<uint8_t>(value)); }
void U16le(Bytes& out, unsigned value) { U8(out, value & 0xFF), U8(out, value >> 8 & 0xFF); }
void U32le(Bytes& out, uint32_t value) { U16le(out, value & 0xFFFF), U16le(out, value >> 16); }
void U32be(Bytes& out, uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) U8(out, value >> shift & 0xFF);
}
void Append(Bytes& out, const Bytes& more) { out.insert(out.end(), more.begin(), more.end()); }

// --- PNG ---

void PngChunk(Bytes& out, const char* type, const Bytes& data) {
  U32be(out, static_cast<uint32_t>(data.size()));
  const size_t start = out.size();
  out.insert(out.end(), type, type + 4);
  Append(out, data);
  U32be(out,
        static_cast<uint32_t>(crc32(0, out.data() + start, static_cast<uInt>(out.size() - start))));
}

// A zlib stream of `size` zero bytes.
Bytes DeflatedZeros(uint64_t size) {
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
Bytes Png(uint32_t width, uint32_t height, int colourType, uint64_t inflated) {
  Bytes out = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  Bytes header;
  U32be(header, width), U32be(header, height);
  U8(header, 8), U8(header, static_cast<unsigned>(colourType)), U8(header, 0), U8(header, 0),
      U8(header, 0);
  PngChunk(out, "IHDR", header);
  PngChunk(out, "IDAT", DeflatedZeros(inflated));
  PngChunk(out, "IEND", {});
  return out;
}

// --- JPEG ---

// A small real JPEG whose frame header claims width x height: the scan data runs out at once.
Bytes JpegClaiming(uint16_t width, uint16_t height) {
  Bytes out = MakeJpeg(16, 16);
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
  U8(out, 0x21), U8(out, 0xF9), U8(out, 4), U8(out, 0), U16le(out, 10), U8(out, 0), U8(out, 0);
  U8(out, 0x2C), U16le(out, left), U16le(out, top), U16le(out, width), U16le(out, height);
  U8(out, 0);
  Append(out, {2, 2, 0x44, 0x01, 0});  // clear, 0, end of information
}

Bytes Gif(unsigned screenWidth, unsigned screenHeight, int frames, unsigned frameSize,
          unsigned frameOffset) {
  Bytes out = {'G', 'I', 'F', '8', '9', 'a'};
  U16le(out, screenWidth), U16le(out, screenHeight);
  U8(out, 0x80), U8(out, 0), U8(out, 0);  // a table of two colours
  Append(out, {0, 0, 0, 255, 255, 255});
  for (int i = 0; i < frames; ++i) GifFrame(out, frameOffset, frameOffset, frameSize, frameSize);
  U8(out, 0x3B);
  return out;
}

// --- TIFF ---

struct TiffEntry {
  uint16_t tag, type;
  uint32_t value;
};

void TiffDirectory(Bytes& out, std::vector<TiffEntry> entries, uint32_t next) {
  U16le(out, static_cast<unsigned>(entries.size()));
  for (const TiffEntry& e : entries) {
    U16le(out, e.tag), U16le(out, e.type), U32le(out, 1);
    if (e.type == 3) {
      U16le(out, e.value), U16le(out, 0);
    } else {
      U32le(out, e.value);
    }
  }
  U32le(out, next);
}

std::vector<TiffEntry> GreyStrip(uint32_t width, uint32_t height, uint16_t sizeType,
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
Bytes TiffCycle(int pages) {
  Bytes out = {'I', 'I', 42, 0};
  U32le(out, 16);
  U32le(out, 0), U32le(out, 0);  // offset 8: the pixel
  const uint32_t directorySize = 2 + 9 * 12 + 4;
  for (int page = 0; page < pages; ++page) {
    const uint32_t next = page + 1 < pages ? 16 + (page + 1) * directorySize : 16;
    TiffDirectory(out, GreyStrip(1, 1, 3, 8), next);
  }
  return out;
}

Bytes TiffClaiming(uint32_t width, uint32_t height, uint16_t sizeType) {
  Bytes out = {'I', 'I', 42, 0};
  U32le(out, 16);
  U32le(out, 0), U32le(out, 0);
  TiffDirectory(out, GreyStrip(width, height, sizeType, 8), 0);
  return out;
}

// --- BMP and ICO ---

Bytes BitmapInfoHeader(int32_t width, int32_t height, int bits, int compression,
                       uint32_t imageSize) {
  Bytes out;
  U32le(out, 40), U32le(out, static_cast<uint32_t>(width)),
      U32le(out, static_cast<uint32_t>(height));
  U16le(out, 1), U16le(out, static_cast<unsigned>(bits)),
      U32le(out, static_cast<uint32_t>(compression));
  U32le(out, imageSize), U32le(out, 2835), U32le(out, 2835), U32le(out, 0), U32le(out, 0);
  return out;
}

Bytes Bmp(int32_t width, int32_t height, int bits, int compression, const Bytes& palette,
          const Bytes& pixels) {
  const uint32_t offset = 14 + 40 + static_cast<uint32_t>(palette.size());
  Bytes out = {'B', 'M'};
  U32le(out, offset + static_cast<uint32_t>(pixels.size())), U32le(out, 0), U32le(out, offset);
  Append(out,
         BitmapInfoHeader(width, height, bits, compression, static_cast<uint32_t>(pixels.size())));
  Append(out, palette);
  Append(out, pixels);
  return out;
}

// Runs longer than a row, a jump far past the corner, pixels past the last row, and no end.
Bytes RleOutOfBounds(bool fourBit) {
  Bytes data = {255, 0x11, 0, 2, 200, 200, 255, 0x22, 0, 0};  // a run, a jump, a run, line end
  for (int row = 0; row < 40; ++row) Append(data, {0, 6, 1, 2, 3, 4, 5, 6, 0, 0});
  Append(data, {0, 2, 255, 255, 0, 255, 1, 2, 3, 4, 5, 6});  // a jump; an absolute run cut short
  Bytes palette;
  for (int i = 0; i < (fourBit ? 16 : 256); ++i)
    U32le(palette, static_cast<uint32_t>(i * 0x010101));
  return Bmp(16, 16, fourBit ? 4 : 8, fourBit ? 2 : 1, palette, data);
}

Bytes Ico(uint16_t entries, const Bytes& image) {
  Bytes out;
  U16le(out, 0), U16le(out, 1), U16le(out, entries);
  const uint32_t imageAt = 6 + 16u * entries;
  for (int i = 0; i < entries; ++i) {
    U8(out, 0), U8(out, 0), U8(out, 0), U8(out, 0), U16le(out, 1), U16le(out, 32);
    U32le(out, static_cast<uint32_t>(image.size())), U32le(out, imageAt);
  }
  Append(out, image);
  return out;
}

}  // namespace

std::vector<PictureBomb> PictureBombs() {
  constexpr uint32_t kMax16 = 65535, kMax31 = 0x7FFFFFFF;
  const Bytes bigPng = Png(kMax16, kMax16, 2, 1000);
  Bytes bmpInIcon = BitmapInfoHeader(kMax31, 2, 32, 0, 0);
  bmpInIcon.resize(bmpInIcon.size() + 64);
  return {
      {"png-65535x65535.png", bigPng},
      {"png-2147483647x1.png", Png(kMax31, 1, 0, 1000)},
      {"png-inflating-without-end.png", Png(64, 64, 0, uint64_t{64} << 20)},
      {"jpeg-65535x65535.jpg", JpegClaiming(kMax16, kMax16)},
      {"jpeg-16000x16000-cut.jpg", JpegClaiming(16000, 16000)},
      {"gif-65535x65535.gif", Gif(kMax16, kMax16, 1, 1, 0)},
      {"gif-frame-far-out.gif", Gif(1, 1, 1, kMax16, kMax16)},
      {"gif-100000-frames.gif", Gif(1, 1, 100000, 1, 0)},
      {"tiff-65535x65535.tif", TiffClaiming(kMax16, kMax16, 3)},
      {"tiff-2147483647x2147483647.tif", TiffClaiming(kMax31, kMax31, 4)},
      {"tiff-10000-pages-cycle.tif", TiffCycle(10000)},
      {"bmp-2147483647x1.bmp", Bmp(kMax31, 1, 24, 0, {}, Bytes(64, 0))},
      {"bmp-1x-2147483648.bmp", Bmp(1, INT32_MIN, 24, 0, {}, Bytes(64, 0))},
      {"bmp-rle8-past-rows.bmp", RleOutOfBounds(false)},
      {"bmp-rle4-past-rows.bmp", RleOutOfBounds(true)},
      {"ico-png-65535x65535.ico", Ico(1, bigPng)},
      {"ico-bmp-2147483647.ico", Ico(1, bmpInIcon)},
      {"ico-65535-entries.ico", Ico(kMax16, Png(16, 16, 2, 16 * 49))},
  };
}

PictureBomb LargestPng() {
  return {"png-16384x16383-zeros.png", Png(16384, 16383, 0, uint64_t{16385} * 16383)};
}

}  // namespace vellumry::codecs::testing
