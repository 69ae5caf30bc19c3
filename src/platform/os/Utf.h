#pragma once

#include <string>
#include <string_view>

namespace vellumry::os {

// Text is UTF-8 in std::string and on disk; a "character" is one Unicode code point.
// Bytes that aren't valid UTF-8 become U+FFFD.
std::u32string charsFromUtf8(std::string_view utf8);
std::string utf8FromChars(std::u32string_view chars);

}  // namespace vellumry::os
