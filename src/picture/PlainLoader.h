#pragma once
// The toolkit's plain LoadPicture(path).

#include <string>

#include "platform/gdi/Picture.h"

namespace vellumry {

class PictureServices;

// A picture of the file at `path`: JPEG, GIF (first frame), cursors, WMF, and whatever else the
// decoders read (icons, BMP, PNG, TIFF, EMF). Bitmaps and metafiles decode lazily
// from the file, which stays unread but for its header until drawn. Raises tk::Error 53 when
// the file doesn't exist, 481 when it can't be read as a picture.
gdi::Picture LoadPicture(PictureServices& services, const std::string& path);

}  // namespace vellumry
