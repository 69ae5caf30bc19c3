// The directory, then every entry (at most 8).
#include <algorithm>

#include "fuzz/FuzzTargets.h"
#include "platform/codecs/IcoCodec.h"

namespace vellumry::fuzz {

int fuzzIco(const uint8_t* data, size_t size) {
  const std::span<const uint8_t> bytes(data, size);
  const auto dir = codecs::readIconDirectory(bytes);
  codecs::decodeIcon(bytes, {});
  if (!dir) return 0;
  const int entries = std::min<int>(static_cast<int>(dir->entries.size()), 8);
  for (int i = 0; i < entries; ++i) codecs::decodeIconEntry(bytes, i, {});
  return 0;
}

}  // namespace vellumry::fuzz
