// The player on GIFs made at run time: where frames land for each stretch mode, what the canvas
// shows after transparency and each disposal, and the read-outs' limits. The driver script
// gif.drive shows its clock and its states through a whole run in the GIF window.
#include <filesystem>
#include <fstream>

#include "codecs/TestImages.h"
#include "gif/PlayerHost.h"

namespace vellumry {
namespace {

using codecs::testing::GifFrameSpec;

constexpr uint32_t kUntouched = 0, kRed = 0xFFFF0000, kGreen = 0xFF00FF00, kBlue = 0xFF0000FF,
                   kGrey = 0xFF808080, kWhite = 0xFFFFFFFF;

class PlayerTest : public testing::PlayerHost {
 protected:
  // A player of `frames` on a `w` x `h` screen; with the window and the clock when `animated`.
  cGIFViewer& load(int w, int h, const std::vector<GifFrameSpec>& frames, bool animated = true) {
    const std::vector<uint8_t> bytes = codecs::testing::makeAnimatedGif(w, h, frames, 0);
    std::ofstream(path, std::ios::binary) << std::string(bytes.begin(), bytes.end());
    const int32_t count = player.LoadGIF(path.string(), 0, animated ? &window : nullptr,
                                         animated ? &program.runtime.loop() : nullptr);
    EXPECT_EQ(count, int32_t(frames.size()) * (animated ? 1 : -1));
    return player;
  }
  ~PlayerTest() override { std::filesystem::remove(path); }

  std::filesystem::path path = std::filesystem::temp_directory_path() /
                               ("vellumry-player-" + std::to_string(::getpid()) + ".gif");
  testing::Window window;
  cGIFViewer player{program};
};

// A frame of one colour index (of black, red, green, blue).
GifFrameSpec patch(int left, int top, int w, int h, uint8_t index, int disposal = 0,
                   int transparent = -1) {
  return {left, top, w, h, std::vector<uint8_t>(size_t(w * h), index), 0, disposal, transparent};
}

TEST_F(PlayerTest, ScaleToDestinationPlacesTheCanvasAndItsFramesForEachMode) {
  // A 40 x 20 canvas; frame 2 is 10 x 10 at (10, 5).
  load(40, 20, {patch(0, 0, 40, 20, 1), patch(10, 5, 10, 10, 2)}, false);
  struct Row {
    int index, mode;
    gdi::Rect dest, expected;
    float scale;
  } rows[] = {
      {0, 0, {0, 0, 30, 30}, {0, 0, 30, 20}, 1.0f},      // clip cuts the canvas
      {0, 8, {0, 0, 100, 100}, {30, 40, 40, 20}, 1.0f},  // centred at its size
      {0, 3, {0, 0, 100, 100}, {0, 0, 40, 20}, 1.0f},    // shrink only: never enlarged
      {0, 1, {0, 0, 100, 100}, {0, 0, 100, 50}, 2.5f},   // enlarged, aspect kept
      {0, 9, {0, 0, 200, 40}, {60, 0, 80, 40}, 2.0f},    // wide: centred across, fills height
      {0, 11, {0, 0, 20, 20}, {0, 5, 20, 10}, 0.5f},     // shrunk and centred down
      {2, 2, {0, 0, 100, 100}, {0, 0, 100, 100}, 2.5f},  // stretch: a frame fills it all
      {2, 9, {0, 0, 200, 40}, {80, 10, 20, 20}, 2.0f},   // a frame scaled from its corner
      {2, 0, {0, 0, 15, 30}, {10, 5, 5, 10}, 1.0f},      // a frame cut at the edge
      {5, 0, {0, 0, 30, 30}, {0, 0, 30, 20}, 1.0f},      // no such frame: the whole canvas
  };
  for (const Row& r : rows) {
    gdi::Rect d = r.dest;
    float sx = 0, sy = 0;
    player.ScaleToDestination(r.index, d.x, d.y, d.width, d.height, r.mode, sx, sy);
    EXPECT_EQ(d, r.expected) << "frame " << r.index << " mode " << r.mode;
    EXPECT_EQ(sx, r.scale) << "frame " << r.index << " mode " << r.mode;
  }
}

TEST_F(PlayerTest, TheCanvasShowsTransparencyAndEachDisposal) {
  // Green over the whole 2 x 1 canvas, then red at (0, 0) treated as the row says, then blue at
  // (1, 0): what stands at (0, 0) once blue is drawn.
  struct Row {
    const char* what;
    int disposal, transparent, bkgMethod;
    uint32_t expected;
  } rows[] = {
      {"kept", 0, -1, 0, kRed},
      {"kept too", 1, -1, 0, kRed},
      {"background colour", 2, -1, 0, kWhite},
      {"background from a surface", 2, -1, 1, kGrey},
      {"what stood before", 3, -1, 0, kGreen},
      {"transparent: green shows through", 0, 1, 0, kGreen},
  };
  gdi::Surface background(8, 8, gdi::AlphaMode::kOpaque);
  for (uint32_t& p : background.Pixels()) p = kGrey;
  for (const Row& r : rows) {
    cGIFViewer& gif = load(2, 1,
                           {patch(0, 0, 2, 1, 2), patch(0, 0, 1, 1, 1, r.disposal, r.transparent),
                            patch(1, 0, 1, 1, 3)});
    ASSERT_TRUE(
        gif.SetAnimationBkg(r.bkgMethod, {.dc = &background, .color = 0xFFFFFF}, 0, 0, 0, 0, 0));
    gif.setAnimationState(4);  // frame 1 again, now on the canvas
    gif.setAnimationState(3);
    gif.setAnimationState(3);
    ASSERT_EQ(gif.AnimationIndex(), 3);
    EXPECT_EQ(window.surface.pixel(0, 0), r.expected) << r.what;
    EXPECT_EQ(window.surface.pixel(1, 0), kBlue) << r.what;
  }
}

TEST_F(PlayerTest, AFirstTransparentFrameShowsTheColourOpaqueFramesNeedNoCanvasAndAreCutAtItsEdge) {
  cGIFViewer& gif = load(2, 1, {patch(0, 0, 2, 1, 0, 0, 0), patch(0, 0, 2, 1, 3)});
  ASSERT_TRUE(gif.SetAnimationBkg(0, {.color = 0x0000FF}, 1, 1));  // red as 0x00BBGGRR
  gif.setAnimationState(4);
  EXPECT_EQ(window.surface.pixel(1, 1), kRed);
  EXPECT_EQ(window.surface.pixel(0, 0), kUntouched);  // nothing outside the destination

  // Full opaque frames go straight to the window: no background is laid under them.
  cGIFViewer& plain = load(2, 1, {patch(0, 0, 2, 1, 2), patch(0, 0, 2, 1, 3)});
  window.surface = gdi::Surface(8, 8, gdi::AlphaMode::kOpaque);
  ASSERT_TRUE(plain.SetAnimationBkg(0, {.color = 0x0000FF}, 0, 0, 4, 4, 2));
  plain.setAnimationState(4);
  EXPECT_EQ(window.surface.pixel(0, 0), kGreen);  // stretched over the whole 4 x 4
  EXPECT_EQ(window.surface.pixel(3, 3), kGreen);
  EXPECT_EQ(window.surface.pixel(5, 5), kUntouched);

  // Unscaled, a frame is cut at the destination's edge.
  cGIFViewer& wide = load(4, 1, {patch(0, 0, 4, 1, 2), patch(0, 0, 4, 1, 3)});
  window.surface = gdi::Surface(8, 8, gdi::AlphaMode::kOpaque);
  ASSERT_TRUE(wide.SetAnimationBkg(0, {.color = 0x0000FF}, 0, 0, 2, 1, 0));
  wide.setAnimationState(4);
  EXPECT_EQ(window.surface.pixel(1, 0), kGreen);
  EXPECT_EQ(window.surface.pixel(2, 0), kUntouched);
}

TEST_F(PlayerTest, AWindowThatAsksIsToldOfEachFrameAndTheSurfaceDrawnOn) {
  cGIFViewer& gif = load(2, 1, {patch(0, 0, 2, 1, 2), patch(0, 0, 2, 1, 3)});
  ASSERT_TRUE(gif.SetAnimationBkg(0, {.color = 0xFFFFFF}, 0, 0, 0, 0, 0));
  gif.setAnimationState(4);
  window.postNotify = true;
  gif.setAnimationState(3);
  const auto surface = reinterpret_cast<intptr_t>(&window.surface);
  EXPECT_EQ(window.frameDrawn, (std::vector<std::array<intptr_t, 3>>{{2, 0, surface}}));
}

TEST_F(PlayerTest, AStillGifKeepsItsBackground) {
  cGIFViewer& gif = load(2, 1, {patch(0, 0, 2, 1, 0, 0, 0)});
  ASSERT_TRUE(gif.SetAnimationBkg(0, {.color = 0x0000FF}, 1, 1));  // red as 0x00BBGGRR
  gif.setAnimationState(4);
  EXPECT_EQ(window.surface.pixel(1, 1), kRed);  // through the transparent frame
}

TEST_F(PlayerTest, FramesGoOutAsPicturesAndPalettesOfTheirOwn) {
  cGIFViewer& gif = load(2, 1, {patch(0, 0, 2, 1, 2), patch(1, 0, 1, 1, 1, 0, 1)});
  const gdi::Picture bitmap = gif.FrameImage(2, 1);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap.Type(), gdi::PictureType::kBitmap);
  EXPECT_EQ(bitmap.pixelSize(), (gdi::Size{1, 1}));
  const auto asGif = gif.FrameImage(2, 0).Pixels();  // a GIF of its own keeps the transparency
  ASSERT_TRUE(asGif);
  EXPECT_EQ(gdi::alphaOf(asGif->pixel(0, 0)), 0);
  EXPECT_FALSE(gif.FrameImage(0, 1));
  EXPECT_FALSE(gif.FrameImage(3, 1));
  ColorRow palette{};
  gif.FramePalette(1, palette);
  EXPECT_EQ(palette[1], 0xFF0000u);  // red, as the colour table holds it
  gif.FramePalette(3, palette);
  EXPECT_EQ(palette, ColorRow{});
}

TEST_F(PlayerTest, ReadOutsKeepTheirLimits) {
  cGIFViewer& gif = load(2, 1, {patch(0, 0, 2, 1, 2), patch(0, 0, 1, 1, 1)});
  gif.setMinimumDelay(5);
  EXPECT_EQ(gif.MinimumDelay(), 10);
  EXPECT_EQ(gif.FrameProperty(1, 0), 10);  // a delay of 0 takes the least time
  gif.setLoopCount(-1);
  EXPECT_EQ(gif.LoopCount(), 0);
  gif.setLoopCount(65537);
  EXPECT_EQ(gif.LoopCount(), 1);
  EXPECT_EQ(gif.FrameProperty(1, 7), 0);
  EXPECT_EQ(gif.FrameProperty(0, 1), 0);
  EXPECT_EQ(gif.FrameProperty(2, 3), 1);
  EXPECT_EQ(gif.FrameProperty(2, 6), 2);
  gif.setAnimationState(3);
  EXPECT_EQ(gif.AnimationState(), 3);
  gif.setAnimationState(7);  // out of range: stop
  EXPECT_EQ(gif.AnimationState(), 0);
}

}  // namespace
}  // namespace vellumry
