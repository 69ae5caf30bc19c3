#include "HeadlessProgram.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>

#include "picture/PictureServices.h"
#include "platform/os/SettingsFile.h"
#include "program/INIFunctions.h"
#include "shell/Form1.h"
#include "shell/Main.h"

namespace vellumry::bench {

namespace fs = std::filesystem;

long peakKilobytes() {
  std::ifstream status("/proc/self/status");
  std::string line;
  while (std::getline(status, line)) {
    if (line.rfind("VmHWM:", 0) == 0) return std::stol(line.substr(6));
  }
  return -1;
}

namespace {
const fs::path& settingsIn(const fs::path& home, bool thumbnailCache) {
  fs::create_directories(home);
  const std::string ini = (home / "OstrelWorks.INI").string();
  os::createSettingsFileIfMissing(ini);
  WriteIni(ini, "Settings", "rows", "6");
  WriteIni(ini, "Settings", "thumbcache", thumbnailCache ? "1" : "0");
  ::setenv("XDG_CACHE_HOME", (home / "cache").c_str(), 1);
  return home;
}
}  // namespace

HeadlessProgram::HeadlessProgram(const fs::path& folder, const fs::path& home, bool thumbnailCache)
    : program(host, tk::EventLoop::Clock::Real, tk::Screen::ofPixels(1920, 1080),
              {settingsIn(home, thumbnailCache).string(), home.string(), folder.string()}) {
  Main(program);
}

double HeadlessProgram::loadSeconds() {
  tk::EventLoop& loop = program.runtime.loop();
  auto step = [&] {
    const int64_t wait = loop.runDue();
    if (wait > 0) std::this_thread::sleep_for(std::chrono::milliseconds(wait));
  };
  while (program.Form1().Timer1.Interval() == 0) step();
  const auto start = std::chrono::steady_clock::now();
  while (!program.Form1().bLoaded) step();
  program.pictures().drain();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace vellumry::bench
