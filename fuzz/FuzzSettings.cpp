// The settings file reader on any bytes: an untouched file is written back byte for byte, and a
// value set in it is read back, from the written bytes too.
#include <string>
#include <string_view>

#include "fuzz/FuzzTargets.h"
#include "platform/os/ProfileDocument.h"

namespace vellumry::fuzz {

int fuzzSettings(const uint8_t* data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  os::ProfileDocument document(bytes);
  if (document.bytes() != bytes) __builtin_trap();
  document.setValue("Settings", "rows", "7");
  if (document.Value("Settings", "rows") != "7") __builtin_trap();
  if (os::ProfileDocument(document.bytes()).Value("Settings", "rows") != "7") __builtin_trap();
  return 0;
}

}  // namespace vellumry::fuzz
