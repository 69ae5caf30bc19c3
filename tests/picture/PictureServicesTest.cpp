// Decoding ahead: pixels land in the cache at the size asked, and a later draw at that size
// finds them there.
#include <gtest/gtest.h>

#include "codecs/TestImages.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"

using namespace vellumry;

namespace vellumry {
namespace {

using codecs::testing::Gradient;
using codecs::testing::MakeJpeg;
using testsupport::TempFolder;

TEST(PictureServicesTest, PrefetchCachesThumbnailsAtTheSizeAsked) {
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
  const gdi::Picture& p = pictures[2];
  p.Render(target, 0, 0, 100, 75, 0, p.Height(), p.Width(), -p.Height());
  EXPECT_EQ(services.cache()->BytesInUse(), 6u * 100 * 75 * 4);
  EXPECT_EQ(p.Pixels({100, 75})->Dimensions(), (gdi::Size{100, 75}));
  // A gradient, scaled: red grows to the right.
  EXPECT_GT(gdi::RedOf(target.Pixel(90, 40)), gdi::RedOf(target.Pixel(10, 40)) + 150);
}

TEST(PictureServicesTest, PicturesWithoutLazyPixelsOrGoneAreIgnored) {
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
