#include "platform/os/FileSystem.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>

namespace vellumry::os {

namespace fs = std::filesystem;

namespace {

// Large pictures are copied in pieces rather than read whole into memory.
constexpr size_t kCopyChunkBytes = size_t{1} << 20;

// A new file beside `path` that takes its place on Commit and is removed if it never does.
// Names are passed to the system as the bytes they are, so no name is ever mangled.
class ReplacingFile {
 public:
  // With `mode` the new file gets it; without, it takes the mode of the file it replaces.
  explicit ReplacingFile(const std::string& path, std::optional<mode_t> mode = std::nullopt)
      : path_(path) {
    static std::atomic<unsigned> serial{0};
    temporary_ = path + ".tmp-" + std::to_string(::getpid()) + "-" + std::to_string(serial++);
    fd_ = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode.value_or(0666));
    struct stat old {};
    if (mode) {
      if (fd_ >= 0) ::fchmod(fd_, *mode);
    } else if (fd_ >= 0 && ::stat(path.c_str(), &old) == 0) {
      ::fchmod(fd_, old.st_mode & 07777);
    }
  }
  ~ReplacingFile() {
    if (fd_ >= 0) ::close(fd_);
    if (!committed_) ::unlink(temporary_.c_str());
  }
  ReplacingFile(const ReplacingFile&) = delete;
  ReplacingFile& operator=(const ReplacingFile&) = delete;

  bool opened() const { return fd_ >= 0; }
  bool write(const char* data, size_t size) {
    while (size > 0) {
      const ssize_t n = ::write(fd_, data, size);
      if (n < 0 && errno == EINTR) continue;
      if (n <= 0) return false;
      data += n, size -= static_cast<size_t>(n);
    }
    return true;
  }
  // To the disk, so that a crash after the rename can't leave an empty file behind.
  bool flush() { return ::fsync(fd_) == 0; }
  bool commit() {
    const int fd = fd_;
    fd_ = -1;
    committed_ = ::close(fd) == 0 && ::rename(temporary_.c_str(), path_.c_str()) == 0;
    return committed_;
  }

 private:
  std::string path_, temporary_;
  int fd_ = -1;
  bool committed_ = false;
};

}  // namespace

bool FolderExists(const std::string& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

bool FileExists(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

bool CopyFile(const std::string& from, const std::string& to, bool overwrite) {
  std::error_code error;
  if (!FileExists(from) || (!overwrite && fs::exists(fs::symlink_status(to, error)))) return false;
  std::ifstream in(from, std::ios::binary);
  ReplacingFile out(to);
  if (!in || !out.opened()) return false;
  std::vector<char> chunk(kCopyChunkBytes);
  while (in) {
    in.read(chunk.data(), static_cast<std::streamsize>(chunk.size()));
    if (!out.write(chunk.data(), static_cast<size_t>(in.gcount()))) return false;
  }
  return in.eof() && out.flush() && out.commit();
}

std::optional<std::vector<uint8_t>> readWholeFile(const std::string& path) {
  return readFileStart(path, SIZE_MAX);
}

std::optional<std::vector<uint8_t>> readFileStart(const std::string& path, size_t limit) {
  if (!FileExists(path)) return std::nullopt;
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  if (!file) return std::nullopt;
  const auto count = static_cast<size_t>(std::min<uint64_t>(file.tellg(), limit));
  std::vector<uint8_t> bytes(count);
  file.seekg(0);
  if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count))) {
    return std::nullopt;
  }
  return bytes;
}

namespace {

std::string folderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

// The file that `path` leads to through its symbolic links, or `path` itself.
std::string linkTarget(std::string path) {
  for (int hops = 0; hops < 40; ++hops) {
    struct stat st {};
    if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return path;
    std::string target(PATH_MAX, '\0');
    const ssize_t n = ::readlink(path.c_str(), target.data(), target.size());
    if (n <= 0) return path;
    target.resize(static_cast<size_t>(n));
    path = target[0] == '/' ? target : folderOf(path) + target;
  }
  return path;
}

// The lock of a folder, held while a file in it is read and replaced: a second program's writes
// there wait for it.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder)
      : fd_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    while (fd_ >= 0 && ::flock(fd_, LOCK_EX) != 0 && errno == EINTR) {
    }
  }
  ~FolderLock() {
    if (fd_ >= 0) ::close(fd_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int fd_;
};

// So that the rename itself survives a crash.
bool flushFolder(const std::string& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool flushed = fd >= 0 && ::fsync(fd) == 0;
  if (fd >= 0) ::close(fd);
  return flushed;
}

bool replaceFile(const std::string& path, std::string_view bytes, const WriteFault& fault,
                 std::optional<mode_t> mode, bool durable) {
  auto proceed = [&](WriteStep step) { return !fault || fault(step); };
  if (!proceed(WriteStep::Open)) return false;
  ReplacingFile out(path, mode);
  if (!out.opened()) return false;
  if (!proceed(WriteStep::Write)) {
    out.write(bytes.data(), bytes.size() / 2);  // a disk that fills up midway
    return false;
  }
  if (!out.write(bytes.data(), bytes.size())) return false;
  if (!proceed(WriteStep::Flush) || (durable && !out.flush())) return false;
  if (!proceed(WriteStep::Rename) || !out.commit()) return false;
  return !durable || (proceed(WriteStep::FlushFolder) && flushFolder(folderOf(path)));
}

}  // namespace

bool writeFileAtomically(const std::string& path, std::string_view bytes, const WriteFault& fault) {
  const std::string target = linkTarget(path);
  FolderLock lock(folderOf(target));
  return replaceFile(target, bytes, fault, std::nullopt, true);
}

bool updateFileAtomically(const std::string& path, const FileChange& change) {
  const std::string target = linkTarget(path);
  FolderLock lock(folderOf(target));
  std::optional<std::vector<uint8_t>> old;
  if (FileExists(target) && !(old = readWholeFile(target))) return false;
  const std::optional<std::string> bytes = change(old);
  return !bytes || replaceFile(target, *bytes, {}, std::nullopt, true);
}

bool writePrivateFileAtomically(const std::string& path, std::string_view bytes) {
  return replaceFile(path, bytes, {}, 0600, false);
}

}  // namespace vellumry::os
