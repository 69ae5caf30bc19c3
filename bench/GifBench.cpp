// Load time of an animated GIF as the player loads it (the block walk, then every frame decoded
// into the strip) against giflib's own DGifSlurp of the same file, and what each keeps in memory.
// The file, 640 x 480 with 200 full frames, is written by giflib at start-up.
#include <benchmark/benchmark.h>
#include <gif_lib.h>

#include <filesystem>
#include <string>
#include <vector>

#include "gif/FrameStrip.h"
#include "gif/GifFile.h"

using namespace vellumry;

namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;
constexpr int kFrames = 200;

// A pattern that moves a little from frame to frame, with a noisy band so that the codes don't
// run too long.
uint8_t pixel(int x, int y, int frame) {
  const uint32_t noise = (uint32_t(x * 31 + y * 17 + frame) * 2654435761u) >> 28;
  return static_cast<uint8_t>(((x ^ y) >> 2) + frame * 3 + (y % 96 < 24 ? noise : 0));
}

const std::string& animationFile() {
  static const std::string path = [] {
    const auto file = std::filesystem::temp_directory_path() / "vellumry-gif-bench.gif";
    int error = 0;
    GifFileType* gif = EGifOpenFileName(file.c_str(), false, &error);
    std::vector<GifColorType> colors(256);
    for (int i = 0; i < 256; ++i) colors[i] = {uint8_t(i), uint8_t(255 - i), uint8_t(i * 7)};
    ColorMapObject* map = GifMakeMapObject(256, colors.data());
    EGifSetGifVersion(gif, true);
    EGifPutScreenDesc(gif, kWidth, kHeight, 8, 0, map);
    const GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 4, NO_TRANSPARENT_COLOR};
    GifByteType extension[4];
    std::vector<GifPixelType> row(kWidth);
    for (int frame = 0; frame < kFrames; ++frame) {
      EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE,
                       static_cast<int>(EGifGCBToExtension(&control, extension)), extension);
      EGifPutImageDesc(gif, 0, 0, kWidth, kHeight, false, nullptr);
      for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) row[x] = pixel(x, y, frame);
        EGifPutLine(gif, row.data(), kWidth);
      }
    }
    EGifCloseFile(gif, &error);
    GifFreeMapObject(map);
    return file.string();
  }();
  return path;
}

void setFileCounters(benchmark::State& state, double keptBytes) {
  state.counters["file MB"] =
      static_cast<double>(std::filesystem::file_size(animationFile())) / 1e6;
  state.counters["kept MB"] = keptBytes / 1e6;
}

void BM_ReadGifFileAndBuildStrip(benchmark::State& state) {
  animationFile();  // written before the clock runs
  double kept = 0;
  for (auto _ : state) {
    GifFile gif;
    FrameStrip strip;
    if (ReadGifFile(animationFile(), gif) != kFrames || !BuildStrip(gif, strip)) {
      state.SkipWithError("load failed");
      break;
    }
    kept = double(strip.m_Strip.Width()) * strip.m_Strip.Height();
    benchmark::DoNotOptimize(strip);
  }
  setFileCounters(state, kept);
}

void BM_DGifSlurp(benchmark::State& state) {
  animationFile();
  double kept = 0;
  for (auto _ : state) {
    int error = 0;
    GifFileType* gif = DGifOpenFileName(animationFile().c_str(), &error);
    if (!gif || DGifSlurp(gif) != GIF_OK || gif->ImageCount != kFrames) {
      state.SkipWithError("slurp failed");
      break;
    }
    kept = 0;
    for (int i = 0; i < gif->ImageCount; ++i) {
      kept += double(gif->SavedImages[i].ImageDesc.Width) * gif->SavedImages[i].ImageDesc.Height;
    }
    benchmark::DoNotOptimize(gif->SavedImages);
    DGifCloseFile(gif, &error);
  }
  setFileCounters(state, kept);
}

BENCHMARK(BM_ReadGifFileAndBuildStrip)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DGifSlurp)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
