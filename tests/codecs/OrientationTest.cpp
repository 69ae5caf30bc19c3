// Photos taken with the camera turned come out upright, at their upright size.
#include <gtest/gtest.h>

#include <string>

#include "codecs/TestFiles.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/Orientation.h"

namespace vellumry::codecs {
namespace {

using testing::Bgra;
using testing::Corpus;
using testing::ReadFile;

// Mean difference a channel. The turned files were each saved anew, so none matches its
// reference exactly; a wrong turn differs by 40 and more.
double MeanDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
  if (a.size() != b.size() || a.empty()) return 255;
  double sum = 0;
  for (size_t i = 0; i < a.size(); ++i) sum += std::abs(int{a[i]} - int{b[i]});
  return sum / static_cast<double>(a.size());
}

TEST(Orientation, TurnedFilesMatchTheUprightOne) {
  struct Case {
    const char* reference;
    const char* turned;  // followed by the orientation and the extension
    const char* extension;
    gdi::Size upright;
  };
  const Case cases[] = {
      {"hopper.jpg", "hopper_orientation_", ".jpg", {128, 128}},
      {"g4_orientation_1.tif", "g4_orientation_", ".tif", {590, 88}},
  };
  const auto dir = Corpus("pillow/Tests/images");
  for (const Case& c : cases) {
    SKIP_WITHOUT(dir / c.reference);
    for (int n = 2; n <= 8; ++n) {
      const auto bytes = ReadFile(dir / (c.turned + std::to_string(n) + c.extension));
      const auto info = Probe(bytes);
      ASSERT_TRUE(info) << c.turned << n;
      EXPECT_EQ((gdi::Size{info->width, info->height}), c.upright) << c.turned << n;
      // Half size too: a JPEG is turned after scaling.
      for (const int wanted : {0, 64}) {
        const auto decoded = Decode(bytes, wanted, wanted);
        const auto reference = Decode(ReadFile(dir / c.reference), wanted, wanted);
        ASSERT_TRUE(decoded && reference) << c.turned << n;
        EXPECT_LT(MeanDifference(Bgra(decoded->surface), Bgra(reference->surface)), 8.0)
            << c.turned << n << " at " << wanted;
      }
    }
  }
}

TEST(Orientation, JpegOnItsSideReportsTheUprightSize) {
  const auto path = Corpus("pillow/Tests/images/orientation_rectangle.jpg");
  SKIP_WITHOUT(path);
  // Stored 2 wide and 1 high, turned a quarter.
  const auto info = Probe(ReadFile(path));
  ASSERT_TRUE(info);
  EXPECT_EQ((gdi::Size{info->width, info->height}), (gdi::Size{1, 2}));
  EXPECT_EQ(Decode(ReadFile(path))->surface.Dimensions(), (gdi::Size{1, 2}));
}

// An EXIF block of one directory entry: its tag, type and value, in either byte order.
std::vector<uint8_t> Exif(bool bigEndian, uint16_t tag, uint16_t type, uint16_t value) {
  std::vector<uint8_t> b;
  const auto put16 = [&](uint16_t v) {
    b.push_back(static_cast<uint8_t>(bigEndian ? v >> 8 : v));
    b.push_back(static_cast<uint8_t>(bigEndian ? v : v >> 8));
  };
  const auto put32 = [&](uint32_t v) {
    put16(static_cast<uint16_t>(bigEndian ? v >> 16 : v));
    put16(static_cast<uint16_t>(bigEndian ? v : v >> 16));
  };
  b.push_back(bigEndian ? 'M' : 'I');
  b.push_back(bigEndian ? 'M' : 'I');
  put16(42);
  put32(8);
  put16(1);
  put16(tag);
  put16(type);
  put32(1);
  put16(value);
  put16(0);
  return b;
}

TEST(Orientation, ExifReaderTakesOnlyAShortFromOneToEight) {
  struct Case {
    bool bigEndian;
    uint16_t tag, type, value;
    int expected;
  };
  const Case cases[] = {
      {false, 0x0112, 3, 6, 6}, {true, 0x0112, 3, 8, 8},  {true, 0x0112, 3, 0, 1},
      {false, 0x0112, 3, 9, 1}, {false, 0x0112, 4, 6, 1}, {false, 0x0110, 3, 6, 1},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ExifOrientation(Exif(c.bigEndian, c.tag, c.type, c.value)), c.expected)
        << c.bigEndian << " " << c.tag << " " << c.type << " " << c.value;
  }
  auto cut = Exif(false, 0x0112, 3, 6);
  cut.resize(cut.size() - 4);
  EXPECT_EQ(ExifOrientation(cut), 1);
}

}  // namespace
}  // namespace vellumry::codecs
