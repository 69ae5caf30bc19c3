// Each tolerance of damaged input, tried both ways: on (the default) the picture still decodes,
// off the same damage is a failure.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/GifCodec.h"
#include "platform/codecs/IcoCodec.h"
#include "platform/codecs/Encoders.h"

namespace vellumry::codecs {
namespace {

using testing::Gradient;

template <typename Member>
Leniency Strict(Member member) {
  Leniency leniency;
  leniency.*member = false;
  return leniency;
}

std::vector<uint8_t> Cut(std::vector<uint8_t> bytes, size_t keep) {
  bytes.resize(keep);
  return bytes;
}

TEST(Leniency, JpegCutOffInItsScan) {
  const auto whole = testing::MakeJpeg(64, 64);
  const auto cut = Cut(whole, whole.size() * 6 / 10);
  const auto lenient = Decode(cut);
  ASSERT_TRUE(lenient);
  EXPECT_EQ(lenient->surface.Dimensions(), (gdi::Size{64, 64}));
  // The top rows are real; the bottom ones are filled in.
  EXPECT_EQ(lenient->surface.Pixel(0, 0), Decode(whole)->surface.Pixel(0, 0));
  EXPECT_EQ(Decode(cut, 0, 0, Strict(&Leniency::jpegDataWarnings)).error(), Error::kTruncated);
}

TEST(Leniency, PngWithoutItsEnd) {
  const auto whole = testing::MakePng(Gradient(20, 10));
  const auto noEnd = Cut(whole, whole.size() - 12);  // IEND is the last 12 bytes
  ASSERT_TRUE(Decode(noEnd));
  EXPECT_EQ(Decode(noEnd)->surface.Pixel(19, 9), Gradient(20, 10).Pixel(19, 9));
  EXPECT_FALSE(Decode(noEnd, 0, 0, Strict(&Leniency::pngMissingEnd)));
  // Missing image data is never tolerated.
  EXPECT_FALSE(Decode(Cut(whole, whole.size() / 2)));
}

TEST(Leniency, GifFrameCutShort) {
  std::vector<uint8_t> indices(32 * 32);
  for (size_t i = 0; i < indices.size(); ++i) indices[i] = static_cast<uint8_t>((i * 7 / 5) % 4);
  const auto whole = testing::MakeGif(32, 32, indices, 0);
  const auto cut = Cut(whole, whole.size() - 20);
  const auto lenient = DecodeGifFrameIndices(cut, 0, {});
  ASSERT_TRUE(lenient);
  EXPECT_EQ(lenient->indices[0], indices[0]);
  EXPECT_EQ(lenient->indices.back(), 0) << "rows past the data hold the transparent index";
  ASSERT_TRUE(Decode(cut));
  EXPECT_EQ(gdi::AlphaOf(Decode(cut)->surface.Pixel(31, 31)), 0);
  EXPECT_FALSE(Decode(cut, 0, 0, Strict(&Leniency::gifTruncatedFrame)));
}

TEST(Leniency, BmpPixelsEndingEarly) {
  const auto whole = codecs::EncodeBmp(Gradient(16, 16));
  const auto cut = Cut(whole, whole.size() - 16 * 3 * 4);  // the top four rows (stored last)
  const auto lenient = Decode(cut);
  ASSERT_TRUE(lenient);
  EXPECT_EQ(lenient->surface.Pixel(5, 15), Gradient(16, 16).Pixel(5, 15));
  EXPECT_EQ(lenient->surface.Pixel(5, 0), 0u);
  EXPECT_EQ(Decode(cut, 0, 0, Strict(&Leniency::bmpShortPixels)).error(), Error::kTruncated);
}

TEST(Leniency, IconImageWithoutItsMask) {
  gdi::IconImage icon{Gradient(8, 8), std::vector<uint8_t>(64, 0)};
  std::vector<uint8_t> bytes = codecs::EncodeIco(icon);
  const uint32_t maskBytes = 8 * 4;
  bytes.resize(bytes.size() - maskBytes);
  const uint32_t size = bytes.size() - 22;  // the directory must still describe the image
  for (int i = 0; i < 4; ++i) bytes[14 + i] = static_cast<uint8_t>(size >> (8 * i));
  const auto lenient = DecodeIconEntry(bytes, 0, {});
  ASSERT_TRUE(lenient);
  EXPECT_TRUE(lenient->andMask.empty());
  EXPECT_EQ(DecodeIconEntry(bytes, 0, Strict(&Leniency::iconMissingMask)).error(),
            Error::kTruncated);
}

}  // namespace
}  // namespace vellumry::codecs
