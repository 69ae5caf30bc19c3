#include "platform/toolkit/Error.h"

namespace vellumry::tk {

Error::Error(int number, std::string source, std::string description)
    : std::runtime_error(description),
      Number(number),
      Source(std::move(source)),
      Description(std::move(description)) {}

namespace {
const char* standardText(int number) {
  switch (number) {
    case err::InvalidCall:
      return "Invalid procedure call or argument";
    case err::Overflow:
      return "Overflow";
    case err::SubscriptOutOfRange:
      return "Subscript out of range";
    case err::FileNotFound:
      return "File not found";
    case err::PathNotFound:
      return "Path not found";
    case err::ElementMissing:
      return "Control array element doesn't exist";
    case err::AlreadyLoaded:
      return "Object already loaded";
    case err::InvalidProperty:
      return "Invalid property value";
    case err::NotSupported:
      return "Object doesn't support this property or method";
    case err::InvalidPicture:
      return "Invalid picture";
    case err::CancelSelected:
      return "Cancel was selected.";
    default:
      return "Application-defined or object-defined error";
  }
}
}  // namespace

void raise(int number, const std::string& detail) {
  std::string text = standardText(number);
  if (!detail.empty()) text += ": " + detail;
  throw Error(number, kAppTitle, text);
}

void resumeNext(const std::function<void()>& step) {
  try {
    step();
  } catch (const Error&) {
  }
}

}  // namespace vellumry::tk
