#pragma once
// Failures of the toolkit and of the system's routines, and the one place where they are skipped.

#include <functional>
#include <stdexcept>
#include <string>

namespace vellumry::tk {

// The program's title: the source of its errors and the title of a message box asked for none.
inline constexpr const char* kAppTitle = "Vellumry";

// A run-time failure with the toolkit's number, the source that raised it and a text.
class Error : public std::runtime_error {
 public:
  Error(int number, std::string source, std::string description);
  int Number;
  std::string Source;
  std::string Description;
};

// The numbers the toolkit raises.
namespace err {
inline constexpr int InvalidCall = 5;          // "Invalid procedure call or argument"
inline constexpr int Overflow = 6;             // "Overflow"
inline constexpr int SubscriptOutOfRange = 9;  // "Subscript out of range"
inline constexpr int PathNotFound = 76;        // "Path not found"
inline constexpr int ElementMissing = 340;     // "Control array element doesn't exist"
inline constexpr int AlreadyLoaded = 360;      // "Object already loaded"
inline constexpr int InvalidProperty = 380;    // "Invalid property value"
inline constexpr int NotSupported = 438;       // "Object doesn't support this property or method"
inline constexpr int FileNotFound = 53;        // "File not found"
inline constexpr int InvalidPicture = 481;     // "Invalid picture"
inline constexpr int CancelSelected = 32755;   // "Cancel was selected."
}  // namespace err

// Raises the toolkit's own error `number` with its standard text.
[[noreturn]] void raise(int number, const std::string& detail = {});

// Runs one step of a routine that skips its failing steps: a tk::Error is passed over.
// Any other exception is a fault of the program and goes on to the caller.
void resumeNext(const std::function<void()>& step);

}  // namespace vellumry::tk
