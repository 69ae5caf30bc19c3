#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/codecs/Codecs.h"
#include "platform/gdi/IconImage.h"

namespace vellumry::codecs {

struct IconEntry {
  int width = 0;  // from the image data itself, not the directory's bytes
  int height = 0;
  int bitDepth = 0;  // DIB bit count; for PNG images channels x bit depth
  bool isPng = false;
  int hotspotX = 0;  // cursors only
  int hotspotY = 0;
  uint32_t offset = 0;
  uint32_t size = 0;
};

struct IconDirectory {
  bool isCursor = false;
  std::vector<IconEntry> entries;  // in directory order
};

// Reads the directory and each image's own header. Refused when the type isn't 1 or 2, the count
// is 0, or any entry lies outside the data or has an unreadable header.
Expected<IconDirectory> readIconDirectory(std::span<const uint8_t> bytes);

// The entry shown when nobody asks for a size: the largest image (by width x height), then the
// deepest; the first in the directory among equals.
int defaultIconEntry(const IconDirectory& directory);

// Header of the default entry, with frameCount = number of entries.
Expected<ImageInfo> probeIcon(std::span<const uint8_t> bytes);

// Entry `index` as an icon image: PNG entries and 32-bit DIB entries with any alpha keep their
// alpha; other DIB entries come with their AND mask. kOutOfRange for a bad index.
Expected<gdi::IconImage> decodeIconEntry(std::span<const uint8_t> bytes, int index,
                                         const Leniency& leniency);

// One image of an icon file (a PNG file or a DIB with its AND mask) without its directory:
// colour and mask only, no hot spot.
Expected<gdi::IconImage> decodeIconImage(std::span<const uint8_t> image, const Leniency& leniency);

// The default entry flattened to a straight-alpha surface: masked pixels become transparent.
Expected<Decoded> decodeIcon(std::span<const uint8_t> bytes, const Leniency& leniency);

}  // namespace vellumry::codecs
