// Icon and cursor files: one image chosen by size and colour depth.
#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/Encoders.h"
#include "platform/codecs/IconResource.h"

namespace vellumry {

namespace {

// IconSize values.
constexpr int32_t kIconSizeJumbo = -3;
constexpr int32_t kIconSizeExtraLarge = -2;
constexpr int32_t kIconSizeDefault = -1;
constexpr int32_t kIconSizeSmallMetric = 0;
constexpr int32_t kIconSizeLargeMetric = 1;
constexpr int32_t kIconSizeShellSmall = 2;
constexpr int32_t kIconSizeShellLarge = 3;
constexpr int32_t kIconSizeCustom = 4;

// The desktop's small and large icon sizes: no desktop tells them here.
constexpr int32_t kSmallIcon = 16;
constexpr int32_t kLargeIcon = 32;
// The sizes of the shell's extra large and jumbo icons.
constexpr int32_t kExtraLargeIcon = 48;
constexpr int32_t kJumboIcon = 256;
// Pictures are drawn at 32 bits a pixel.
constexpr int32_t kDisplayBitsPerPixel = 32;

// An icon file of the one image at directory position `row`: the header with a count of 1, the
// row with the image's offset 22, the image.
Stream oneImageFile(std::span<const uint8_t> data, int row) {
  const size_t rowAt = codecs::kIconHeaderBytes + codecs::kIconRowBytes * static_cast<size_t>(row);
  const codecs::IconResourceRow image = codecs::readIconRow(gdi::ByteReader(data), row);
  std::vector<uint8_t> file(data.begin(), data.begin() + codecs::kIconHeaderBytes);
  file[4] = 1;
  file[5] = 0;
  file.insert(file.end(), data.begin() + rowAt, data.begin() + rowAt + 12);
  codecs::putLe32(file, codecs::kIconHeaderBytes + codecs::kIconRowBytes);
  const auto bytes = data.subspan(image.offset, image.bytes);
  file.insert(file.end(), bytes.begin(), bytes.end());
  return std::make_shared<const std::vector<uint8_t>>(std::move(file));
}

}  // namespace

void StdPictureEx::ResolveIconSize(int32_t IconSize, int32_t& Width, int32_t& Height,
                                   int imageCount) {
  if (IconSize == kIconSizeCustom) {
    // A side below 1 takes the other's value; with both below 1 it is the default.
    if (Width < 1) Width = Height;
    if (Height < 1) Height = Width;
    if (Width >= 1) return;
    IconSize = kIconSizeDefault;
  }
  int32_t side = 0;
  switch (IconSize) {
    case kIconSizeJumbo:
      side = kJumboIcon;
      break;
    case kIconSizeExtraLarge:
      side = kExtraLargeIcon;
      break;
    case kIconSizeDefault:
      // A file of one image shows it at its own size.
      side = imageCount == 1 ? 0 : kLargeIcon;
      break;
    case kIconSizeSmallMetric:
    case kIconSizeShellSmall:
      side = kSmallIcon;
      break;
    case kIconSizeLargeMetric:
    case kIconSizeShellLarge:
      side = kLargeIcon;
      break;
    default:
      return;  // Width and Height as passed
  }
  Width = side;
  Height = side;
}

gdi::Picture StdPictureEx::LoadIconData(std::span<const uint8_t> Data, int32_t& Width,
                                        int32_t& Height, int32_t& IconSize, int32_t& ColorDepth,
                                        bool KeepOriginalFormat, PictureRecord& Record) {
  const auto resource = codecs::readIconResource(Data);
  if (!resource) return {};
  ResolveIconSize(IconSize, Width, Height, static_cast<int>(resource->rows.size()));
  if (resource->rows.size() > 1 && ColorDepth < 1) ColorDepth = kDisplayBitsPerPixel;
  auto chosen = codecs::loadIconImage(Data, *resource, Width, Height, ColorDepth);
  if (!chosen) return {};
  gdi::Picture picture =
      gdi::Picture::fromIcon(std::move(chosen->image), services_.twipsPerPixel());
  if (!picture) return {};
  if (KeepOriginalFormat) {
    Record.SourceBytes = oneImageFile(Data, chosen->row);
    Record.Flags = flagsOf(kKindIcon);
  }
  // A 32-bit image is drawn with its alpha.
  if (chosen->depth == 32) Record.Flags = flagsOf(kKindIcon);
  return picture;
}

}  // namespace vellumry
