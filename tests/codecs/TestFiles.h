#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "Corpus.h"
#include "platform/codecs/Codecs.h"
#include "platform/gdi/LockBits.h"

namespace vellumry::codecs::testing {

// Conformance files live beside the project, not in it; tests skip when they are absent.
inline std::filesystem::path corpus(const std::string& relative) {
  return std::filesystem::path("../shared/corpus") / relative;
}

inline std::vector<uint8_t> ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Every regular file below `dir`, sorted, leaving out the suites' text files.
inline std::vector<std::filesystem::path> filesBelow(const std::filesystem::path& dir) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(dir)) {
    const auto ext = entry.path().extension();
    if (entry.is_regular_file() && ext != ".md" && ext != ".txt" && ext != ".html" &&
        ext != ".json" && ext != ".toml") {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

// Straight BGRA bytes of a decoded surface; opaque and unknown-alpha pixels count as alpha 255.
inline std::vector<uint8_t> bgra(const gdi::Surface& surface) {
  return gdi::lockBits(surface, gdi::LockFormat::kBgra32Straight).bytes;
}

// Largest difference over the colour of visible pixels and over alpha.
inline int maxDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
  if (a.size() != b.size()) return 256;
  int worst = 0;
  for (size_t i = 0; i < a.size(); i += 4) {
    worst = std::max(worst, std::abs(a[i + 3] - b[i + 3]));
    if (a[i + 3] == 0 && b[i + 3] == 0) continue;
    for (int c = 0; c < 3; ++c) worst = std::max(worst, std::abs(a[i + c] - b[i + c]));
  }
  return worst;
}

inline std::vector<uint8_t> referencePng(const std::filesystem::path& path) {
  auto decoded = decode(ReadFile(path));
  return decoded ? bgra(decoded->surface) : std::vector<uint8_t>{};
}

// The reference picture of each file of a bmpsuite folder ("g", "q", "b"), by file name: the
// suite's page shows each file after its reference picture.
inline std::map<std::string, std::string> bmpSuiteReferences(const std::string& folder) {
  std::map<std::string, std::string> references;
  std::string lastPng;
  const std::vector<uint8_t> html = ReadFile(corpus("bmpsuite/html/bmpsuite.html"));
  const std::string page(html.begin(), html.end());
  const std::string prefix = "../" + folder + "/";
  for (size_t at = page.find("src=\""); at != std::string::npos; at = page.find("src=\"", at + 1)) {
    const std::string src = page.substr(at + 5, page.find('"', at + 5) - at - 5);
    if (src.ends_with(".png")) lastPng = src;
    if (src.starts_with(prefix)) references[src.substr(prefix.size())] = lastPng;
  }
  return references;
}

#define SKIP_WITHOUT(path) NEED_CORPUS(std::filesystem::exists(path), path)

}  // namespace vellumry::codecs::testing
