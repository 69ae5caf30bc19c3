// Lazy pictures: one decode shared by every thread that asks, and pixels that turn out bad.
#include <gtest/gtest.h>

#include <thread>

#include "codecs/TestImages.h"
#include "picture/LazyPicture.h"
#include "picture/PictureServices.h"
#include "platform/gdi/Blit.h"

using namespace vellumry;

namespace vellumry {
namespace {

using codecs::testing::Gradient;
using codecs::testing::MakeJpeg;
using codecs::testing::MakePng;

gdi::Picture FromBytes(PictureServices& services, std::vector<uint8_t> bytes) {
  const auto shared = std::make_shared<const std::vector<uint8_t>>(std::move(bytes));
  const auto info = codecs::Probe(*shared);
  if (!info) return {};
  return MakeLazyPicture(services, {"", shared}, *info);
}

TEST(LazyPictureTest, ThreadsAskingAtOnceShareOneDecode) {
  PictureServices services(15, 64u << 20, 1);
  const gdi::Picture picture = FromBytes(services, MakeJpeg(320, 240));
  ASSERT_TRUE(picture);
  std::vector<std::shared_ptr<const gdi::Surface>> seen(4);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&, i] { seen[i] = picture.Pixels({80, 60}); });
  }
  for (auto& t : threads) t.join();
  ASSERT_TRUE(seen[0]);
  for (const auto& pixels : seen) EXPECT_EQ(pixels, seen[0]);
  EXPECT_EQ(services.cache()->BytesInUse(), 80u * 60 * 4);
}

TEST(LazyPictureTest, APictureWhosePixelsTurnOutBadDrawsNothing) {
  PictureServices services(15, 16u << 20, 1);
  auto png = MakePng(Gradient(64, 64));
  png.resize(png.size() / 2);  // the header survives, the pixel data doesn't
  const gdi::Picture picture = FromBytes(services, png);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{64, 64}));
  gdi::Surface target(16, 16, gdi::AlphaMode::kOpaque);
  gdi::Fill(target, {0, 0, 16, 16}, 0xFF123456u);
  picture.Render(target, 0, 0, 16, 16, 0, picture.Height(), picture.Width(), -picture.Height());
  EXPECT_EQ(target.Pixel(10, 10), 0xFF123456u);
  EXPECT_EQ(picture.Pixels(), nullptr);
}

}  // namespace
}  // namespace vellumry
