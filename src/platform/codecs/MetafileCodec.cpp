#include "platform/codecs/MetafileCodec.h"

#include <QPainter>

#include "platform/codecs/Dib.h"
#include "platform/codecs/Limits.h"
#include "platform/metafile/EmfPlayer.h"
#include "platform/metafile/MetafileHeader.h"
#include "platform/metafile/WmfPlayer.h"

namespace vellumry::codecs {

namespace {

// A record's bitmap, read as a BMP file's is (the player's DibReader).
std::optional<gdi::Surface> ReadRecordDib(const gdi::ByteReader& record, uint64_t headerAt,
                                          uint64_t bitsAt, uint64_t bitsSize) {
  const auto header = ParseDibHeader(record, headerAt, false);
  if (!header) return std::nullopt;
  if (bitsAt == metafile::kAfterTable) bitsAt = header->tableEnd;
  // Some writers give no size for the bits: they run to the end of the record.
  if (bitsSize == 0 && bitsAt <= record.size()) bitsSize = record.size() - bitsAt;
  const auto bits = record.Slice(bitsAt, bitsSize);
  if (bits.empty()) return std::nullopt;
  auto pixels = ReadDibPixels(*header, bits, {});
  if (!pixels) return std::nullopt;
  return std::move(*pixels);
}

}  // namespace

Expected<Decoded> DecodeMetafile(std::span<const uint8_t> bytes, const ImageInfo& info, int width,
                                 int height) {
  if (width <= 0 || height <= 0) {
    width = info.width;
    height = info.height;
  }
  if (!FitsPixelBudget(width, height)) return width > 0 ? Error::kTooLarge : Error::kCorrupt;
  const auto emf = info.format == Format::kEmf ? metafile::ReadEmfFrame(bytes) : std::nullopt;
  const auto wmf = info.format == Format::kWmf ? metafile::ReadWmfFrame(bytes) : std::nullopt;
  if (!emf && !wmf) return Error::kUnknownFormat;

  Decoded decoded{gdi::Surface(width, height, gdi::AlphaMode::kPremultiplied), info};
  QImage canvas = decoded.surface.View();
  QPainter painter(&canvas);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  if (emf) metafile::PlayEmf(bytes, *emf, painter, ReadRecordDib);
  if (wmf) metafile::PlayWmf(bytes, *wmf, painter, ReadRecordDib);
  painter.end();
  return decoded;
}

}  // namespace vellumry::codecs
