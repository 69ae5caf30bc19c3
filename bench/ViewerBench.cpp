// The full-screen viewer on large JPEGs, headless at 1024 by 768: the wall time from the double
// click to the picture painted (the first open, and a step onto a neighbour decoded ahead), and
// the peak memory while stepping through 200 files of 12 MP. The pictures are made at run time
// in a temporary folder; the same file is linked under every name, so each name still decodes
// on its own.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>

#include "HeadlessProgram.h"
#include "codecs/TestImages.h"
#include "picture/PictureServices.h"
#include "platform/os/SettingsFile.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/Input.h"
#include "program/Program.h"
#include "shell/Form1.h"
#include "shell/Main.h"
#include "viewer/Form2.h"

using namespace vellumry;

namespace {
namespace fs = std::filesystem;

constexpr int kRight = 39;

// A photo-like JPEG: gradients with a little noise, so the coder has work to do.
void writePhoto(const fs::path& path, int width, int height) {
  gdi::Surface pixels(width, height, gdi::AlphaMode::kOpaque);
  uint32_t noise = 2463534242u;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      noise ^= noise << 13, noise ^= noise >> 17, noise ^= noise << 5;
      const auto n = static_cast<uint8_t>(noise & 31);
      pixels.setPixel(x, y,
                      gdi::argb(255, static_cast<uint8_t>(x * 255 / width + n),
                                static_cast<uint8_t>(y * 255 / height + n),
                                static_cast<uint8_t>((x + y) % 256)));
    }
  }
  const std::vector<uint8_t> bytes = codecs::testing::makeJpeg(pixels, 85);
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

// A folder of `count` names for one photo of `width` by `height`, with a settings file beside.
fs::path makeFolder(const std::string& name, int count, int width, int height) {
  const fs::path root =
      fs::temp_directory_path() / ("vellumry-viewer-" + std::to_string(getpid()) + "-" + name);
  fs::create_directories(root / "pictures");
  const fs::path first = root / "pictures" / "p0000.jpg";
  writePhoto(first, width, height);
  for (int i = 1; i < count; ++i) {
    char file[16];
    std::snprintf(file, sizeof file, "p%04d.jpg", i);
    fs::create_hard_link(first, root / "pictures" / file);
  }
  os::createSettingsFileIfMissing((root / "OstrelWorks.INI").string());
  return root;
}

// A headless program with its grid loaded and its thumbnails decoded.
struct LoadedProgram {
  explicit LoadedProgram(const fs::path& root)
      : program(host, tk::EventLoop::Clock::Virtual, tk::Screen::ofPixels(1024, 768),
                {root.string(), root.string(), (root / "pictures").string()}) {
    vellumry::Main(program);
    program.runtime.loop().advance(500);
    while (program.Form1().Timer1.Interval() != 0) program.runtime.loop().advance(12);
    program.pictures().drain();
  }
  // Double-clicks position `i` and lets Timer1 place the picture.
  Form2& open(int i) {
    tk::user::dblClick(program.Form1().Image1(i));
    program.runtime.loop().advance(1);
    return program.Form2();
  }
  tk::HeadlessHost host;
  vellumry::Program program;
};

// The first open as a person double-clicks: the first click, a pause of range(0) ms, then the
// double click; timed from the double click.
void BM_OpenFirst24MP(benchmark::State& state) {
  const fs::path root = makeFolder("first", 1, 6000, 4000);
  for (auto _ : state) {
    state.PauseTiming();
    auto loaded = std::make_unique<LoadedProgram>(root);
    tk::Image& cell = loaded->program.Form1().Image1(1);
    tk::user::click(cell);
    std::this_thread::sleep_for(std::chrono::milliseconds(state.range(0)));
    state.ResumeTiming();
    tk::user::raiseDblClick(cell);
    loaded->program.runtime.loop().advance(1);
    benchmark::DoNotOptimize(loaded->program.Form2().Image1.Picture().Pixels());
    state.PauseTiming();
    loaded.reset();
    state.ResumeTiming();
  }
  fs::remove_all(root);
}
BENCHMARK(BM_OpenFirst24MP)->Arg(0)->Arg(250)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_StepToPrefetched24MP(benchmark::State& state) {
  const fs::path root = makeFolder("step", 3, 6000, 4000);
  LoadedProgram loaded(root);
  Form2& viewer = loaded.open(1);
  for (auto _ : state) {
    state.PauseTiming();
    loaded.program.pictures().drain();  // the neighbours stand decoded, as while a picture stands
    state.ResumeTiming();
    tk::user::key(viewer, kRight);
    loaded.program.runtime.loop().advance(1);
    benchmark::DoNotOptimize(viewer.Image1.Picture().Pixels());
  }
  fs::remove_all(root);
}
BENCHMARK(BM_StepToPrefetched24MP)->Unit(benchmark::kMillisecond)->Iterations(10);

void BM_Step200Files12MP(benchmark::State& state) {
  const fs::path root = makeFolder("memory", 200, 4000, 3000);
  for (auto _ : state) {
    std::ofstream("/proc/self/clear_refs") << "5";  // starts the peak afresh
    LoadedProgram loaded(root);
    Form2& viewer = loaded.open(1);
    for (int i = 1; i < 200; ++i) {
      tk::user::key(viewer, kRight);
      loaded.program.runtime.loop().advance(1);
    }
    state.counters["peak_MB"] = static_cast<double>(bench::peakKilobytes()) / 1024;
    state.counters["cache_MB"] =
        static_cast<double>(loaded.program.pictures().cache()->bytesInUse()) / (1 << 20);
  }
  fs::remove_all(root);
}
BENCHMARK(BM_Step200Files12MP)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
