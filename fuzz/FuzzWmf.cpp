// A WMF drawn small, after its header is probed.
#include "fuzz/FuzzFonts.h"
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/Codecs.h"

namespace vellumry::fuzz {

int FuzzWmf(const uint8_t* data, size_t size) {
  EnsureFontDatabase();
  const std::span<const uint8_t> bytes(data, size);
  const auto info = codecs::Probe(bytes);
  if (info && info->format == codecs::Format::kWmf) codecs::Decode(bytes, 96, 72);
  return 0;
}

}  // namespace vellumry::fuzz
