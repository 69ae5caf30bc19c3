// Time to draw the largest EMF of ../shared/corpus at 1920 x 1080, text included (the font
// database needs an application object, made on the offscreen platform). The two larger files of
// the corpus are a deliberately broken one, which stops early, and one of EMF+ records only, which
// the player skips: both draw next to nothing.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <fstream>
#include <iterator>
#include <vector>

#include "platform/codecs/Codecs.h"

using namespace vellumry;

namespace {

constexpr const char* kLargestEmf =
    "../shared/corpus/libemf2svg/vendor/libuemf/test_libuemf_ref.emf";

void drawLargestEmf(benchmark::State& state) {
  std::ifstream in(kLargestEmf, std::ios::binary);
  const std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(in), {}};
  if (bytes.empty()) {
    state.SkipWithError("no corpus beside the project");
    return;
  }
  for (auto _ : state) {
    auto drawn = codecs::decode(bytes, 1920, 1080);
    if (!drawn) state.SkipWithError("the EMF didn't draw");
    benchmark::DoNotOptimize(drawn);
  }
}
BENCHMARK(drawLargestEmf)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
