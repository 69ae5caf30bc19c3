#include "program/INIFunctions.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <optional>
#include <span>
#include <string_view>

#include "platform/os/ProfileString.h"
#include "platform/os/SettingsFile.h"
#include "platform/os/Utf.h"

namespace vellumry {

namespace {

// What every read passes as the default, so that a missing key shows as no number.
constexpr const char* kMissing = "?";

std::optional<long> leadingNumber(std::string_view text) {
  const auto start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return std::nullopt;
  text.remove_prefix(start);
  std::string_view digits = text;
  if (digits.starts_with('+') || digits.starts_with('-')) digits.remove_prefix(1);
  if (digits.empty() || !std::isdigit(static_cast<unsigned char>(digits.front()))) {
    return std::nullopt;
  }
  // from_chars takes a minus sign itself, so it starts there; a plus sign it must not see.
  const char* first = text.starts_with('-') ? text.data() : digits.data();
  long number = 0;
  const auto [end, error] = std::from_chars(first, text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  return number;
}

}  // namespace

std::string ReadIni(const std::string& file, const std::string& section, const std::string& key,
                    const std::string& def) {
  // The platform call gets a buffer of 256 blanks and is told it holds 255.
  std::u32string buffer(256, U' ');
  const std::size_t count =
      os::GetPrivateProfileString(section, key, def, std::span(buffer).first(255), file);
  return os::utf8FromChars(std::u32string_view(buffer).substr(0, count));
}

void WriteIni(const std::string& file, const std::string& section, const std::string& key,
              const std::string& value) {
  std::string line = value;
  std::ranges::replace_if(
      line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
  static_cast<void>(os::WritePrivateProfileString(section, key, line, file));
}

long readIniNumber(const std::string& file, const std::string& section, const std::string& key) {
  if (const auto number = leadingNumber(ReadIni(file, section, key, kMissing))) return *number;
  const auto fallback = os::defaultSetting(key);
  return fallback ? leadingNumber(*fallback).value_or(0) : 0;
}

}  // namespace vellumry
