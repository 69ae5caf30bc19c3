#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Plain std file access for tests, so that what is checked doesn't go through the code tested.
namespace testfiles {

inline void writeBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::vector<std::string> folderEntries(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

// A test with a fresh temporary folder of its own, and environment variables set for its life.
class TempFolderTest : public ::testing::Test {
 protected:
  ~TempFolderTest() override {
    for (auto it = saved_.rbegin(); it != saved_.rend(); ++it)
      it->second ? ::setenv(it->first, it->second->c_str(), 1) : ::unsetenv(it->first);
  }
  std::string Path(const std::string& name) const {
    return dir_.filePath(QString::fromStdString(name)).toStdString();
  }
  std::string folder() const { return dir_.path().toStdString(); }
  void setEnv(const char* name, const std::string& value) {
    const char* old = std::getenv(name);
    saved_.emplace_back(name, old ? std::optional<std::string>(old) : std::nullopt);
    ::setenv(name, value.c_str(), 1);
  }

  QTemporaryDir dir_;
  std::vector<std::pair<const char*, std::optional<std::string>>> saved_;
};

}  // namespace testfiles
