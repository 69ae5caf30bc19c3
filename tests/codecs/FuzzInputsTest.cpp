// Every fuzz target's body runs once over its kept findings (tests/data/fuzz/TARGET) and over
// the corpus files of its formats. A fault there crashes the test, or under the sanitizer build
// stops it with a report; each finding also keeps the answer its fix gives.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <string>
#include <vector>

#include "codecs/TestFiles.h"
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/Codecs.h"

namespace vellumry::codecs {
namespace {

using testing::corpus;
using testing::filesBelow;
using testing::ReadFile;

const std::filesystem::path kKept = "tests/data/fuzz";

struct Target {
  const char* name;  // as in tests/data/fuzz/NAME and scripts/fuzz.sh
  int (*body)(const uint8_t*, size_t);
  std::vector<std::string> extensions;  // of the corpus files it runs over, lower case
};

bool hasExtension(const std::filesystem::path& path, const std::vector<std::string>& extensions) {
  std::string ext = path.extension().string();
  std::transform(ext.begin(), ext.end(), ext.begin(),
                 [](unsigned char c) { return std::tolower(c); });
  return !ext.empty() &&
         std::find(extensions.begin(), extensions.end(), ext.substr(1)) != extensions.end();
}

class FuzzInputs : public ::testing::TestWithParam<Target> {};

TEST_P(FuzzInputs, KeptFindingsAndCorpusFilesRunCleanly) {
  const Target& target = GetParam();
  ASSERT_TRUE(std::filesystem::is_directory(kKept)) << "run from the project folder";
  std::vector<std::filesystem::path> files;
  if (std::filesystem::is_directory(kKept / target.name)) files = filesBelow(kKept / target.name);
  if (std::filesystem::is_directory(corpus(""))) {
    for (const auto& path : filesBelow(corpus(""))) {
      if (hasExtension(path, target.extensions)) files.push_back(path);
    }
  }
  NEED_CORPUS(!files.empty(), "no kept findings and no corpus for " + std::string(target.name));
  for (const auto& path : files) {
    const std::vector<uint8_t> bytes = ReadFile(path);
    EXPECT_EQ(target.body(bytes.data(), bytes.size()), 0) << path;
  }
}

const std::vector<std::string> kPictureExtensions = {"jpg", "jpeg", "png", "tif", "tiff", "gif",
                                                     "bmp", "dib", "ico",  "cur", "emf", "wmf"};

INSTANTIATE_TEST_SUITE_P(
    Targets, FuzzInputs,
    ::testing::Values(
        Target{"probe", fuzz::fuzzProbe, kPictureExtensions},
        Target{"jpeg", fuzz::fuzzJpeg, {"jpg", "jpeg"}}, Target{"png", fuzz::fuzzPng, {"png"}},
        Target{"tiff", fuzz::fuzzTiff, {"tif", "tiff"}}, Target{"gif", fuzz::fuzzGif, {"gif"}},
        Target{"bmp", fuzz::fuzzBmp, {"bmp", "dib"}}, Target{"ico", fuzz::fuzzIco, {"ico", "cur"}},
        Target{"dib", fuzz::fuzzDib, {"bmp", "dib"}},
        Target{"icondata", fuzz::fuzzIconData, {"ico", "cur"}},
        Target{"linklist", fuzz::fuzzLinkList, {}},  // its seed only
        Target{"settings", fuzz::fuzzSettings, {}},  // its seed only
        Target{"giffile", fuzz::fuzzGifFile, {"gif"}},
        Target{"gifstrip", fuzz::fuzzGifStrip, {"gif"}}, Target{"wmf", fuzz::fuzzWmf, {"wmf"}},
        Target{"emf", fuzz::fuzzEmf, {"emf"}}, Target{"exif", fuzz::fuzzExif, {"tif", "tiff"}},
        Target{"pngtext", fuzz::fuzzPngText, {"png"}},
        // Its seeds only: the picture tests take the corpus through the same loaders.
        Target{"picture", fuzz::fuzzPicture, {}}),
    [](const auto& info) { return std::string(info.param.name); });

// What each kept finding gives once fixed; nullopt: it reads.
struct Finding {
  const char* file;  // below tests/data/fuzz
  std::optional<Error> probe;
  std::optional<Error> decode;
};

const Finding kFindings[] = {
    {"tiff/BitsTimesSamplesOverflow.tif", Error::kCorrupt, Error::kCorrupt},
    {"ico/PngTextChunkLength.ico", std::nullopt, Error::kTruncated},
    {"giffile/ApplicationOfNoBytes.gif", std::nullopt, Error::kTruncated},
    // A polygon reaching millions of pixels beyond the picture took seconds to anti-alias.
    {"emf/FarReachingPolygon.emf", std::nullopt, std::nullopt},
    // Bounds whose left edge is the smallest 32-bit number, negated when placing the picture.
    {"emf/LeftmostBounds.emf", std::nullopt, Error::kCorrupt},
    {"pngtext/TextChunkLength.png", std::nullopt, Error::kCorrupt},
};

class FuzzFindings : public ::testing::TestWithParam<Finding> {};

TEST_P(FuzzFindings, GiveTheirFixedAnswer) {
  const Finding& finding = GetParam();
  const std::vector<uint8_t> bytes = ReadFile(kKept / finding.file);
  ASSERT_FALSE(bytes.empty()) << finding.file;
  const auto info = probe(bytes);
  EXPECT_EQ(info ? std::nullopt : std::optional(info.error()), finding.probe);
  const auto decoded = decode(bytes);
  EXPECT_EQ(decoded ? std::nullopt : std::optional(decoded.error()), finding.decode);
}

INSTANTIATE_TEST_SUITE_P(Kept, FuzzFindings, ::testing::ValuesIn(kFindings), [](const auto& info) {
  return std::filesystem::path(info.param.file).stem().string();
});

TEST(FuzzFindings, EachKeptFileHasItsAnswer) {
  for (const auto& path : filesBelow(kKept)) {
    if (path.stem() == "Seed") continue;  // found nothing, so has no answer to keep
    const std::string file = path.lexically_relative(kKept).generic_string();
    EXPECT_TRUE(std::any_of(std::begin(kFindings), std::end(kFindings),
                            [&](const Finding& f) { return file == f.file; }))
        << file << " is kept without an answer in kFindings";
  }
}

}  // namespace
}  // namespace vellumry::codecs
