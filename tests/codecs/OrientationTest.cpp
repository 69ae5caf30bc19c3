// Photos taken with the camera turned come out upright, at their upright size.
#include <gtest/gtest.h>

#include <string>

#include "codecs/TestFiles.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/Orientation.h"

namespace vellumry::codecs {
namespace {

using testing::bgra;
using testing::corpus;
using testing::ReadFile;

// Mean difference a channel. The turned files were each saved anew, so none matches its
// reference exactly; a wrong turn differs by 40 and more.
double meanDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
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
  const auto dir = corpus("pillow/Tests/images");
  for (const Case& c : cases) {
    SKIP_WITHOUT(dir / c.reference);
    for (int n = 2; n <= 8; ++n) {
      const auto bytes = ReadFile(dir / (c.turned + std::to_string(n) + c.extension));
      const auto info = probe(bytes);
      ASSERT_TRUE(info) << c.turned << n;
      EXPECT_EQ((gdi::Size{info->width, info->height}), c.upright) << c.turned << n;
      // Half size too: a JPEG is turned after scaling.
      for (const int wanted : {0, 64}) {
        const auto decoded = decode(bytes, wanted, wanted);
        const auto reference = decode(ReadFile(dir / c.reference), wanted, wanted);
        ASSERT_TRUE(decoded && reference) << c.turned << n;
        EXPECT_LT(meanDifference(bgra(decoded->surface), bgra(reference->surface)), 8.0)
            << c.turned << n << " at " << wanted;
      }
    }
  }
}

// A little-endian EXIF block of one entry with a count of 1. The corpus files above carry both
// byte orders; these are the entries the reader must refuse.
std::vector<uint8_t> exif(uint8_t tag, uint8_t type, uint8_t value) {
  return {'I', 'I', 42, 0, 8, 0, 0, 0, 1, 0, tag, 0x01, type, 0, 1, 0, 0, 0, value, 0, 0, 0};
}

TEST(Orientation, ExifReaderTakesOnlyAShortFromOneToEight) {
  struct Case {
    uint8_t tag, type, value;
    int expected;
  };
  const Case cases[] = {
      {0x12, 3, 6, 6}, {0x12, 3, 0, 1}, {0x12, 3, 9, 1}, {0x12, 4, 6, 1}, {0x10, 3, 6, 1}};
  for (const Case& c : cases) {
    EXPECT_EQ(exifOrientation(exif(c.tag, c.type, c.value)), c.expected)
        << int{c.tag} << " " << int{c.type} << " " << int{c.value};
  }
  auto cut = exif(0x12, 3, 6);
  cut.resize(cut.size() - 4);
  EXPECT_EQ(exifOrientation(cut), 1);
}

}  // namespace
}  // namespace vellumry::codecs
