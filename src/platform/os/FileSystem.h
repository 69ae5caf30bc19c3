#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Paths are the bytes of the file system's names (UTF-8 where the names are), passed on
// unchanged. No function throws; each reports failure by its result.
namespace vellumry::os {

// True when `path` names a folder (or a link to one).
bool FolderExists(const std::string& path);

// True when `path` names a regular file (or a link to one) whose length can be read.
bool FileExists(const std::string& path);

// Copies the file `from` to `to`. With `overwrite` false an existing `to` is left alone and the
// copy fails. The copy goes through a temporary file beside `to` that is renamed over it at the
// end, so `to` holds either its old bytes or all of the new ones. True on success.
bool CopyFile(const std::string& from, const std::string& to, bool overwrite);

// The whole content of the file `path`; nullopt when it is missing or can't be read.
std::optional<std::vector<uint8_t>> readWholeFile(const std::string& path);

// The first `limit` bytes of the file `path`, or all of it when it is shorter; nullopt when it is
// missing or can't be read.
std::optional<std::vector<uint8_t>> readFileStart(const std::string& path, size_t limit);

// The steps of a whole-file write, in order.
enum class WriteStep { Open, Write, Flush, Rename, FlushFolder };
// Asked before each step; false makes that step fail as a full disk or a lost device would
// (a failing Write writes half of the bytes first; after a failing FlushFolder the new bytes
// stand, but may not survive a crash). For tests of interrupted writes.
using WriteFault = std::function<bool(WriteStep)>;

// Replaces the file `path` by `bytes`: written to a temporary file in the same folder, flushed
// to disk, renamed over `path`, and the folder flushed too. A `path` that is a symbolic link is
// written through to the file it leads to; the link stays. While it writes it holds the lock of
// that folder (see updateFileAtomically). On failure `path` keeps its old bytes and no temporary
// file stays behind. True on success.
bool writeFileAtomically(const std::string& path, std::string_view bytes,
                         const WriteFault& fault = {});

// The new bytes of a file from its old ones (nullopt: there is no file); nullopt leaves it as is.
using FileChange =
    std::function<std::optional<std::string>(const std::optional<std::vector<uint8_t>>& old)>;

// Reads the file `path`, changes it by `change` and writes the result as writeFileAtomically
// does, all under an exclusive lock of the file's folder that every write here takes: two
// programs that change one file at once each see the other's change, and neither's is lost.
// False when the file can't be read or written; true when `change` left it as it was.
bool updateFileAtomically(const std::string& path, const FileChange& change);

// As writeFileAtomically, for a file only its owner may read or write (mode 0600, whatever the
// replaced file had) and that can be made again: it isn't flushed to disk before the rename, so
// a crash may leave it empty, as its readers must expect of any file.
bool writePrivateFileAtomically(const std::string& path, std::string_view bytes);

}  // namespace vellumry::os
