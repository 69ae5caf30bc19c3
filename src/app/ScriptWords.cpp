#include "app/ScriptWords.h"

#include <charconv>

#include "platform/os/Utf.h"
#include "platform/toolkit/Error.h"

namespace vellumry {

namespace {
// The four hex digits behind `\u` at `at`; `at` moves onto the last of them.
unsigned readHex4(const std::string& line, size_t& at) {
  unsigned code = 0;
  const char* first = line.data() + at + 1;
  const char* last = first + 4;
  if (at + 4 >= line.size() || std::from_chars(first, last, code, 16).ptr != last)
    tk::raise(tk::err::InvalidCall, "bad \\u escape");
  at += 4;
  return code;
}

// A `\u` escape at `at`, with the low half that must follow a high surrogate.
uint32_t readCodePoint(const std::string& line, size_t& at) {
  const unsigned code = readHex4(line, at);
  if (code >= 0xDC00 && code <= 0xDFFF) tk::raise(tk::err::InvalidCall, "lone low surrogate");
  if (code < 0xD800 || code > 0xDBFF) return code;
  if (line.compare(at + 1, 2, "\\u") != 0) tk::raise(tk::err::InvalidCall, "lone high surrogate");
  at += 2;
  const unsigned low = readHex4(line, at);
  if (low < 0xDC00 || low > 0xDFFF) tk::raise(tk::err::InvalidCall, "lone high surrogate");
  return 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
}

// Reads a JSON string starting at `line[at]` (the opening quote); moves `at` past it.
std::string readJsonString(const std::string& line, size_t& at) {
  std::string out;
  for (++at; at < line.size(); ++at) {
    char c = line[at];
    if (c == '"') {
      ++at;
      return out;
    }
    if (c != '\\') {
      out += c;
      continue;
    }
    if (++at >= line.size()) break;
    switch (line[at]) {
      case 'b':
        out += '\b';
        break;
      case 'f':
        out += '\f';
        break;
      case 'n':
        out += '\n';
        break;
      case 'r':
        out += '\r';
        break;
      case 't':
        out += '\t';
        break;
      case 'u':
        out += os::utf8FromChars(std::u32string(1, readCodePoint(line, at)));
        break;
      default:
        out += line[at];
    }
  }
  tk::raise(tk::err::InvalidCall, "unterminated string");
}
}  // namespace

std::vector<std::string> splitWords(const std::string& line) {
  std::vector<std::string> words;
  size_t at = 0;
  while (at < line.size()) {
    if (line[at] == ' ' || line[at] == '\t') {
      ++at;
    } else if (line[at] == '"') {
      words.push_back(readJsonString(line, at));
    } else {
      size_t end = line.find_first_of(" \t", at);
      if (end == std::string::npos) end = line.size();
      words.push_back(line.substr(at, end - at));
      at = end;
    }
  }
  return words;
}

tk::Value parseValue(const std::string& word) {
  if (word == "true") return true;
  if (word == "false") return false;
  double d = 0;
  auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), d);
  if (ec == std::errc() && end == word.data() + word.size() && !word.empty()) return d;
  return word;
}

std::string formatValue(const tk::Value& v) {
  if (auto* s = std::get_if<std::string>(&v)) return tk::jsonQuote(*s);
  if (auto* b = std::get_if<bool>(&v)) return *b ? "true" : "false";
  if (std::holds_alternative<std::monostate>(v)) return "null";
  return tk::toText(v);
}

}  // namespace vellumry
