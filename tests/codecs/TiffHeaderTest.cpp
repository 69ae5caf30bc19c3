// The sample size and count of a TIFF header: libtiff takes any 16-bit values, the decoder
// only those a picture can have.
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/codecs/TiffCodec.h"

namespace vellumry::codecs {
namespace {

// A little-endian TIFF of one 1x1 grey strip of 8 zero bytes, with the given BitsPerSample
// and SamplesPerPixel (one value each).
std::vector<uint8_t> onePixelTiff(uint16_t bits, uint16_t samples) {
  std::vector<uint8_t> out = {'I', 'I', 42, 0, 8, 0, 0, 0};
  const auto put = [&out](uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<uint8_t>(value >> (8 * i)));
  };
  const struct {
    uint16_t tag, type;
    uint32_t value;
  } entries[] = {{256, 3, 1}, {257, 3, 1},       {258, 3, bits}, {262, 3, 1},
                 {273, 4, 0}, {277, 3, samples}, {279, 4, 8}};
  put(std::size(entries), 2);
  for (const auto& e : entries) {
    put(e.tag, 2);
    put(e.type, 2);
    put(1, 4);
    put(e.value, 4);
  }
  put(0, 4);  // no next directory
  return out;
}

struct SampleCase {
  uint16_t bits;
  uint16_t samples;
  std::optional<int> bitsPerPixel;  // nullopt: refused as corrupt
};

class TiffSamples : public ::testing::TestWithParam<SampleCase> {};

TEST_P(TiffSamples, WithinLimitsReadElseCorrupt) {
  const SampleCase& c = GetParam();
  const auto info = probeTiff(onePixelTiff(c.bits, c.samples));
  if (c.bitsPerPixel) {
    ASSERT_TRUE(info) << errorName(info.error());
    EXPECT_EQ(info->bitsPerPixel, *c.bitsPerPixel);
  } else {
    ASSERT_FALSE(info);
    EXPECT_EQ(info.error(), Error::kCorrupt);
  }
}

INSTANTIATE_TEST_SUITE_P(Limits, TiffSamples,
                         ::testing::Values(SampleCase{8, 1, 8}, SampleCase{16, 4, 64},
                                           SampleCase{64, 16, 1024},
                                           SampleCase{65, 1, std::nullopt},
                                           SampleCase{8, 17, std::nullopt},
                                           SampleCase{60000, 40000, std::nullopt},
                                           SampleCase{65535, 65535, std::nullopt}),
                         [](const auto& info) {
                           return "Bits" + std::to_string(info.param.bits) + "Samples" +
                                  std::to_string(info.param.samples);
                         });

}  // namespace
}  // namespace vellumry::codecs
