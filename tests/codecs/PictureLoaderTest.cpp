// Pictures made from file bytes: size at once, pixels when drawn, at the size drawn.
#include <gtest/gtest.h>

#include <thread>

#include "codecs/TestImages.h"
#include "platform/codecs/PictureLoader.h"
#include "platform/gdi/Blit.h"
#include "platform/gdi/FileWriters.h"
#include "platform/gdi/Units.h"

using namespace vellumry;

namespace vellumry::codecs {
namespace {

std::shared_ptr<const std::vector<uint8_t>> Shared(std::vector<uint8_t> bytes) {
  return std::make_shared<const std::vector<uint8_t>>(std::move(bytes));
}

TEST(PictureLoader, KnowsItsSizeAtOnceAndDecodesAtTheSizeDrawn) {
  auto cache = std::make_shared<gdi::PixelCache>(64u << 20);
  const gdi::Picture picture = PictureFromBytes(Shared(testing::MakeJpeg(800, 600)), cache);
  ASSERT_FALSE(picture.IsNothing());
  EXPECT_EQ(picture.Type(), gdi::PictureType::kBitmap);
  EXPECT_EQ(picture.Width(), gdi::PixelsToHimetric(800, 15));
  EXPECT_EQ(picture.Height(), gdi::PixelsToHimetric(600, 15));
  EXPECT_EQ(cache->BytesInUse(), 0u);

  gdi::Surface thumb(100, 75, gdi::AlphaMode::kOpaque);
  picture.Render(thumb, 0, 0, 100, 75, 0, picture.Height(), picture.Width(), -picture.Height());
  EXPECT_EQ(cache->BytesInUse(), 100u * 75 * 4) << "decoded at 1/8, not at full size";
  EXPECT_GT(gdi::RedOf(thumb.Pixel(99, 0)), 200);  // the gradient's red side is on the right
  EXPECT_LT(gdi::RedOf(thumb.Pixel(0, 0)), 50);

  gdi::Surface full(800, 600, gdi::AlphaMode::kOpaque);
  picture.Render(full, 0, 0, 800, 600, 0, picture.Height(), picture.Width(), -picture.Height());
  EXPECT_EQ(cache->BytesInUse(), (100u * 75 + 800u * 600) * 4);
}

TEST(PictureLoader, ThreadsAskingAtOnceShareOneDecode) {
  auto cache = std::make_shared<gdi::PixelCache>(64u << 20);
  const gdi::Picture picture = PictureFromBytes(Shared(testing::MakeJpeg(320, 240)), cache);
  std::vector<std::shared_ptr<const gdi::Surface>> seen(4);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&, i] { seen[i] = picture.Pixels({80, 60}); });
  }
  for (auto& t : threads) t.join();
  for (const auto& pixels : seen) EXPECT_EQ(pixels, seen[0]);
  EXPECT_EQ(cache->BytesInUse(), 80u * 60 * 4);
}

TEST(PictureLoader, KeepsTheOriginalBytesWhenAsked) {
  const auto bytes = Shared(testing::MakePng(testing::Gradient(5, 4)));
  std::vector<uint8_t> saved;
  ASSERT_TRUE(PictureFromBytes(bytes, nullptr, true).SaveAsFile(saved));
  EXPECT_EQ(saved, *bytes);
  // Without them a BMP of the pixels is written.
  ASSERT_TRUE(PictureFromBytes(bytes, nullptr, false).SaveAsFile(saved));
  EXPECT_EQ(saved[0], 'B');
}

TEST(PictureLoader, IconsAreIconPicturesAndUnreadableDataIsNothing) {
  gdi::IconImage icon{testing::Gradient(16, 16), std::vector<uint8_t>(256, 0)};
  const gdi::Picture picture = PictureFromBytes(Shared(gdi::EncodeIco(icon)), nullptr);
  EXPECT_EQ(picture.Type(), gdi::PictureType::kIcon);
  EXPECT_EQ(picture.Attributes() & gdi::kPictureTransparent, gdi::kPictureTransparent);
  EXPECT_TRUE(PictureFromBytes(Shared({1, 2, 3, 4}), nullptr).IsNothing());
  EXPECT_TRUE(PictureFromBytes(nullptr, nullptr).IsNothing());
}

TEST(PictureLoader, APictureWhosePixelsTurnOutBadDrawsNothing) {
  auto jpeg = testing::MakeJpeg(256, 256);
  jpeg.resize(jpeg.size() / 2);  // the header survives, the scan doesn't
  Leniency strict;
  strict.jpegDataWarnings = false;
  const gdi::Picture picture = PictureFromBytes(Shared(jpeg), nullptr, false, 15, strict);
  ASSERT_FALSE(picture.IsNothing());
  gdi::Surface target(64, 64, gdi::AlphaMode::kOpaque);
  gdi::Fill(target, {0, 0, 64, 64}, 0xFF123456u);
  picture.Render(target, 0, 0, 64, 64, 0, picture.Height(), picture.Width(), -picture.Height());
  EXPECT_EQ(target.Pixel(10, 10), 0xFF123456u);
  EXPECT_EQ(picture.Pixels(), nullptr);
}

}  // namespace
}  // namespace vellumry::codecs
