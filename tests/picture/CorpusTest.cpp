// The conformance suites through the engine's three entry points: each file gives a picture or
// is refused, and a picture given draws without fault.
#include <gtest/gtest.h>

#include <filesystem>

#include "codecs/TestFiles.h"
#include "picture/Module1.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"
#include "picture/StdPictureEx.h"
#include "platform/toolkit/Error.h"

namespace vellumry {
namespace {

using codecs::testing::Corpus;
using codecs::testing::FilesBelow;

// Draws the whole picture small, through whatever decode it needs.
void DrawSmall(const gdi::Picture& picture) {
  gdi::Surface target(24, 24, gdi::AlphaMode::kOpaque);
  picture.Render(target, 0, 0, 24, 24, 0, picture.Height(), picture.Width(), -picture.Height());
}

TEST(PictureCorpusTest, EveryFileLoadsOrIsRefused) {
  const auto root = Corpus("");
  SKIP_WITHOUT(root);
  PictureServices services(15, 32u << 20, 2);
  Module1 module1(services, [] { return 0x00808080u; });
  int plain = 0, ex = 0, gdiRoad = 0, files = 0;
  for (const auto& path : FilesBelow(root)) {
    ++files;
    const std::string name = path.string();
    try {
      const gdi::Picture picture = LoadPicture(services, name);
      ASSERT_TRUE(picture) << name;  // it raises rather than give nothing
      services.prefetch(picture, {24, 24});
      DrawSmall(picture);
      ++plain;
    } catch (const tk::Error& error) {
      EXPECT_EQ(error.Number, 481) << name;
    }
    if (const gdi::Picture picture = services.stdPictureEx().LoadPicture(name)) {
      DrawSmall(picture);
      ++ex;
    }
    try {
      int32_t w = -1, h = -1;
      const gdi::Picture picture = module1.LoadGdiPicture(name, w, h, 0xFFFFFF, false);
      EXPECT_EQ(picture.PixelSize(), (gdi::Size{w, h})) << name;
      DrawSmall(picture);
      ++gdiRoad;
    } catch (const tk::Error& error) {
      EXPECT_EQ(error.Number, 999) << name;
    }
  }
  services.drain();
  // The suites are mostly good pictures of the formats read here.
  EXPECT_GT(plain, files / 2);
  EXPECT_GT(ex, files / 2);
  EXPECT_GT(gdiRoad, files / 2);
}

}  // namespace
}  // namespace vellumry
