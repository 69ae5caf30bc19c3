// The icon chosen for each size request that reaches a different branch of the choice.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/IconResource.h"

namespace vellumry::fuzz {

int fuzzIconData(const uint8_t* data, size_t size) {
  struct Request {
    int32_t width, height;
    int depth;
  };
  const std::span<const uint8_t> bytes(data, size);
  const auto resource = codecs::readIconResource(bytes);
  if (!resource) return 0;
  // Own size; the grid's 32; smaller than any and deeper than any; one side only.
  for (const Request r : {Request{0, 0, 32}, Request{32, 32, 32}, Request{1, 1, 4},
                          Request{72, 72, 8}, Request{0, 20, 24}}) {
    codecs::loadIconImage(bytes, *resource, r.width, r.height, r.depth);
  }
  return 0;
}

}  // namespace vellumry::fuzz
