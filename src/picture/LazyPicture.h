#pragma once
// Pictures whose pixels are decoded when drawn, at the drawn size, into the program's cache.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/codecs/Codecs.h"
#include "platform/gdi/Picture.h"

namespace vellumry {

class PictureServices;

// Where a picture's bytes are read from when it decodes: shared bytes when there are any, else
// the file at `path`, read again at each decode.
struct PictureOrigin {
  std::string path;
  std::shared_ptr<const std::vector<uint8_t>> bytes;
};

// A picture of the first image of `origin` at its natural size. Bitmaps (JPEG, PNG, TIFF, GIF,
// BMP) decode lazily, cached at the size they are drawn; with `background` (0x00BBGGRR) they come
// out opaque over that colour, and `size` gives them another natural size than the image's own.
// Icons and cursors that aren't flattened are decoded at once, their default entry. Metafiles that
// aren't flattened are metafile pictures (WMF type 2, EMF type 4) played when drawn. Anything
// unreadable gives an empty picture.
gdi::Picture makeLazyPicture(PictureServices& services, const PictureOrigin& origin,
                             const codecs::ImageInfo& info,
                             std::optional<uint32_t> background = std::nullopt,
                             std::optional<gdi::Size> size = std::nullopt);

// A bitmap picture of a BMP as the DIB road reads it, decoded when drawn at `natural` size; the
// fourth byte of its pixels means what `stored` says (see DibSectionDecoder).
gdi::Picture makeDibPicture(PictureServices& services, const PictureOrigin& origin,
                            gdi::Size natural, gdi::AlphaMode stored);

}  // namespace vellumry
