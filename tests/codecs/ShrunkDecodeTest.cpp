// TIFF and BMP halve while they read: the same pixels as shrinking the full picture, thumbnails
// as good as a smooth scaler's, and a scan too large to hold whole still decodes small.
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "codecs/TestImages.h"
#include "platform/codecs/BlockReducer.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/Encoders.h"
#include "platform/codecs/Orientation.h"

namespace vellumry::codecs {
namespace {

// Smooth light, hard-edged shapes, a fine texture near the pixel pitch and grain, as in a photo.
gdi::Surface photoLike(int width, int height) {
  gdi::Surface s(width, height, gdi::AlphaMode::kOpaque);
  uint32_t grain = 12345;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      grain = grain * 1103515245u + 12345u;
      const double noise = static_cast<double>((grain >> 16) % 25) - 12;
      const double texture = 25 * std::sin(x * 2.1) * std::sin(y * 1.7);
      const double shade = ((x / 37 + y / 53) % 5 == 0) ? -60 : 0;
      const auto channel = [&](double v) {
        return static_cast<uint8_t>(std::clamp(v + noise + texture + shade, 0.0, 255.0));
      };
      s.setPixel(x, y,
                 gdi::argb(255, channel(128 + 90 * std::sin(x * 0.013 + y * 0.007)),
                           channel(128 + 90 * std::cos(y * 0.011)),
                           channel(100 + 60 * std::sin((x + y) * 0.005))));
    }
  }
  return s;
}

// Peak signal to noise ratio of the colours, in dB.
double psnr(const gdi::Surface& a, const QImage& b) {
  double squares = 0;
  for (int y = 0; y < a.Height(); ++y) {
    for (int x = 0; x < a.Width(); ++x) {
      const uint32_t p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      for (const auto& [mine, theirs] : {std::pair{gdi::redOf(p), qRed(q)},
                                         {gdi::greenOf(p), qGreen(q)},
                                         {gdi::blueOf(p), qBlue(q)}}) {
        squares += (mine - theirs) * (mine - theirs);
      }
    }
  }
  const double mean = squares / (3.0 * a.Width() * a.Height());
  return 10 * std::log10(255.0 * 255.0 / mean);
}

void expectSamePixels(const gdi::Surface& actual, const gdi::Surface& expected) {
  ASSERT_EQ(actual.dimensions(), expected.dimensions());
  EXPECT_TRUE(std::ranges::equal(actual.Pixels(), expected.Pixels()));
}

// The same BMP with its rows stored top-down.
std::vector<uint8_t> topDown(std::vector<uint8_t> bmp) {
  int32_t height = 0, offset = 0;
  std::memcpy(&height, &bmp[22], 4);
  std::memcpy(&offset, &bmp[10], 4);
  const auto pixels = bmp.begin() + offset;
  const auto stride = (bmp.end() - pixels) / height;
  for (int32_t y = 0; y < height / 2; ++y) {
    std::swap_ranges(pixels + y * stride, pixels + (y + 1) * stride,
                     pixels + (height - 1 - y) * stride);
  }
  height = -height;
  std::memcpy(&bmp[22], &height, 4);
  return bmp;
}

struct Layout {
  std::string name;
  std::vector<uint8_t> bytes;
};

std::vector<Layout> layouts(const gdi::Surface& picture) {
  gdi::Surface withAlpha = picture;
  withAlpha.setAlpha(gdi::AlphaMode::kStraight);
  const auto tiff = [&](testing::TiffLayout layout) { return testing::makeTiff(picture, layout); };
  return {
      {"tiff one strip", tiff({})},
      {"tiff strips of 7 rows", tiff({.rowsPerStrip = 7})},
      {"tiff strips of 1 row, raw", tiff({.rowsPerStrip = 1, .lzw = false})},
      {"tiff tiles of 16", tiff({.tileSize = 16})},
      {"bmp 24 bits bottom-up", codecs::encodeBmp(picture)},
      {"bmp 32 bits", codecs::encodeBmp(withAlpha)},
      {"bmp 24 bits top-down", topDown(codecs::encodeBmp(picture))},
  };
}

TEST(ShrunkDecode, HalvesWhileReadingToTheSamePixelsAsShrinkingTheFullPicture) {
  // Odd sides, so that the last blocks of each row and column are partial.
  const gdi::Surface picture = photoLike(101, 75);
  for (const auto& [name, bytes] : layouts(picture)) {
    SCOPED_TRACE(name);
    const gdi::Surface full = decode(bytes)->surface;
    for (const auto& [wanted, size, factor] : {std::tuple{gdi::Size{20, 10}, gdi::Size{26, 19}, 4},
                                               {{26, 19}, {26, 19}, 4},
                                               {{27, 1}, {51, 38}, 2},
                                               {{1, 1}, {1, 1}, 128},
                                               {{101, 75}, {101, 75}, 1}}) {
      SCOPED_TRACE(size.width);
      const gdi::Surface small = decode(bytes, wanted.width, wanted.height)->surface;
      EXPECT_EQ(small.alpha(), full.alpha());
      expectSamePixels(small, factor == 1 ? full : reduce(full, factor));
    }
  }
}

TEST(ShrunkDecode, TiffOnItsSideHalvesUpright) {
  const gdi::Surface stored = photoLike(64, 48);
  for (const int orientation : {3, 5, 6, 8}) {
    SCOPED_TRACE(orientation);
    const auto tiff = testing::makeTiff(stored, {.rowsPerStrip = 5, .orientation = orientation});
    gdi::Surface upright = stored;
    turnUpright(upright, orientation);
    const gdi::Surface reference = reduce(upright, 4);
    expectSamePixels(decode(tiff, reference.Width(), reference.Height())->surface, reference);
  }
}

// A box average of each block against Qt's smooth scaling of the full picture: on this picture
// they agree at about 51 dB (under a level of 255 on average), while picking one pixel a block,
// which aliases the texture, gives 24 dB. 40 dB, an error of about 2.5 levels, lies between.
TEST(ShrunkDecode, ThumbnailsMatchASmoothlyScaledFullDecode) {
  const gdi::Surface picture = photoLike(1440, 1080);
  for (const auto& [name, bytes] :
       {std::pair{"tiff", testing::makeTiff(picture, {.rowsPerStrip = 16})},
        {"bmp", codecs::encodeBmp(picture)}}) {
    SCOPED_TRACE(name);
    const gdi::Surface thumbnail = decode(bytes, 180, 135)->surface;
    ASSERT_EQ(thumbnail.dimensions(), (gdi::Size{180, 135}));
    const QImage reference = decode(bytes)->surface.view().scaled(180, 135, Qt::IgnoreAspectRatio,
                                                                  Qt::SmoothTransformation);
    EXPECT_GT(psnr(thumbnail, reference), 40.0);
  }
}

// A grey TIFF whose strips all share one stored strip, in which column x has grey x / 64, packed
// as runs of 64 bytes: a picture of any size (width a multiple of 64) in a file of one strip.
std::vector<uint8_t> sharedStripTiff(uint32_t width, uint32_t height, uint32_t rowsPerStrip) {
  const uint32_t strips = (height + rowsPerStrip - 1) / rowsPerStrip;
  constexpr uint32_t kEntries = 9, kArraysAt = 8 + 2 + kEntries * 12 + 4;
  const uint32_t stripAt = kArraysAt + strips * 8, stripBytes = width / 32 * rowsPerStrip;
  std::vector<uint8_t> out;
  const auto put = [&](uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<uint8_t>(value >> (8 * i)));
  };
  const auto entry = [&](uint16_t tag, uint16_t type, uint32_t count, uint32_t value) {
    put(tag, 2), put(type, 2), put(count, 4), put(value, 4);
  };
  put('I' | 'I' << 8, 2), put(42, 2), put(8, 4), put(kEntries, 2);
  entry(256, 4, 1, width), entry(257, 4, 1, height), entry(258, 3, 1, 8), entry(259, 3, 1, 32773);
  entry(262, 3, 1, 1), entry(273, 4, strips, kArraysAt), entry(277, 3, 1, 1);
  entry(278, 4, 1, rowsPerStrip), entry(279, 4, strips, kArraysAt + strips * 4);
  put(0, 4);
  for (uint32_t i = 0; i < strips; ++i) put(stripAt, 4);
  for (uint32_t i = 0; i < strips; ++i) put(stripBytes, 4);
  // 0xC1: the next byte 64 times.
  for (uint32_t run = 0; run < stripBytes / 2; ++run) put(0xC1, 1), put(run % (width / 64), 1);
  return out;
}

// Just over the budget whole: 16384 x 16385 x 4 bytes is more than 1 GiB.
TEST(ShrunkDecode, TiffTooLargeWholeStillDecodesSmall) {
  const auto tiff = sharedStripTiff(16384, 16385, 64);
  ASSERT_TRUE(probe(tiff));
  EXPECT_EQ(decode(tiff).error(), Error::kTooLarge);
  EXPECT_EQ(decode(tiff, 8193, 1).error(), Error::kTooLarge);  // halved, still too large
  const auto small = decode(tiff, 180, 135);
  ASSERT_TRUE(small);
  ASSERT_EQ(small->surface.dimensions(), (gdi::Size{256, 257}));
  for (const auto& [x, y] : {std::pair{0, 0}, {17, 1}, {255, 200}, {100, 256}}) {
    const auto grey = static_cast<uint8_t>(x);
    EXPECT_EQ(small->surface.pixel(x, y), gdi::argb(255, grey, grey, grey));
  }
}

}  // namespace
}  // namespace vellumry::codecs
