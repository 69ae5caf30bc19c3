// Time to draw the largest EMF of ../shared/corpus at 1920 x 1080, text included (the font
// database needs an application object, made on the offscreen platform).
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "platform/codecs/Codecs.h"

using namespace vellumry;

namespace {

std::filesystem::path LargestCorpusEmf() {
  std::filesystem::path largest;
  std::uintmax_t size = 0;
  std::error_code error;
  for (const auto& entry :
       std::filesystem::recursive_directory_iterator("../shared/corpus", error)) {
    if (entry.path().extension() == ".emf" && entry.file_size() > size) {
      size = entry.file_size();
      largest = entry.path();
    }
  }
  return largest;
}

void DrawLargestEmf(benchmark::State& state) {
  const auto path = LargestCorpusEmf();
  if (path.empty()) {
    state.SkipWithError("no corpus beside the project");
    return;
  }
  std::ifstream in(path, std::ios::binary);
  const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
  state.SetLabel(path.filename().string());
  for (auto _ : state) {
    auto drawn = codecs::Decode(bytes, 1920, 1080);
    if (!drawn) state.SkipWithError("the EMF didn't draw");
    benchmark::DoNotOptimize(drawn);
  }
}
BENCHMARK(DrawLargestEmf)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
