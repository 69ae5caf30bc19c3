#pragma once
// An icon or cursor file read to choose one of its images by size and colour depth.

#include <cstdint>
#include <span>
#include <vector>

#include "platform/codecs/Codecs.h"
#include "platform/gdi/ByteReader.h"
#include "platform/gdi/IconImage.h"

namespace vellumry::codecs {

// An icon file: a 6-byte header, then a 16-byte directory row for each image.
constexpr uint64_t kIconHeaderBytes = 6;
constexpr uint64_t kIconRowBytes = 16;

// The sort key of one directory row: bits 0-7 the colour depth, 8-18 the mean of width and height
// (each by its low 11 bits), 20-30 the row's position, bit 31 set for a PNG image.
uint32_t iconKey(int depth, int32_t width, int32_t height, int position, bool png);
constexpr int iconKeyDepth(uint32_t key) { return static_cast<int>(key & 0xFF); }
constexpr int iconKeySize(uint32_t key) { return static_cast<int>((key >> 8) & 0x7FF); }
constexpr int iconKeyPosition(uint32_t key) { return static_cast<int>((key >> 20) & 0x7FF); }

struct IconResourceRow {
  uint16_t hotspotX = 0;  // in a cursor; an icon's planes and bit count, passed on as they stand
  uint16_t hotspotY = 0;
  uint32_t bytes = 0;
  uint32_t offset = 0;
};

// The 16-byte directory row at `position`; all zero when the data ends before it.
IconResourceRow readIconRow(const gdi::ByteReader& in, int position);

struct IconResource {
  bool isCursor = false;
  std::vector<IconResourceRow> rows;  // directory order
  std::vector<uint32_t> keys;         // sorted by size; rows of one size in directory order
};

// Reads the directory. Refused: fewer than 62 bytes, a type other than 1 and 2, a count of 0,
// a row outside the data or of fewer than 26 bytes, or images that together don't fit end to
// end in the data. The count's low 11 bits are the rows used.
Expected<IconResource> readIconResource(std::span<const uint8_t> bytes);

// The directory position of the image to show at `width` x `height` for a display of
// `colorDepth` bits: the first image of the smallest size at least that large, or a deeper one of
// that size when the first isn't deeper than the display; the last sorted one when none is large
// enough. The one image of a file of one.
int chooseIconRow(const IconResource& resource, int32_t width, int32_t height, int colorDepth);

struct ChosenIcon {
  gdi::IconImage image;
  int row = 0;    // directory position
  int depth = 0;  // colour depth of its key
};

// The image chooseIconRow gives of `resource` (read from `bytes`), scaled to `width` x `height`
// (0: the image's own size on that side), with a cursor's hot spot: the XOR bitmap with its AND
// mask, or alpha at 32 bits.
Expected<ChosenIcon> loadIconImage(std::span<const uint8_t> bytes, const IconResource& resource,
                                   int32_t width, int32_t height, int colorDepth);

}  // namespace vellumry::codecs
