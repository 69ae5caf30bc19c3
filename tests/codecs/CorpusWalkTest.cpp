// Every file of the conformance suites either decodes or is refused with a reason; none crashes
// the decoder, and each suite's good files mostly decode.
#include <gtest/gtest.h>

#include "codecs/TestFiles.h"
#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {
namespace {

using testing::corpus;
using testing::filesBelow;
using testing::ReadFile;

struct SuiteCase {
  const char* dir;
  Format format;
  int minDecoded;  // files of that format the suite holds that must decode
};

class CorpusWalk : public ::testing::TestWithParam<SuiteCase> {};

TEST_P(CorpusWalk, EachFileDecodesOrIsRefused) {
  const SuiteCase& suite = GetParam();
  SKIP_WITHOUT(corpus(suite.dir));
  int decoded = 0;
  for (const auto& path : filesBelow(corpus(suite.dir))) {
    const std::vector<uint8_t> bytes = ReadFile(path);
    const auto info = probe(bytes);
    const auto result = decode(bytes);
    if (!result) continue;
    ASSERT_TRUE(info) << path;
    EXPECT_FALSE(result->surface.empty()) << path;
    if (info->format == suite.format) ++decoded;
    // A half-size request never gives less than asked, nor more than full size.
    const auto half = decode(bytes, info->width / 2, info->height / 2);
    ASSERT_TRUE(half) << path;
    EXPECT_GE(half->surface.Width(), info->width / 2) << path;
    EXPECT_LE(half->surface.Width(), result->surface.Width()) << path;
  }
  EXPECT_GE(decoded, suite.minDecoded);
}

INSTANTIATE_TEST_SUITE_P(
    Suites, CorpusWalk,
    ::testing::Values(
        SuiteCase{"jpegsuite", Format::kJpeg, 100}, SuiteCase{"jpeg-decoder", Format::kJpeg, 60},
        SuiteCase{"pngsuite", Format::kPng, 150}, SuiteCase{"image-png", Format::kPng, 10},
        SuiteCase{"libtiff", Format::kTiff, 15}, SuiteCase{"image-tiff", Format::kTiff, 60},
        SuiteCase{"gif-test-suite", Format::kGif, 40}, SuiteCase{"giflib", Format::kGif, 7},
        SuiteCase{"image-gif", Format::kGif, 5}, SuiteCase{"wuffs", Format::kGif, 20},
        SuiteCase{"bmpsuite", Format::kBmp, 60}, SuiteCase{"rust-ico", Format::kIco, 3},
        SuiteCase{"pillow", Format::kIco, 5}, SuiteCase{"faint-graphics-editor", Format::kCur, 2},
        SuiteCase{"gdk-pixbuf", Format::kIco, 1}, SuiteCase{"image-rs-image", Format::kBmp, 20}),
    [](const auto& info) {
      std::string name = info.param.dir;
      std::erase(name, '-');
      return name;
    });

TEST(CorpusWalk, BrokenPngsOfThePngSuiteAreRefused) {
  SKIP_WITHOUT(corpus("pngsuite/png"));
  for (const auto& path : filesBelow(corpus("pngsuite/png"))) {
    if (path.filename().string()[0] != 'x') continue;
    EXPECT_FALSE(decode(ReadFile(path))) << path;
  }
}

TEST(CorpusWalk, MetafilesDrawAtTheirNaturalSize) {
  for (const auto& [name, format] :
       {std::pair{"drawing.emf", Format::kEmf}, {"drawing.wmf", Format::kWmf}}) {
    SCOPED_TRACE(name);
    const auto path = corpus(std::string("pillow/Tests/images/") + name);
    SKIP_WITHOUT(path);
    const std::vector<uint8_t> bytes = ReadFile(path);
    const auto info = probe(bytes);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->format, format);
    EXPECT_GT(info->width, 0);
    const auto drawn = decode(bytes);
    ASSERT_TRUE(drawn);
    EXPECT_EQ(drawn->surface.dimensions(), (gdi::Size{info->width, info->height}));
  }
}

}  // namespace
}  // namespace vellumry::codecs
