#pragma once
// The whole program headless on the real clock, for benchmarks that measure what a user waits
// for, and the peak memory of the process.
#include <filesystem>

#include "platform/toolkit/HeadlessHost.h"
#include "program/Program.h"

namespace vellumry::bench {

// Peak resident memory of this process so far, in kilobytes.
long peakKilobytes();

// The program on a 1920 x 1080 screen with six rows, its settings in `home`, opening `folder`.
// The shared thumbnail cache is `home`/cache, used only with `thumbnailCache`, so that runs
// measure decoding unless they ask for the cache.
struct HeadlessProgram {
  HeadlessProgram(const std::filesystem::path& folder, const std::filesystem::path& home,
                  bool thumbnailCache = false);
  // Runs the start, then Timer1's ticks and pres on each file until the grid is loaded and
  // every cell's pixels are decoded. Seconds from the first tick.
  double loadSeconds();

  tk::HeadlessHost host;
  Program program;
};

}  // namespace vellumry::bench
