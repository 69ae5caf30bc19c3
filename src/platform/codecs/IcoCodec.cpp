#include "platform/codecs/IcoCodec.h"

#include <algorithm>

#include "platform/codecs/Dib.h"
#include "platform/codecs/IconResource.h"
#include "platform/codecs/PngCodec.h"
#include "platform/gdi/ByteReader.h"

namespace vellumry::codecs {

namespace {

bool isPng(std::span<const uint8_t> image) {
  return image.size() >= 8 && image[0] == 0x89 && image[1] == 'P' && image[2] == 'N' &&
         image[3] == 'G';
}

bool looksLikeIcon(std::span<const uint8_t> bytes) {
  return bytes.size() >= 4 && bytes[0] == 0 && bytes[1] == 0 && (bytes[2] == 1 || bytes[2] == 2) &&
         bytes[3] == 0;
}

// The AND mask behind a DIB image's colour pixels, one byte a pixel, top-down. Nothing when the
// data ends before it.
std::optional<std::vector<uint8_t>> readMask(const DibHeader& h, std::span<const uint8_t> image) {
  const uint64_t colourBytes = dibRowBytes(h.bitsPerPixel, h.width) * h.height;
  const uint64_t stride = dibRowBytes(1, h.width);
  const uint64_t maskAt = h.tableEnd + colourBytes;
  const gdi::ByteReader in(image);
  if (!in.has(maskAt, stride * h.height)) return std::nullopt;
  std::vector<uint8_t> mask(static_cast<size_t>(h.width) * h.height);
  for (int r = 0; r < h.height; ++r) {
    const uint8_t* row = image.data() + maskAt + r * stride;
    const int y = h.topDown ? r : h.height - 1 - r;
    for (int x = 0; x < h.width; ++x) {
      mask[static_cast<size_t>(y) * h.width + x] = (row[x / 8] >> (7 - x % 8)) & 1;
    }
  }
  return mask;
}

bool anyAlpha(const gdi::Surface& s) {
  return std::any_of(s.Pixels().begin(), s.Pixels().end(),
                     [](uint32_t p) { return gdi::alphaOf(p) != 0; });
}

}  // namespace

Expected<IconDirectory> readIconDirectory(std::span<const uint8_t> bytes) {
  if (!looksLikeIcon(bytes)) return Error::kUnknownFormat;
  const gdi::ByteReader in(bytes);
  const auto count = in.le16(4);
  if (!count) return Error::kTruncated;
  if (*count == 0) return Error::kCorrupt;
  if (!in.has(kIconHeaderBytes, kIconRowBytes * *count)) return Error::kTruncated;
  IconDirectory dir;
  dir.isCursor = bytes[2] == 2;
  for (uint64_t i = 0; i < *count; ++i) {
    const IconResourceRow row = readIconRow(in, static_cast<int>(i));
    IconEntry e;
    e.hotspotX = row.hotspotX;
    e.hotspotY = row.hotspotY;
    e.size = row.bytes;
    e.offset = row.offset;
    const std::span<const uint8_t> image = in.slice(e.offset, e.size);
    if (e.size == 0 || image.empty()) return Error::kTruncated;
    if (isPng(image)) {
      auto info = probePng(image);
      if (!info) return info.error();
      e.isPng = true;
      e.width = info->width;
      e.height = info->height;
      e.bitDepth = info->bitsPerPixel;
    } else {
      auto h = parseDibHeader(gdi::ByteReader(image), 0, true);
      if (!h) return h.error();
      e.width = h->width;
      e.height = h->height;
      e.bitDepth = h->bitsPerPixel;
    }
    if (!dir.isCursor) e.hotspotX = e.hotspotY = 0;
    dir.entries.push_back(e);
  }
  return dir;
}

int defaultIconEntry(const IconDirectory& dir) {
  int best = 0;
  for (int i = 1; i < static_cast<int>(dir.entries.size()); ++i) {
    const IconEntry& e = dir.entries[i];
    const IconEntry& b = dir.entries[best];
    const int64_t area = int64_t{e.width} * e.height, bestArea = int64_t{b.width} * b.height;
    if (area > bestArea || (area == bestArea && e.bitDepth > b.bitDepth)) best = i;
  }
  return best;
}

Expected<ImageInfo> probeIcon(std::span<const uint8_t> bytes) {
  auto dir = readIconDirectory(bytes);
  if (!dir) return dir.error();
  const IconEntry& e = dir->entries[defaultIconEntry(*dir)];
  ImageInfo info;
  info.format = dir->isCursor ? Format::kCur : Format::kIco;
  info.width = e.width;
  info.height = e.height;
  info.bitsPerPixel = e.bitDepth;
  info.hasAlpha = true;  // every icon image has a mask or an alpha channel
  info.frameCount = static_cast<int>(dir->entries.size());
  return info;
}

Expected<gdi::IconImage> decodeIconImage(std::span<const uint8_t> image, const Leniency& leniency) {
  gdi::IconImage icon;
  if (isPng(image)) {
    auto png = decodePng(image, leniency);
    if (!png) return png.error();
    icon.colour = std::move(png->surface);
    if (icon.colour.alpha() == gdi::AlphaMode::kOpaque) {
      icon.colour.setAlpha(gdi::AlphaMode::kStraight);
    }
    return icon;
  }
  const gdi::ByteReader in(image);
  auto header = parseDibHeader(in, 0, true);
  if (!header) return header.error();
  // The colour rows come first; the mask behind them is read apart.
  auto colour = readDibPixels(
      *header, image.subspan(std::min<uint64_t>(header->tableEnd, image.size())), leniency);
  if (!colour) return colour.error();
  icon.colour = std::move(*colour);
  // A 32-bit image whose fourth bytes are all 0 has no alpha: its mask says what shows.
  const bool alpha = header->bitsPerPixel == 32 && anyAlpha(icon.colour);
  icon.colour.setAlpha(alpha ? gdi::AlphaMode::kStraight : gdi::AlphaMode::kOpaque);
  auto mask = readMask(*header, image);
  if (mask) {
    icon.andMask = std::move(*mask);
  } else if (!leniency.iconMissingMask) {
    return Error::kTruncated;
  }
  return icon;
}

Expected<gdi::IconImage> decodeIconEntry(std::span<const uint8_t> bytes, int index,
                                         const Leniency& leniency) {
  auto dir = readIconDirectory(bytes);
  if (!dir) return dir.error();
  if (index < 0 || index >= static_cast<int>(dir->entries.size())) return Error::kOutOfRange;
  const IconEntry& e = dir->entries[index];
  auto icon = decodeIconImage(bytes.subspan(e.offset, e.size), leniency);
  if (!icon) return icon.error();
  icon->isCursor = dir->isCursor;
  icon->hotspotX = e.hotspotX;
  icon->hotspotY = e.hotspotY;
  return icon;
}

Expected<Decoded> decodeIcon(std::span<const uint8_t> bytes, const Leniency& leniency) {
  auto dir = readIconDirectory(bytes);
  if (!dir) return dir.error();
  const int index = defaultIconEntry(*dir);
  auto icon = decodeIconEntry(bytes, index, leniency);
  if (!icon) return icon.error();
  Decoded out;
  out.info = *probeIcon(bytes);
  out.surface = std::move(icon->colour);
  if (out.surface.alpha() != gdi::AlphaMode::kStraight) {
    const std::vector<uint8_t>& mask = icon->andMask;
    uint32_t* px = out.surface.Pixels().data();
    for (size_t i = 0; i < out.surface.Pixels().size(); ++i) {
      px[i] = !mask.empty() && mask[i] ? 0 : (px[i] | 0xFF000000u);
    }
  }
  out.surface.setAlpha(gdi::AlphaMode::kStraight);
  return out;
}

}  // namespace vellumry::codecs
