#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

// Stand-ins for the platform's profile-string calls, on UTF-8 files. Counts and sizes are in
// characters (Unicode code points).
namespace vellumry::os {

// Copies the value of `key` in `section` of `file` into `buffer`, followed by a NUL, and returns
// the number of characters copied before the NUL. A value longer than buffer.size() - 1 is cut
// there. A missing file, section or key gives `def` without its trailing blanks; an empty
// value gives an empty text, not `def`. An empty buffer receives nothing and gives 0.
std::size_t GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view def, std::span<char32_t> buffer,
                                    const std::string& file);

// Sets `key` in `section` of `file` to `value`, creating the file, the section or the key as
// needed and leaving every other line as it was. The file is replaced whole and atomically, so
// a failed write leaves the old file. True on success.
[[nodiscard]] bool WritePrivateProfileString(std::string_view section, std::string_view key,
                                             std::string_view value, const std::string& file);

}  // namespace vellumry::os
