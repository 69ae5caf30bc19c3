// The picture class against the suites' reference pictures: BMP files through the DIB road,
// icon entries chosen by their size, cursors with their hot spots.
#include <gtest/gtest.h>

#include <set>

#include "codecs/TestFiles.h"
#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/IconResource.h"

namespace vellumry {
namespace {

using namespace codecs::testing;

constexpr int32_t kIconSizeCustom = 4;

class EngineCorpusTest : public ::testing::Test {
 protected:
  PictureServices services{15, 64u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
};

// Straight BGRA of a picture as the class shows it: its full pixels, or an icon's colour with
// masked pixels transparent.
std::vector<uint8_t> Shown(const gdi::Picture& picture) {
  if (const gdi::IconImage* icon = picture.Icon()) {
    gdi::Surface flat = icon->colour;
    if (!icon->HasAlpha()) {
      for (int y = 0; y < flat.Height(); ++y) {
        for (int x = 0; x < flat.Width(); ++x) {
          flat.SetPixel(x, y, icon->Masked(x, y) ? 0 : flat.Pixel(x, y) | 0xFF000000u);
        }
      }
      flat.SetAlpha(gdi::AlphaMode::kStraight);
    }
    return Bgra(flat);
  }
  const auto pixels = picture.Pixels();
  return pixels ? Bgra(*pixels) : std::vector<uint8_t>{};
}

TEST_F(EngineCorpusTest, BmpSuiteGoodFilesMatchTheirReferences) {
  SKIP_WITHOUT(Corpus("bmpsuite/g"));
  const auto references = BmpSuiteReferences("g");
  int matched = 0;
  std::set<std::string> notThroughASection;
  for (const auto& path : FilesBelow(Corpus("bmpsuite/g"))) {
    const std::string name = path.filename().string();
    const auto it = references.find(name);
    if (it == references.end()) continue;
    if (!codecs::DecodeDibSection(ReadFile(path))) notThroughASection.insert(name);
    const gdi::Picture picture = ex.LoadPicture(path.string());
    ASSERT_TRUE(picture) << name;
    EXPECT_FALSE(ex.IsManaged(picture)) << name;  // no good file has alpha
    EXPECT_EQ(MaxDifference(Shown(picture), ReferencePng(Corpus("bmpsuite/html/" + it->second))), 0)
        << name;
    ++matched;
  }
  EXPECT_EQ(matched, 27);
  // Only the 12-byte header is left to the full decoder.
  EXPECT_EQ(notThroughASection, (std::set<std::string>{"pal8os2.bmp"}));
}

TEST_F(EngineCorpusTest, BmpSuiteQuestionableFiles) {
  SKIP_WITHOUT(Corpus("bmpsuite/q"));
  const auto references = BmpSuiteReferences("q");
  int matched = 0;
  std::set<std::string> refused, different, managed;
  for (const auto& path : FilesBelow(Corpus("bmpsuite/q"))) {
    const std::string name = path.filename().string();
    const gdi::Picture picture = ex.LoadPicture(path.string());
    if (!picture) {
      refused.insert(name);
      continue;
    }
    if (ex.IsManaged(picture)) managed.insert(name);
    const auto reference = Corpus("bmpsuite/html/" + references.at(name));
    // Odd bit-field depths scale to 8 bits with a rounding of their own.
    if (MaxDifference(Shown(picture), ReferencePng(reference)) <= 1) {
      ++matched;
    } else {
      different.insert(name);
    }
  }
  EXPECT_EQ(matched, 26);
  EXPECT_EQ(refused, (std::set<std::string>{"pal1huffmsb.bmp", "rgb24jpeg.bmp", "rgb24png.bmp",
                                            "rgb24rle24.bmp", "rgba64.bmp"}));
  // Pixels a run length skips keep index 0; the file header's pixel offset is ignored; a 16-bit
  // section has no alpha; the "fake" fourth bytes of rgb32fakealpha read as alpha.
  EXPECT_EQ(different,
            (std::set<std::string>{"pal4rlecut.bmp", "pal4rletrns.bmp", "pal8offs.bmp",
                                   "pal8os2sp.bmp", "pal8rlecut.bmp", "pal8rletrns.bmp",
                                   "rgb16faketrns.bmp", "rgb24prof2.bmp", "rgb32fakealpha.bmp",
                                   "rgba16-1924.bmp", "rgba16-4444.bmp", "rgba16-5551.bmp"}));
  EXPECT_EQ(managed, (std::set<std::string>{
                         "rgb32fakealpha.bmp", "rgba32-1.bmp", "rgba32-1010102.bmp", "rgba32-2.bmp",
                         "rgba32-61754.bmp", "rgba32-81284.bmp", "rgba32h56.bmp"}));
}

TEST_F(EngineCorpusTest, BmpSuiteBadFilesAreRefusedOrReadSafely) {
  SKIP_WITHOUT(Corpus("bmpsuite/b"));
  std::set<std::string> refused;
  int files = 0;
  for (const auto& path : FilesBelow(Corpus("bmpsuite/b"))) {
    ++files;
    if (!ex.LoadPicture(path.string())) refused.insert(path.filename().string());
  }
  EXPECT_EQ(files, 20);
  // The others have harmless faults (sizes, densities, planes) or damaged pixel data that a
  // section shows as far as it goes.
  EXPECT_EQ(refused, (std::set<std::string>{"badbitcount.bmp", "badpalettesize.bmp", "badwidth.bmp",
                                            "reallybig.bmp", "rletopdown.bmp"}));
}

TEST_F(EngineCorpusTest, IconEntriesChosenBySizeMatchTheirPngs) {
  const auto dir = Corpus("rust-ico/tests/images");
  SKIP_WITHOUT(dir);
  int compared = 0;
  for (const std::string name : {"wiki", "ship", "litexl"}) {
    const std::vector<uint8_t> bytes = ReadFile(dir / (name + ".ico"));
    const auto resource = codecs::ReadIconResource(bytes);
    ASSERT_TRUE(resource) << name;
    for (const uint32_t key : resource->keys) {
      const int size = codecs::IconKeySize(key);
      const auto reference =
          dir / (name + std::to_string(size) + "x" + std::to_string(size) + ".png");
      if (!std::filesystem::exists(reference)) continue;
      const gdi::Picture picture =
          ex.LoadPicture(ByteArray{bytes, 0, 1}, kIconSizeCustom, 32, size, size);
      ASSERT_TRUE(picture) << name << " " << size;
      EXPECT_EQ(picture.PixelSize(), (gdi::Size{size, size}));
      EXPECT_EQ(MaxDifference(Shown(picture), ReferencePng(reference)), 0) << reference;
      ++compared;
    }
  }
  EXPECT_EQ(compared, 11);
}

TEST_F(EngineCorpusTest, CursorsKeepTheirHotSpots) {
  const auto dir = Corpus("faint-graphics-editor/tests/test-data");
  SKIP_WITHOUT(dir);
  struct Cursor {
    const char* file;
    int size, hotspotX, hotspotY;
  };
  for (const Cursor c :
       {Cursor{"24bipp-6x6.cur", 6, 4, 1}, Cursor{"24bipp-256x256.cur", 256, 254, 254}}) {
    const gdi::Picture picture = ex.LoadPicture((dir / c.file).string());
    ASSERT_TRUE(picture) << c.file;
    ASSERT_TRUE(picture.Icon()) << c.file;
    EXPECT_TRUE(picture.Icon()->isCursor);
    EXPECT_EQ(picture.PixelSize(), (gdi::Size{c.size, c.size})) << c.file;
    EXPECT_EQ(picture.Icon()->hotspotX, c.hotspotX) << c.file;
    EXPECT_EQ(picture.Icon()->hotspotY, c.hotspotY) << c.file;
    EXPECT_EQ(ex.PictureType(picture), 3);
  }
}

}  // namespace
}  // namespace vellumry
