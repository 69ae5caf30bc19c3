// Decode speed of the two formats the grid meets most: a 12 MP JPEG at full size and at 1/8 (the
// thumbnail road), and a 2 MP PNG; and of a 2 MP 32-bit BMP through a DIB section, with the scan
// that finds what its fourth byte means; a 6 MP LZW TIFF and 6 MP BMPs of 24 and 32 bits made
// into a cell, from a whole decode and from one halved while read. The files are made at start-up,
// as the tests make theirs.
#include <benchmark/benchmark.h>

#include <vector>

#include "codecs/PictureBombs.h"
#include "codecs/TestImages.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/ClassifyAlpha.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/Encoders.h"
#include "platform/gdi/Blit.h"

using namespace vellumry;

namespace {

const std::vector<uint8_t>& jpeg12Mp() {
  static const std::vector<uint8_t> bytes = codecs::testing::makeJpeg(4000, 3000);
  return bytes;
}

const std::vector<uint8_t>& png2Mp() {
  static const std::vector<uint8_t> bytes =
      codecs::testing::makePng(codecs::testing::gradient(1600, 1250));
  return bytes;
}

// 1600 x 1250 premultiplied pixels with no two neighbours alike, so that the scan skips nothing
// and never decides early.
const std::vector<uint8_t>& bmp32Premultiplied2Mp() {
  static const std::vector<uint8_t> bytes = [] {
    gdi::Surface pixels(1600, 1250, gdi::AlphaMode::kUnknown);
    uint32_t n = 0;
    for (uint32_t& p : pixels.Pixels()) {
      const uint32_t alpha = 128 + (n++ % 127);
      p = alpha << 24 | (n % alpha) << 16 | ((n / 3) % alpha) << 8 | ((n / 7) % alpha);
    }
    return codecs::encodeBmp(pixels);
  }();
  return bytes;
}

const std::vector<uint8_t>& tiff6Mp() {
  static const std::vector<uint8_t> bytes =
      codecs::testing::makeTiff(codecs::testing::gradient(3000, 2000), {.rowsPerStrip = 16});
  return bytes;
}

const std::vector<uint8_t>& bmp6Mp(gdi::AlphaMode alpha) {
  static const std::vector<uint8_t> opaque =
      codecs::encodeBmp(codecs::testing::gradient(3000, 2000));
  static const std::vector<uint8_t> withAlpha = [] {
    gdi::Surface pixels = codecs::testing::gradient(3000, 2000);
    pixels.setAlpha(gdi::AlphaMode::kStraight);
    return codecs::encodeBmp(pixels);
  }();
  return alpha == gdi::AlphaMode::kOpaque ? opaque : withAlpha;
}

void decodeAt(benchmark::State& state, const std::vector<uint8_t>& bytes, int width, int height) {
  for (auto _ : state) {
    auto decoded = codecs::decode(bytes, width, height);
    if (!decoded) state.SkipWithError("decode failed");
    benchmark::DoNotOptimize(decoded);
  }
  state.counters["MB/s"] = benchmark::Counter(static_cast<double>(bytes.size()) / 1e6,
                                              benchmark::Counter::kIsIterationInvariantRate);
}

void BM_Jpeg12MpFull(benchmark::State& state) { decodeAt(state, jpeg12Mp(), 0, 0); }
void BM_Jpeg12MpEighth(benchmark::State& state) { decodeAt(state, jpeg12Mp(), 500, 375); }
void BM_Png2Mp(benchmark::State& state) { decodeAt(state, png2Mp(), 0, 0); }
void BM_Png2MpHalvedToACell(benchmark::State& state) { decodeAt(state, png2Mp(), 180, 135); }
void BM_LargestPngHalvedToACell(benchmark::State& state) {
  static const auto bytes = codecs::testing::largestPng().bytes;
  decodeAt(state, bytes, 180, 135);
}

// A cell's pixels the way a picture makes them: decoded at `wanted` (0 x 0: whole), then
// scaled to the cell with halftone quality.
void decodeToACell(benchmark::State& state, const std::vector<uint8_t>& bytes, gdi::Size wanted) {
  const gdi::Rect cell{0, 0, 180, 120};
  for (auto _ : state) {
    auto decoded = codecs::decode(bytes, wanted.width, wanted.height);
    if (!decoded) state.SkipWithError("decode failed");
    const gdi::Surface& pixels = decoded->surface;
    gdi::Surface scaled(cell.width, cell.height, pixels.alpha());
    gdi::stretchHalftone(scaled, cell, pixels, {0, 0, pixels.Width(), pixels.Height()});
    benchmark::DoNotOptimize(scaled);
  }
}

void BM_Tiff6MpWholeToACell(benchmark::State& state) { decodeToACell(state, tiff6Mp(), {}); }
void BM_Tiff6MpHalvedToACell(benchmark::State& state) {
  decodeToACell(state, tiff6Mp(), {180, 120});
}
void BM_Bmp24Bit6MpWholeToACell(benchmark::State& state) {
  decodeToACell(state, bmp6Mp(gdi::AlphaMode::kOpaque), {});
}
void BM_Bmp24Bit6MpHalvedToACell(benchmark::State& state) {
  decodeToACell(state, bmp6Mp(gdi::AlphaMode::kOpaque), {180, 120});
}
void BM_Bmp32Bit6MpWholeToACell(benchmark::State& state) {
  decodeToACell(state, bmp6Mp(gdi::AlphaMode::kStraight), {});
}
void BM_Bmp32Bit6MpHalvedToACell(benchmark::State& state) {
  decodeToACell(state, bmp6Mp(gdi::AlphaMode::kStraight), {180, 120});
}

void BM_Bmp32DibSection2Mp(benchmark::State& state) {
  const std::vector<uint8_t>& bytes = bmp32Premultiplied2Mp();
  for (auto _ : state) {
    auto decoded = codecs::decodeDibSection(bytes);
    if (!decoded) state.SkipWithError("decode failed");
    benchmark::DoNotOptimize(decoded);
  }
  state.counters["MB/s"] = benchmark::Counter(static_cast<double>(bytes.size()) / 1e6,
                                              benchmark::Counter::kIsIterationInvariantRate);
}

void BM_ClassifyAlpha2Mp(benchmark::State& state) {
  const auto decoded = codecs::decodeDibSection(bmp32Premultiplied2Mp());
  const gdi::Surface& pixels = decoded->surface;
  for (auto _ : state) {
    const uint32_t kind = codecs::ClassifyAlpha(pixels.Pixels(), pixels.Width(), pixels.Height());
    if (kind != codecs::kPixelFormat32bppPARGB) state.SkipWithError("not premultiplied");
    benchmark::DoNotOptimize(kind);
  }
  state.counters["Mpixel/s"] = benchmark::Counter(static_cast<double>(pixels.Pixels().size()) / 1e6,
                                                  benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK(BM_Jpeg12MpFull)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Jpeg12MpEighth)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Png2Mp)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Png2MpHalvedToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LargestPngHalvedToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Tiff6MpWholeToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Tiff6MpHalvedToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bmp24Bit6MpWholeToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bmp24Bit6MpHalvedToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bmp32Bit6MpWholeToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bmp32Bit6MpHalvedToACell)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Bmp32DibSection2Mp)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ClassifyAlpha2Mp)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
