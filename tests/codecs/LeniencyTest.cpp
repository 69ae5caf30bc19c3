// Each tolerance of damaged input, tried both ways: on (the default) the picture still decodes,
// off the same damage is a failure.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/Encoders.h"
#include "platform/codecs/GifCodec.h"
#include "platform/codecs/IcoCodec.h"

namespace vellumry::codecs {
namespace {

using testing::gradient;

template <typename Member>
Leniency strict(Member member) {
  Leniency leniency;
  leniency.*member = false;
  return leniency;
}

std::vector<uint8_t> cut(std::vector<uint8_t> bytes, size_t keep) {
  bytes.resize(keep);
  return bytes;
}

TEST(Leniency, JpegCutOffInItsScan) {
  const auto whole = testing::makeJpeg(64, 64);
  const auto truncated = cut(whole, whole.size() * 6 / 10);
  const auto lenient = decode(truncated);
  ASSERT_TRUE(lenient);
  EXPECT_EQ(lenient->surface.dimensions(), (gdi::Size{64, 64}));
  // The top rows are real; the bottom ones are filled in.
  EXPECT_EQ(lenient->surface.pixel(0, 0), decode(whole)->surface.pixel(0, 0));
  EXPECT_EQ(decode(truncated, 0, 0, strict(&Leniency::jpegDataWarnings)).error(),
            Error::kTruncated);
}

TEST(Leniency, PngWithoutItsEnd) {
  const auto whole = testing::makePng(gradient(20, 10));
  const auto noEnd = cut(whole, whole.size() - 12);  // IEND is the last 12 bytes
  ASSERT_TRUE(decode(noEnd));
  EXPECT_EQ(decode(noEnd)->surface.pixel(19, 9), gradient(20, 10).pixel(19, 9));
  EXPECT_FALSE(decode(noEnd, 0, 0, strict(&Leniency::pngMissingEnd)));
  // Missing image data is never tolerated.
  EXPECT_FALSE(decode(cut(whole, whole.size() / 2)));
}

TEST(Leniency, GifFrameCutShort) {
  std::vector<uint8_t> indices(32 * 32);
  for (size_t i = 0; i < indices.size(); ++i) indices[i] = static_cast<uint8_t>((i * 7 / 5) % 4);
  const auto whole = testing::makeGif(32, 32, indices, 0);
  const auto truncated = cut(whole, whole.size() - 20);
  const auto lenient = decodeGifFrameIndices(truncated, 0, {});
  ASSERT_TRUE(lenient);
  EXPECT_EQ(lenient->indices[0], indices[0]);
  EXPECT_EQ(lenient->indices.back(), 0) << "rows past the data hold the transparent index";
  ASSERT_TRUE(decode(truncated));
  EXPECT_EQ(gdi::alphaOf(decode(truncated)->surface.pixel(31, 31)), 0);
  EXPECT_FALSE(decode(truncated, 0, 0, strict(&Leniency::gifTruncatedFrame)));
}

TEST(Leniency, BmpPixelsEndingEarly) {
  const auto whole = codecs::encodeBmp(gradient(16, 16));
  const auto truncated = cut(whole, whole.size() - 16 * 3 * 4);  // the top four rows (stored last)
  const auto lenient = decode(truncated);
  ASSERT_TRUE(lenient);
  EXPECT_EQ(lenient->surface.pixel(5, 15), gradient(16, 16).pixel(5, 15));
  EXPECT_EQ(lenient->surface.pixel(5, 0), 0u);
  EXPECT_EQ(decode(truncated, 0, 0, strict(&Leniency::bmpShortPixels)).error(), Error::kTruncated);
}

TEST(Leniency, IconImageWithoutItsMask) {
  gdi::IconImage icon{gradient(8, 8), std::vector<uint8_t>(64, 0)};
  std::vector<uint8_t> bytes = codecs::encodeIco(icon);
  const uint32_t maskBytes = 8 * 4;
  bytes.resize(bytes.size() - maskBytes);
  const uint32_t size = bytes.size() - 22;  // the directory must still describe the image
  for (int i = 0; i < 4; ++i) bytes[14 + i] = static_cast<uint8_t>(size >> (8 * i));
  const auto lenient = decodeIconEntry(bytes, 0, {});
  ASSERT_TRUE(lenient);
  EXPECT_TRUE(lenient->andMask.empty());
  EXPECT_EQ(decodeIconEntry(bytes, 0, strict(&Leniency::iconMissingMask)).error(),
            Error::kTruncated);
}

}  // namespace
}  // namespace vellumry::codecs
