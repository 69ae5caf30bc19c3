#pragma once
// The words of a driver line: split at blanks, a word in double quotes read as a JSON string.

#include <string>
#include <vector>

#include "platform/toolkit/Value.h"

namespace vellumry {

// Splits `line` into words; a malformed JSON string is a tk::Error.
std::vector<std::string> splitWords(const std::string& line);
// A value as written in a script: true/false, a number, else the text itself.
tk::Value parseValue(const std::string& word);
// A value as the driver prints it: shortest round-trip numbers, JSON strings, true/false.
std::string formatValue(const tk::Value& v);

}  // namespace vellumry
