// Decode speed of the two formats the grid meets most: a 12 MP JPEG at full size and at 1/8 (the
// thumbnail road), and a 2 MP PNG. The files are made at start-up, as the tests make theirs.
#include <benchmark/benchmark.h>

#include <vector>

#include "codecs/PictureBombs.h"
#include "codecs/TestImages.h"
#include "platform/codecs/Codecs.h"

using namespace vellumry;

namespace {

const std::vector<uint8_t>& Jpeg12Mp() {
  static const std::vector<uint8_t> bytes = codecs::testing::MakeJpeg(4000, 3000);
  return bytes;
}

const std::vector<uint8_t>& Png2Mp() {
  static const std::vector<uint8_t> bytes =
      codecs::testing::MakePng(codecs::testing::Gradient(1600, 1250));
  return bytes;
}

void DecodeAt(benchmark::State& state, const std::vector<uint8_t>& bytes, int width, int height) {
  for (auto _ : state) {
    auto decoded = codecs::Decode(bytes, width, height);
    if (!decoded) state.SkipWithError("decode failed");
    benchmark::DoNotOptimize(decoded);
  }
  state.counters["MB/s"] = benchmark::Counter(static_cast<double>(bytes.size()) / 1e6,
                                              benchmark::Counter::kIsIterationInvariantRate);
}

void BM_Jpeg12MpFull(benchmark::State& state) { DecodeAt(state, Jpeg12Mp(), 0, 0); }
void BM_Jpeg12MpEighth(benchmark::State& state) { DecodeAt(state, Jpeg12Mp(), 500, 375); }
void BM_Png2Mp(benchmark::State& state) { DecodeAt(state, Png2Mp(), 0, 0); }
void BM_Png2MpHalvedToACell(benchmark::State& state) { DecodeAt(state, Png2Mp(), 180, 135); }
void BM_LargestPngHalvedToACell(benchmark::State& state) {
  static const auto bytes = codecs::testing::LargestPng().bytes;
  DecodeAt(state, bytes, 180, 135);
}

BENCHMARK(BM_Jpeg12MpFull)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Jpeg12MpEighth)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Png2Mp)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Png2MpHalvedToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LargestPngHalvedToACell)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
