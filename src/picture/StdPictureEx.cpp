#include "picture/StdPictureEx.h"

#include <cstdlib>

#include "picture/LazyPicture.h"
#include "picture/PictureServices.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/DibSectionProbe.h"
#include "platform/os/FileSystem.h"

namespace vellumry {

namespace {

// Magic numbers of the sniff: the first four bytes read little-endian.
constexpr uint32_t kMagicPng = 0x474E5089;
constexpr uint32_t kLowBitmap = 0x4D42;  // "BM"
constexpr uint32_t kLowGif = 0x464947;   // "GIF", low 24 bits
constexpr uint32_t kLowTiffIntel = 0x4949;
constexpr uint32_t kLowTiffMotorola = 0x4D4D;
constexpr uint32_t kTypeIcon = 1;  // the high 16 bits of an icon file's magic
constexpr uint32_t kTypeCursor = 2;

// Shorter data has no magic and goes by the decoders alone.
uint32_t magicOf(const std::vector<uint8_t>& bytes) {
  if (bytes.size() < 4) return 0;
  return bytes[0] | (bytes[1] << 8) | (bytes[2] << 16) | (uint32_t{bytes[3]} << 24);
}

// The kind (PictureKind) of what the full decoders read; metafiles and icons give 0.
int32_t ImageKind(codecs::Format format) {
  switch (format) {
    case codecs::Format::kBmp:
      return kKindBitmap;
    case codecs::Format::kEmf:
      return kKindEnhancedMetafile;
    case codecs::Format::kJpeg:
      return kKindJpeg;
    case codecs::Format::kPng:
      return kKindPng;
    case codecs::Format::kGif:
      return kKindGif;
    case codecs::Format::kTiff:
      return kKindTiff;
    default:
      return kKindNone;
  }
}

// Where a picture reads its pixels from: the file when it came from one and its bytes needn't
// stay, else the stream.
PictureOrigin originOf(const Stream& stream, const std::string& path, bool keep) {
  if (!path.empty() && !keep) return {path, nullptr};
  return {{}, stream};
}

}  // namespace

StdPictureEx::Arguments StdPictureEx::normaliseArguments(int32_t IconSize, int32_t ColorDepth,
                                                         int32_t Width, int32_t Height,
                                                         bool KeepOriginalFormat,
                                                         int32_t ConvertTo) {
  Arguments args{IconSize, ColorDepth, Width, Height, KeepOriginalFormat, ConvertTo, false};
  if (ConvertTo == 1) {
    args.KeepOriginalFormat = false;
  } else if (ConvertTo == 3) {
    args.KeepForIcon = KeepOriginalFormat;
    args.KeepOriginalFormat = false;
  } else {
    args.ConvertTo = 0;
  }
  // Sizes keep their low 12 bits: 4096 is 0, 4100 is 4.
  args.Width = Width < 0 ? 0 : Width & 0xFFF;
  args.Height = Height < 0 ? 0 : Height & 0xFFF;
  if (ColorDepth < 0) args.ColorDepth = 0;
  return args;
}

gdi::Picture StdPictureEx::LoadPicture(const PictureSource& Source, int32_t IconSize,
                                       int32_t ColorDepth, int32_t Width, int32_t Height,
                                       bool KeepOriginalFormat, int32_t ConvertTo) {
  Arguments args =
      normaliseArguments(IconSize, ColorDepth, Width, Height, KeepOriginalFormat, ConvertTo);
  PictureRecord record;
  gdi::Picture picture;
  if (const auto* path = std::get_if<std::string>(&Source)) {
    if (!path->empty()) picture = LoadFromFile(*path, args, record);
  } else if (const auto* array = std::get_if<ByteArray>(&Source)) {
    // One dimension and at least two elements.
    if (array->dimensions == 1 && array->bytes.size() >= 2) {
      picture = LoadFromBytes(MakeStream(array->bytes), {}, args, record);
    }
  } else if (const auto* source = std::get_if<gdi::Picture>(&Source)) {
    if (*source && source->Handle() != 0) {
      picture = LoadFromPicture(*source, args, record);
      if (!picture) picture = *source;
    }
  }
  if (picture && args.ConvertTo == 1) picture = ConvertToBitmap(picture, record);
  if (picture && args.ConvertTo == 3) picture = ConvertToIcon(picture, record, args);
  if (picture && record.Flags != 0) {
    record.PictureKey = picture.Handle();
    record.DispatchKey = picture.Handle();
    AddRecord(record);
    manage(picture);
  }
  return picture;
}

gdi::Picture StdPictureEx::LoadFromFile(const std::string& path, Arguments& args,
                                        PictureRecord& record) {
  auto bytes = os::readWholeFile(path);
  if (!bytes || bytes->empty()) return {};
  return LoadFromBytes(std::make_shared<const std::vector<uint8_t>>(std::move(*bytes)), path, args,
                       record);
}

gdi::Picture StdPictureEx::LoadFromBytes(const Stream& stream, const std::string& path,
                                         Arguments& args, PictureRecord& record) {
  uint32_t magic = magicOf(*stream);
  const uint32_t low = magic & 0xFFFF, high = magic >> 16;
  if (low == kLowBitmap) {
    args.KeepOriginalFormat = false;
    if (gdi::Picture picture = loadFromDib(stream, path, record)) return picture;
    magic = 0;
  } else if ((magic & 0xFFFFFF) == kLowGif) {
    if (!args.KeepOriginalFormat) magic = 0;
  } else if (magic == kMagicPng || (magic & 0xFFFF) == kLowTiffIntel ||
             (magic & 0xFFFF) == kLowTiffMotorola) {
    // The full decoders read these straight away.
  } else if (low == 0 && (high == kTypeIcon || high == kTypeCursor)) {
    magic = 0;
    if (gdi::Picture picture = LoadIconData(*stream, args.Width, args.Height, args.IconSize,
                                            args.ColorDepth, args.KeepOriginalFormat, record)) {
      return picture;
    }
  } else {
    magic = 0;
  }
  gdi::Picture picture;
  if (magic == 0) picture = PictureFromStream(stream, path, args.KeepOriginalFormat);
  if (!picture) picture = LoadThroughGdiPlus(stream, path, args.KeepOriginalFormat, record);
  return picture;
}

gdi::Picture StdPictureEx::loadFromDib(const Stream& stream, const std::string& path,
                                       PictureRecord& record) {
  // The pixels are decoded later, at the size they are drawn, on whichever thread draws them.
  const auto section = codecs::probeDibSection(*stream);
  if (!section) return {};
  const gdi::AlphaMode stored = section->stored;
  gdi::Picture picture =
      makeDibPicture(services_, originOf(stream, path, false), section->natural, stored);
  const bool alpha =
      stored == gdi::AlphaMode::kStraight || stored == gdi::AlphaMode::kPremultiplied;
  if (picture && alpha) record.Flags = flagsOf(kKindBitmap);
  return picture;
}

gdi::Picture StdPictureEx::PictureFromStream(const Stream& stream, const std::string& path,
                                             bool KeepOriginalFormat) {
  const auto info = codecs::probe(*stream);
  if (!info) return {};
  switch (info->format) {
    case codecs::Format::kBmp:
    case codecs::Format::kJpeg:
    case codecs::Format::kGif:
    case codecs::Format::kIco:
    case codecs::Format::kCur:
    case codecs::Format::kWmf:
    case codecs::Format::kEmf:
      break;
    default:
      return {};
  }
  gdi::Picture picture =
      makeLazyPicture(services_, originOf(stream, path, KeepOriginalFormat), *info);
  if (picture && KeepOriginalFormat) picture.keepOriginal(stream);
  return picture;
}

gdi::Picture StdPictureEx::LoadThroughGdiPlus(const Stream& stream, const std::string& path,
                                              bool KeepOriginalFormat, PictureRecord& record) {
  const auto info = codecs::probe(*stream);
  if (!info) return {};
  const int32_t kind = ImageKind(info->format);
  record.Flags = flagsOf(kind);
  switch (kind) {
    case kKindBitmap:
      KeepOriginalFormat = false;
      break;
    case kKindGif: {
      // Only a GIF whose frames are wanted later is managed; any other is a plain picture.
      const uint32_t frames = static_cast<uint32_t>(info->frameCount);
      record.Flags = flagsOf(kind, 1, frames);
      if (frames > 1 && KeepOriginalFormat) break;
      record.Flags = 0;
      return PictureFromStream(stream, path, KeepOriginalFormat);
    }
    case kKindTiff:
      if (KeepOriginalFormat) {
        record.Flags = flagsOf(kind, 1, static_cast<uint32_t>(info->frameCount));
      }
      break;
    case kKindJpeg:
    case kKindPng:
      break;
    default:
      // Metafiles: the platform loader reads every one this road would, so none arrives here.
      record.Flags = 0;
      return {};
  }
  // Pixels with alpha are managed as an alpha bitmap, unless the source is kept.
  if (!KeepOriginalFormat && info->hasAlpha) record.Flags = flagsOf(kKindBitmap);
  gdi::Picture picture = makeLazyPicture(services_, originOf(stream, path, false), *info);
  if (!picture) {
    record.Flags = 0;
    return {};
  }
  if (KeepOriginalFormat) record.SourceBytes = stream;
  return picture;
}

Stream StdPictureEx::MakeStream(std::span<const uint8_t> data) {
  return std::make_shared<const std::vector<uint8_t>>(data.begin(), data.end());
}

int32_t StdPictureEx::RowBytes(int32_t BitsPerPixel, int32_t Width, int32_t Height) {
  const int64_t row = ((int64_t{BitsPerPixel} * Width + 31) & ~int64_t{31}) / 8;
  const int64_t rows = Height == 0 ? 1 : std::llabs(int64_t{Height});
  return static_cast<int32_t>(row * rows);
}

int32_t StdPictureEx::PictureType(const gdi::Picture& picture) {
  if (!picture) return kKindNone;
  if (const uint32_t flags = Record(FindRecord(picture)).Flags; flags != 0) {
    return kindOf(flags);
  }
  int32_t type = static_cast<int32_t>(picture.Type());
  if (const std::vector<uint8_t>* saved = picture.originalBytes(); saved && saved->size() >= 4) {
    if ((*saved)[0] == 'G' && (*saved)[1] == 'I' && (*saved)[2] == 'F') {
      type = kKindGif;
    } else if (!((*saved)[0] == 'B' && (*saved)[1] == 'M')) {
      type = kKindJpeg;
    }
  }
  return type;
}

}  // namespace vellumry
