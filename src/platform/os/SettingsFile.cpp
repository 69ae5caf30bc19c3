#include "platform/os/SettingsFile.h"

#include <algorithm>
#include <cctype>

#include "platform/os/FileSystem.h"
#include "platform/os/ProfileDocument.h"

namespace vellumry::os {

std::optional<std::string_view> defaultSetting(std::string_view key) {
  const auto sameKey = [key](const SettingDefault& setting) {
    return std::ranges::equal(setting.key, key, [](unsigned char a, unsigned char b) {
      return std::tolower(a) == std::tolower(b);
    });
  };
  const auto found = std::ranges::find_if(kSettingDefaults, sameKey);
  if (found == kSettingDefaults.end()) return std::nullopt;
  return found->value;
}

bool createSettingsFileIfMissing(const std::string& path) {
  if (FileExists(path)) return true;
  // Checked again under the lock: another program may have made it meanwhile.
  return updateFileAtomically(path, [](const std::optional<std::vector<uint8_t>>& old) {
    if (old) return std::optional<std::string>();
    ProfileDocument document("");
    for (const auto& [key, value] : kSettingDefaults)
      document.setValue(kSettingsSection, key, value);
    return std::optional<std::string>(document.bytes());
  });
}

}  // namespace vellumry::os
