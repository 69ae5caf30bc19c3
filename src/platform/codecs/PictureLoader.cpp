#include "platform/codecs/PictureLoader.h"

#include "platform/codecs/Codecs.h"
#include "platform/codecs/IcoCodec.h"

namespace vellumry::codecs {

namespace {

// Decodes one file's bytes on demand; const and stateless beyond the shared bytes, so any number
// of threads may call it at once.
class FileDecoder : public gdi::ScaledDecoder {
 public:
  FileDecoder(std::shared_ptr<const std::vector<uint8_t>> bytes, ImageInfo info,
              const Leniency& leniency)
      : bytes_(std::move(bytes)), info_(info), leniency_(leniency) {}

  gdi::Size NaturalSize() const override { return {info_.width, info_.height}; }
  bool HasAlpha() const override { return info_.hasAlpha; }
  gdi::Size NativeSizeFor(gdi::Size wanted) const override {
    return codecs::NativeSizeFor(info_, wanted);
  }
  std::optional<gdi::Surface> Decode(gdi::Size native) const override {
    auto decoded = codecs::Decode(*bytes_, native.width, native.height, leniency_);
    if (!decoded) return std::nullopt;
    return std::move(decoded->surface);
  }

 private:
  std::shared_ptr<const std::vector<uint8_t>> bytes_;
  ImageInfo info_;
  Leniency leniency_;
};

}  // namespace

gdi::Picture PictureFromBytes(std::shared_ptr<const std::vector<uint8_t>> bytes,
                              std::shared_ptr<gdi::PixelCache> cache, bool keepOriginal,
                              double twipsPerPixel, const Leniency& leniency) {
  if (!bytes) return {};
  auto info = Probe(*bytes);
  if (!info || info->width <= 0 || info->height <= 0) return {};
  gdi::Picture picture;
  switch (info->format) {
    case Format::kIco:
    case Format::kCur: {
      auto directory = ReadIconDirectory(*bytes);
      if (!directory) return {};
      auto icon = DecodeIconEntry(*bytes, DefaultIconEntry(*directory), leniency);
      if (!icon) return {};
      picture = gdi::Picture::FromIcon(std::move(*icon), twipsPerPixel);
      break;
    }
    case Format::kEmf:
    case Format::kWmf:
    case Format::kUnknown:
      return {};
    default:
      picture = gdi::Picture::FromLazyPixels(
          std::make_shared<gdi::LazyPixels>(std::make_unique<FileDecoder>(bytes, *info, leniency),
                                            std::move(cache)),
          twipsPerPixel);
  }
  if (keepOriginal) picture.KeepOriginal(std::move(bytes));
  return picture;
}

}  // namespace vellumry::codecs
