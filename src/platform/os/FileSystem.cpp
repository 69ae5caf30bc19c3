#include "platform/os/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
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

namespace {
// The user's own trash, made where it is missing: without it Qt may put a file into a trash
// folder relative to the working folder.
bool homeTrashStands() {
  const QString trash =
      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Trash";
  return trash.startsWith('/') && QDir().mkpath(trash + "/files") && QDir().mkpath(trash + "/info");
}
}  // namespace

bool discardFile(const std::string& path) {
  if (!FileExists(path)) return false;
  // Qt names files by text: a name that doesn't come back as the same bytes could name
  // another file, so it is deleted by its bytes instead.
  const QByteArray bytes = QByteArray::fromStdString(path);
  const QString name = QFile::decodeName(bytes);
  if (QFile::encodeName(name) == bytes && homeTrashStands() && QFile::moveToTrash(name))
    return true;
  return ::unlink(path.c_str()) == 0;
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
  return proceed(WriteStep::Rename) && out.commit();
}

}  // namespace

bool writeFileAtomically(const std::string& path, std::string_view bytes, const WriteFault& fault) {
  return replaceFile(path, bytes, fault, std::nullopt, true);
}

bool writePrivateFileAtomically(const std::string& path, std::string_view bytes) {
  return replaceFile(path, bytes, {}, 0600, false);
}

}  // namespace vellumry::os
