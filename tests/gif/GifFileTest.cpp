// The block walk of ReadGifFile: which frames a damaged or odd file keeps, and what their
// records hold. The corpus cases of ConformanceTest show whole files through the player.
#include <gtest/gtest.h>

#include <array>

#include "gif/GifBytes.h"
#include "gif/GifFile.h"

namespace vellumry {
namespace {

using testing::GifBytes;

std::vector<uint8_t> noData() { return {2, 0}; }  // a code size and at once the terminator

GifBytes twoFrames() { return GifBytes::Screen(4, 4, 1).Image(0, 0, 1, 1).Image(1, 1, 1, 1); }

// No global table; a local one of 2 entries, then one of 2^secondBits (none at 0).
std::vector<uint8_t> localTables(int secondBits) {
  return GifBytes::Screen(4, 4, 0).Image(0, 0, 1, 1, 1).Image(0, 0, 1, 1, secondBits).bytes;
}

TEST(ReadGifFile, KeepsTheFramesBeforeWhereTheWalkEnds) {
  const auto oneFrame = [](const std::string& signature) {
    return GifBytes::Screen(4, 4, 1, signature).Image(0, 0, 1, 1).bytes;
  };
  const auto cut = [](GifBytes gif, size_t keep) {
    gif.bytes.resize(keep);
    return gif.bytes;
  };
  const GifBytes third = twoFrames().control(1, 10, 0).Image(2, 2, 1, 1, 1);
  const size_t image = third.bytes.size() - 21;  // separator, descriptor, table, data
  const struct {
    const char* name;
    std::vector<uint8_t> file;
    int32_t count;
  } cases[] = {
      {"capital signature", oneFrame("GIF89A"), 1},
      {"lower-case signature", oneFrame("gif87a"), 1},
      {"unknown version", oneFrame("GIF88a"), 0},
      {"an image without any table gives up the frames before", localTables(0), 0},
      {"cut in the third frame's data", cut(third, third.bytes.size() - 2), 2},
      {"cut in its table", cut(third, image + 12), 2},
      {"cut in its descriptor", cut(third, image + 6), 2},
      {"cut in its graphic control", cut(third, image - 3), 2},
      {"no trailer", twoFrames().bytes, 2},
      {"a stray byte ends the walk", twoFrames().byte(0x99).Image(0, 0, 1, 1).bytes, 2},
      {"nul bytes between blocks", twoFrames().byte(0).byte(0).Image(0, 0, 1, 1).bytes, 3},
      {"an image without data is a frame",
       twoFrames().Image(0, 0, 1, 1, 0, noData()).Image(0, 0, 1, 1).bytes, 4},
      {"global table cut", cut(GifBytes::Screen(4, 4, 8), 400), 0},
  };
  for (const auto& c : cases) {
    GifFile gif;
    EXPECT_EQ(ReadGifFile(c.file, gif), c.count) << c.name;
    EXPECT_EQ(gif.m_Frames.size(), size_t(c.count)) << c.name;
    EXPECT_EQ(gif.m_Spans.size(), size_t(c.count)) << c.name;
  }
}

// Left, Top, Width, Height, Delay, PaletteRow, StripX, TransIndex, HasTrans, Disposal.
using Record = std::array<int32_t, 10>;
Record Fields(const GifFrame& f) {
  return {f.Left,       f.Top,    f.Width,      f.Height,   f.Delay,
          f.PaletteRow, f.StripX, f.TransIndex, f.HasTrans, f.Disposal};
}

TEST(ReadGifFile, AFramesRecordHoldsTheBlocksBeforeItsImage) {
  const struct {
    const char* name;
    GifBytes blocks;  // behind a first frame, from position 35 on
    Record expected;  // the last frame's
  } cases[] = {
      {"without control", GifBytes{}.Image(1, 2, 3, 4), {1, 2, 3, 4, 0, 0, 35, 0, 0, 0}},
      {"a control, then a comment, still belongs to the image",
       GifBytes{}.control(2 << 2 | 1, 7, 3).comment("hi").Image(1, 2, 3, 4),
       {1, 2, 3, 4, 70, 0, 35, 3, 1, 2}},
      {"the second control wins",
       GifBytes{}.control(3 << 2 | 1, 5, 9).control(1 << 2, 9).Image(0, 0, 2, 2),
       {0, 0, 2, 2, 90, 0, 43, 0, 0, 1}},
      {"disposal 4 folds to 0",
       GifBytes{}.control(4 << 2, 0).Image(0, 0, 2, 2),
       {0, 0, 2, 2, 0, 0, 35, 0, 0, 0}},
      {"disposal 7 folds to 3",
       GifBytes{}.control(7 << 2, 65535).Image(0, 0, 2, 2),
       {0, 0, 2, 2, 655350, 0, 35, 0, 0, 3}},
      {"an image without data keeps its control",
       GifBytes{}.control(1 << 2 | 1, 4, 6).Image(0, 0, 1, 1, 0, noData()),
       {0, 0, 1, 1, 40, 0, 35, 6, 1, 1}},
  };
  for (const auto& c : cases) {
    GifBytes file = GifBytes::Screen(16, 16, 1).Image(0, 0, 1, 1);
    ASSERT_EQ(file.next(), 35);
    file.bytes.insert(file.bytes.end(), c.blocks.bytes.begin(), c.blocks.bytes.end());
    GifFile gif;
    ASSERT_GE(ReadGifFile(file.bytes, gif), 2) << c.name;
    EXPECT_EQ(Fields(gif.m_Frames.back()), c.expected) << c.name;
  }
}

TEST(ReadGifFile, TheLoopCountComesFromTheLoopingExtensionAlone) {
  const struct {
    std::string identifier;
    std::vector<uint8_t> subBlock;
    int32_t loops;
  } cases[] = {
      {"NetScape2.0", {1, 0xFF, 0xFF}, 65535},  // in any mix of cases
      {"NETSCAPE2.0", {1, 3, 0, 0, 0}, 0},      // a sub-block of five
      {"ANIMEXTS1.0", {1, 3, 0}, 0},
      {"", {1, 3, 0}, 0},
  };
  for (const auto& c : cases) {
    GifFile gif;
    const GifBytes file =
        GifBytes::Screen(4, 4, 1).application(c.identifier, c.subBlock).Image(0, 0, 1, 1);
    EXPECT_EQ(ReadGifFile(file.bytes, gif), 1) << "the walk goes on behind the extension";
    EXPECT_EQ(gif.m_LoopCount, c.loops) << c.identifier << " " << c.subBlock.size();
  }
}

TEST(ReadGifFile, KeepsEveryColourTableInItsRow) {
  GifFile gif;
  ASSERT_EQ(ReadGifFile(localTables(2), gif), 2);
  EXPECT_EQ(gif.m_PalTop, 2);
  ASSERT_EQ(gif.m_Palettes.size(), 3u);
  EXPECT_EQ(gif.m_Palettes[0], ColorRow{}) << "no global table";
  EXPECT_EQ(gif.m_Frames[1].PaletteRow, 2);
  EXPECT_EQ(gif.m_Palettes[1][2], 0u) << "past a table of 2 entries";
  EXPECT_EQ(gif.m_Palettes[2][3], 0xFC0003u);  // (255 - i, 0, i)
}

TEST(ReadGifFile, TheCanvasIsTheFramesBoundingBoxNotTheScreen) {
  GifFile gif;
  ASSERT_EQ(ReadGifFile(testing::sampleAnimation().bytes, gif), 3);
  EXPECT_EQ(gif.m_Width, 9);  // frame 3 of 4 x 1 at (5, 5), on a screen of 2 x 2
  EXPECT_EQ(gif.m_Height, 6);
  ASSERT_EQ(ReadGifFile(GifBytes::Screen(4, 4, 1).Image(0, 0, 1, 2).bytes, gif), 1);
  EXPECT_EQ(gif.m_Width, 1);
  EXPECT_EQ(gif.m_Height, 2);
}

TEST(ReadGifFile, SpansAndScreenFields) {
  GifBytes file = GifBytes::Screen(4, 4, 1, "GIF89a", 7).control(3 << 2, 0);
  const int32_t image = file.next();
  file.Image(0, 0, 1, 1, 1).trailer();
  GifFile gif;
  ASSERT_EQ(ReadGifFile(file.bytes, gif), 1);
  EXPECT_EQ(gif.m_Spans[0].Offset, image);
  EXPECT_EQ(gif.m_Spans[0].Length, 10 + 6 + 5);  // descriptor, table of 2, data
  EXPECT_EQ(gif.m_BkgIndex, 7);
  EXPECT_EQ(gif.m_HasRestore, 1);
}

TEST(ReadGifFile, AMissingFileGivesNoFrames) {
  GifFile gif;
  ASSERT_EQ(ReadGifFile(twoFrames().bytes, gif), 2);
  EXPECT_EQ(ReadGifFile("/nonexistent/vellumry.gif", gif), 0);
  EXPECT_TRUE(gif.m_Frames.empty()) << "the last file's frames are gone";
}

}  // namespace
}  // namespace vellumry
