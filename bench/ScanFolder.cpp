// Peak memory and time of a folder of twenty 100 MP striped LZW TIFF scans: one scan decoded
// alone, whole and at a cell's size, then the whole folder through the program. Each measure runs
// in a process of its own, so that one peak can't hide another. Run by hand: scan_folder [folder].
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "HeadlessProgram.h"
#include "codecs/TestFiles.h"
#include "codecs/TestImages.h"
#include "platform/codecs/Codecs.h"
#include "shell/Form1.h"

using namespace vellumry;
namespace fs = std::filesystem;

namespace {

constexpr int kWidth = 12000, kHeight = 8334, kScans = 20;

// Paper with a few printed blocks: long runs of one colour, as a scan of a page has.
void scanRow(int y, uint32_t* row) {
  for (int x = 0; x < kWidth; ++x) {
    const bool ink = (y / 400) % 3 == 1 && (x / 1500) % 2 == 0;
    row[x] = ink ? gdi::argb(255, 40, 40, 90) : gdi::argb(255, 245, 240, 228);
  }
}

double secondsSince(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void printRow(const char* what, double seconds, long peakKb, long growthKb) {
  std::printf("| %-34s | %8.2f | %8.1f | %8.1f |\n", what, seconds, peakKb / 1024.0,
              growthKb / 1024.0);
}

// In a child: one scan at `width` x `height` (0 x 0: whole), by the decoder alone.
int decodeOne(const fs::path& file, int width, int height) {
  const std::vector<uint8_t> bytes = codecs::testing::ReadFile(file);
  const long before = bench::peakKilobytes();
  const auto start = std::chrono::steady_clock::now();
  const auto decoded = codecs::decode(bytes, width, height);
  const double seconds = secondsSince(start);
  if (!decoded) return 1;
  const std::string what = "decoder alone, " + std::to_string(decoded->surface.Width()) + " x " +
                           std::to_string(decoded->surface.Height());
  printRow(what.c_str(), seconds, bench::peakKilobytes(), bench::peakKilobytes() - before);
  return 0;
}

// In a child: the folder through the whole program, until every cell is decoded.
int loadFolder(const fs::path& folder) {
  const long before = bench::peakKilobytes();
  bench::HeadlessProgram run(folder, folder.parent_path() / "home");
  const double seconds = run.loadSeconds();
  const int shown = run.program.Form1().nCount;
  const std::string what = "program, folder of " + std::to_string(shown) + " scans";
  printRow(what.c_str(), seconds, bench::peakKilobytes(), bench::peakKilobytes() - before);
  return shown == kScans ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string mode = argc > 1 ? argv[1] : "";
  if (argc == 5 && mode == "--decode")
    return decodeOne(argv[2], std::atoi(argv[3]), std::atoi(argv[4]));
  if (argc == 3 && mode == "--load") return loadFolder(argv[2]);
  const fs::path root = argc > 1 ? fs::path(argv[1]) : fs::temp_directory_path() / "vellumry-scans";
  const fs::path folder = root / "scans";
  fs::remove_all(root);
  fs::create_directories(folder);
  const std::vector<uint8_t> scan =
      codecs::testing::makeTiff(kWidth, kHeight, {.rowsPerStrip = 16}, scanRow);
  for (int i = 0; i < kScans; ++i) {
    std::ofstream(folder / ("scan" + std::to_string(i) + ".tif"), std::ios::binary)
        .write(reinterpret_cast<const char*>(scan.data()),
               static_cast<std::streamsize>(scan.size()));
  }
  std::printf("%d scans of %d x %d, %.1f MB each on disk\n\n", kScans, kWidth, kHeight,
              scan.size() / 1e6);
  std::printf("| %-34s | %8s | %8s | %8s |\n|---|---|---|---|\n", "measure", "seconds", "peak MB",
              "+MB");
  std::fflush(stdout);
  const std::string self = "'" + fs::canonical("/proc/self/exe").string() + "' ";
  const std::string first = "'" + (folder / "scan0.tif").string() + "'";
  int failures = 0;
  for (const std::string& args : {"--decode " + first + " 0 0", "--decode " + first + " 180 135",
                                  "--load '" + folder.string() + "'"}) {
    if (std::system((self + args).c_str()) != 0) {
      std::printf("| %-34s | failed |\n", args.c_str());
      ++failures;
    }
    std::fflush(stdout);
  }
  return failures == 0 ? 0 : 1;
}
