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

// Mean difference a channel: a JPEG saved again after turning differs a little everywhere.
double MeanDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
  if (a.size() != b.size() || a.empty()) return 255;
  double sum = 0;
  for (size_t i = 0; i < a.size(); ++i) sum += std::abs(int{a[i]} - int{b[i]});
  return sum / static_cast<double>(a.size());
}

TEST(Orientation, TurnedJpegsMatchTheUprightOne) {
  const auto dir = Corpus("pillow/Tests/images");
  SKIP_WITHOUT(dir / "hopper.jpg");
  const auto reference = Decode(ReadFile(dir / "hopper.jpg"));
  ASSERT_TRUE(reference);
  for (int n = 2; n <= 8; ++n) {
    const auto path = dir / ("hopper_orientation_" + std::to_string(n) + ".jpg");
    // Half size too: the turn comes after the scaling.
    for (const int wanted : {0, 64}) {
      const auto decoded = Decode(ReadFile(path), wanted, wanted);
      ASSERT_TRUE(decoded) << path;
      auto expected = reference->surface;
      if (wanted) expected = Decode(ReadFile(dir / "hopper.jpg"), wanted, wanted)->surface;
      EXPECT_LT(MeanDifference(Bgra(decoded->surface), Bgra(expected)), 4.0) << path << wanted;
    }
  }
}

TEST(Orientation, TurnedTiffsMatchTheUprightOneAndReportItsSize) {
  const auto dir = Corpus("pillow/Tests/images");
  SKIP_WITHOUT(dir / "g4_orientation_1.tif");
  const auto reference = Decode(ReadFile(dir / "g4_orientation_1.tif"));
  ASSERT_TRUE(reference);
  ASSERT_EQ(reference->surface.Dimensions(), (gdi::Size{590, 88}));
  for (int n = 2; n <= 8; ++n) {
    const auto bytes = ReadFile(dir / ("g4_orientation_" + std::to_string(n) + ".tif"));
    const auto info = Probe(bytes);
    ASSERT_TRUE(info);
    EXPECT_EQ((gdi::Size{info->width, info->height}), (gdi::Size{590, 88})) << n;
    const auto decoded = Decode(bytes);
    ASSERT_TRUE(decoded);
    EXPECT_EQ(Bgra(decoded->surface), Bgra(reference->surface)) << n;
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
