#pragma once

#include <string>

namespace vellumry {

// The routines through which the program reads and writes its settings file. All text is UTF-8.

// The value of `key` in `section` of `file`, cut at 254 characters; `def` when the file or the
// key is missing. An empty value gives an empty text, not `def`.
std::string ReadIni(const std::string& file, const std::string& section, const std::string& key,
                    const std::string& def);

// Writes `value` to `key` in `section` of `file`, each CR and each LF turned into one blank so
// that the value stays on its line. A file that can't be written loses the change silently.
void WriteIni(const std::string& file, const std::string& section, const std::string& key,
              const std::string& value);

// A numeric setting: the value read as a whole number (leading blanks, an optional sign, decimal
// digits, anything behind them ignored). A value that holds no such number, or one too large
// for a long, gives the key's default from the settings table, without a message; 0 when the
// key has no numeric default.
long readIniNumber(const std::string& file, const std::string& section, const std::string& key);

}  // namespace vellumry
