// The text keys of a PNG, as the shared thumbnail cache reads them from its entries.
#include "fuzz/FuzzTargets.h"
#include "platform/codecs/PngText.h"

namespace vellumry::fuzz {

int fuzzPngText(const uint8_t* data, size_t size) {
  codecs::readPngText({data, size});
  return 0;
}

}  // namespace vellumry::fuzz
