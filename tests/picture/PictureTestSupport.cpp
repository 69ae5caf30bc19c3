#include "picture/PictureTestSupport.h"

#include <tiffio.h>

#include <fstream>

namespace vellumry::testsupport {

std::string TempFolder::Write(const std::string& name, const std::vector<uint8_t>& bytes) const {
  const std::string path = Path(name);
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  return path;
}

void WriteTiff(const std::string& path, int width, int height,
               const std::vector<uint32_t>& colors) {
  TIFF* tiff = TIFFOpen(path.c_str(), "w");
  ASSERT_NE(tiff, nullptr) << path;
  for (const uint32_t color : colors) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 3);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, height);
    if (colors.size() > 1) TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    std::vector<uint8_t> row;
    for (int x = 0; x < width; ++x) {
      row.insert(row.end(), {gdi::RedOf(color), gdi::GreenOf(color), gdi::BlueOf(color)});
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
