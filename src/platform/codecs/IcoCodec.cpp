#include "platform/codecs/IcoCodec.h"

#include <algorithm>

#include "platform/codecs/Dib.h"
#include "platform/codecs/IconResource.h"
#include "platform/codecs/PngCodec.h"
#include "platform/gdi/ByteReader.h"

namespace vellumry::codecs {

namespace {

bool IsPng(std::span<const uint8_t> image) {
  return image.size() >= 8 && image[0] == 0x89 && image[1] == 'P' && image[2] == 'N' &&
         image[3] == 'G';
}

bool LooksLikeIcon(std::span<const uint8_t> bytes) {
  return bytes.size() >= 4 && bytes[0] == 0 && bytes[1] == 0 && (bytes[2] == 1 || bytes[2] == 2) &&
         bytes[3] == 0;
}

// The AND mask behind a DIB image's colour pixels, one byte a pixel, top-down. Nothing when the
// data ends before it.
std::optional<std::vector<uint8_t>> ReadMask(const DibHeader& h, std::span<const uint8_t> image) {
  const uint64_t colourBytes = DibRowBytes(h.bitsPerPixel, h.width) * h.height;
  const uint64_t stride = DibRowBytes(1, h.width);
  const uint64_t maskAt = h.tableEnd + colourBytes;
  const gdi::ByteReader in(image);
  if (!in.Has(maskAt, stride * h.height)) return std::nullopt;
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

bool AnyAlpha(const gdi::Surface& s) {
  return std::any_of(s.Pixels().begin(), s.Pixels().end(),
                     [](uint32_t p) { return gdi::AlphaOf(p) != 0; });
}

}  // namespace

Expected<IconDirectory> ReadIconDirectory(std::span<const uint8_t> bytes) {
  if (!LooksLikeIcon(bytes)) return Error::kUnknownFormat;
  const gdi::ByteReader in(bytes);
  const auto count = in.Le16(4);
  if (!count) return Error::kTruncated;
  if (*count == 0) return Error::kCorrupt;
  if (!in.Has(kIconHeaderBytes, kIconRowBytes * *count)) return Error::kTruncated;
  IconDirectory dir;
  dir.isCursor = bytes[2] == 2;
  for (uint64_t i = 0; i < *count; ++i) {
    const IconResourceRow row = ReadIconRow(in, static_cast<int>(i));
    IconEntry e;
    e.hotspotX = row.hotspotX;
    e.hotspotY = row.hotspotY;
    e.size = row.bytes;
    e.offset = row.offset;
    const std::span<const uint8_t> image = in.Slice(e.offset, e.size);
    if (e.size == 0 || image.empty()) return Error::kTruncated;
    if (IsPng(image)) {
      auto info = ProbePng(image);
      if (!info) return info.error();
      e.isPng = true;
      e.width = info->width;
      e.height = info->height;
      e.bitDepth = info->bitsPerPixel;
    } else {
      auto h = ParseDibHeader(gdi::ByteReader(image), 0, true);
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

int DefaultIconEntry(const IconDirectory& dir) {
  int best = 0;
  for (int i = 1; i < static_cast<int>(dir.entries.size()); ++i) {
    const IconEntry& e = dir.entries[i];
    const IconEntry& b = dir.entries[best];
    const int64_t area = int64_t{e.width} * e.height, bestArea = int64_t{b.width} * b.height;
    if (area > bestArea || (area == bestArea && e.bitDepth > b.bitDepth)) best = i;
  }
  return best;
}

Expected<ImageInfo> ProbeIcon(std::span<const uint8_t> bytes) {
  auto dir = ReadIconDirectory(bytes);
  if (!dir) return dir.error();
  const IconEntry& e = dir->entries[DefaultIconEntry(*dir)];
  ImageInfo info;
  info.format = dir->isCursor ? Format::kCur : Format::kIco;
  info.width = e.width;
  info.height = e.height;
  info.bitsPerPixel = e.bitDepth;
  info.hasAlpha = true;  // every icon image has a mask or an alpha channel
  info.frameCount = static_cast<int>(dir->entries.size());
  return info;
}

Expected<gdi::IconImage> DecodeIconImage(std::span<const uint8_t> image, const Leniency& leniency) {
  gdi::IconImage icon;
  if (IsPng(image)) {
    auto png = DecodePng(image, leniency);
    if (!png) return png.error();
    icon.colour = std::move(png->surface);
    if (icon.colour.Alpha() == gdi::AlphaMode::kOpaque) {
      icon.colour.SetAlpha(gdi::AlphaMode::kStraight);
    }
    return icon;
  }
  const gdi::ByteReader in(image);
  auto header = ParseDibHeader(in, 0, true);
  if (!header) return header.error();
  // The colour rows come first; the mask behind them is read apart.
  auto colour = ReadDibPixels(
      *header, image.subspan(std::min<uint64_t>(header->tableEnd, image.size())), leniency);
  if (!colour) return colour.error();
  icon.colour = std::move(*colour);
  // A 32-bit image whose fourth bytes are all 0 has no alpha: its mask says what shows.
  const bool alpha = header->bitsPerPixel == 32 && AnyAlpha(icon.colour);
  icon.colour.SetAlpha(alpha ? gdi::AlphaMode::kStraight : gdi::AlphaMode::kOpaque);
  auto mask = ReadMask(*header, image);
  if (mask) {
    icon.andMask = std::move(*mask);
  } else if (!leniency.iconMissingMask) {
    return Error::kTruncated;
  }
  return icon;
}

Expected<gdi::IconImage> DecodeIconEntry(std::span<const uint8_t> bytes, int index,
                                         const Leniency& leniency) {
  auto dir = ReadIconDirectory(bytes);
  if (!dir) return dir.error();
  if (index < 0 || index >= static_cast<int>(dir->entries.size())) return Error::kOutOfRange;
  const IconEntry& e = dir->entries[index];
  auto icon = DecodeIconImage(bytes.subspan(e.offset, e.size), leniency);
  if (!icon) return icon.error();
  icon->isCursor = dir->isCursor;
  icon->hotspotX = e.hotspotX;
  icon->hotspotY = e.hotspotY;
  return icon;
}

Expected<Decoded> DecodeIcon(std::span<const uint8_t> bytes, const Leniency& leniency) {
  auto dir = ReadIconDirectory(bytes);
  if (!dir) return dir.error();
  const int index = DefaultIconEntry(*dir);
  auto icon = DecodeIconEntry(bytes, index, leniency);
  if (!icon) return icon.error();
  Decoded out;
  out.info = *ProbeIcon(bytes);
  out.surface = std::move(icon->colour);
  if (out.surface.Alpha() != gdi::AlphaMode::kStraight) {
    const std::vector<uint8_t>& mask = icon->andMask;
    uint32_t* px = out.surface.Pixels().data();
    for (size_t i = 0; i < out.surface.Pixels().size(); ++i) {
      px[i] = !mask.empty() && mask[i] ? 0 : (px[i] | 0xFF000000u);
    }
  }
  out.surface.SetAlpha(gdi::AlphaMode::kStraight);
  return out;
}

}  // namespace vellumry::codecs
