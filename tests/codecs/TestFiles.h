#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace vellumry::codecs::testing {

// Conformance files live beside the project, not in it; tests skip when they are absent.
inline std::filesystem::path Corpus(const std::string& relative) {
  return std::filesystem::path("../shared/corpus") / relative;
}

inline std::vector<uint8_t> ReadFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Every regular file below `dir`, sorted, leaving out the suites' text files.
inline std::vector<std::filesystem::path> FilesBelow(const std::filesystem::path& dir) {
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

#define SKIP_WITHOUT(path) \
  if (!std::filesystem::exists(path)) GTEST_SKIP() << "corpus not present: " << (path)

}  // namespace vellumry::codecs::testing
