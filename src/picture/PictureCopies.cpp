// Pictures made from other pictures: copies owned by the class, and conversions between bitmaps
// and icons.
#include <algorithm>

#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/ClassifyAlpha.h"
#include "platform/codecs/Encoders.h"
#include "platform/gdi/LockBits.h"

namespace vellumry {

namespace {

enum class Action { kReadBytes, kIcon, kBitmap, kMaskedBitmap };

bool hasFourthByte(const gdi::Surface& pixels) { return pixels.alpha() != gdi::AlphaMode::kOpaque; }

bool isMetafile(const gdi::Picture& picture) {
  return picture.Type() == gdi::PictureType::kMetafile ||
         picture.Type() == gdi::PictureType::kEnhancedMetafile;
}

uint32_t classify(const gdi::Surface& pixels) {
  return codecs::ClassifyAlpha(pixels.Pixels(), pixels.Width(), pixels.Height());
}

}  // namespace

gdi::Picture StdPictureEx::LoadFromPicture(const gdi::Picture& picture, Arguments& args,
                                           PictureRecord& record) {
  const int32_t row = FindRecord(picture);
  const gdi::PictureType type = picture.Type();
  Stream bytes;
  Action action = Action::kBitmap;
  if (picture.KeepOriginalFormat()) {
    action = Action::kReadBytes;
    bytes = sourceBytesOf(picture);
  } else if (row >= 0 && args.KeepOriginalFormat && Record(row).SourceBytes) {
    action = Action::kReadBytes;
    bytes = Record(row).SourceBytes;
  } else if (row >= 0) {
    action = type == gdi::PictureType::kIcon ? Action::kIcon : Action::kBitmap;
  } else {
    args.KeepOriginalFormat = false;
    if (isMetafile(picture)) {
      action = Action::kReadBytes;
      bytes = picture.metafileBits();
    } else if (type != gdi::PictureType::kBitmap) {
      action = Action::kIcon;
    } else if (picture.Attributes() & gdi::kPictureTransparent) {
      // Only the loader's GIFs and a GIF's frames are transparent bitmaps without a record: all
      // of 8 bits or less.
      action = Action::kMaskedBitmap;
    }
  }
  gdi::Picture copy;
  if (action == Action::kReadBytes) {
    if (bytes) copy = LoadFromBytes(bytes, {}, args, record);
  } else if (action == Action::kIcon) {
    if (const gdi::IconImage* icon = picture.icon()) {
      if (icon->hasAlpha() && classify(icon->colour) != 0) record.Flags = flagsOf(kKindIcon);
      int32_t width = args.Width, height = args.Height;
      ResolveIconSize(args.IconSize, width, height, 1);
      const gdi::Size own = icon->colour.dimensions();
      copy = gdi::Picture::fromIcon(
          gdi::scaleIcon(*icon, {width > 0 ? width : own.width, height > 0 ? height : own.height}),
          services_.twipsPerPixel());
    }
  } else if (action == Action::kMaskedBitmap) {
    copy = copyMasked(picture, record);
  } else if (const auto pixels = picture.Pixels()) {
    copy = ExamineBitmap(*pixels, record);
  }
  if (!copy) record = PictureRecord{};
  return copy;
}

gdi::Picture StdPictureEx::copyMasked(const gdi::Picture& picture, PictureRecord& record) {
  const auto own = picture.Pixels();
  if (!own) return {};
  // A key colour the picture doesn't hold, tried from 1 up: one more than a palette's entries
  // always finds one.
  std::vector<bool> held(259);
  for (const uint32_t p : own->Pixels()) {
    if (const uint32_t colour = p & 0xFFFFFF; colour < held.size()) held[colour] = true;
  }
  uint32_t key = 1;
  while (held[key]) ++key;
  // The picture drawn over the key: what still shows the key was transparent.
  gdi::Surface pixels(own->Width(), own->Height(), gdi::AlphaMode::kOpaque);
  std::ranges::fill(pixels.Pixels(), 0xFF000000u | key);
  picture.Render(pixels, 0, 0, pixels.Width(), pixels.Height(), 0, picture.Height(),
                 picture.Width(), -picture.Height());
  for (uint32_t& p : pixels.Pixels()) p = (p & 0xFFFFFF) == key ? 0 : p | 0xFF000000u;
  pixels.setAlpha(gdi::AlphaMode::kPremultiplied);
  record.Flags = flagsOf(kKindBitmap);
  return gdi::Picture::fromSurface(std::move(pixels), services_.twipsPerPixel());
}

gdi::Picture StdPictureEx::ExamineBitmap(gdi::Surface pixels, PictureRecord& record) {
  record.Flags = 0;
  if (hasFourthByte(pixels)) {
    switch (classify(pixels)) {
      case codecs::kPixelFormat32bppARGB:
        pixels.setAlpha(gdi::AlphaMode::kStraight);
        pixels = gdi::convertAlpha(pixels, gdi::AlphaMode::kPremultiplied);
        record.Flags = flagsOf(kKindBitmap);
        break;
      case codecs::kPixelFormat32bppPARGB:
      case codecs::kAlphaOnlyZeroHoles:
        pixels.setAlpha(gdi::AlphaMode::kPremultiplied);
        record.Flags = flagsOf(kKindBitmap);
        break;
      default:
        pixels.setAlpha(gdi::AlphaMode::kUnknown);
        break;
    }
  }
  return gdi::Picture::fromSurface(std::move(pixels), services_.twipsPerPixel());
}

gdi::Picture StdPictureEx::RenderToDib(const gdi::Picture& picture, PictureRecord& record) {
  const auto drawing = picture.Pixels(picture.pixelSize());
  if (!drawing) return picture;
  gdi::Surface pixels = gdi::convertAlpha(*drawing, gdi::AlphaMode::kPremultiplied);
  const bool transparent = picture.Attributes() & gdi::kPictureTransparent;
  // Drawing marks what it covers: a pixel painted whole stays, any other is cleared; without
  // transparency the drawing lies on the section's black.
  for (uint32_t& p : pixels.Pixels()) {
    if (transparent) {
      if (gdi::alphaOf(p) != 255) p = 0;
    } else {
      p |= 0xFF000000u;
    }
  }
  pixels.setAlpha(transparent ? gdi::AlphaMode::kPremultiplied : gdi::AlphaMode::kOpaque);
  record.Flags = transparent ? flagsOf(kKindBitmap) : 0;
  return gdi::Picture::fromSurface(std::move(pixels), services_.twipsPerPixel());
}

gdi::Picture StdPictureEx::ConvertToBitmap(const gdi::Picture& picture, PictureRecord& record) {
  if (picture.Type() == gdi::PictureType::kBitmap) {
    if (record.Flags != 0) record.Flags = flagsOf(kKindBitmap);
    return picture;
  }
  if (isMetafile(picture)) return RenderToDib(picture, record);
  const gdi::IconImage* icon = picture.icon();
  if (!icon) return picture;
  if (icon->hasAlpha() && classify(icon->colour) != 0) return ExamineBitmap(icon->colour, record);
  // The mask decides: masked pixels become transparent, the rest opaque. Drawn with alpha only
  // when some pixel is masked.
  gdi::Surface pixels = icon->colour;
  bool masked = false;
  for (int y = 0; y < pixels.Height(); ++y) {
    for (int x = 0; x < pixels.Width(); ++x) {
      masked = masked || icon->masked(x, y);
      pixels.setPixel(x, y, icon->masked(x, y) ? 0 : pixels.pixel(x, y) | 0xFF000000u);
    }
  }
  pixels.setAlpha(masked ? gdi::AlphaMode::kPremultiplied : gdi::AlphaMode::kOpaque);
  record.Flags = masked ? flagsOf(kKindBitmap) : 0;
  return gdi::Picture::fromSurface(std::move(pixels), services_.twipsPerPixel());
}

gdi::Picture StdPictureEx::ConvertToIcon(const gdi::Picture& picture, PictureRecord& record,
                                         const Arguments& args) {
  // A metafile goes by its drawing, what it didn't paint masked.
  PictureRecord drawnRecord;
  const gdi::Picture bitmap = isMetafile(picture) ? RenderToDib(picture, drawnRecord) : picture;
  if (bitmap.Type() != gdi::PictureType::kBitmap) return picture;
  const auto pixels = bitmap.Pixels();
  if (!pixels) return picture;
  // An icon file of one image: alpha pixels of 0 masked, colour unscaled as icon readers expect.
  gdi::IconImage icon;
  const bool alpha = hasFourthByte(*pixels);
  icon.colour =
      gdi::convertAlpha(*pixels, alpha ? gdi::AlphaMode::kStraight : gdi::AlphaMode::kOpaque);
  icon.andMask.reserve(icon.colour.Pixels().size());
  for (const uint32_t p : icon.colour.Pixels()) {
    icon.andMask.push_back(alpha && gdi::alphaOf(p) == 0 ? 1 : 0);
  }
  const std::vector<uint8_t> file = codecs::encodeIco(icon);
  int32_t width = args.Width, height = args.Height, iconSize = -1, depth = args.ColorDepth;
  PictureRecord iconRecord;
  gdi::Picture converted =
      LoadIconData(file, width, height, iconSize, depth, args.KeepForIcon, iconRecord);
  if (!converted) return picture;
  record = iconRecord;
  return converted;
}

}  // namespace vellumry
