#include "picture/PictureTestSupport.h"

#include <tiffio.h>

#include <cstdlib>
#include <fstream>

namespace vellumry::testsupport {

std::string TempFolder::write(const std::string& name, const std::vector<uint8_t>& bytes) const {
  const std::string path = Path(name);
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  return path;
}

void writeTiff(const std::string& path, int width, int height,
               const std::vector<uint32_t>& colors) {
  TIFF* tiff = TIFFOpen(path.c_str(), "w");
  ASSERT_NE(tiff, nullptr) << path;
  for (const uint32_t color : colors) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, width);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, height);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 3);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, height);
    TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, FILETYPE_PAGE);
    std::vector<uint8_t> page;
    for (int i = 0; i < width * height; ++i) {
      page.insert(page.end(), {gdi::redOf(color), gdi::greenOf(color), gdi::blueOf(color)});
    }
    TIFFWriteEncodedStrip(tiff, 0, page.data(), static_cast<tmsize_t>(page.size()));
    TIFFWriteDirectory(tiff);
  }
  TIFFClose(tiff);
}

gdi::Surface filled(int width, int height, uint32_t argb, gdi::AlphaMode mode) {
  gdi::Surface surface(width, height, mode);
  for (uint32_t& p : surface.Pixels()) p = argb;
  return surface;
}

gdi::Surface drawn(const gdi::Picture& picture, gdi::Surface target) {
  picture.Render(target, 0, 0, target.Width(), target.Height(), 0, picture.Height(),
                 picture.Width(), -picture.Height());
  return target;
}

::testing::AssertionResult near(uint32_t a, uint32_t b, int tolerance) {
  for (int shift = 0; shift < 24; shift += 8) {
    if (std::abs(int((a >> shift) & 0xFF) - int((b >> shift) & 0xFF)) > tolerance) {
      return ::testing::AssertionFailure() << std::hex << "0x" << a << " is not near 0x" << b;
    }
  }
  return ::testing::AssertionSuccess();
}

}  // namespace vellumry::testsupport
