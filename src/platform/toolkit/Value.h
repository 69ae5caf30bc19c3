#pragma once
// A property value as code, the driver and the presenter read and write it by name.

#include <string>
#include <string_view>
#include <variant>

namespace vellumry::tk {

using Value = std::variant<std::monostate, bool, double, std::string>;

// Conversions as the toolkit's own assignment makes them; a text that is no number, given to
// a number, is an "Invalid property value".
double toNumber(const Value& v);
bool toBool(const Value& v);
std::string toText(const Value& v);

// Case-blind equality of ASCII names.
bool iequals(std::string_view a, std::string_view b);
// Every letter in capitals, accented ones too ("été" gives "ÉTÉ"); text that isn't UTF-8, such as
// a file name in another encoding, has only its ASCII letters changed.
std::string toUpper(std::string_view s);
// `s` without the blanks at its ends, as the toolkit's Trim: spaces only, tabs stay.
std::string Trim(std::string_view s);

}  // namespace vellumry::tk

namespace vellumry::tk {
// `s` as a JSON string, quotes included.
std::string jsonQuote(std::string_view s);
}  // namespace vellumry::tk
