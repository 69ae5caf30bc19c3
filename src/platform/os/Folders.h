#pragma once

#include <string>

// The folders the program works with. Paths are UTF-8, without a trailing '/'.
namespace vellumry::os {

// What follows the last '/' of `path`, blanks kept: a folder's own name, empty for the root.
std::string lastComponent(const std::string& path);

// The folder of the running executable; empty if it can't be found.
std::string executableFolder();

// The install folder, which the program keeps as a per-user setting elsewhere; here it is
// the executable's folder.
std::string installFolder();

// Where the stored pictures (ui/) and the help page (help/) lie: beside the executable in the
// build tree, else in share/vellumry of the prefix that the executable's bin/ belongs to.
std::string dataFolderFor(const std::string& executableFolder);

// The user's pictures folder, or the home folder when there is none.
std::string picturesFolder();

// Where the settings file and the link list live: `programFolder` when it holds the settings
// file and may be written, else `fallbackFolder`, which is created when missing.
std::string settingsFolderFor(const std::string& programFolder, const std::string& fallbackFolder);

// settingsFolderFor the executable's folder and the program's folder in the user's
// configuration folder ($XDG_CONFIG_HOME/vellumry).
std::string settingsFolder();

}  // namespace vellumry::os
