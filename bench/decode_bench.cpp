// Decode speed of the two formats the grid meets most: a 12 MP JPEG at full size and at 1/8 (the
// thumbnail road), and a 2 MP PNG. The files are made at start-up with the encoders.
#include <benchmark/benchmark.h>
#include <jpeglib.h>
#include <png.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "codecs/codecs.h"

namespace {

// A picture with detail in every block, so the entropy decoder has real work.
std::vector<uint8_t> Pixels(int width, int height, int channels) {
  std::vector<uint8_t> out(static_cast<size_t>(width) * height * channels);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      uint8_t* p = &out[(static_cast<size_t>(y) * width + x) * channels];
      p[0] = static_cast<uint8_t>(x ^ y);
      p[1] = static_cast<uint8_t>((x * 3 + y) >> 2);
      p[2] = static_cast<uint8_t>((x * y) >> 5);
      if (channels == 4) p[3] = 255;
    }
  }
  return out;
}

std::vector<uint8_t> MakeJpeg(int width, int height) {
  const std::vector<uint8_t> rgb = Pixels(width, height, 3);
  jpeg_compress_struct cinfo{};
  jpeg_error_mgr errors{};
  cinfo.err = jpeg_std_error(&errors);
  jpeg_create_compress(&cinfo);
  unsigned char* buffer = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&cinfo, &buffer, &size);
  cinfo.image_width = static_cast<JDIMENSION>(width);
  cinfo.image_height = static_cast<JDIMENSION>(height);
  cinfo.input_components = 3;
  cinfo.in_color_space = JCS_RGB;
  jpeg_set_defaults(&cinfo);
  jpeg_set_quality(&cinfo, 90, TRUE);
  jpeg_start_compress(&cinfo, TRUE);
  while (cinfo.next_scanline < cinfo.image_height) {
    auto* row = const_cast<JSAMPROW>(&rgb[static_cast<size_t>(cinfo.next_scanline) * width * 3]);
    jpeg_write_scanlines(&cinfo, &row, 1);
  }
  jpeg_finish_compress(&cinfo);
  jpeg_destroy_compress(&cinfo);
  std::vector<uint8_t> out(buffer, buffer + size);
  std::free(buffer);
  return out;
}

std::vector<uint8_t> MakePng(int width, int height) {
  const std::vector<uint8_t> rgba = Pixels(width, height, 4);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = PNG_FORMAT_RGBA;
  png_alloc_size_t size = 0;
  png_image_write_to_memory(&image, nullptr, &size, 0, rgba.data(), 0, nullptr);
  std::vector<uint8_t> out(size);
  png_image_write_to_memory(&image, out.data(), &size, 0, rgba.data(), 0, nullptr);
  out.resize(size);
  return out;
}

const std::vector<uint8_t>& Jpeg12Mp() {
  static const std::vector<uint8_t> bytes = MakeJpeg(4000, 3000);
  return bytes;
}

const std::vector<uint8_t>& Png2Mp() {
  static const std::vector<uint8_t> bytes = MakePng(1600, 1250);
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

BENCHMARK(BM_Jpeg12MpFull)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Jpeg12MpEighth)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Png2Mp)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
