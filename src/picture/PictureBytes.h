#pragma once
// A picture written back out as a file of its own.

#include <cstdint>
#include <vector>

#include "platform/gdi/Picture.h"

namespace vellumry {

// The kept source bytes; else a BMP file of a bitmap or an ICO file of an icon. False, with `out`
// untouched, for an empty picture, a metafile, or pixels that can't be decoded.
bool SaveAsFile(const gdi::Picture& picture, std::vector<uint8_t>& out);

}  // namespace vellumry
