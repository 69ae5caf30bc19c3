#include "platform/os/Folders.h"

#include <unistd.h>

#include <QDir>
#include <QStandardPaths>
#include <QString>
#include <filesystem>
#include <system_error>

#include "platform/os/FileSystem.h"
#include "platform/os/SettingsFile.h"

namespace vellumry::os {

std::string lastComponent(const std::string& path) { return path.substr(path.rfind('/') + 1); }

namespace {

constexpr const char* kConfigFolderName = "/vellumry";

bool folderWritable(const std::string& path) { return ::access(path.c_str(), W_OK) == 0; }

}  // namespace

std::string executableFolder() {
  std::error_code error;
  const auto exe = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string() : exe.parent_path().string();
}

std::string installFolder() { return executableFolder(); }

std::string dataFolderFor(const std::string& executableFolder) {
  if (FolderExists(executableFolder + "/ui")) return executableFolder;
  const auto prefix = std::filesystem::path(executableFolder).parent_path();
  return (prefix / "share" / "vellumry").string();
}

std::string picturesFolder() {
  const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  if (!pictures.isEmpty() && FolderExists(pictures.toStdString())) return pictures.toStdString();
  return QDir::homePath().toStdString();
}

std::string settingsFolderFor(const std::string& programFolder, const std::string& fallbackFolder) {
  const std::string settings = programFolder + "/" + std::string(kSettingsFileName);
  if (FileExists(settings) && folderWritable(programFolder)) return programFolder;
  QDir().mkpath(QString::fromStdString(fallbackFolder));
  return fallbackFolder;
}

std::string settingsFolder() {
  const QString config = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return settingsFolderFor(executableFolder(), config.toStdString() + kConfigFolderName);
}

}  // namespace vellumry::os
