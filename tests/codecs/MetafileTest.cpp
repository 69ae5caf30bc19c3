// The metafile player: natural sizes from the headers, the device context's effect on where
// records draw, the limits on hostile files, and the corpus drawn and compared with their reference
// renderings.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <initializer_list>

#include "codecs/TestFiles.h"
#include "codecs/TestMetafiles.h"
#include "fuzz/FuzzFonts.h"
#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {
namespace {

using testing::corpus;
using testing::filesBelow;
using testing::ReadFile;
using namespace testing;

constexpr uint32_t kRed = 0x0000FF, kGreen = 0x00FF00;  // as COLORREF, 0x00BBGGRR
constexpr uint32_t kOpaqueRed = 0xFFFF0000, kOpaqueGreen = 0xFF00FF00, kClear = 0;

struct SizeCase {
  const char* name;
  std::vector<uint8_t> bytes;
  gdi::Size natural;
};

TEST(MetafileTest, NaturalSizeComesFromTheHeader) {
  std::vector<uint8_t> placeable;
  for (const uint16_t word : {0xCDD7, 0x9AC6, 0, 0, 0, 2880, 1440, 1440, 0, 0, 0}) {
    put16(placeable, word);
  }
  const auto bare = wmf(0, {});
  placeable.insert(placeable.end(), bare.begin(), bare.end());
  const SizeCase cases[] = {
      // Two inches by one at 96 pixels an inch.
      {"placeable box", placeable, {192, 96}},
      {"bare window extent", wmf(0, {windowExtent(300, 200)}), {300, 200}},
      // The frame of 40 by 40 mm at the device's 10 pixels a millimetre.
      {"emf frame", emf(400, {}), {400, 400}},
  };
  for (const SizeCase& c : cases) {
    const auto info = probe(c.bytes);
    ASSERT_TRUE(info) << c.name;
    EXPECT_EQ((gdi::Size{info->width, info->height}), c.natural) << c.name;
  }
}

struct DrawCase {
  const char* name;
  std::vector<uint8_t> bytes;
  int side;                                            // drawn at side x side
  std::vector<std::pair<gdi::Size, uint32_t>> pixels;  // where, and the colour found there
};

TEST(MetafileTest, RecordsDrawWhereTheDeviceContextSays) {
  const DrawCase cases[] = {
      {"wmf window onto the output",
       wmf(2, {windowExtent(100, 100), solidBrush(kRed), select(0), nullPen(), select(1),
               Rectangle(20, 20, 80, 80)}),
       50,
       {{{25, 25}, kOpaqueRed}, {{5, 5}, kClear}, {{45, 45}, kClear}}},
      {"wmf deleted slot reused first",
       wmf(3, {windowExtent(10, 10),
               nullPen(),
               select(0),
               solidBrush(kRed),
               {0x01F0, {0}},
               solidBrush(kGreen),
               select(0),
               Rectangle(0, 0, 10, 10)}),
       10,
       {{{5, 5}, kOpaqueGreen}}},
      {"wmf table full",
       wmf(1, {windowExtent(10, 10), solidBrush(kRed), solidBrush(kGreen), select(1), select(0),
               Rectangle(0, 0, 10, 10)}),
       10,
       {{{5, 5}, kOpaqueRed}}},
      {"emf anisotropic mapping",
       emf(200, {{17, {8}},
                 {9, {100, 100}},
                 {11, {200, 200}},
                 emfBrush(1, kRed),
                 emfSelect(1),
                 kEmfNullPen,
                 emfRectangle(10, 10, 20, 20)}),
       200,
       {{{30, 30}, kOpaqueRed}, {{15, 15}, kClear}, {{45, 45}, kClear}}},
      {"emf metric mapping runs upwards",
       // Tenths of a millimetre: 100 units are 10 mm, 100 pixels, drawn upwards from the origin
       // that the viewport puts at the bottom.
       emf(200, {{17, {2}},
                 {12, {0, 200}},
                 emfBrush(1, kRed),
                 emfSelect(1),
                 kEmfNullPen,
                 emfRectangle(0, 0, 100, 100)}),
       200,
       {{{50, 150}, kOpaqueRed}, {{50, 50}, kClear}}},
      {"emf restore brings back the brush",
       emf(20, {emfBrush(1, kRed),
                emfBrush(2, kGreen),
                emfSelect(1),
                {33, {}},
                emfSelect(2),
                {34, {static_cast<uint32_t>(-1)}},
                kEmfNullPen,
                emfRectangle(0, 0, 20, 20)}),
       20,
       {{{10, 10}, kOpaqueRed}}},
      {"emf clip rectangle",
       emf(100, {emfBrush(1, kRed),
                 emfSelect(1),
                 kEmfNullPen,
                 {30, {0, 0, 50, 100}},
                 emfRectangle(0, 0, 100, 100)}),
       100,
       {{{25, 50}, kOpaqueRed}, {{75, 50}, kClear}}},
      {"emf world transform",
       emf(100, {{35, {bits(1), 0, 0, bits(1), bits(60), 0}},
                 emfBrush(1, kRed),
                 emfSelect(1),
                 kEmfNullPen,
                 emfRectangle(0, 0, 30, 30)}),
       100,
       {{{75, 15}, kOpaqueRed}, {{15, 15}, kClear}}},
      {"wmf window origin",
       wmf(2, {{0x020B, {100, 100}},
               windowExtent(100, 100),
               solidBrush(kRed),
               select(0),
               nullPen(),
               select(1),
               Rectangle(100, 100, 150, 150)}),
       50,
       {{{10, 10}, kOpaqueRed}, {{40, 40}, kClear}}},
      {"emf index beyond the object table",
       emf(20, {emfBrush(1, kRed), emfSelect(1), emfBrush(9, kGreen), emfSelect(9), kEmfNullPen,
                emfRectangle(0, 0, 20, 20)}),
       20,
       {{{10, 10}, kOpaqueRed}}},
      {"emf point count beyond the record",
       emf(20,
           {emfBrush(1, kRed), emfSelect(1), {86, {0, 0, 20, 20, 1000000000, 0, 20 << 16, 20}}}),
       20,
       {{{10, 10}, kClear}}},
      {"emf path filled",
       emf(20, {emfBrush(1, kRed),
                emfSelect(1),
                kEmfNullPen,
                {59, {}},
                emfRectangle(0, 0, 20, 10),
                {60, {}},
                {62, {0, 0, 20, 10}}}),
       20,
       {{{10, 5}, kOpaqueRed}, {{10, 15}, kClear}}},
      {"emf path aborted draws nothing",
       emf(20, {emfBrush(1, kRed),
                emfSelect(1),
                kEmfNullPen,
                {59, {}},
                emfRectangle(0, 0, 20, 20),
                {68, {}}}),
       20,
       {{{10, 10}, kClear}}},
      {"emf record of size 0 ends the drawing",
       lastRecordSized(emf(100, {emfBrush(1, kRed), emfSelect(1), kEmfNullPen,
                                 emfRectangle(0, 0, 50, 50), emfRectangle(50, 50, 100, 100)}),
                       0),
       100,
       {{{25, 25}, kOpaqueRed}, {{75, 75}, kClear}}},
  };
  for (const DrawCase& c : cases) {
    const auto drawn = decode(c.bytes, c.side, c.side);
    ASSERT_TRUE(drawn) << c.name;
    ASSERT_EQ(drawn->surface.dimensions(), (gdi::Size{c.side, c.side})) << c.name;
    for (const auto& [at, colour] : c.pixels) {
      EXPECT_EQ(drawn->surface.pixel(at.width, at.height), colour)
          << c.name << " at " << at.width << ", " << at.height;
    }
  }
}

// Every WMF and EMF of the suites with real-world and broken files: those whose header reads
// are drawn at their size (up to 1024 pixels a side) without a fault.
TEST(MetafileTest, CorpusFilesDraw) {
  int drawn = 0, refused = 0;
  for (const char* suite : {"libwmf", "libemf2svg", "apache-poi"}) {
    NEED_CORPUS(std::filesystem::is_directory(corpus(suite)), suite);
    for (const auto& path : filesBelow(corpus(suite))) {
      const auto ext = path.extension();
      if (ext != ".wmf" && ext != ".emf") continue;
      const auto bytes = ReadFile(path);
      const auto info = probe(bytes);
      if (!info || info->width == 0) {
        ++refused;
        continue;
      }
      const double scale = std::min(1.0, 1024.0 / std::max(info->width, info->height));
      const auto picture = decode(bytes, std::max(1, static_cast<int>(info->width * scale)),
                                  std::max(1, static_cast<int>(info->height * scale)));
      EXPECT_TRUE(picture) << path;
      drawn += picture.ok();
    }
  }
  std::printf("metafiles drawn: %d, refused by their header: %d\n", drawn, refused);
  EXPECT_GT(drawn, 150);
}

// The luminance of each pixel laid over white.
std::vector<double> luminance(const gdi::Surface& surface) {
  const auto bgra = testing::bgra(surface);
  std::vector<double> out;
  for (size_t i = 0; i + 3 < bgra.size(); i += 4) {
    const double alpha = bgra[i + 3] / 255.0;
    const double y = 0.114 * bgra[i] + 0.587 * bgra[i + 1] + 0.299 * bgra[i + 2];
    out.push_back(y * alpha + 255 * (1 - alpha));
  }
  return out;
}

struct Likeness {
  double ssim = 0;            // mean structural similarity over windows of 8 by 8 pixels
  double meanDifference = 0;  // mean absolute difference of luminance, 0 to 255
};

Likeness compare(const gdi::Surface& a, const gdi::Surface& b) {
  const auto la = luminance(a), lb = luminance(b);
  const double c1 = 6.5025, c2 = 58.5225;  // (0.01 * 255)^2, (0.03 * 255)^2
  Likeness likeness;
  int windows = 0;
  for (int y0 = 0; y0 + 8 <= a.Height(); y0 += 8) {
    for (int x0 = 0; x0 + 8 <= a.Width(); x0 += 8) {
      double sa = 0, sb = 0, saa = 0, sbb = 0, sab = 0;
      for (int y = y0; y < y0 + 8; ++y) {
        for (int x = x0; x < x0 + 8; ++x) {
          const size_t i = static_cast<size_t>(y) * a.Width() + x;
          sa += la[i], sb += lb[i], saa += la[i] * la[i], sbb += lb[i] * lb[i];
          sab += la[i] * lb[i];
        }
      }
      const double ma = sa / 64, mb = sb / 64;
      const double va = saa / 64 - ma * ma, vb = sbb / 64 - mb * mb, cov = sab / 64 - ma * mb;
      likeness.ssim +=
          (2 * ma * mb + c1) * (2 * cov + c2) / ((ma * ma + mb * mb + c1) * (va + vb + c2));
      ++windows;
    }
  }
  likeness.ssim /= std::max(windows, 1);
  for (size_t i = 0; i < la.size(); ++i) likeness.meanDifference += std::abs(la[i] - lb[i]);
  likeness.meanDifference /= std::max<size_t>(la.size(), 1);
  return likeness;
}

TEST(MetafileTest, DrawingsResembleTheirReferenceRenderings) {
  fuzz::ensureFontDatabase();
  for (const char* name :
       {"wmf2svg/src/test/data/wmf/fulltest", "wmf2svg/src/test/data/emf/fulltest"}) {
    const auto reference = decode(ReadFile(corpus(std::string(name) + ".png")));
    const std::string metafile =
        std::string(name) +
        (std::string(name).find("/wmf/") != std::string::npos ? ".wmf" : ".emf");
    NEED_CORPUS(reference, name);
    const gdi::Size size = reference->surface.dimensions();
    const auto drawn = decode(ReadFile(corpus(metafile)), size.width, size.height);
    ASSERT_TRUE(drawn) << metafile;
    const Likeness likeness = compare(drawn->surface, reference->surface);
    std::printf("%s: SSIM %.4f, mean absolute difference %.2f\n", metafile.c_str(), likeness.ssim,
                likeness.meanDifference);
    // Fonts, anti-aliasing and the records left unplayed keep the drawing from matching pixel
    // for pixel: held to a mean difference of 12 levels of 255.
    EXPECT_LT(likeness.meanDifference, 12) << metafile;
  }
}

}  // namespace
}  // namespace vellumry::codecs
