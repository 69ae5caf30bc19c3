// CPU cost of the grid's loading ticks, headless, on folders of growing size: the tick's own
// work should stay flat; only the rolling of rows grows with the folder.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "HeadlessProgram.h"
#include "codecs/TestImages.h"
#include "platform/os/SettingsFile.h"
#include "platform/toolkit/HeadlessHost.h"
#include "program/Program.h"
#include "shell/Form1.h"
#include "shell/Main.h"

using namespace vellumry;

namespace {
namespace fs = std::filesystem;

fs::path makeFolder(int files) {
  fs::path root = fs::temp_directory_path() /
                  ("vellumry-ticks-" + std::to_string(getpid()) + "-" + std::to_string(files));
  fs::create_directories(root / "pictures");
  // Small real pictures, so that every tick reads, probes and places one.
  const std::vector<uint8_t> jpeg = codecs::testing::makeJpeg(64, 48);
  for (int i = 1; i <= files; ++i) {
    std::ofstream(root / "pictures" / ("f" + std::to_string(i) + ".jpg"), std::ios::binary)
        .write(reinterpret_cast<const char*>(jpeg.data()),
               static_cast<std::streamsize>(jpeg.size()));
  }
  os::createSettingsFileIfMissing((root / "OstrelWorks.INI").string());
  return root;
}

void BM_LoadFolder(benchmark::State& state) {
  int files = static_cast<int>(state.range(0));
  fs::path root = makeFolder(files);
  for (auto _ : state) {
    tk::HeadlessHost host;
    vellumry::Program program(host, tk::EventLoop::Clock::Virtual, tk::Screen::ofPixels(1024, 768),
                              {root.string(), root.string(), (root / "pictures").string()});
    vellumry::Main(program);
    program.runtime.loop().advance(500);
    while (program.Form1().Timer1.Interval() != 0) program.runtime.loop().advance(12);
    benchmark::DoNotOptimize(program.Form1().bLoaded);
  }
  state.counters["ticks/s"] = benchmark::Counter(static_cast<double>(files) * state.iterations(),
                                                 benchmark::Counter::kIsRate);
  state.counters["peak MB"] = static_cast<double>(bench::peakKilobytes()) / 1024;
  fs::remove_all(root);
}
BENCHMARK(BM_LoadFolder)->Arg(200)->Arg(1000)->Arg(2000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
