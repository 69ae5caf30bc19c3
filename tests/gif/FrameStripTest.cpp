// BuildStrip: every frame's raw colour indices side by side in one 8-bit strip; and the frames
// given back out as pictures and palettes.
#include <gtest/gtest.h>

#include <utility>

#include "gif/FrameExport.h"
#include "gif/GifBytes.h"

namespace vellumry {
namespace {

using testing::encodedData;
using testing::kSampleRows;

struct Loaded {
  GifFile gif;
  FrameStrip strip;
  // The indices of frame `n` (from 0) as they stand in the strip.
  std::vector<uint8_t> rows(int n) const {
    const GifFrame& f = gif.m_Frames[n];
    std::vector<uint8_t> out;
    for (int y = 0; y < f.Height; ++y)
      for (int x = 0; x < f.Width; ++x) out.push_back(strip.m_Strip.Index(f.StripX + x, y));
    return out;
  }
};

Loaded Load(const std::vector<uint8_t>& file = testing::sampleAnimation().bytes) {
  Loaded out;
  EXPECT_GT(ReadGifFile(file, out.gif), 0);
  EXPECT_TRUE(BuildStrip(out.gif, out.strip));
  return out;
}

TEST(BuildStrip, FramesStandSideBySideAsRawIndices) {
  const Loaded loaded = Load();
  const gdi::IndexedSurface& strip = loaded.strip.m_Strip;
  ASSERT_EQ(strip.Width(), 3 + 2 + 4);
  ASSERT_EQ(strip.Height(), 4);
  const int expectedX[] = {0, 3, 5};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(loaded.gif.m_Frames[i].StripX, expectedX[i]);
    // Frame 2 is interlaced and has a local table of 2; frame 3's transparent 7 stays a 7.
    EXPECT_EQ(loaded.rows(i), kSampleRows[i]) << "frame " << i + 1;
  }
  for (const auto& [x, y] : {std::pair{0, 2}, {2, 3}, {5, 1}, {8, 3}})
    EXPECT_EQ(strip.Index(x, y), 0) << "below a shorter frame at " << x << "," << y;
  EXPECT_EQ(loaded.strip.m_Mask, gdi::IndexedSurface::ColorTable{}) << "frame 3 is transparent";
}

TEST(BuildStrip, AnUndecodableFrameIsAGapOfIndexZero) {
  const std::vector<uint8_t> badCodeSize = {12, 2, 0xFF, 0xFF, 0};
  const Loaded loaded = Load(testing::GifBytes::Screen(2, 2, 8)
                                 .Image(0, 0, 3, 2, 0, encodedData(kSampleRows[0]))
                                 .Image(0, 0, 2, 2, 0, badCodeSize)
                                 .Image(0, 0, 4, 1, 0, encodedData(kSampleRows[2]))
                                 .bytes);
  EXPECT_EQ(loaded.rows(1), std::vector<uint8_t>(4, 0));
  EXPECT_EQ(loaded.rows(2), kSampleRows[2]) << "the frames behind it are in place";
  EXPECT_FALSE(loaded.strip.m_Mask.has_value()) << "no frame is transparent: no mask";
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
    loaded.strip.m_Strip.setColors({0xFF0000});
    loaded.gif.m_PalTop = 0;
  };
  progress.FrameLoaded = [&](int32_t frame, int32_t percent) {
    loadedFrames.emplace_back(frame, percent);
  };
  ASSERT_EQ(ReadGifFile(testing::sampleAnimation().bytes, loaded.gif), 3);
  ASSERT_TRUE(BuildStrip(loaded.gif, loaded.strip, progress));
  EXPECT_EQ(firstFrameCalls, 1);
  EXPECT_EQ(loadedFrames, (std::vector<std::pair<int, int>>{{1, 33}, {2, 66}, {3, 100}}));
  EXPECT_EQ(loaded.strip.m_Strip.colors(), gdi::IndexedSurface::identityTable());
  EXPECT_EQ(loaded.gif.m_PalTop, -1);
}

TEST(FrameImage, GivesTheFrameInItsOwnColours) {
  const Loaded loaded = Load();
  const auto bitmap = FrameImage(loaded.gif, loaded.strip, 2, 1).Pixels();
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->dimensions(), (gdi::Size{2, 4}));
  EXPECT_EQ(bitmap->pixel(0, 1), 0xFFFE0001u) << "index 1 of its local table (255 - i, 0, i)";
  EXPECT_EQ(bitmap->pixel(1, 1), 0xFFFF0000u) << "index 0 of its local table";
  // As a GIF, the transparent index stays transparent; the others take the global table's
  // (i, 2i, 3i).
  const auto gif = FrameImage(loaded.gif, loaded.strip, 3, 0).Pixels();
  ASSERT_TRUE(gif);
  EXPECT_EQ(gdi::alphaOf(gif->pixel(0, 0)), 0);
  EXPECT_EQ(gif->pixel(1, 0), gdi::argb(255, 200, 144, 88));
  EXPECT_EQ(gif->pixel(3, 0), gdi::argb(255, 255, 254, 253));
  for (const int index : {0, 4, -1}) EXPECT_FALSE(FrameImage(loaded.gif, loaded.strip, index, 1));
}

TEST(FramePalette, CopiesTheFramesRowOrZeros) {
  const Loaded loaded = Load();
  ColorRow palette;
  FramePalette(loaded.gif, 2, palette);
  EXPECT_EQ(palette[0], 0xFF0000u);
  EXPECT_EQ(palette[1], 0xFE0001u);
  FramePalette(loaded.gif, 4, palette);
  EXPECT_EQ(palette, ColorRow{});
}

}  // namespace
}  // namespace vellumry
