// A WMF drawn small, after its header is probed.
#include "fuzz/FuzzFonts.h"
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/Codecs.h"

namespace vellumry::fuzz {

int fuzzWmf(const uint8_t* data, size_t size) {
  ensureFontDatabase();
  const std::span<const uint8_t> bytes(data, size);
  const auto info = codecs::probe(bytes);
  if (info && info->format == codecs::Format::kWmf) codecs::decode(bytes, 96, 72);
  return 0;
}

}  // namespace vellumry::fuzz
