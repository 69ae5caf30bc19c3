#include "platform/os/FileSystem.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QString>
#include <algorithm>
#include <cstdint>

namespace vellumry::os {

namespace {

// Large pictures are copied in pieces rather than read whole into memory.
constexpr qint64 kCopyChunkBytes = qint64{1} << 20;

QString ToQt(const std::string& path) { return QString::fromStdString(path); }

// QSaveFile::commit can report success although the last buffered bytes failed to reach the
// disk, so the flush is checked first; without a commit the temporary file is discarded.
bool FlushAndCommit(QSaveFile& out) { return out.flush() && out.commit(); }

}  // namespace

bool FolderExists(const std::string& path) { return QFileInfo(ToQt(path)).isDir(); }

bool FileExists(const std::string& path) { return QFileInfo(ToQt(path)).isFile(); }

bool CopyFile(const std::string& from, const std::string& to, bool overwrite) {
  if (!FileExists(from) || (!overwrite && QFileInfo::exists(ToQt(to)))) return false;
  QFile in(ToQt(from));
  QSaveFile out(ToQt(to));
  if (!in.open(QIODevice::ReadOnly) || !out.open(QIODevice::WriteOnly)) return false;
  for (QByteArray chunk; !(chunk = in.read(kCopyChunkBytes)).isEmpty();) {
    if (out.write(chunk) != chunk.size()) return false;
  }
  return in.error() == QFileDevice::NoError && FlushAndCommit(out);
}

bool DeleteFile(const std::string& path) { return FileExists(path) && QFile::remove(ToQt(path)); }

std::optional<std::vector<uint8_t>> ReadWholeFile(const std::string& path) {
  return ReadFileStart(path, SIZE_MAX);
}

std::optional<std::vector<uint8_t>> ReadFileStart(const std::string& path, size_t limit) {
  if (!FileExists(path)) return std::nullopt;
  QFile file(ToQt(path));
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  const qint64 count = static_cast<qint64>(std::min<uint64_t>(file.size(), limit));
  std::vector<uint8_t> bytes(static_cast<size_t>(count));
  if (file.read(reinterpret_cast<char*>(bytes.data()), count) != count) return std::nullopt;
  return bytes;
}

bool WriteFileAtomically(const std::string& path, std::string_view bytes, const WriteFault& fault) {
  auto proceed = [&](WriteStep step) { return !fault || fault(step); };
  // Until commit renames it, everything goes to the temporary file, which QSaveFile discards
  // when it is destroyed without a commit.
  QSaveFile out(ToQt(path));
  if (!proceed(WriteStep::Open) || !out.open(QIODevice::WriteOnly)) return false;
  const auto size = static_cast<qint64>(bytes.size());
  if (!proceed(WriteStep::Write)) {
    out.write(bytes.data(), size / 2);  // a disk that fills up midway
    return false;
  }
  if (out.write(bytes.data(), size) != size) return false;
  if (!proceed(WriteStep::Flush) || !out.flush()) return false;
  return proceed(WriteStep::Rename) && out.commit();
}

}  // namespace vellumry::os
