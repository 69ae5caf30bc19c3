// Decoded pixels against the reference pixels that the suites ship.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <sstream>

#include "codecs/TestFiles.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/IcoCodec.h"
#include "platform/gdi/LockBits.h"

using namespace vellumry;

namespace vellumry::codecs {
namespace {

using testing::Corpus;
using testing::ReadFile;

// Straight RGBA bytes of a decoded surface; opaque and unknown-alpha pixels count as alpha 255.
std::vector<uint8_t> Rgba(const gdi::Surface& surface) {
  const gdi::LockedPixels locked = gdi::LockBits(surface, gdi::LockFormat::kBgra32Straight);
  std::vector<uint8_t> out(locked.bytes.size());
  for (size_t i = 0; i < out.size(); i += 4) {
    out[i] = locked.bytes[i + 2];
    out[i + 1] = locked.bytes[i + 1];
    out[i + 2] = locked.bytes[i];
    out[i + 3] = locked.bytes[i + 3];
  }
  return out;
}

// Largest difference over the colour of visible pixels and over alpha.
int MaxDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
  if (a.size() != b.size()) return 256;
  int worst = 0;
  for (size_t i = 0; i < a.size(); i += 4) {
    worst = std::max(worst, std::abs(a[i + 3] - b[i + 3]));
    if (a[i + 3] == 0 && b[i + 3] == 0) continue;
    for (int c = 0; c < 3; ++c) worst = std::max(worst, std::abs(a[i + c] - b[i + c]));
  }
  return worst;
}

std::vector<uint8_t> ReferencePng(const std::filesystem::path& path) {
  auto decoded = Decode(ReadFile(path));
  return decoded ? Rgba(decoded->surface) : std::vector<uint8_t>{};
}

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
    auto decoded = Decode(ReadFile(path));
    ASSERT_TRUE(decoded) << path;
    EXPECT_LE(MaxDifference(Rgba(decoded->surface), expected), sixteen ? 1 : 0) << path;
    ++compared;
  }
  EXPECT_GT(compared, 150);
}

TEST(ReferencePixels, BmpSuiteGoodFilesMatchTheirPngs) {
  SKIP_WITHOUT(Corpus("bmpsuite/g"));
  int compared = 0;
  // The suite's page shows each file after its reference picture.
  std::map<std::string, std::string> references;
  std::string lastPng;
  std::string page;
  for (const uint8_t b : ReadFile(Corpus("bmpsuite/html/bmpsuite.html")))
    page += static_cast<char>(b);
  for (size_t at = page.find("src=\""); at != std::string::npos; at = page.find("src=\"", at + 1)) {
    const std::string src = page.substr(at + 5, page.find('"', at + 5) - at - 5);
    if (src.ends_with(".png")) lastPng = src;
    if (src.starts_with("../g/")) references[src.substr(5)] = lastPng;
  }
  for (const auto& path : testing::FilesBelow(Corpus("bmpsuite/g"))) {
    const auto it = references.find(path.filename().string());
    if (it == references.end()) continue;
    const auto reference = Corpus("bmpsuite/html/" + it->second);
    auto decoded = Decode(ReadFile(path));
    ASSERT_TRUE(decoded) << path;
    gdi::Surface surface = decoded->surface;
    // The reference shows a 32-bit BMP's fourth byte as meaning nothing.
    if (surface.Alpha() == gdi::AlphaMode::kUnknown) surface.SetAlpha(gdi::AlphaMode::kOpaque);
    EXPECT_EQ(MaxDifference(Rgba(surface), ReferencePng(reference)), 0) << path;
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
  std::string disabled;
  for (const uint8_t b : ReadFile(dir / "disabled.list")) disabled += static_cast<char>(b);
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
    EXPECT_LE(MaxDifference(Rgba(decoded->surface), ReferencePng(reference)), 3) << path;
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
      EXPECT_EQ(MaxDifference(Rgba(icon->colour), ReferencePng(reference)), 0) << reference;
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
    const gdi::Surface& s = decoded->surface;
    ASSERT_EQ(rgb.size(), static_cast<size_t>(s.Width()) * s.Height() * 3) << name;
    int mismatches = 0;
    for (int y = 0; y < s.Height(); ++y) {
      for (int x = 0; x < s.Width(); ++x) {
        const uint32_t p = s.Pixel(x, y);
        const uint8_t* e = &rgb[(static_cast<size_t>(y) * s.Width() + x) * 3];
        if (gdi::AlphaOf(p) == 255 &&
            (gdi::RedOf(p) != e[0] || gdi::GreenOf(p) != e[1] || gdi::BlueOf(p) != e[2])) {
          ++mismatches;
        }
      }
    }
    EXPECT_EQ(mismatches, 0) << name;
  }
}

}  // namespace
}  // namespace vellumry::codecs
