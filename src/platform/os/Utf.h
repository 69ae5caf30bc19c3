#pragma once

#include <string>
#include <string_view>

namespace vellumry::os {

// Text is UTF-8 in std::string and on disk; a "character" is one Unicode code point.
// Bytes that aren't valid UTF-8 become U+FFFD.
std::u32string charsFromUtf8(std::string_view utf8);
std::string utf8FromChars(std::u32string_view chars);

// Names as a URI's path holds them: every byte but the unreserved ones and those a path may
// hold as they are ("/", ":", "@" ...) written as %XX.
std::string percentEscaped(std::string_view bytes);

}  // namespace vellumry::os
