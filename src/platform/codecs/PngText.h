#pragma once
// The text keys of a PNG (its tEXt, zTXt and iTXt chunks), as read; encodePng writes them. The
// shared thumbnail cache keeps what it knows of a picture's file in them (`Thumb::URI`,
// `Thumb::MTime`...).

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "platform/codecs/Expected.h"

namespace vellumry::codecs {

using PngTextKeys = std::map<std::string, std::string>;

// The keys of the text chunks before the image data, each with its text as stored (Latin-1 or
// UTF-8); of a key given twice, the first. Keys after the image data aren't read: the image would
// have to be decoded to reach them, and writers put them first. kUnknownFormat for bytes that
// aren't a PNG, kTruncated for one whose chunks before the image data don't all lie in `bytes`,
// kCorrupt for one that breaks there otherwise.
Expected<PngTextKeys> readPngText(std::span<const uint8_t> bytes);

}  // namespace vellumry::codecs
