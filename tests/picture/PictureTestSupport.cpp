#include "picture/PictureTestSupport.h"

#include <tiffio.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <fstream>

namespace vellumry::testsupport {

TempFolder::TempFolder() {
  static std::atomic<int> counter{0};
  dir_ = std::filesystem::temp_directory_path() /
         ("vellumry-picture-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
  std::filesystem::create_directories(dir_);
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(dir_, ignored);
}

std::string TempFolder::Write(const std::string& name, const std::vector<uint8_t>& bytes) const {
  const std::string path = Path(name);
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
  return path;
}

void WriteTiff(const std::string& path, int width, int height, const std::vector<uint32_t>& colors,
               bool alpha) {
  TIFF* tiff = TIFFOpen(path.c_str(), "w");
  ASSERT_NE(tiff, nullptr) << path;
  const int channels = alpha ? 4 : 3;
  for (const uint32_t color : colors) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, channels);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, height);
    if (alpha) {
      const uint16_t extra[] = {EXTRASAMPLE_UNASSALPHA};
      TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, extra);
    }
    if (colors.size() > 1) TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    std::vector<uint8_t> row(static_cast<size_t>(width * channels));
    for (int x = 0; x < width; ++x) {
      uint8_t* p = row.data() + x * channels;
      p[0] = gdi::RedOf(color);
      p[1] = gdi::GreenOf(color);
      p[2] = gdi::BlueOf(color);
      if (alpha) p[3] = gdi::AlphaOf(color);
    }
    for (int y = 0; y < height; ++y) TIFFWriteScanline(tiff, row.data(), y, 0);
    TIFFWriteDirectory(tiff);
  }
  TIFFClose(tiff);
}

gdi::Surface Filled(int width, int height, uint32_t argb, gdi::AlphaMode mode) {
  gdi::Surface surface(width, height, mode);
  for (uint32_t& p : surface.Pixels()) p = argb;
  return surface;
}

}  // namespace vellumry::testsupport
