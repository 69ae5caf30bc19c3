#include "picture/LazyPicture.h"

#include "picture/DibSectionDecoder.h"
#include "picture/FittedDecoder.h"
#include "picture/PictureServices.h"
#include "picture/SourceDecoder.h"
#include "picture/ThumbnailCache.h"
#include "platform/codecs/IcoCodec.h"
#include "platform/os/FileSystem.h"

namespace vellumry {

namespace {

gdi::Picture iconPicture(const PictureOrigin& origin, double twipsPerPixel) {
  const auto bytes = sharedOrRead(origin.bytes, origin.path);
  if (!bytes) return {};
  auto directory = codecs::readIconDirectory(*bytes);
  if (!directory) return {};
  auto icon = codecs::decodeIconEntry(*bytes, codecs::defaultIconEntry(*directory), {});
  if (!icon) return {};
  return gdi::Picture::fromIcon(std::move(*icon), twipsPerPixel);
}

std::unique_ptr<gdi::ScaledDecoder> makeSourceDecoder(const PictureOrigin& origin,
                                                      const codecs::ImageInfo& info) {
  if (origin.bytes) return std::make_unique<SourceDecoder>(origin.bytes, info);
  return std::make_unique<SourceDecoder>(origin.path, info);
}

// Pixels of `inner`, fitted to the size they are drawn at and kept in the program's cache.
gdi::Picture fittedPicture(PictureServices& services, std::unique_ptr<gdi::ScaledDecoder> inner,
                           gdi::Size natural, std::optional<uint32_t> background) {
  auto decoder = std::make_unique<FittedDecoder>(std::move(inner), natural, background);
  return gdi::Picture::fromLazyPixels(
      std::make_shared<gdi::LazyPixels>(std::move(decoder), services.cache()),
      services.twipsPerPixel());
}

gdi::Picture metafilePicture(PictureServices& services, const PictureOrigin& origin,
                             const codecs::ImageInfo& info, std::optional<gdi::Size> size) {
  const gdi::Size natural = size.value_or(gdi::Size{info.width, info.height});
  if (natural.width <= 0 || natural.height <= 0) return {};
  auto decoder = std::make_unique<FittedDecoder>(makeSourceDecoder(origin, info), natural);
  const auto type = info.format == codecs::Format::kEmf ? gdi::PictureType::kEnhancedMetafile
                                                        : gdi::PictureType::kMetafile;
  // A metafile holds its records; here they are read again from where the drawing comes from.
  auto records = [origin]() -> std::shared_ptr<const std::vector<uint8_t>> {
    if (origin.bytes) return origin.bytes;
    auto file = os::readWholeFile(origin.path);
    return file ? std::make_shared<const std::vector<uint8_t>>(std::move(*file)) : nullptr;
  };
  return gdi::Picture::fromMetafile(
      std::make_shared<gdi::LazyPixels>(std::move(decoder), services.cache()), type,
      services.twipsPerPixel(), std::move(records));
}

}  // namespace

gdi::Picture makeDibPicture(PictureServices& services, const PictureOrigin& origin,
                            gdi::Size natural, gdi::AlphaMode stored) {
  if (natural.width <= 0 || natural.height <= 0) return {};
  return fittedPicture(services, std::make_unique<DibSectionDecoder>(origin, natural, stored),
                       natural, std::nullopt);
}

gdi::Picture makeLazyPicture(PictureServices& services, const PictureOrigin& origin,
                             const codecs::ImageInfo& info, std::optional<uint32_t> background,
                             std::optional<gdi::Size> size) {
  if (info.width <= 0 || info.height <= 0) return {};
  switch (info.format) {
    case codecs::Format::kIco:
    case codecs::Format::kCur:
      // Flattened, an icon is a bitmap like any other.
      if (!background) return iconPicture(origin, services.twipsPerPixel());
      break;
    case codecs::Format::kEmf:
    case codecs::Format::kWmf:
      // Flattened, a metafile is a bitmap of its drawing; else a picture of its own kind.
      if (!background) return metafilePicture(services, origin, info, size);
      break;
    case codecs::Format::kUnknown:
      return {};
    default:
      break;
  }
  const gdi::Size natural = size.value_or(gdi::Size{info.width, info.height});
  if (natural.width <= 0 || natural.height <= 0) return {};
  auto decoder = makeSourceDecoder(origin, info);
  if (!origin.bytes) decoder = services.thumbnails().wrap(std::move(decoder), origin.path);
  return fittedPicture(services, std::move(decoder), natural, background);
}

}  // namespace vellumry
