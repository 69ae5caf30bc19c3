#include "platform/os/Utf.h"

#include <QString>

namespace vellumry::os {

std::u32string charsFromUtf8(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())).toStdU32String();
}

std::string utf8FromChars(std::u32string_view chars) {
  return QString::fromUcs4(chars.data(), static_cast<qsizetype>(chars.size())).toStdString();
}

std::string percentEscaped(std::string_view bytes) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  const auto plain = [](unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("-_.!~*'()/:@&=+$,").find(static_cast<char>(c)) !=
               std::string_view::npos;
  };
  std::string out;
  for (const unsigned char c : bytes) {
    if (plain(c)) {
      out += static_cast<char>(c);
    } else {
      out += '%';
      out += kHex[c >> 4];
      out += kHex[c & 0xF];
    }
  }
  return out;
}

}  // namespace vellumry::os
