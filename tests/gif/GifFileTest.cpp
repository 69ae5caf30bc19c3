// The block walk of ReadGifFile: which frames a damaged or odd file keeps, and what their
// records hold.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <tuple>

#include "gif/GifBytes.h"
#include "gif/GifFile.h"

namespace vellumry {

bool operator==(const GifFrame& a, const GifFrame& b) {
  const auto fields = [](const GifFrame& f) {
    return std::tie(f.Left, f.Top, f.Width, f.Height, f.Delay, f.PaletteRow, f.StripX, f.TransIndex,
                    f.HasTrans, f.Disposal);
  };
  return fields(a) == fields(b);
}

void PrintTo(const GifFrame& f, std::ostream* os) {
  *os << "{" << f.Left << "," << f.Top << "," << f.Width << "," << f.Height << " delay " << f.Delay
      << " row " << f.PaletteRow << " at " << f.StripX << " trans " << int(f.HasTrans) << ":"
      << int(f.TransIndex) << " disposal " << int(f.Disposal) << "}";
}

namespace {

using testing::GifBytes;
using testing::OnePixelData;

std::vector<uint8_t> NoData() { return {2, 0}; }  // a code size and at once the terminator

GifBytes TwoFrames() {
  return GifBytes::Screen(4, 4, 1)
      .Image(0, 0, 1, 1, 0, OnePixelData())
      .Image(1, 1, 1, 1, 0, OnePixelData());
}

std::vector<uint8_t> OneFrame(const std::string& signature) {
  return GifBytes::Screen(4, 4, 1, signature).Image(0, 0, 1, 1, 0, OnePixelData()).bytes;
}

// No global table; a local one of 2 entries, then one of 2^secondBits (none at 0).
std::vector<uint8_t> LocalTables(int secondBits) {
  return GifBytes::Screen(4, 4, 0)
      .Image(0, 0, 1, 1, 1, OnePixelData())
      .Image(0, 0, 1, 1, secondBits, OnePixelData())
      .Trailer()
      .bytes;
}

std::vector<uint8_t> Cut(GifBytes gif, size_t keep) {
  gif.bytes.resize(keep);
  return gif.bytes;
}

struct CountCase {
  const char* name;
  std::vector<uint8_t> file;
  int32_t count;
};

class FrameCount : public ::testing::TestWithParam<CountCase> {};

TEST_P(FrameCount, IsWhatTheWalkKeeps) {
  GifFile gif;
  EXPECT_EQ(ReadGifFile(GetParam().file, gif), GetParam().count);
  EXPECT_EQ(gif.m_Frames.size(), size_t(GetParam().count));
  EXPECT_EQ(gif.m_Spans.size(), size_t(GetParam().count));
}

const GifBytes kThird = TwoFrames().Control(1, 10, 0).Image(2, 2, 1, 1, 1, OnePixelData());
const size_t kThirdImage = kThird.bytes.size() - 21;  // separator, descriptor, table, data

INSTANTIATE_TEST_SUITE_P(
    Files, FrameCount,
    ::testing::Values(
        CountCase{"CapitalSignature", OneFrame("GIF89A"), 1},
        CountCase{"LowerCaseSignature", OneFrame("gif87a"), 1},
        CountCase{"UnknownVersion", OneFrame("GIF88a"), 0},
        CountCase{"LocalTablesOnly", LocalTables(2), 2},
        CountCase{"ImageWithoutAnyTableGivesUpEarlierFrames", LocalTables(0), 0},
        CountCase{"CutInThirdFramesData", Cut(kThird, kThird.bytes.size() - 2), 2},
        CountCase{"CutInThirdFramesTable", Cut(kThird, kThirdImage + 12), 2},
        CountCase{"CutInThirdFramesDescriptor", Cut(kThird, kThirdImage + 6), 2},
        CountCase{"CutInThirdFramesControl", Cut(kThird, kThirdImage - 3), 2},
        CountCase{"NoTrailer", TwoFrames().bytes, 2},
        CountCase{"StrayByteEndsTheWalk",
                  TwoFrames().Byte(0x99).Image(0, 0, 1, 1, 0, OnePixelData()).Trailer().bytes, 2},
        CountCase{"NulBytesBetweenBlocks",
                  TwoFrames().Byte(0).Byte(0).Image(0, 0, 1, 1, 0, OnePixelData()).bytes, 3},
        CountCase{
            "ImageWithoutDataDropped",
            TwoFrames().Image(0, 0, 1, 1, 0, NoData()).Image(0, 0, 1, 1, 0, OnePixelData()).bytes,
            3},
        CountCase{"GlobalTableCut", Cut(GifBytes::Screen(4, 4, 8), 400), 0}),
    [](const auto& info) { return std::string(info.param.name); });

struct RecordCase {
  const char* name;
  GifBytes blocks;    // behind a first frame, from position 35 on
  GifFrame expected;  // the last frame's record
};

class FrameRecord : public ::testing::TestWithParam<RecordCase> {};

TEST_P(FrameRecord, HoldsTheBlocksBeforeItsImage) {
  GifBytes file = GifBytes::Screen(16, 16, 1).Image(0, 0, 1, 1, 0, OnePixelData());
  ASSERT_EQ(file.Next(), 35);
  file.bytes.insert(file.bytes.end(), GetParam().blocks.bytes.begin(),
                    GetParam().blocks.bytes.end());
  GifFile gif;
  ASSERT_GE(ReadGifFile(file.bytes, gif), 2);
  EXPECT_EQ(gif.m_Frames.back(), GetParam().expected);
}

// Left, Top, Width, Height, Delay, PaletteRow, StripX, TransIndex, HasTrans, Disposal.
INSTANTIATE_TEST_SUITE_P(
    Controls, FrameRecord,
    ::testing::Values(
        RecordCase{"WithoutControl",
                   GifBytes{}.Image(1, 2, 3, 4, 0, OnePixelData()),
                   {1, 2, 3, 4, 0, 0, 35, 0, 0, 0}},
        RecordCase{
            "ControlThenCommentStillBelongsToTheImage",
            GifBytes{}.Control(2 << 2 | 1, 7, 3).Comment("hi").Image(1, 2, 3, 4, 0, OnePixelData()),
            {1, 2, 3, 4, 70, 0, 35, 3, 1, 2}},
        RecordCase{"SecondControlWins",
                   GifBytes{}
                       .Control(3 << 2 | 1, 5, 9)
                       .Control(1 << 2, 9)
                       .Image(0, 0, 2, 2, 0, OnePixelData()),
                   {0, 0, 2, 2, 90, 0, 43, 0, 0, 1}},
        RecordCase{"DisposalFourFoldsToZero",
                   GifBytes{}.Control(4 << 2, 0).Image(0, 0, 2, 2, 0, OnePixelData()),
                   {0, 0, 2, 2, 0, 0, 35, 0, 0, 0}},
        RecordCase{"DisposalSevenFoldsToThree",
                   GifBytes{}.Control(7 << 2, 65535).Image(0, 0, 2, 2, 0, OnePixelData()),
                   {0, 0, 2, 2, 655350, 0, 35, 0, 0, 3}},
        RecordCase{"IndexWithoutTransparencyFlagNotTaken",
                   GifBytes{}.Control(0, 1, 9).Image(0, 0, 2, 2, 0, OnePixelData()),
                   {0, 0, 2, 2, 10, 0, 35, 0, 0, 0}},
        RecordCase{"DroppedFramesControlDoesNotCarryOver",
                   GifBytes{}
                       .Control(1 << 2 | 1, 4, 6)
                       .Image(0, 0, 1, 1, 0, NoData())
                       .Image(0, 0, 2, 2, 1, OnePixelData()),
                   {0, 0, 2, 2, 0, 1, 55, 0, 0, 0}}),
    [](const auto& info) { return std::string(info.param.name); });

struct LoopCase {
  const char* name;
  std::string identifier;
  std::vector<uint8_t> subBlock;
  int32_t loopCount;
};

class LoopCount : public ::testing::TestWithParam<LoopCase> {};

TEST_P(LoopCount, ComesFromTheLoopingExtension) {
  const LoopCase& c = GetParam();
  const auto file = GifBytes::Screen(4, 4, 1)
                        .Application(c.identifier, c.subBlock)
                        .Image(0, 0, 1, 1, 0, OnePixelData())
                        .Trailer();
  GifFile gif;
  EXPECT_EQ(ReadGifFile(file.bytes, gif), 1) << "the walk goes on behind the extension";
  EXPECT_EQ(gif.m_LoopCount, c.loopCount);
}

INSTANTIATE_TEST_SUITE_P(Extensions, LoopCount,
                         ::testing::Values(LoopCase{"Upper", "NETSCAPE2.0", {1, 2, 0}, 2},
                                           LoopCase{"Lower", "netscape2.0", {1, 3, 0}, 3},
                                           LoopCase{"Mixed", "NetScape2.0", {1, 0xFF, 0xFF}, 65535},
                                           LoopCase{
                                               "SubBlockOfFive", "NETSCAPE2.0", {1, 3, 0, 0, 0}, 0},
                                           LoopCase{"OtherIdentifier", "ANIMEXTS1.0", {1, 3, 0}, 0},
                                           LoopCase{"EmptyIdentifier", "", {1, 3, 0}, 0}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ReadGifFile, KeepsEveryColourTableInItsRow) {
  GifFile gif;
  ASSERT_EQ(ReadGifFile(LocalTables(2), gif), 2);
  EXPECT_EQ(gif.m_PalTop, 2);
  ASSERT_EQ(gif.m_Palettes.size(), 3u);
  EXPECT_EQ(gif.m_Palettes[0], ColorRow{}) << "no global table";
  EXPECT_EQ(gif.m_Frames[0].PaletteRow, 1);
  EXPECT_EQ(gif.m_Frames[1].PaletteRow, 2);
  EXPECT_EQ(gif.m_Palettes[1][1], 0xFE0001u);  // (255 - i, 0, i)
  EXPECT_EQ(gif.m_Palettes[1][2], 0u) << "past a table of 2 entries";
  EXPECT_EQ(gif.m_Palettes[2][3], 0xFC0003u);

  ASSERT_EQ(ReadGifFile(TwoFrames().bytes, gif), 2);
  EXPECT_EQ(gif.m_PalTop, 0);
  EXPECT_EQ(gif.m_Palettes.at(0)[1], 0x010203u);  // (i, 2i, 3i)
}

TEST(ReadGifFile, CanvasIsTheFramesBoundingBox) {
  GifFile gif;
  ASSERT_EQ(ReadGifFile(GifBytes::Screen(100, 100, 1)
                            .Image(0, 0, 10, 10, 0, OnePixelData())
                            .Image(5, 20, 10, 10, 0, OnePixelData())
                            .bytes,
                        gif),
            2);
  EXPECT_EQ(gif.m_Width, 15);
  EXPECT_EQ(gif.m_Height, 30);
  ASSERT_EQ(ReadGifFile(GifBytes::Screen(4, 4, 1).Image(3, 3, 5, 6, 0, OnePixelData()).bytes, gif),
            1);
  EXPECT_EQ(gif.m_Width, 8);
  EXPECT_EQ(gif.m_Height, 9);
}

TEST(ReadGifFile, SpansAndScreenFields) {
  GifBytes file = GifBytes::Screen(4, 4, 1, "GIF89a", 7).Control(3 << 2, 0);
  const int32_t image = file.Next();
  file.Image(0, 0, 1, 1, 1, OnePixelData()).Trailer();
  GifFile gif;
  ASSERT_EQ(ReadGifFile(file.bytes, gif), 1);
  EXPECT_EQ(gif.m_Spans[0].Offset, image);
  EXPECT_EQ(gif.m_Spans[0].Length, 10 + 6 + 5);  // descriptor, table of 2, data
  EXPECT_EQ(gif.m_BkgIndex, 7);
  EXPECT_EQ(gif.m_HasRestore, 1);
}

TEST(ReadGifFile, ReadsFromAFile) {
  const auto path = std::filesystem::temp_directory_path() / "vellumry-read-gif-file.gif";
  const auto bytes = TwoFrames().Trailer().bytes;
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
  GifFile gif;
  EXPECT_EQ(ReadGifFile(path.string(), gif), 2);
  EXPECT_EQ(gif.m_FileData, bytes) << "kept for the strip";
  std::filesystem::remove(path);
  EXPECT_EQ(ReadGifFile(path.string(), gif), 0);
  EXPECT_TRUE(gif.m_Frames.empty());
}

}  // namespace
}  // namespace vellumry
