#include <tiffio.h>

#include <cstring>

#include "codecs/TestImages.h"

namespace vellumry::codecs::testing {

namespace {

struct Output {
  std::vector<uint8_t> bytes;
  uint64_t position = 0;
};

tmsize_t read(thandle_t handle, void* out, tmsize_t size) {
  auto* o = static_cast<Output*>(handle);
  const uint64_t n =
      o->position >= o->bytes.size()
          ? 0
          : std::min<uint64_t>(static_cast<uint64_t>(size), o->bytes.size() - o->position);
  std::memcpy(out, o->bytes.data() + o->position, n);
  o->position += n;
  return static_cast<tmsize_t>(n);
}

tmsize_t write(thandle_t handle, void* in, tmsize_t size) {
  auto* o = static_cast<Output*>(handle);
  const uint64_t end = o->position + static_cast<uint64_t>(size);
  if (end > o->bytes.size()) o->bytes.resize(end);
  std::memcpy(o->bytes.data() + o->position, in, static_cast<size_t>(size));
  o->position = end;
  return size;
}

toff_t seek(thandle_t handle, toff_t offset, int whence) {
  auto* o = static_cast<Output*>(handle);
  if (whence == SEEK_CUR) offset += o->position;
  if (whence == SEEK_END) offset += o->bytes.size();
  o->position = offset;
  return offset;
}

int close(thandle_t) { return 0; }
toff_t Size(thandle_t handle) { return static_cast<Output*>(handle)->bytes.size(); }

// Our pixel as the file's red, green, blue.
void toRgb(const uint32_t* row, int width, uint8_t* out) {
  for (int x = 0; x < width; ++x) {
    out[x * 3] = gdi::redOf(row[x]);
    out[x * 3 + 1] = gdi::greenOf(row[x]);
    out[x * 3 + 2] = gdi::blueOf(row[x]);
  }
}

void writeStrips(TIFF* tif, int width, int height, const TiffRowMaker& rowAt) {
  std::vector<uint32_t> row(static_cast<size_t>(width));
  std::vector<uint8_t> rgb(static_cast<size_t>(width) * 3);
  for (int y = 0; y < height; ++y) {
    rowAt(y, row.data());
    toRgb(row.data(), width, rgb.data());
    TIFFWriteScanline(tif, rgb.data(), static_cast<uint32_t>(y), 0);
  }
}

void writeTiles(TIFF* tif, int width, int height, int tile, const TiffRowMaker& rowAt) {
  std::vector<uint32_t> row(static_cast<size_t>(width));
  std::vector<uint8_t> band(static_cast<size_t>(width) * tile * 3);
  std::vector<uint8_t> pixels(static_cast<size_t>(tile) * tile * 3);
  for (int top = 0; top < height; top += tile) {
    std::fill(band.begin(), band.end(), 0);
    for (int y = top; y < std::min(height, top + tile); ++y) {
      rowAt(y, row.data());
      toRgb(row.data(), width, &band[static_cast<size_t>(y - top) * width * 3]);
    }
    for (int left = 0; left < width; left += tile) {
      std::fill(pixels.begin(), pixels.end(), 0);
      const int columns = std::min(tile, width - left);
      for (int y = 0; y < tile; ++y) {
        std::memcpy(&pixels[static_cast<size_t>(y) * tile * 3],
                    &band[(static_cast<size_t>(y) * width + left) * 3],
                    static_cast<size_t>(columns) * 3);
      }
      TIFFWriteTile(tif, pixels.data(), static_cast<uint32_t>(left), static_cast<uint32_t>(top), 0,
                    0);
    }
  }
}

}  // namespace

std::vector<uint8_t> makeTiff(int width, int height, const TiffLayout& layout,
                              const TiffRowMaker& rowAt) {
  Output out;
  TIFF* tif = TIFFClientOpen("memory", "w", &out, read, write, seek, close, Size, nullptr, nullptr);
  TIFFSetField(tif, TIFFTAG_IMAGEWIDTH, width);
  TIFFSetField(tif, TIFFTAG_IMAGELENGTH, height);
  TIFFSetField(tif, TIFFTAG_SAMPLESPERPIXEL, 3);
  TIFFSetField(tif, TIFFTAG_BITSPERSAMPLE, 8);
  TIFFSetField(tif, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
  TIFFSetField(tif, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  TIFFSetField(tif, TIFFTAG_COMPRESSION, layout.lzw ? COMPRESSION_LZW : COMPRESSION_NONE);
  if (layout.lzw && layout.predictor) TIFFSetField(tif, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
  TIFFSetField(tif, TIFFTAG_ORIENTATION, layout.orientation);
  if (layout.tileSize > 0) {
    TIFFSetField(tif, TIFFTAG_TILEWIDTH, layout.tileSize);
    TIFFSetField(tif, TIFFTAG_TILELENGTH, layout.tileSize);
    writeTiles(tif, width, height, layout.tileSize, rowAt);
  } else {
    TIFFSetField(tif, TIFFTAG_ROWSPERSTRIP, layout.rowsPerStrip > 0 ? layout.rowsPerStrip : height);
    writeStrips(tif, width, height, rowAt);
  }
  TIFFClose(tif);
  return std::move(out.bytes);
}

std::vector<uint8_t> makeTiff(const gdi::Surface& pixels, const TiffLayout& layout) {
  return makeTiff(pixels.Width(), pixels.Height(), layout,
                  [&](int y, uint32_t* row) { std::copy_n(pixels.Row(y), pixels.Width(), row); });
}

}  // namespace vellumry::codecs::testing
