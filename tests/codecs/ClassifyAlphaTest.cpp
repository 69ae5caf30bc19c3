// What the fourth byte of 32-bit pixels is found to mean.
#include <gtest/gtest.h>

#include <vector>

#include "platform/codecs/ClassifyAlpha.h"

namespace vellumry::codecs {
namespace {

constexpr uint32_t kStraight = 0x26200A;
constexpr uint32_t kPremultiplied = 0xE200B;
constexpr uint32_t kZeroHoles = 0x262000;
constexpr uint32_t kNoAlpha = 0;

struct Case {
  const char* name;
  std::vector<uint32_t> pixels;  // 0xAARRGGBB
  uint32_t expected;
};

TEST(ClassifyAlpha, DecidesByTheFirstPixelThatProvesAKind) {
  const Case cases[] = {
      {"all alpha 0", {0x00102030, 0x00405060, 0x00000000}, kNoAlpha},
      {"all alpha 255", {0xFF102030, 0xFFFFFFFF, 0xFF000000}, kNoAlpha},
      {"alpha 128 over a channel of 200", {0xFF000000, 0x80C80000}, kStraight},
      {"alpha 128 over a channel of 100", {0xFF000000, 0x80640000}, kPremultiplied},
      {"a channel equal to its alpha", {0x80808080}, kPremultiplied},
      {"pure zero pixels among opaque ones", {0xFF336699, 0, 0, 0xFF112233}, kZeroHoles},
      {"only pure zero pixels", {0, 0, 0}, kNoAlpha},
      {"a hidden colour, then an opaque pixel", {0x00336699, 0xFF336699}, kStraight},
      // Opaque first: the hidden colour only adds to what was seen.
      {"an opaque pixel, then a hidden colour", {0xFF336699, 0x00336699}, kNoAlpha},
      {"partial alpha, then a hidden colour", {0x40202020, 0x00336699}, kStraight},
      {"zero pixels, opaque and partial", {0, 0xFF336699, 0x40202020}, kPremultiplied},
      {"a run of one value counts once", {0x40404040, 0x40404040, 0x40404040}, kPremultiplied},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ClassifyAlpha(c.pixels, static_cast<int>(c.pixels.size()), 1), c.expected) << c.name;
    AlphaClassifier pieceByPiece;
    for (const uint32_t& pixel : c.pixels) pieceByPiece.add({&pixel, 1});
    EXPECT_EQ(pieceByPiece.result(), c.expected) << c.name << ", a pixel at a time";
  }
}

TEST(ClassifyAlpha, LooksAtWidthTimesHeightPixelsOnly) {
  const std::vector<uint32_t> pixels = {0xFF000000, 0x80640000, 0x80C80000};
  EXPECT_EQ(ClassifyAlpha(pixels, 2, 1), kPremultiplied);
  EXPECT_EQ(ClassifyAlpha(pixels, 3, 1), kStraight);
  EXPECT_EQ(ClassifyAlpha(pixels, 0, 5), kNoAlpha);
  EXPECT_EQ(ClassifyAlpha(pixels, 4, 4), kStraight);  // no further than there are pixels
}

}  // namespace
}  // namespace vellumry::codecs
