// BuildStrip: every frame's raw colour indices side by side in one 8-bit strip.
#include <gtest/gtest.h>

#include <utility>

#include "gif/FrameStrip.h"
#include "gif/GifBytes.h"

namespace vellumry {
namespace {

using testing::kSampleRows;

struct Loaded {
  GifFile gif;
  FrameStrip strip;
};

Loaded Load(const std::vector<uint8_t>& file, const StripProgress& progress = {}) {
  Loaded out;
  EXPECT_GT(ReadGifFile(file, out.gif), 0);
  EXPECT_TRUE(BuildStrip(out.gif, out.strip, progress));
  return out;
}

// The frame's indices as they stand in the strip.
std::vector<uint8_t> StripRows(const Loaded& loaded, int frame) {
  const GifFrame& f = loaded.gif.m_Frames[frame];
  std::vector<uint8_t> rows;
  for (int y = 0; y < f.Height; ++y) {
    for (int x = 0; x < f.Width; ++x) rows.push_back(loaded.strip.m_Strip.Index(f.StripX + x, y));
  }
  return rows;
}

TEST(BuildStrip, FramesStandSideBySideAsRawIndices) {
  const Loaded loaded = Load(testing::SampleAnimation().bytes);
  const gdi::IndexedSurface& strip = loaded.strip.m_Strip;
  ASSERT_EQ(strip.Width(), 3 + 2 + 4);
  ASSERT_EQ(strip.Height(), 4);
  const int expectedX[] = {0, 3, 5};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(loaded.gif.m_Frames[i].StripX, expectedX[i]);
    // Frame 2 is interlaced and has a local table of 2; frame 3's transparent 7 stays a 7.
    EXPECT_EQ(StripRows(loaded, i), kSampleRows[i]) << "frame " << i + 1;
  }
  for (const auto& [x, y] : {std::pair{0, 2}, {2, 3}, {5, 1}, {8, 3}}) {
    EXPECT_EQ(strip.Index(x, y), 0) << "below a shorter frame at " << x << "," << y;
  }
  EXPECT_EQ(strip.Colors(), gdi::IndexedSurface::IdentityTable());
  EXPECT_EQ(loaded.gif.m_PalTop, -1);
  EXPECT_EQ(loaded.strip.m_Mask, gdi::IndexedSurface::ColorTable{}) << "frame 3 is transparent";
}

TEST(BuildStrip, NoMaskWithoutTransparency) {
  const auto file = testing::GifBytes::Screen(2, 2, 8)
                        .Image(0, 0, 3, 2, 0, testing::EncodedData(3, 2, kSampleRows[0]))
                        .bytes;
  EXPECT_FALSE(Load(file).strip.m_Mask.has_value());
}

TEST(BuildStrip, UndecodableFrameIsAGapOfIndexZero) {
  const std::vector<uint8_t> badCodeSize = {12, 2, 0xFF, 0xFF, 0};
  const auto file = testing::GifBytes::Screen(2, 2, 8)
                        .Image(0, 0, 3, 2, 0, testing::EncodedData(3, 2, kSampleRows[0]))
                        .Image(0, 0, 2, 2, 0, badCodeSize)
                        .Image(0, 0, 4, 1, 0, testing::EncodedData(4, 1, kSampleRows[2]))
                        .bytes;
  const Loaded loaded = Load(file);
  EXPECT_EQ(StripRows(loaded, 1), std::vector<uint8_t>(4, 0));
  EXPECT_EQ(StripRows(loaded, 2), kSampleRows[2]) << "the frames behind it are in place";
}

TEST(BuildStrip, ReportsProgressAndShowsTheFirstFrameEarly) {
  std::vector<std::pair<int, int>> loadedFrames;
  int firstFrameCalls = 0;
  Loaded loaded;
  StripProgress progress;
  progress.FirstFrame = [&] {
    ++firstFrameCalls;
    EXPECT_TRUE(loadedFrames.empty()) << "before frame 1's progress";
    EXPECT_EQ(loaded.gif.m_Frames[0].StripX, 0);
    EXPECT_EQ(loaded.strip.m_Strip.Index(2, 1), 15) << "frame 1 is in the strip";
    // Showing the frame loads its colours into the strip's table.
    loaded.strip.m_Strip.SetColors({0xFF0000});
    loaded.gif.m_PalTop = 0;
  };
  progress.FrameLoaded = [&](int32_t frame, int32_t percent) {
    loadedFrames.emplace_back(frame, percent);
  };
  ASSERT_EQ(ReadGifFile(testing::SampleAnimation().bytes, loaded.gif), 3);
  ASSERT_TRUE(BuildStrip(loaded.gif, loaded.strip, progress));
  EXPECT_EQ(firstFrameCalls, 1);
  EXPECT_EQ(loadedFrames, (std::vector<std::pair<int, int>>{{1, 33}, {2, 66}, {3, 100}}));
  EXPECT_EQ(loaded.strip.m_Strip.Colors(), gdi::IndexedSurface::IdentityTable());
  EXPECT_EQ(loaded.gif.m_PalTop, -1);
}

}  // namespace
}  // namespace vellumry
