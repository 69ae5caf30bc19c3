// Decoded pixels against the reference pixels that the suites ship.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "codecs/TestFiles.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/IcoCodec.h"

namespace vellumry::codecs {
namespace {

using testing::Bgra;
using testing::BmpSuiteReferences;
using testing::Corpus;
using testing::MaxDifference;
using testing::ReadFile;
using testing::ReferencePng;

TEST(ReferencePixels, PngSuiteMatchesItsJson) {
  SKIP_WITHOUT(Corpus("pngsuite/json"));
  int compared = 0;
  for (const auto& path : testing::FilesBelow(Corpus("pngsuite/png"))) {
    const std::string stem = path.stem().string();
    if (stem[0] == 'x') continue;
    // 16-bit images have an 8-bit reduction of their own; their rounding may differ by one.
    auto json = Corpus("pngsuite/json/" + stem + "_to8.json");
    bool sixteen = std::filesystem::exists(json);
    if (!sixteen) json = Corpus("pngsuite/json/" + stem + ".json");
    if (!std::filesystem::exists(json)) continue;
    std::string text;
    for (const uint8_t b : ReadFile(json)) text += (b == '[' || b == ']' || b == ',') ? ' ' : b;
    std::istringstream numbers(text);
    std::vector<int> values;
    for (int v; numbers >> v;) values.push_back(v);
    // Some 16-bit images only have 16-bit values: reduce them as 8-bit output would.
    const bool wide = std::any_of(values.begin(), values.end(), [](int v) { return v > 255; });
    sixteen = sixteen || wide;
    std::vector<uint8_t> expected;
    for (const int v : values) expected.push_back(static_cast<uint8_t>(wide ? (v + 128) / 257 : v));
    // The suite lists red first, the surface blue.
    for (size_t i = 0; i + 3 < expected.size(); i += 4) std::swap(expected[i], expected[i + 2]);
    auto decoded = Decode(ReadFile(path));
    ASSERT_TRUE(decoded) << path;
    EXPECT_LE(MaxDifference(Bgra(decoded->surface), expected), sixteen ? 1 : 0) << path;
    ++compared;
  }
  EXPECT_GT(compared, 150);
}

TEST(ReferencePixels, BmpSuiteGoodFilesMatchTheirPngs) {
  SKIP_WITHOUT(Corpus("bmpsuite/g"));
  int compared = 0;
  const auto references = BmpSuiteReferences("g");
  for (const auto& path : testing::FilesBelow(Corpus("bmpsuite/g"))) {
    const auto it = references.find(path.filename().string());
    if (it == references.end()) continue;
    const auto reference = Corpus("bmpsuite/html/" + it->second);
    auto decoded = Decode(ReadFile(path));
    ASSERT_TRUE(decoded) << path;
    gdi::Surface surface = decoded->surface;
    // The reference shows a 32-bit BMP's fourth byte as meaning nothing.
    if (surface.Alpha() == gdi::AlphaMode::kUnknown) surface.SetAlpha(gdi::AlphaMode::kOpaque);
    EXPECT_EQ(MaxDifference(Bgra(surface), ReferencePng(reference)), 0) << path;
    ++compared;
  }
  EXPECT_GT(compared, 25);
}

TEST(ReferencePixels, JpegsMatchTheirReferencesWithinThree) {
  const auto dir = Corpus("jpeg-decoder/tests/reftest/images");
  SKIP_WITHOUT(dir);
  // Left out: what the suite disables, a cut-off progressive file (how missing data looks is each
  // decoder's own), and pictures smaller than one 8x8 block, whose references smooth chroma
  // differently.
  const std::vector<uint8_t> list = ReadFile(dir / "disabled.list");
  std::string disabled(list.begin(), list.end());
  disabled += " partial_progressive.jpg jpg-size-1x1 jpg-size-2x2 jpg-size-3x3 jpg-size-4x4";
  disabled += " jpg-size-5x5 jpg-size-6x6 jpg-size-7x7";
  int compared = 0;
  for (const auto& path : testing::FilesBelow(dir)) {
    if (path.extension() != ".jpg" || disabled.find(path.stem().string()) != std::string::npos) {
      continue;
    }
    const auto reference = path.parent_path() / (path.stem().string() + ".png");
    if (!std::filesystem::exists(reference)) continue;
    auto decoded = Decode(ReadFile(path));
    if (!decoded) continue;  // 12-bit and other refused variants have references too
    EXPECT_LE(MaxDifference(Bgra(decoded->surface), ReferencePng(reference)), 3) << path;
    ++compared;
  }
  EXPECT_GT(compared, 10);
}

TEST(ReferencePixels, IconEntriesMatchTheirPngs) {
  const auto dir = Corpus("rust-ico/tests/images");
  SKIP_WITHOUT(dir);
  int compared = 0;
  for (const std::string name : {"wiki", "ship", "litexl"}) {
    const std::vector<uint8_t> bytes = ReadFile(dir / (name + ".ico"));
    const auto directory = ReadIconDirectory(bytes);
    ASSERT_TRUE(directory) << name;
    for (int i = 0; i < static_cast<int>(directory->entries.size()); ++i) {
      const IconEntry& e = directory->entries[i];
      const auto reference =
          dir / (name + std::to_string(e.width) + "x" + std::to_string(e.height) + ".png");
      if (!std::filesystem::exists(reference)) continue;
      auto icon = DecodeIconEntry(bytes, i, {});
      ASSERT_TRUE(icon) << name << " " << i;
      EXPECT_EQ(MaxDifference(Bgra(icon->colour), ReferencePng(reference)), 0) << reference;
      ++compared;
    }
  }
  EXPECT_GT(compared, 8);
}

TEST(ReferencePixels, GifFirstFramesMatchGiflibScreens) {
  SKIP_WITHOUT(Corpus("giflib/tests"));
  for (const std::string name :
       {"porsche", "solid2", "treescap", "treescap-interlaced", "gifgrid"}) {
    const std::string rgbName = name == "treescap-interlaced" ? "treescap" : name;
    const std::vector<uint8_t> rgb = ReadFile(Corpus("giflib/tests/" + rgbName + ".rgb"));
    auto decoded = Decode(ReadFile(Corpus("giflib/pic/" + name + ".gif")));
    ASSERT_TRUE(decoded) << name;
    const std::vector<uint8_t> actual = Bgra(decoded->surface);
    ASSERT_EQ(rgb.size() / 3, actual.size() / 4) << name;
    // Alpha as decoded: the colour under transparent pixels doesn't count.
    std::vector<uint8_t> expected = actual;
    for (size_t i = 0; i < rgb.size() / 3; ++i) {
      for (int c = 0; c < 3; ++c) expected[4 * i + c] = rgb[3 * i + 2 - c];
    }
    EXPECT_EQ(MaxDifference(actual, expected), 0) << name;
  }
}

}  // namespace
}  // namespace vellumry::codecs
