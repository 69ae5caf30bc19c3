// What each picture bomb costs through the whole program: the time from the first loading tick
// until the grid is loaded and its cells decoded, and how much the peak memory grows meanwhile,
// beside a normal 12 MP JPEG. Each file runs in a process of its own, so that one file's peak
// can't hide another's. Run by hand: picture_bombs [folder for the made files].
#include "codecs/PictureBombs.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "HeadlessProgram.h"
#include "codecs/TestImages.h"
#include "shell/Form1.h"

using namespace vellumry;
namespace fs = std::filesystem;

namespace {

void write(const fs::path& file, const std::vector<uint8_t>& bytes) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
}

// In the child: loads the folder that holds one file and prints one row of the table.
int measureOne(const fs::path& folder) {
  bench::HeadlessProgram run(folder, folder.parent_path() / (folder.filename().string() + "-home"));
  const long before = bench::peakKilobytes();
  const double seconds = run.loadSeconds();
  const long growth = bench::peakKilobytes() - before;
  Form1& form = run.program.Form1();
  const bool shown = form.nCount == 1 && form.Image123(1).Visible();
  std::printf("| %-32s | %8.3f | %9.1f | %-7s |\n", folder.filename().c_str(), seconds,
              growth / 1024.0, shown ? "shown" : "refused");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string(argv[1]) == "--one") return measureOne(argv[2]);
  const fs::path root =
      argc > 1 ? fs::path(argv[1]) : fs::temp_directory_path() / "vellumry-picture-bombs";
  fs::remove_all(root);
  std::vector<codecs::testing::PictureBomb> files = codecs::testing::pictureBombs();
  files.push_back(codecs::testing::largestPng());
  files.push_back({"normal-4000x3000.jpg", codecs::testing::makeJpeg(4000, 3000)});
  std::printf("| %-32s | %8s | %9s | %-7s |\n|---|---|---|---|\n", "file", "seconds", "peak +MB",
              "cell");
  std::fflush(stdout);
  const std::string self = fs::canonical("/proc/self/exe").string();
  int failures = 0;
  for (const auto& file : files) {
    const fs::path folder = root / file.name;
    write(folder / file.name, file.bytes);
    if (std::system(("'" + self + "' --one '" + folder.string() + "'").c_str()) != 0) {
      std::printf("| %-32s | crashed |\n", file.name.c_str());
      ++failures;
    }
    std::fflush(stdout);
  }
  return failures == 0 ? 0 : 1;
}
