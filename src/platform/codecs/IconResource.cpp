#include "platform/codecs/IconResource.h"

#include "platform/codecs/IcoCodec.h"

namespace vellumry::codecs {

namespace {

constexpr size_t kSmallestFile = 62;
// An image must hold what its key is read from: a PNG's colour type at offset 25.
constexpr uint32_t kSmallestImage = 26;
constexpr uint32_t kPngSignature = 0x474E5089;
constexpr int kLow11 = 0x7FF;

// Colour depth of a PNG image from its header's bit depth and colour type.
int pngDepth(uint8_t bitDepth, uint8_t colourType) {
  switch (colourType) {
    case 2:
      return 24;
    case 4:
      return 9;
    case 6:
      return 32;
    case 0:
      if (bitDepth == 16) return 8;
      break;
    default:
      break;
  }
  return bitDepth;
}

// The key of the image at `row`, read from its own header.
uint32_t keyOf(const gdi::ByteReader& in, const IconResourceRow& row, int position) {
  const uint64_t at = row.offset;
  if (*in.le32(at) == kPngSignature) {
    const int32_t width = static_cast<int32_t>(*in.be32(at + 16));
    const int32_t height = static_cast<int32_t>(*in.be32(at + 20));
    return iconKey(pngDepth(*in.u8(at + 24), *in.u8(at + 25)), width, height, position, true);
  }
  // The stored height counts the XOR and the AND bitmap.
  const int32_t width = static_cast<int32_t>(*in.le32(at + 4));
  const int32_t height = static_cast<int32_t>(*in.le32(at + 8)) / 2;
  return iconKey(*in.le16(at + 14), width, height, position, false);
}

}  // namespace

uint32_t iconKey(int depth, int32_t width, int32_t height, int position, bool png) {
  const uint32_t size = static_cast<uint32_t>(((width & kLow11) + (height & kLow11)) / 2);
  return (static_cast<uint32_t>(depth) & 0xFF) | (size & kLow11) << 8 |
         (static_cast<uint32_t>(position) & kLow11) << 20 | (png ? 0x80000000u : 0);
}

IconResourceRow readIconRow(const gdi::ByteReader& in, int position) {
  const uint64_t at = kIconHeaderBytes + kIconRowBytes * static_cast<uint64_t>(position);
  if (!in.has(at, kIconRowBytes)) return {};
  return {*in.le16(at + 4), *in.le16(at + 6), *in.le32(at + 8), *in.le32(at + 12)};
}

Expected<IconResource> readIconResource(std::span<const uint8_t> bytes) {
  if (bytes.size() < kSmallestFile) return Error::kTruncated;
  const gdi::ByteReader in(bytes);
  const uint16_t type = *in.le16(2);
  const uint16_t count = *in.le16(4);
  if (type != 1 && type != 2) return Error::kUnknownFormat;
  if (count < 1) return Error::kCorrupt;
  const uint64_t directoryEnd = kIconHeaderBytes + kIconRowBytes * count;
  if (directoryEnd > bytes.size()) return Error::kTruncated;
  IconResource resource;
  resource.isCursor = type == 2;
  // The images must fit into the file end to end, even where offsets would let them overlap.
  uint64_t total = directoryEnd;
  for (int position = 0; position < (count & kLow11); ++position) {
    const IconResourceRow row = readIconRow(in, position);
    if (row.bytes < kSmallestImage || !in.has(row.offset, row.bytes)) return Error::kTruncated;
    total += row.bytes;
    if (total > bytes.size()) return Error::kTruncated;
    const uint32_t key = keyOf(in, row, position);
    // Behind every row of the same size: rows of one size keep their order.
    auto at = resource.keys.begin();
    while (at != resource.keys.end() && iconKeySize(*at) <= iconKeySize(key)) ++at;
    resource.keys.insert(at, key);
    resource.rows.push_back(row);
  }
  if (resource.rows.empty()) return Error::kCorrupt;
  return resource;
}

int chooseIconRow(const IconResource& resource, int32_t width, int32_t height, int colorDepth) {
  const std::vector<uint32_t>& keys = resource.keys;
  if (keys.size() == 1) return iconKeyPosition(keys[0]);
  const int target = ((width & kLow11) + (height & kLow11)) / 2;
  size_t start = 0;
  while (start < keys.size() && iconKeySize(keys[start]) < target) ++start;
  if (start < keys.size()) {
    for (size_t next = start + 1; next < keys.size(); ++next) {
      if (iconKeySize(keys[next]) > iconKeySize(keys[start])) {
        return iconKeyPosition(keys[next - 1]);
      }
      if (iconKeyDepth(keys[next]) > colorDepth) return iconKeyPosition(keys[next]);
    }
  }
  return iconKeyPosition(keys.back());
}

Expected<ChosenIcon> loadIconImage(std::span<const uint8_t> bytes, const IconResource& resource,
                                   int32_t width, int32_t height, int colorDepth) {
  ChosenIcon chosen;
  chosen.row = chooseIconRow(resource, width, height, colorDepth);
  for (const uint32_t key : resource.keys) {
    if (iconKeyPosition(key) == chosen.row) chosen.depth = iconKeyDepth(key);
  }
  const IconResourceRow& row = resource.rows[static_cast<size_t>(chosen.row)];
  auto image = decodeIconImage(bytes.subspan(row.offset, row.bytes), {});
  if (!image) return image.error();
  image->isCursor = resource.isCursor;
  if (image->isCursor) {
    image->hotspotX = row.hotspotX;
    image->hotspotY = row.hotspotY;
  }
  const gdi::Size own = image->colour.dimensions();
  chosen.image =
      gdi::scaleIcon(*image, {width > 0 ? width : own.width, height > 0 ? height : own.height});
  return chosen;
}

}  // namespace vellumry::codecs
