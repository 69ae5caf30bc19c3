#pragma once
// Where the desktop's shared thumbnail cache keeps its entries, and how an entry is named:
// the MD5 of the picture file's URI. The programs of a desktop read each other's entries.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellumry::os {

// `$XDG_CACHE_HOME/thumbnails`, or `~/.cache/thumbnails` when that isn't set or isn't absolute.
std::string thumbnailRoot();

// The `file://` URI of `path` made absolute and normal ("a/../b" is "b"), its bytes escaped as
// RFC 2396 asks of a path: letters, digits, `-_.!~*'()` and `/:@&=+$,` stay, every other byte
// becomes `%XX` in upper-case hex.
std::string fileUri(const std::string& path);

// The file name of `uri`'s entry: its MD5 in lower-case hex, then ".png".
std::string thumbnailName(std::string_view uri);

// What an entry remembers of its file: the modification time in whole seconds since 1970, and
// the length in bytes. Nothing when `path` isn't a file that can be read.
struct FileStamp {
  int64_t mtime = 0;
  uint64_t size = 0;
};
std::optional<FileStamp> stampOf(const std::string& path);

// Makes the folder `path` and any missing parents with mode 0700. True when it is there.
bool makePrivateFolder(const std::string& path);

}  // namespace vellumry::os
