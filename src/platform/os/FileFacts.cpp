#include "platform/os/FileFacts.h"

#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>

namespace vellumry::os {

namespace {
std::string localDateTime(const QDateTime& when) {
  return QLocale::system().toString(when, QLocale::ShortFormat).toStdString();
}
}  // namespace

std::optional<FileFacts> GetFile(const std::string& path) {
  const QFileInfo info(QString::fromStdString(path));
  if (!info.isFile()) return std::nullopt;
  FileFacts facts;
  facts.Name = info.fileName().toStdString();
  facts.Path = path;
  facts.Type = QMimeDatabase().mimeTypeForFile(info).comment().toStdString();
  facts.Size = static_cast<uint64_t>(info.size());
  facts.DateLastModified = localDateTime(info.lastModified());
  facts.DateLastAccessed = localDateTime(info.lastRead());
  return facts;
}

}  // namespace vellumry::os
