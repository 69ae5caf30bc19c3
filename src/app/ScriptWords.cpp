#include "app/ScriptWords.h"

#include <charconv>

#include "platform/toolkit/Error.h"

namespace vellumry {

namespace {
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
      case 'n':
        out += '\n';
        break;
      case 'r':
        out += '\r';
        break;
      case 't':
        out += '\t';
        break;
      case 'u': {
        if (at + 4 >= line.size()) tk::raise(tk::err::InvalidCall, "bad \\u escape");
        unsigned code = 0;
        std::from_chars(line.data() + at + 1, line.data() + at + 5, code, 16);
        at += 4;
        if (code < 0x80) {
          out += static_cast<char>(code);
        } else if (code < 0x800) {
          out += static_cast<char>(0xC0 | (code >> 6));
          out += static_cast<char>(0x80 | (code & 0x3F));
        } else {
          out += static_cast<char>(0xE0 | (code >> 12));
          out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
          out += static_cast<char>(0x80 | (code & 0x3F));
        }
        break;
      }
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
