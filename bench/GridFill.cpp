// How fast the grid's pictures fill the cache, against libjpeg-turbo alone, and what a folder of
// a thousand 12 MP JPEGs costs in memory. Run by hand: grid_fill [--thumbcache] [folder for the
// made files]; --thumbcache runs (e), the shared thumbnail cache, alone.
// (b) drives the picture roads directly; (d) runs the whole program headless on the real clock.
//
// The cells are loaded as the grid's ticks load them, one after the other on one thread: the
// plain loader for JPEG, Module1 at native size for PNG, each followed by decoding ahead at the
// cell's fitted size. The folder is made once and kept for later runs.
#include <QImage>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>
// jpeglib.h needs size_t and FILE declared first.
#include <jpeglib.h>

#include "HeadlessProgram.h"
#include "codecs/TestImages.h"
#include "picture/Module1.h"
#include "picture/PictureServices.h"
#include "picture/PlainLoader.h"
#include "platform/toolkit/Error.h"
#include "shell/Form1.h"

using namespace vellumry;

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kJpegs = 200, kPngs = 100, kCopies = 5;
constexpr int kCellW = 180, kCellH = 135;  // a cell's inner size in pixels at 6 rows on 1080p

// Some picture content: soft gradients, rings and a little noise, so the coder has work to do.
QImage Scene(int width, int height, int seed) {
  QImage image(width, height, QImage::Format_RGB32);
  uint32_t noise = 2463534242u + static_cast<uint32_t>(seed);
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<uint32_t*>(image.scanLine(y));
    for (int x = 0; x < width; ++x) {
      noise ^= noise << 13, noise ^= noise >> 17, noise ^= noise << 5;
      const double d = std::hypot(x - width * 0.4, y - height * 0.6) / (20 + seed % 7);
      const int ring = static_cast<int>(127 + 100 * std::sin(d));
      const int n = static_cast<int>(noise & 15);
      row[x] = qRgb((x * 255 / width + n) & 255, (ring + n) & 255, (y * 255 / height + seed) & 255);
    }
  }
  return image;
}

void WriteJpeg(const QImage& image, const std::string& path) {
  gdi::Surface pixels(image.width(), image.height(), gdi::AlphaMode::kOpaque);
  for (int y = 0; y < image.height(); ++y)
    std::memcpy(pixels.Row(y), image.constScanLine(y), static_cast<size_t>(image.width()) * 4);
  const std::vector<uint8_t> bytes = codecs::testing::MakeJpeg(pixels, 85);
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

// Runs job(i) for i in [0, count) on every core.
template <typename Job>
void OnAllCores(int count, Job job) {
  std::atomic<int> next{0};
  std::vector<std::jthread> threads;
  for (unsigned t = 0; t < std::max(1u, std::thread::hardware_concurrency()); ++t) {
    threads.emplace_back([&] {
      for (int i = next++; i < count; i = next++) job(i);
    });
  }
}

std::string Name(const fs::path& dir, const char* stem, int i, const char* ext) {
  char name[32];
  std::snprintf(name, sizeof name, "%s%04d.%s", stem, i, ext);
  return (dir / name).string();
}

// The folders, made once: jpeg/ (200), png/ (100), many/ (the JPEGs linked five times).
void MakeFolders(const fs::path& root) {
  if (fs::exists(root / "done")) return;
  std::printf("making the pictures in %s ...\n", root.c_str());
  for (const char* dir : {"jpeg", "png", "many"}) fs::create_directories(root / dir);
  OnAllCores(kJpegs,
             [&](int i) { WriteJpeg(Scene(4000, 3000, i), Name(root / "jpeg", "p", i, "jpg")); });
  OnAllCores(kPngs, [&](int i) {
    Scene(1632, 1224, i).save(QString::fromStdString(Name(root / "png", "p", i, "png")));
  });
  for (int copy = 0; copy < kCopies; ++copy) {
    for (int i = 0; i < kJpegs; ++i) {
      const std::string link = Name(root / "many", ("c" + std::to_string(copy)).c_str(), i, "jpg");
      fs::create_hard_link(Name(root / "jpeg", "p", i, "jpg"), link);
    }
  }
  std::ofstream(root / "done") << "ok\n";
}

std::vector<std::string> Files(const fs::path& dir) {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(dir)) files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  return files;
}

double Seconds(Clock::time_point since) {
  return std::chrono::duration<double>(Clock::now() - since).count();
}

// (a) libjpeg-turbo alone: read each file and decode it at the eighth that covers the cell.
double BaselineRate(const std::vector<std::string>& files) {
  const auto start = Clock::now();
  OnAllCores(static_cast<int>(files.size()), [&](int i) {
    std::ifstream in(files[static_cast<size_t>(i)], std::ios::binary | std::ios::ate);
    std::vector<unsigned char> bytes(static_cast<size_t>(in.tellg()));
    in.seekg(0);
    in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    jpeg_decompress_struct cinfo{};
    jpeg_error_mgr errors{};
    cinfo.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&cinfo);
    jpeg_mem_src(&cinfo, bytes.data(), bytes.size());
    jpeg_read_header(&cinfo, TRUE);
    int eighths = 1;
    while (eighths < 8 && (static_cast<int>(cinfo.image_width) * eighths + 7) / 8 < kCellW)
      ++eighths;
    cinfo.scale_num = static_cast<unsigned>(eighths);
    cinfo.scale_denom = 8;
    cinfo.out_color_space = JCS_EXT_BGRA;
    jpeg_start_decompress(&cinfo);
    std::vector<unsigned char> row(cinfo.output_width * 4u);
    JSAMPROW rows[1] = {row.data()};
    while (cinfo.output_scanline < cinfo.output_height) jpeg_read_scanlines(&cinfo, rows, 1);
    jpeg_finish_decompress(&cinfo);
    jpeg_destroy_decompress(&cinfo);
  });
  return static_cast<double>(files.size()) / Seconds(start);
}

// The fitted size of a picture in a cell: rules of the grid reduced to "fit, never enlarge".
gdi::Size Fitted(gdi::Size natural) {
  const double scale = std::min({1.0, static_cast<double>(kCellW) / natural.width,
                                 static_cast<double>(kCellH) / natural.height});
  return {static_cast<int>(std::lround(natural.width * scale)),
          static_cast<int>(std::lround(natural.height * scale))};
}

// (b) The grid's fill: each cell loaded in order on this thread, then decoded ahead; done when
// every cell's pixels are in the cache. Keeps the pictures, as the grid does.
double FillRate(vellumry::PictureServices& services, const std::vector<std::string>& files,
                bool module1Road, std::vector<gdi::Picture>& cells) {
  vellumry::Module1 module1(services, [] { return 0x00404040u; });
  const auto start = Clock::now();
  for (const std::string& file : files) {
    gdi::Picture picture;
    if (module1Road) {
      int32_t w = -1, h = -1;
      picture = module1.LoadGdiPicture(file, w, h, 0xFFFFFF, false);
    } else {
      picture = vellumry::LoadPicture(services, file);
    }
    services.prefetch(picture, Fitted(picture.PixelSize()));
    cells.push_back(std::move(picture));
  }
  services.drain();
  return static_cast<double>(files.size()) / Seconds(start);
}

// (d) The whole program on the real clock, counted from the first tick.
double ProgramFillRate(const fs::path& folder, const fs::path& home, bool thumbnailCache = false) {
  vellumry::bench::HeadlessProgram run(folder, home, thumbnailCache);
  const double seconds = run.LoadSeconds();
  return run.program.Form1().nCount / seconds;
}

// (e) The shared thumbnail cache, on the real clock through the whole program: the folder with
// the cache off, then its first visit (an empty cache, entries written) and its second (read).
void ThumbnailCacheRates(const fs::path& folder, const fs::path& home, const char* what) {
  fs::remove_all(home / "cache");
  const double off = ProgramFillRate(folder, home, false);
  const double first = ProgramFillRate(folder, home, true);
  const double second = ProgramFillRate(folder, home, true);
  std::printf(
      "(e) thumbnail cache, %s: off %.1f, first visit %.1f (%+.0f %%; goal no worse than -10 %%),"
      " second visit %.1f cells/s (goal 75)\n",
      what, off, first, 100 * (first / off - 1), second);
}

// (c) In a process of its own, so that nothing else has raised its peak.
int MemoryRun(const fs::path& root) {
  vellumry::PictureServices services(15);
  std::vector<gdi::Picture> cells;
  const auto files = Files(root / "many");
  const double rate = FillRate(services, files, false, cells);
  std::printf(
      "(c) %zu JPEGs of 12 MP: filled at %.1f cells/s, cache %.1f MB, peak memory %.1f MB"
      " (target under 400)\n",
      files.size(), rate, services.cache()->BytesInUse() / 1048576.0,
      vellumry::bench::PeakKilobytes() / 1024.0);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string(argv[1]) == "--memory") return MemoryRun(argv[2]);
  const bool cacheOnly = argc > 1 && std::string(argv[1]) == "--thumbcache";
  const fs::path root = argc > 1 + cacheOnly ? fs::path(argv[1 + cacheOnly])
                                             : fs::temp_directory_path() / "vellumry-grid-fill";
  MakeFolders(root);
  ThumbnailCacheRates(root / "jpeg", root / "home-cache", "200 JPEGs of 12 MP");
  ThumbnailCacheRates(root / "png", root / "home-cache", "100 PNGs of 2 MP");
  if (cacheOnly) return 0;
  const auto jpegs = Files(root / "jpeg");
  const auto pngs = Files(root / "png");
  std::printf("%u cores; cell %d x %d pixels\n", std::thread::hardware_concurrency(), kCellW,
              kCellH);

  BaselineRate(jpegs);  // once to warm the page cache
  const double baseline = BaselineRate(jpegs);
  std::printf("(a) libjpeg-turbo alone, %d JPEGs of 12 MP at 1/8: %.1f files/s\n", kJpegs,
              baseline);

  const double target = std::min(0.8 * baseline, 1000.0 / 12);
  {
    vellumry::PictureServices services(15);
    std::vector<gdi::Picture> cells;
    const double rate = FillRate(services, jpegs, false, cells);
    std::printf("(b) grid fill, JPEG: %.1f cells/s = %.0f %% of (a); target %.1f cells/s: %s\n",
                rate, 100 * rate / baseline, target, rate >= target ? "met" : "MISSED");
  }
  {
    vellumry::PictureServices services(15);
    std::vector<gdi::Picture> cells;
    const double rate = FillRate(services, pngs, true, cells);
    std::printf("    grid fill, PNG of 2 MP through Module1: %.1f cells/s (%.1f ms a cell)\n", rate,
                1000 / rate);
  }
  {
    const double rate = ProgramFillRate(root / "jpeg", root / "home");
    std::printf(
        "(d) the program on the real clock, JPEG: %.1f cells/s = %.0f %% of (a); target %.1f\n",
        rate, 100 * rate / baseline, target);
    const double pngRate = ProgramFillRate(root / "png", root / "home");
    std::printf("    the program on the real clock, PNG: %.1f cells/s\n", pngRate);
  }
  const std::string self = fs::canonical("/proc/self/exe").string();
  return std::system(("'" + self + "' --memory '" + root.string() + "'").c_str());
}
