// How fast the grid fills with each format's pictures, against the format's decoder alone, and
// the peak memory of each folder's fill. Run by hand: grid_fill [--thumbcache] [folder for the
// made files]; --thumbcache measures the shared thumbnail cache alone.
//
// A row's decoder alone reads each file and decodes it on every core at the size the decoder
// gives for a cell. The program's fill runs the whole program headless on the real clock, in a
// process of its own, so that its peak memory is that folder's alone. The folders are made once
// and kept for later runs.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>

#include "FillFolders.h"
#include "HeadlessProgram.h"
#include "platform/codecs/Codecs.h"
#include "platform/os/FileSystem.h"
#include "shell/Form1.h"

using namespace vellumry;

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kCellW = 180, kCellH = 135;  // a cell's inner size in pixels at 6 rows on 1080p
// The grid at its cadence, one cell a 12 ms tick, less what the ticks themselves take.
constexpr double kCadence = 75;
constexpr double kPeakLimitMb = 400;

double seconds(Clock::time_point since) {
  return std::chrono::duration<double>(Clock::now() - since).count();
}

// The size a picture takes in a cell: fitted, never enlarged.
gdi::Size fitted(int width, int height) {
  const double scale =
      std::min({1.0, static_cast<double>(kCellW) / width, static_cast<double>(kCellH) / height});
  return {static_cast<int>(std::lround(width * scale)),
          static_cast<int>(std::lround(height * scale))};
}

// Files a second that the format's decoder alone reads and decodes for a cell on every core.
double decoderRate(const std::vector<std::string>& files) {
  const auto start = Clock::now();
  bench::onAllCores(static_cast<int>(files.size()), [&](int i) {
    const std::string& file = files[static_cast<size_t>(i)];
    const auto bytes = os::readWholeFile(file);
    if (!bytes) return;
    const auto info = codecs::probe(*bytes);
    if (!info) return;
    const gdi::Size cell = fitted(info->width, info->height);
    if (!codecs::decode(*bytes, cell.width, cell.height)) std::printf("%s failed\n", file.c_str());
  });
  return static_cast<double>(files.size()) / seconds(start);
}

// The child's part: the whole program's fill of `folder`, printed as its rate and peak memory.
int fillRun(const fs::path& folder, const fs::path& home, bool thumbnailCache) {
  bench::HeadlessProgram run(folder, home, thumbnailCache);
  const double seconds = run.loadSeconds();
  std::printf("%f %ld\n", run.program.Form1().nCount / seconds, bench::peakKilobytes());
  return 0;
}

struct Fill {
  double rate = 0;
  double peakMb = 0;
};

// The program's fill of `folder` in a process of its own.
Fill programFill(const fs::path& folder, const fs::path& home, bool thumbnailCache = false) {
  const std::string self = fs::canonical("/proc/self/exe").string();
  const std::string command = "'" + self + "' --fill '" + folder.string() + "' '" + home.string() +
                              "' " + (thumbnailCache ? "1" : "0");
  Fill fill;
  if (FILE* child = popen(command.c_str(), "r")) {
    long peakKb = 0;
    if (std::fscanf(child, "%lf %ld", &fill.rate, &peakKb) == 2) fill.peakMb = peakKb / 1024.0;
    pclose(child);
  }
  return fill;
}

// The shared thumbnail cache through the whole program: the folder with the cache off, then its
// first visit (an empty cache, entries written) and its second (entries read).
void thumbnailCacheRates(const fs::path& folder, const fs::path& home, const std::string& title) {
  fs::remove_all(home / "cache");
  const double off = programFill(folder, home).rate;
  const double first = programFill(folder, home, true).rate;
  const double second = programFill(folder, home, true).rate;
  std::printf(
      "thumbnail cache, %s: off %.1f, first visit %.1f (%+.0f %%; goal no worse than -10 %%),"
      " second visit %.1f cells/s (goal %.0f)\n",
      title.c_str(), off, first, 100 * (first / off - 1), second, kCadence);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 5 && std::string(argv[1]) == "--fill")
    return fillRun(argv[2], argv[3], std::string(argv[4]) == "1");
  const bool cacheOnly = argc > 1 && std::string(argv[1]) == "--thumbcache";
  const fs::path root = argc > 1 + cacheOnly ? fs::path(argv[1 + cacheOnly])
                                             : fs::temp_directory_path() / "vellumry-grid-fill";
  bench::makeFillFolders(root);
  if (cacheOnly) {
    for (const bench::FillFolder& row : bench::fillFolders()) {
      if (row.folder == "jpeg" || row.folder == "png")
        thumbnailCacheRates(root / row.folder, root / "home-cache", row.title);
    }
    return 0;
  }
  std::printf(
      "%u cores; cell %d x %d pixels; goal: ratio >= 0.8 or %.1f cells/s, whichever is"
      " slower; peak < %.0f MB\n\n",
      std::thread::hardware_concurrency(), kCellW, kCellH, kCadence, kPeakLimitMb);
  std::printf("%-22s %6s %14s %14s %7s %10s  %s\n", "format", "files", "decoder/s", "program/s",
              "ratio", "peak MB", "goal");
  for (const bench::FillFolder& row : bench::fillFolders()) {
    const auto files = bench::pictureFiles(root / row.folder);
    decoderRate(files);  // once to warm the page cache
    const double decoder = decoderRate(files);
    const Fill fill = programFill(root / row.folder, root / "home");
    const double goal = std::min(0.8 * decoder, kCadence);
    const bool met = fill.rate >= goal && fill.peakMb > 0 && fill.peakMb < kPeakLimitMb;
    std::printf("%-22s %6zu %14.1f %14.1f %7.2f %10.1f  %s\n", row.title.c_str(), files.size(),
                decoder, fill.rate, fill.rate / decoder, fill.peakMb, met ? "met" : "MISSED");
    std::fflush(stdout);
  }
  return 0;
}
