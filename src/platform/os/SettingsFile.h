#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

// The program's settings file: its name, its section and the values a new one starts with.
namespace vellumry::os {

inline constexpr std::string_view kSettingsFileName = "OstrelWorks.INI";
inline constexpr std::string_view kSettingsSection = "Settings";

struct SettingDefault {
  std::string_view key;
  std::string_view value;
};

// The fourteen keys of the section, in the order a new file lists them. Colours are 0x00BBGGRR.
inline constexpr std::array<SettingDefault, 14> kSettingDefaults{{
    {"rows", "4"},
    {"frameprop", "0"},
    {"gformc", "4210752"},  // 0x404040, dark grey
    {"gselfrc", "33023"},   // 0x0080FF, orange
    {"slsh", "5"},
    {"anigifp", "1"},
    {"showmb", "1"},
    {"dest", ""},
    {"Inw", "<"},
    {"showll", "1"},
    {"lnvar", "1"},
    {"beeps", "1"},
    {"sautor", "0"},
    {"thumbcache", "1"},
}};

// The default of `key` (case-blind), or nullopt for a key that isn't one of the settings.
std::optional<std::string_view> defaultSetting(std::string_view key);

// Creates the settings file `path` with the section and every key at its default, unless the
// file exists already. True when the file exists afterwards.
bool createSettingsFileIfMissing(const std::string& path);

}  // namespace vellumry::os
