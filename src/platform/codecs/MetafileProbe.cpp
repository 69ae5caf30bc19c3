#include "platform/codecs/MetafileProbe.h"

#include <cmath>
#include <cstdlib>

#include "platform/metafile/MetafileHeader.h"

namespace vellumry::codecs {

namespace {

constexpr double kHimetricPerInch = 2540;

// A length as a pixel count, 0 when it isn't a sensible one.
int Pixels(double length) {
  return std::isfinite(length) && length >= 1 && length < (1 << 30) ? static_cast<int>(length) : 0;
}

}  // namespace

Expected<ImageInfo> probeMetafile(std::span<const uint8_t> bytes) {
  ImageInfo info;
  info.hasAlpha = true;  // what the records leave undrawn stays transparent
  if (const auto emf = metafile::readEmfFrame(bytes)) {
    info.format = Format::kEmf;
    // The frame at the reference device's resolution; 96 dots per inch when it gives none.
    const metafile::IntBox& frame = emf->frame;
    double perHimetricX = 96 / kHimetricPerInch, perHimetricY = 96 / kHimetricPerInch;
    if (emf->deviceWidthMm > 0 && emf->deviceHeightMm > 0 && emf->deviceWidth > 0 &&
        emf->deviceHeight > 0) {
      perHimetricX = emf->deviceWidth / (emf->deviceWidthMm * 100.0);
      perHimetricY = emf->deviceHeight / (emf->deviceHeightMm * 100.0);
    }
    info.width = Pixels(std::round(static_cast<double>(frame.Width()) * perHimetricX));
    info.height = Pixels(std::round(static_cast<double>(frame.Height()) * perHimetricY));
    if (info.width == 0 || info.height == 0) {
      info.width = Pixels(static_cast<double>(emf->bounds.Width()) + 1);
      info.height = Pixels(static_cast<double>(emf->bounds.Height()) + 1);
    }
    return info;
  }
  const auto wmf = metafile::readWmfFrame(bytes);
  if (!wmf) return metafile::isPlaceableWmf(bytes) ? Error::kTruncated : Error::kUnknownFormat;
  info.format = Format::kWmf;
  const double perUnit = wmf->unitsPerInch > 0 ? 96.0 / wmf->unitsPerInch : 1;
  info.width = Pixels(std::floor(std::abs(static_cast<double>(wmf->box.Width())) * perUnit));
  info.height = Pixels(std::floor(std::abs(static_cast<double>(wmf->box.Height())) * perUnit));
  return info;
}

}  // namespace vellumry::codecs
