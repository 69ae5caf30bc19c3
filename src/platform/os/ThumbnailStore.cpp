#include "platform/os/ThumbnailStore.h"

#include <sys/stat.h>

#include <QCryptographicHash>
#include <QDir>
#include <cstdlib>
#include <filesystem>

#include "platform/os/Utf.h"

namespace vellumry::os {

std::string thumbnailRoot() {
  const char* cache = std::getenv("XDG_CACHE_HOME");
  if (cache && cache[0] == '/') return std::string(cache) + "/thumbnails";
  return QDir::homePath().toStdString() + "/.cache/thumbnails";
}

std::string fileUri(const std::string& path) {
  std::error_code error;
  auto absolute = std::filesystem::absolute(path, error);
  if (error) absolute = path;
  return "file://" + percentEscaped(absolute.lexically_normal().string());
}

std::string thumbnailName(std::string_view uri) {
  const QByteArray digest = QCryptographicHash::hash(
      QByteArrayView(uri.data(), static_cast<qsizetype>(uri.size())), QCryptographicHash::Md5);
  return digest.toHex().toStdString() + ".png";
}

std::optional<FileStamp> stampOf(const std::string& path) {
  struct stat facts {};
  if (::stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
  return FileStamp{static_cast<int64_t>(facts.st_mtime), static_cast<uint64_t>(facts.st_size)};
}

bool makePrivateFolder(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return true;
  const auto parent = std::filesystem::path(path).parent_path();
  if (parent != path && !parent.empty() && !makePrivateFolder(parent.string())) return false;
  return ::mkdir(path.c_str(), 0700) == 0 || std::filesystem::is_directory(path, error);
}

}  // namespace vellumry::os
