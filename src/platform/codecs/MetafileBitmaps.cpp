#include "platform/codecs/MetafileBitmaps.h"

#include "platform/codecs/Dib.h"

namespace vellumry::codecs {

std::optional<gdi::Surface> RecordBitmap(const Params& record, uint64_t headerAt, uint64_t bitsAt,
                                         uint64_t bitsSize) {
  const auto header = ParseDibHeader(record.reader(), headerAt, false);
  if (!header) return std::nullopt;
  // Some writers give no size for the bits: they run to the end of the record.
  if (bitsSize == 0 && bitsAt <= record.size()) bitsSize = record.size() - bitsAt;
  const auto bits = record.Slice(bitsAt, bitsSize);
  if (bits.empty()) return std::nullopt;
  auto pixels = ReadDibPixels(*header, bits, {});
  if (!pixels) return std::nullopt;
  return std::move(*pixels);
}

std::optional<gdi::Surface> PackedBitmap(const Params& record, uint64_t at) {
  const auto header = ParseDibHeader(record.reader(), at, false);
  if (!header) return std::nullopt;
  return RecordBitmap(record, at, header->tableEnd, 0);
}

QBrush PatternBrush(const gdi::Surface& pattern) {
  // A deep copy: the view borrows the surface's pixels, and the brush outlives it.
  return QBrush(pattern.View().convertToFormat(QImage::Format_RGB32).copy());
}

QBrush StyledBrush(uint32_t style, QColor color, uint32_t hatch) {
  switch (style) {
    case 1:  // hollow
      return Qt::NoBrush;
    case 2: {
      static constexpr Qt::BrushStyle kHatches[] = {Qt::HorPattern,   Qt::VerPattern,
                                                    Qt::FDiagPattern, Qt::BDiagPattern,
                                                    Qt::CrossPattern, Qt::DiagCrossPattern};
      return QBrush(color, hatch < 6 ? kHatches[hatch] : Qt::SolidPattern);
    }
    default:
      return QBrush(color);
  }
}

}  // namespace vellumry::codecs
