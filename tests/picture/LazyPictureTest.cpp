// Lazy pictures: one decode shared by every thread that asks, pixels that turn out bad, and
// decoding ahead into the cache at the size a later draw asks for.
#include <gtest/gtest.h>

#include <thread>

#include "codecs/TestImages.h"
#include "picture/LazyPicture.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"
#include "platform/gdi/Blit.h"

namespace vellumry {
namespace {

using namespace codecs::testing;
using testsupport::TempFolder;

gdi::Picture FromBytes(PictureServices& services, std::vector<uint8_t> bytes) {
  const auto shared = std::make_shared<const std::vector<uint8_t>>(std::move(bytes));
  const auto info = codecs::Probe(*shared);
  if (!info) return {};
  return MakeLazyPicture(services, {"", shared}, *info);
}

// Draws the whole of `picture` into `target`.
void DrawWhole(const gdi::Picture& picture, gdi::Surface& target) {
  picture.Render(target, 0, 0, target.Width(), target.Height(), 0, picture.Height(),
                 picture.Width(), -picture.Height());
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
  DrawWhole(picture, target);
  EXPECT_EQ(target.Pixel(10, 10), 0xFF123456u);
  EXPECT_EQ(picture.Pixels(), nullptr);
}

TEST(LazyPictureTest, PrefetchCachesThumbnailsAtTheSizeAsked) {
  PictureServices services(15, 64u << 20, 3);
  TempFolder folder;
  std::vector<gdi::Picture> pictures;
  for (int i = 0; i < 6; ++i) {
    pictures.push_back(
        LoadPicture(services, folder.Write("p" + std::to_string(i) + ".jpg", MakeJpeg(800, 600))));
    services.prefetch(pictures.back(), {100, 75});
  }
  services.drain();
  // Six thumbnails of 100 x 75, not six eighths of 800 x 600 or more.
  EXPECT_EQ(services.cache()->BytesInUse(), 6u * 100 * 75 * 4);
  // A draw of the whole picture into that size asks for exactly those pixels.
  gdi::Surface target(100, 75, gdi::AlphaMode::kOpaque);
  DrawWhole(pictures[2], target);
  EXPECT_EQ(services.cache()->BytesInUse(), 6u * 100 * 75 * 4);
  EXPECT_EQ(pictures[2].Pixels({100, 75})->Dimensions(), (gdi::Size{100, 75}));
  // A gradient, scaled: red grows to the right.
  EXPECT_GT(gdi::RedOf(target.Pixel(90, 40)), gdi::RedOf(target.Pixel(10, 40)) + 150);
}

TEST(LazyPictureTest, PrefetchIgnoresPicturesWithoutLazyPixelsOrGone) {
  PictureServices services(15, 64u << 20, 2);
  services.prefetch(gdi::Picture::FromSurface(Gradient(50, 50)), {10, 10});
  services.prefetch(gdi::Picture{}, {10, 10});
  TempFolder folder;
  {
    const gdi::Picture gone = LoadPicture(services, folder.Write("a.jpg", MakeJpeg(64, 64)));
    services.prefetch(gone, {0, 8});  // no size: nothing to do
  }
  services.drain();
  EXPECT_EQ(services.cache()->BytesInUse(), 0u);
  // A picture dropped after its prefetch leaves nothing behind in the cache.
  {
    const gdi::Picture brief = LoadPicture(services, folder.Write("b.jpg", MakeJpeg(64, 64)));
    services.prefetch(brief, {16, 16});
  }
  services.drain();
  EXPECT_EQ(services.cache()->BytesInUse(), 0u);
}

}  // namespace
}  // namespace vellumry
