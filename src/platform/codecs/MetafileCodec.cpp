#include "platform/codecs/MetafileCodec.h"

#include <QPainter>

#include "platform/codecs/EmfPlayer.h"
#include "platform/codecs/Limits.h"
#include "platform/codecs/MetafileHeader.h"
#include "platform/codecs/WmfPlayer.h"

namespace vellumry::codecs {

Expected<Decoded> DecodeMetafile(std::span<const uint8_t> bytes, const ImageInfo& info, int width,
                                 int height) {
  if (width <= 0 || height <= 0) {
    width = info.width;
    height = info.height;
  }
  if (!FitsPixelBudget(width, height)) return width > 0 ? Error::kTooLarge : Error::kCorrupt;
  const auto emf = info.format == Format::kEmf ? ReadEmfFrame(bytes) : std::nullopt;
  const auto wmf = info.format == Format::kWmf ? ReadWmfFrame(bytes) : std::nullopt;
  if (!emf && !wmf) return Error::kUnknownFormat;

  Decoded decoded{gdi::Surface(width, height, gdi::AlphaMode::kPremultiplied), info};
  QImage canvas = decoded.surface.View();
  QPainter painter(&canvas);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                         QPainter::SmoothPixmapTransform);
  if (emf) PlayEmf(bytes, *emf, painter);
  if (wmf) PlayWmf(bytes, *wmf, painter);
  painter.end();
  return decoded;
}

}  // namespace vellumry::codecs
