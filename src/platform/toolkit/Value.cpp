#include "platform/toolkit/Value.h"

#include <QByteArray>
#include <QString>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>

#include "platform/toolkit/Error.h"

namespace vellumry::tk {

double toNumber(const Value& v) {
  if (auto* d = std::get_if<double>(&v)) return *d;
  if (auto* b = std::get_if<bool>(&v)) return *b ? -1 : 0;
  if (auto* s = std::get_if<std::string>(&v)) {
    if (iequals(*s, "true")) return -1;
    if (iequals(*s, "false")) return 0;
    double d = 0;
    auto [end, ec] = std::from_chars(s->data(), s->data() + s->size(), d);
    if (ec == std::errc() && end == s->data() + s->size() && !s->empty()) return d;
  }
  if (std::holds_alternative<std::monostate>(v)) return 0;
  raise(err::InvalidProperty);
}

bool toBool(const Value& v) { return toNumber(v) != 0; }

std::string toText(const Value& v) {
  if (auto* s = std::get_if<std::string>(&v)) return *s;
  if (auto* b = std::get_if<bool>(&v)) return *b ? "True" : "False";
  if (auto* d = std::get_if<double>(&v)) {
    char buf[32];
    auto [end, ec] = std::to_chars(buf, buf + sizeof buf, *d);
    return std::string(buf, end);
  }
  return {};
}

bool iequals(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

std::string toUpper(std::string_view s) {
  const QString text = QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
  if (text.toUtf8() == QByteArrayView(s.data(), static_cast<qsizetype>(s.size())))
    return text.toUpper().toStdString();
  std::string out(s);
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}

std::string Trim(std::string_view s) {
  const size_t first = s.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(s.substr(first, s.find_last_not_of(' ') - first + 1));
}

}  // namespace vellumry::tk

namespace vellumry::tk {
std::string jsonQuote(std::string_view s) {
  std::string out = "\"";
  for (char c : s) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", c);
          out += buf;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}
}  // namespace vellumry::tk
