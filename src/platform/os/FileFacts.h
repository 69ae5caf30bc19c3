#pragma once
// What the desktop tells of one file: its name, its type as the shared MIME database describes
// it, its size, and its dates as the user's locale writes them.

#include <cstdint>
#include <optional>
#include <string>

namespace vellumry::os {

struct FileFacts {
  std::string Name;  // the last component of the path
  std::string Path;  // the full path as given
  std::string Type;  // "PNG image": the comment of the file's MIME type
  uint64_t Size = 0;
  std::string DateLastModified, DateLastAccessed;  // the locale's short date and time
};

// The facts of the file `path`; nothing when it isn't a file that can be read.
std::optional<FileFacts> GetFile(const std::string& path);

}  // namespace vellumry::os
