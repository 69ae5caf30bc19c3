// Decoded pixels against the reference pixels that the suites ship.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "codecs/TestFiles.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/IcoCodec.h"

namespace vellumry::codecs {
namespace {

using testing::bgra;
using testing::bmpSuiteReferences;
using testing::corpus;
using testing::maxDifference;
using testing::ReadFile;
using testing::referencePng;

TEST(ReferencePixels, PngSuiteMatchesItsJson) {
  SKIP_WITHOUT(corpus("pngsuite/json"));
  int compared = 0;
  for (const auto& path : testing::filesBelow(corpus("pngsuite/png"))) {
    const std::string stem = path.stem().string();
    if (stem[0] == 'x') continue;
    // 16-bit images have an 8-bit reduction of their own; their rounding may differ by one.
    auto json = corpus("pngsuite/json/" + stem + "_to8.json");
    bool sixteen = std::filesystem::exists(json);
    if (!sixteen) json = corpus("pngsuite/json/" + stem + ".json");
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
    auto decoded = decode(ReadFile(path));
    ASSERT_TRUE(decoded) << path;
    EXPECT_LE(maxDifference(bgra(decoded->surface), expected), sixteen ? 1 : 0) << path;
    ++compared;
  }
  EXPECT_GT(compared, 150);
}

TEST(ReferencePixels, BmpSuiteGoodFilesMatchTheirPngs) {
  SKIP_WITHOUT(corpus("bmpsuite/g"));
  int compared = 0;
  const auto references = bmpSuiteReferences("g");
  for (const auto& path : testing::filesBelow(corpus("bmpsuite/g"))) {
    const auto it = references.find(path.filename().string());
    if (it == references.end()) continue;
    const auto reference = corpus("bmpsuite/html/" + it->second);
    auto decoded = decode(ReadFile(path));
    ASSERT_TRUE(decoded) << path;
    gdi::Surface surface = decoded->surface;
    // The reference shows a 32-bit BMP's fourth byte as meaning nothing.
    if (surface.alpha() == gdi::AlphaMode::kUnknown) surface.setAlpha(gdi::AlphaMode::kOpaque);
    EXPECT_EQ(maxDifference(bgra(surface), referencePng(reference)), 0) << path;
    ++compared;
  }
  EXPECT_GT(compared, 25);
}

TEST(ReferencePixels, JpegsMatchTheirReferencesWithinThree) {
  const auto dir = corpus("jpeg-decoder/tests/reftest/images");
  SKIP_WITHOUT(dir);
  // Left out: what the suite disables, a cut-off progressive file (how missing data looks is each
  // decoder's own), and pictures smaller than one 8x8 block, whose references smooth chroma
  // differently.
  const std::vector<uint8_t> list = ReadFile(dir / "disabled.list");
  std::string disabled(list.begin(), list.end());
  disabled += " partial_progressive.jpg jpg-size-1x1 jpg-size-2x2 jpg-size-3x3 jpg-size-4x4";
  disabled += " jpg-size-5x5 jpg-size-6x6 jpg-size-7x7";
  int compared = 0;
  for (const auto& path : testing::filesBelow(dir)) {
    if (path.extension() != ".jpg" || disabled.find(path.stem().string()) != std::string::npos) {
      continue;
    }
    const auto reference = path.parent_path() / (path.stem().string() + ".png");
    if (!std::filesystem::exists(reference)) continue;
    auto decoded = decode(ReadFile(path));
    if (!decoded) continue;  // 12-bit and other refused variants have references too
    EXPECT_LE(maxDifference(bgra(decoded->surface), referencePng(reference)), 3) << path;
    ++compared;
  }
  EXPECT_GT(compared, 10);
}

TEST(ReferencePixels, IconEntriesMatchTheirPngs) {
  const auto dir = corpus("rust-ico/tests/images");
  SKIP_WITHOUT(dir);
  int compared = 0;
  for (const std::string name : {"wiki", "ship", "litexl"}) {
    const std::vector<uint8_t> bytes = ReadFile(dir / (name + ".ico"));
    const auto directory = readIconDirectory(bytes);
    ASSERT_TRUE(directory) << name;
    for (int i = 0; i < static_cast<int>(directory->entries.size()); ++i) {
      const IconEntry& e = directory->entries[i];
      const auto reference =
          dir / (name + std::to_string(e.width) + "x" + std::to_string(e.height) + ".png");
      if (!std::filesystem::exists(reference)) continue;
      auto icon = decodeIconEntry(bytes, i, {});
      ASSERT_TRUE(icon) << name << " " << i;
      EXPECT_EQ(maxDifference(bgra(icon->colour), referencePng(reference)), 0) << reference;
      ++compared;
    }
  }
  EXPECT_GT(compared, 8);
}

TEST(ReferencePixels, GifFirstFramesMatchGiflibScreens) {
  SKIP_WITHOUT(corpus("giflib/tests"));
  for (const std::string name :
       {"porsche", "solid2", "treescap", "treescap-interlaced", "gifgrid"}) {
    const std::string rgbName = name == "treescap-interlaced" ? "treescap" : name;
    const std::vector<uint8_t> rgb = ReadFile(corpus("giflib/tests/" + rgbName + ".rgb"));
    auto decoded = decode(ReadFile(corpus("giflib/pic/" + name + ".gif")));
    ASSERT_TRUE(decoded) << name;
    const std::vector<uint8_t> actual = bgra(decoded->surface);
    ASSERT_EQ(rgb.size() / 3, actual.size() / 4) << name;
    // Alpha as decoded: the colour under transparent pixels doesn't count.
    std::vector<uint8_t> expected = actual;
    for (size_t i = 0; i < rgb.size() / 3; ++i) {
      for (int c = 0; c < 3; ++c) expected[4 * i + c] = rgb[3 * i + 2 - c];
    }
    EXPECT_EQ(maxDifference(actual, expected), 0) << name;
  }
}

}  // namespace
}  // namespace vellumry::codecs
