// The link list reader on any bytes, and the round trip that a save and a restart make: the
// records read back from their own text are the same records.
#include <string_view>

#include "fuzz/FuzzTargets.h"
#include "links/LinkFile.h"

namespace vellumry::fuzz {

int fuzzLinkList(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::vector<LinkRecord> records = parseLinkList(text);
  if (parseLinkList(formatLinkList(records)) != records) __builtin_trap();
  return 0;
}

}  // namespace vellumry::fuzz
