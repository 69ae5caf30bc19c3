// BMP files read as a DIB section takes them: from the info header alone.
#include <gtest/gtest.h>

#include <vector>

#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/Encoders.h"

namespace vellumry::codecs {
namespace {

struct Bmp {
  uint32_t headerSize = 40;
  int32_t width = 2;
  int32_t height = 2;
  uint16_t bitCount = 24;
  uint32_t compression = 0;
  uint32_t colorsUsed = 0;
  std::vector<uint32_t> masks;    // inside a header of 52 bytes or more, else behind it
  std::vector<uint32_t> palette;  // 0x00RRGGBB
  size_t gap = 0;                 // bytes of 0xEE between table and pixels
  std::vector<uint8_t> pixels;    // as stored

  // The file, its pixel offset in the file header pointing behind the gap.
  std::vector<uint8_t> File() const {
    const bool masksInside = headerSize >= 52;
    std::vector<uint8_t> info;
    codecs::putLe32(info, headerSize);
    codecs::putLe32(info, static_cast<uint32_t>(width));
    codecs::putLe32(info, static_cast<uint32_t>(height));
    codecs::putLe16(info, 1);
    codecs::putLe16(info, bitCount);
    codecs::putLe32(info, compression);
    codecs::putLe32(info, static_cast<uint32_t>(pixels.size()));
    codecs::putLe32(info, 0);
    codecs::putLe32(info, 0);
    codecs::putLe32(info, colorsUsed);
    codecs::putLe32(info, 0);
    if (masksInside) {
      for (const uint32_t m : masks) codecs::putLe32(info, m);
    }
    info.resize(headerSize, 0);
    if (!masksInside) {
      for (const uint32_t m : masks) codecs::putLe32(info, m);
    }
    for (const uint32_t c : palette) codecs::putLe32(info, c);
    info.insert(info.end(), gap, 0xEE);
    std::vector<uint8_t> file = {'B', 'M'};
    codecs::putLe32(file, static_cast<uint32_t>(14 + info.size() + pixels.size()));
    codecs::putLe32(file, 0);
    codecs::putLe32(file, static_cast<uint32_t>(14 + info.size()));
    file.insert(file.end(), info.begin(), info.end());
    file.insert(file.end(), pixels.begin(), pixels.end());
    return file;
  }
};

// Two rows of two 24-bit pixels, bottom row first: blue, green over red, white.
const std::vector<uint8_t> kRgbRows = {0xFF, 0, 0,    0,    0xFF, 0,    0, 0,
                                       0,    0, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0};

TEST(DibSection, HeaderSizesFrom40To124) {
  for (const uint32_t size : {40u, 52u, 56u, 108u, 124u}) {
    Bmp bmp;
    bmp.headerSize = size;
    bmp.pixels = kRgbRows;
    const auto decoded = decodeDibSection(bmp.File());
    ASSERT_TRUE(decoded) << size;
    EXPECT_EQ(decoded->surface.pixel(0, 0), 0xFFFF0000u) << size;  // top row, left: red
    EXPECT_EQ(decoded->surface.pixel(0, 1), 0xFF0000FFu) << size;  // bottom row, left: blue
  }
  for (const uint32_t size : {12u, 39u, 125u}) {
    Bmp bmp;
    bmp.headerSize = size;
    bmp.pixels = kRgbRows;
    EXPECT_FALSE(decodeDibSection(bmp.File())) << size;
  }
}

TEST(DibSection, TopDownRows) {
  Bmp bmp;
  bmp.height = -2;
  bmp.pixels = kRgbRows;
  const auto decoded = decodeDibSection(bmp.File());
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->surface.pixel(0, 0), 0xFF0000FFu);
}

TEST(DibSection, BitFieldsBehindA40ByteHeaderOrInsideALargerOne) {
  // One 16-bit 5-6-5 pixel of pure red, one of pure green, padded to four bytes.
  const std::vector<uint8_t> row = {0x00, 0xF8, 0xE0, 0x07};
  for (const uint32_t size : {40u, 108u}) {
    Bmp bmp;
    bmp.headerSize = size;
    bmp.height = 1;
    bmp.bitCount = 16;
    bmp.compression = 3;
    bmp.masks = {0xF800, 0x07E0, 0x001F};
    bmp.pixels = row;
    const auto decoded = decodeDibSection(bmp.File());
    ASSERT_TRUE(decoded) << size;
    EXPECT_EQ(decoded->surface.pixel(0, 0), 0xFFFF0000u) << size;
    EXPECT_EQ(decoded->surface.pixel(1, 0), 0xFF00FF00u) << size;
  }
}

TEST(DibSection, PixelsFollowTheTableWhateverTheFileHeaderSays) {
  Bmp bmp;
  bmp.height = 1;
  bmp.bitCount = 8;
  bmp.colorsUsed = 2;
  bmp.palette = {0x000000, 0x123456};
  bmp.gap = 4;
  bmp.pixels = {1, 1, 0, 0};
  const std::vector<uint8_t> file = bmp.File();
  const auto section = decodeDibSection(file);
  ASSERT_TRUE(section);
  // The gap's bytes are read as pixels: index 0xEE lies beyond the table and reads black.
  EXPECT_EQ(section->surface.pixel(0, 0), 0xFF000000u);
  // The full decoder follows the file header's offset.
  const auto decoded = decodeBmp(file, {});
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->surface.pixel(0, 0), 0xFF123456u);
}

TEST(DibSection, PaletteDepthsAndRunLengths) {
  struct Case {
    const char* name;
    uint16_t bitCount;
    uint32_t compression;
    std::vector<uint8_t> pixels;  // one row of two pixels, or the encoded data
    uint32_t left, right;         // expected colours
  };
  const Case cases[] = {
      {"1 bit", 1, 0, {0x40, 0, 0, 0}, 0xFF000000, 0xFF123456},
      {"4 bits", 4, 0, {0x10, 0, 0, 0}, 0xFF123456, 0xFF000000},
      {"8 bits", 8, 0, {1, 0, 0, 0}, 0xFF123456, 0xFF000000},
      {"RLE8", 8, 1, {1, 1, 1, 0, 0, 1}, 0xFF123456, 0xFF000000},
      {"RLE4", 4, 2, {2, 0x01, 0, 1}, 0xFF000000, 0xFF123456},
  };
  for (const Case& c : cases) {
    Bmp bmp;
    bmp.height = 1;
    bmp.bitCount = c.bitCount;
    bmp.compression = c.compression;
    bmp.colorsUsed = 2;
    bmp.palette = {0x000000, 0x123456};
    bmp.pixels = c.pixels;
    const auto decoded = decodeDibSection(bmp.File());
    ASSERT_TRUE(decoded) << c.name;
    EXPECT_EQ(decoded->surface.pixel(0, 0), c.left) << c.name;
    EXPECT_EQ(decoded->surface.pixel(1, 0), c.right) << c.name;
  }
}

TEST(DibSection, The32BitFourthByteStaysAsStored) {
  Bmp bmp;
  bmp.height = 1;
  bmp.width = 1;
  bmp.bitCount = 32;
  bmp.pixels = {0x10, 0x20, 0x30, 0x80};
  const auto decoded = decodeDibSection(bmp.File());
  ASSERT_TRUE(decoded);
  EXPECT_EQ(decoded->surface.pixel(0, 0), 0x80302010u);
  EXPECT_EQ(decoded->info.bitsPerPixel, 32);
}

TEST(DibSection, RefusesWhatNoSectionTakes) {
  Bmp noDepth;
  noDepth.bitCount = 0;
  noDepth.pixels = kRgbRows;
  Bmp jpeg;
  jpeg.compression = 4;
  jpeg.pixels = kRgbRows;
  Bmp shortData;
  shortData.pixels.assign(kRgbRows.begin(), kRgbRows.end() - 4);
  Bmp topDownRle;
  topDownRle.height = -1;
  topDownRle.bitCount = 8;
  topDownRle.compression = 1;
  topDownRle.pixels = {0, 1};
  for (const Bmp* bmp : {&noDepth, &jpeg, &shortData, &topDownRle}) {
    EXPECT_FALSE(decodeDibSection(bmp->File()));
  }
  // What ends inside its headers, or isn't "BM" at all.
  std::vector<uint8_t> cut = Bmp{}.File();
  cut.resize(30);
  EXPECT_FALSE(decodeDibSection(cut));
  EXPECT_FALSE(decodeDibSection(std::vector<uint8_t>{'B', 'M'}));
  EXPECT_FALSE(decodeDibSection(std::vector<uint8_t>(60, 0)));
}

}  // namespace
}  // namespace vellumry::codecs
