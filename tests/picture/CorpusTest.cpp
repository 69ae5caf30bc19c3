// The conformance suites through the engine: each file gives a picture or is refused through
// each of the three entry points, and the picture class matches the suites' reference pictures
// (BMP files through the DIB road, icon entries chosen by their size, cursors' hot spots).
#include <gtest/gtest.h>

#include <set>
#include <tuple>

#include "codecs/TestFiles.h"
#include "picture/Module1.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/IconResource.h"

namespace vellumry {
namespace {

using namespace codecs::testing;
using Names = std::set<std::string>;

TEST(PictureCorpusTest, EveryFileLoadsOrIsRefused) {
  const auto root = corpus("");
  SKIP_WITHOUT(root);
  PictureServices services(15, 32u << 20, 2);
  Module1 module1(services, [] { return 0x00808080u; });
  int loaded[3] = {}, files = 0;  // by the plain loader, the picture class, Module1
  // Draws the whole picture small, through whatever decode it needs.
  const auto drawSmall = [&](const gdi::Picture& picture, int road) {
    testsupport::drawn(picture, gdi::Surface(24, 24, gdi::AlphaMode::kOpaque));
    ++loaded[road];
  };
  for (const auto& path : filesBelow(root)) {
    ++files;
    const std::string name = path.string();
    const auto plain = testsupport::errorOf([&] {
      const gdi::Picture picture = LoadPicture(services, name);
      ASSERT_TRUE(picture) << name;  // it raises rather than give nothing
      services.prefetch(picture, {24, 24});
      drawSmall(picture, 0);
    });
    EXPECT_EQ(plain ? plain->Number : 481, 481) << name;
    if (const gdi::Picture picture = services.stdPictureEx().LoadPicture(name)) {
      drawSmall(picture, 1);
    }
    const auto gdiRoad = testsupport::errorOf([&] {
      int32_t w = -1, h = -1;
      const gdi::Picture picture = module1.LoadGdiPicture(name, w, h, 0xFFFFFF, false);
      EXPECT_EQ(picture.pixelSize(), (gdi::Size{w, h})) << name;
      drawSmall(picture, 2);
    });
    EXPECT_EQ(gdiRoad ? gdiRoad->Number : 999, 999) << name;
  }
  services.drain();
  // The suites are mostly good pictures of the formats read here.
  for (const int count : loaded) EXPECT_GT(count, files / 2);
}

using EngineCorpusTest = testsupport::EngineTest;

// Straight BGRA of a picture as the class shows it: its full pixels, or an icon's colour with
// masked pixels transparent.
std::vector<uint8_t> shown(const gdi::Picture& picture) {
  if (const gdi::IconImage* icon = picture.icon()) {
    gdi::Surface flat = icon->colour;
    if (!icon->hasAlpha()) {
      const auto pixels = flat.Pixels();
      for (size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = !icon->andMask.empty() && icon->andMask[i] ? 0 : pixels[i] | 0xFF000000u;
      }
      flat.setAlpha(gdi::AlphaMode::kStraight);
    }
    return bgra(flat);
  }
  const auto pixels = picture.Pixels();
  return pixels ? bgra(*pixels) : std::vector<uint8_t>{};
}

TEST_F(EngineCorpusTest, BmpSuiteFilesMatchTheirReferencesOrAreRefused) {
  SKIP_WITHOUT(corpus("bmpsuite"));
  // Checks a folder's count of files, how far their pixels may stray from the references (-1: not
  // compared), and the files refused, differing and managed. Gives the files that the full
  // decoder read rather than a section.
  const auto check = [&](const std::string& folder, int count, int tolerance, const Names& refused,
                         const Names& different, const Names& managed) {
    SCOPED_TRACE(folder);
    const auto references = bmpSuiteReferences(folder);
    int files = 0;
    Names refusedSeen, differentSeen, managedSeen, notThroughASection;
    for (const auto& path : filesBelow(corpus("bmpsuite/" + folder))) {
      ++files;
      const std::string name = path.filename().string();
      const gdi::Picture picture = ex.LoadPicture(path.string());
      if (!picture) {
        refusedSeen.insert(name);
        continue;
      }
      if (!codecs::decodeDibSection(ReadFile(path))) notThroughASection.insert(name);
      if (ex.IsManaged(picture)) managedSeen.insert(name);
      if (tolerance < 0) continue;
      const auto reference = corpus("bmpsuite/html/" + references.at(name));
      if (maxDifference(shown(picture), referencePng(reference)) > tolerance) {
        differentSeen.insert(name);
      }
    }
    EXPECT_EQ(files, count);
    EXPECT_EQ(refusedSeen, refused);
    EXPECT_EQ(differentSeen, different);
    EXPECT_EQ(managedSeen, managed);
    return notThroughASection;
  };
  // No good file has alpha, and only the 12-byte header is left to the full decoder.
  EXPECT_EQ(check("g", 27, 0, {}, {}, {}), (Names{"pal8os2.bmp"}));
  // Odd bit-field depths scale to 8 bits with a rounding of their own. Pixels a run length skips
  // keep index 0; the file header's pixel offset is ignored; a 16-bit section has no alpha; the
  // "fake" fourth bytes of rgb32fakealpha read as alpha.
  check("q", 43, 1,
        {"pal1huffmsb.bmp", "rgb24jpeg.bmp", "rgb24png.bmp", "rgb24rle24.bmp", "rgba64.bmp"},
        {"pal4rlecut.bmp", "pal4rletrns.bmp", "pal8offs.bmp", "pal8os2sp.bmp", "pal8rlecut.bmp",
         "pal8rletrns.bmp", "rgb16faketrns.bmp", "rgb24prof2.bmp", "rgb32fakealpha.bmp",
         "rgba16-1924.bmp", "rgba16-4444.bmp", "rgba16-5551.bmp"},
        {"rgb32fakealpha.bmp", "rgba32-1.bmp", "rgba32-1010102.bmp", "rgba32-2.bmp",
         "rgba32-61754.bmp", "rgba32-81284.bmp", "rgba32h56.bmp"});
  // The others have harmless faults (sizes, densities, planes) or damaged pixel data that a
  // section shows as far as it goes.
  check(
      "b", 20, -1,
      {"badbitcount.bmp", "badpalettesize.bmp", "badwidth.bmp", "reallybig.bmp", "rletopdown.bmp"},
      {}, {});
}

TEST_F(EngineCorpusTest, IconEntriesChosenBySizeMatchTheirPngs) {
  const auto dir = corpus("rust-ico/tests/images");
  SKIP_WITHOUT(dir);
  int compared = 0;
  for (const std::string name : {"wiki", "ship", "litexl"}) {
    const std::vector<uint8_t> bytes = ReadFile(dir / (name + ".ico"));
    const auto resource = codecs::readIconResource(bytes);
    ASSERT_TRUE(resource) << name;
    for (const uint32_t key : resource->keys) {
      const int size = codecs::iconKeySize(key);
      const auto reference =
          dir / (name + std::to_string(size) + "x" + std::to_string(size) + ".png");
      if (!std::filesystem::exists(reference)) continue;
      const gdi::Picture picture = ex.LoadPicture(ByteArray{bytes}, 4 /* custom */, 32, size, size);
      ASSERT_TRUE(picture) << name << " " << size;
      EXPECT_EQ(picture.pixelSize(), (gdi::Size{size, size}));
      EXPECT_EQ(maxDifference(shown(picture), referencePng(reference)), 0) << reference;
      ++compared;
    }
  }
  EXPECT_EQ(compared, 11);
}

TEST_F(EngineCorpusTest, CursorsKeepTheirHotSpots) {
  const auto dir = corpus("faint-graphics-editor/tests/test-data");
  SKIP_WITHOUT(dir);
  // The file, its size and hot spot.
  const std::tuple<const char*, int, int, int> cursors[] = {{"24bipp-6x6.cur", 6, 4, 1},
                                                            {"24bipp-256x256.cur", 256, 254, 254}};
  for (const auto& [file, size, hotspotX, hotspotY] : cursors) {
    SCOPED_TRACE(file);
    const gdi::Picture picture = ex.LoadPicture((dir / file).string());
    ASSERT_TRUE(picture.icon());
    EXPECT_TRUE(picture.icon()->isCursor);
    EXPECT_EQ(picture.pixelSize(), (gdi::Size{size, size}));
    EXPECT_EQ(picture.icon()->hotspotX, hotspotX);
    EXPECT_EQ(picture.icon()->hotspotY, hotspotY);
    EXPECT_EQ(ex.PictureType(picture), 3);
  }
}

}  // namespace
}  // namespace vellumry
