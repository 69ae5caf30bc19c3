#include "platform/os/Utf.h"

#include <QString>

namespace vellumry::os {

std::u32string charsFromUtf8(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())).toStdU32String();
}

std::string utf8FromChars(std::u32string_view chars) {
  return QString::fromUcs4(chars.data(), static_cast<qsizetype>(chars.size())).toStdString();
}

}  // namespace vellumry::os
