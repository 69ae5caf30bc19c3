#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Plain std file access for tests, so that what is checked doesn't go through the code tested.
namespace testfiles {

inline void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::vector<std::string> FolderEntries(const std::string& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  std::ranges::sort(names);
  return names;
}

// Takes the owner's write permission from `folder` for the scope's life. Root ignores it, so
// a test checks Binds() and skips when it doesn't.
class ReadOnlyFolder {
 public:
  explicit ReadOnlyFolder(std::string folder) : folder_(std::move(folder)) {
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
  }
  ~ReadOnlyFolder() {
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
  }
  ReadOnlyFolder(const ReadOnlyFolder&) = delete;
  ReadOnlyFolder& operator=(const ReadOnlyFolder&) = delete;

  bool Binds() const { return ::access(folder_.c_str(), W_OK) != 0; }

 private:
  std::string folder_;
};

// A test with a fresh temporary folder of its own.
class TempFolderTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const {
    return dir_.filePath(QString::fromStdString(name)).toStdString();
  }
  std::string Folder() const { return dir_.path().toStdString(); }

  QTemporaryDir dir_;
};

}  // namespace testfiles
