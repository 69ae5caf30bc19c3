#include "platform/codecs/BmpCodec.h"

#include "platform/codecs/Dib.h"

namespace vellumry::codecs {

namespace {

constexpr uint64_t kFileHeaderSize = 14;
// Info headers a DIB section is made from: the 40-byte one up to the 124-byte one.
constexpr uint32_t kSmallestInfoHeader = 40;
constexpr uint32_t kLargestInfoHeader = 124;

bool isBmp(std::span<const uint8_t> bytes) {
  return bytes.size() >= 2 && bytes[0] == 'B' && bytes[1] == 'M';
}

ImageInfo infoOf(const DibHeader& h) {
  ImageInfo info;
  info.format = Format::kBmp;
  info.width = h.width;
  info.height = h.height;
  info.bitsPerPixel = h.bitsPerPixel;
  info.hasAlpha = h.bitsPerPixel == 32 || (h.bitsPerPixel == 16 && h.masks[3] != 0);
  return info;
}

}  // namespace

Expected<ImageInfo> probeBmp(std::span<const uint8_t> bytes) {
  if (!isBmp(bytes)) return Error::kUnknownFormat;
  auto header = parseDibHeader(gdi::ByteReader(bytes), kFileHeaderSize, false);
  if (!header) return header.error();
  return infoOf(*header);
}

Expected<Decoded> decodeBmp(std::span<const uint8_t> bytes, const Leniency& leniency,
                            int reduction) {
  if (!isBmp(bytes)) return Error::kUnknownFormat;
  const gdi::ByteReader in(bytes);
  auto header = parseDibHeader(in, kFileHeaderSize, false);
  if (!header) return header.error();
  // The file header's pixel offset wins when it points behind the colour table and inside the
  // file; writers that leave it wrong get the pixels right behind the table.
  uint64_t pixelsAt = header->tableEnd;
  const uint32_t declared = *in.le32(10);
  if (declared >= header->tableEnd && declared < bytes.size()) pixelsAt = declared;
  auto pixels = readDibPixels(*header, bytes.subspan(std::min<uint64_t>(pixelsAt, bytes.size())),
                              leniency, reduction);
  if (!pixels) return pixels.error();
  return Decoded{std::move(*pixels), infoOf(*header)};
}

Expected<Decoded> decodeDibSection(std::span<const uint8_t> bytes) {
  auto section = readDibSection(bytes);
  if (!section) return section.error();
  Leniency strict;
  strict.bmpShortPixels = false;
  auto pixels = readDibPixels(section->header, section->data, strict);
  if (!pixels) return pixels.error();
  return Decoded{std::move(*pixels), infoOf(section->header)};
}

Expected<DibSection> readDibSection(std::span<const uint8_t> bytes) {
  if (!isBmp(bytes)) return Error::kUnknownFormat;
  const gdi::ByteReader in(bytes);
  const auto headerSize = in.le32(kFileHeaderSize);
  const auto bitCount = in.le16(kFileHeaderSize + 14);
  const auto compression = in.le32(kFileHeaderSize + 16);
  if (!headerSize || !bitCount || !compression) return Error::kTruncated;
  if (*headerSize < kSmallestInfoHeader || *headerSize > kLargestInfoHeader) {
    return Error::kUnsupported;
  }
  // No JPEG or PNG inside, and no alpha bit fields: those go to the full decoders.
  if (*bitCount < 1 || *compression > kBiBitFields) return Error::kUnsupported;
  auto header = parseDibHeader(in, kFileHeaderSize, false);
  if (!header) return header.error();
  const auto data = in.slice(header->tableEnd, bytes.size() - header->tableEnd);
  const bool rle = header->compression == kBiRle8 || header->compression == kBiRle4;
  if (!rle && data.size() / dibRowBytes(header->bitsPerPixel, header->width) <
                  static_cast<uint64_t>(header->height)) {
    return Error::kTruncated;
  }
  return DibSection{std::move(*header), data};
}

}  // namespace vellumry::codecs
