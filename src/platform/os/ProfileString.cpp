#include "platform/os/ProfileString.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/os/FileSystem.h"
#include "platform/os/ProfileDocument.h"
#include "platform/os/Utf.h"

namespace vellumry::os {

namespace {

std::string_view asText(const std::vector<uint8_t>& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

std::size_t GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view def, std::span<char32_t> buffer,
                                    const std::string& file) {
  if (buffer.empty()) return 0;
  std::optional<std::string> value;
  if (const auto bytes = readWholeFile(file))
    value = ProfileDocument(asText(*bytes)).Value(section, key);
  if (!value) value = std::string(def.substr(0, def.find_last_not_of(' ') + 1));
  const std::u32string chars = charsFromUtf8(*value);
  const std::size_t count = std::min(chars.size(), buffer.size() - 1);
  std::copy_n(chars.begin(), count, buffer.begin());
  buffer[count] = U'\0';
  return count;
}

bool WritePrivateProfileString(std::string_view section, std::string_view key,
                               std::string_view value, const std::string& file) {
  return updateFileAtomically(file, [&](const std::optional<std::vector<uint8_t>>& old) {
    ProfileDocument document(old ? asText(*old) : std::string_view());
    document.setValue(section, key, value);
    return std::optional<std::string>(document.bytes());
  });
}

}  // namespace vellumry::os
