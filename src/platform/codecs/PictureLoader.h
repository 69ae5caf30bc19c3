#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/codecs/Leniency.h"
#include "platform/gdi/Picture.h"
#include "platform/gdi/PixelCache.h"

namespace vellumry::codecs {

// A Picture of the file in `bytes`, which it shares. Its natural size comes from the header at
// once; bitmap pixels are decoded when first drawn, at the size drawn, into `cache` (null: a cache
// of the picture's own). Icons and cursors are decoded at once (their default entry). Metafiles
// and anything unreadable give an empty picture; so does a bitmap whose header is fine but whose
// pixels turn out bad, only later: it then draws nothing. `keepOriginal` keeps the bytes for
// SaveAsFile.
gdi::Picture PictureFromBytes(std::shared_ptr<const std::vector<uint8_t>> bytes,
                              std::shared_ptr<gdi::PixelCache> cache, bool keepOriginal = false,
                              double twipsPerPixel = 15, const Leniency& leniency = {});

}  // namespace vellumry::codecs
