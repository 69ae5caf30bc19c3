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
std::optional<gdi::Surface> readRecordDib(const gdi::ByteReader& record, uint64_t headerAt,
                                          uint64_t bitsAt, uint64_t bitsSize) {
  const auto header = parseDibHeader(record, headerAt, false);
  if (!header) return std::nullopt;
  if (bitsAt == metafile::kAfterTable) bitsAt = header->tableEnd;
  // Some writers give no size for the bits: they run to the end of the record.
  if (bitsSize == 0 && bitsAt <= record.size()) bitsSize = record.size() - bitsAt;
  const auto bits = record.slice(bitsAt, bitsSize);
  if (bits.empty()) return std::nullopt;
  auto pixels = readDibPixels(*header, bits, {});
  if (!pixels) return std::nullopt;
  return std::move(*pixels);
}

}  // namespace

Expected<Decoded> decodeMetafile(std::span<const uint8_t> bytes, const ImageInfo& info, int width,
                                 int height) {
  if (width <= 0 || height <= 0) {
    width = info.width;
    height = info.height;
  }
  if (!fitsPixelBudget(width, height)) return width > 0 ? Error::kTooLarge : Error::kCorrupt;
  const auto emf = info.format == Format::kEmf ? metafile::readEmfFrame(bytes) : std::nullopt;
  const auto wmf = info.format == Format::kWmf ? metafile::readWmfFrame(bytes) : std::nullopt;
  if (!emf && !wmf) return Error::kUnknownFormat;

  Decoded decoded{gdi::Surface(width, height, gdi::AlphaMode::kPremultiplied), info};
  QImage canvas = decoded.surface.view();
  QPainter painter(&canvas);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  if (emf) metafile::playEmf(bytes, *emf, painter, readRecordDib);
  if (wmf) metafile::playWmf(bytes, *wmf, painter, readRecordDib);
  painter.end();
  return decoded;
}

}  // namespace vellumry::codecs
