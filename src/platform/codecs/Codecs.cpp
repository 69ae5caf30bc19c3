#include "platform/codecs/Codecs.h"

#include "platform/codecs/BlockReducer.h"
#include "platform/codecs/BmpCodec.h"
#include "platform/codecs/GifCodec.h"
#include "platform/codecs/IcoCodec.h"
#include "platform/codecs/JpegCodec.h"
#include "platform/codecs/Limits.h"
#include "platform/codecs/MetafileCodec.h"
#include "platform/codecs/MetafileProbe.h"
#include "platform/codecs/PngCodec.h"
#include "platform/codecs/TiffCodec.h"

namespace vellumry::codecs {

const char* errorName(Error error) {
  switch (error) {
    case Error::kUnknownFormat:
      return "unknown format";
    case Error::kUnsupported:
      return "unsupported";
    case Error::kTruncated:
      return "truncated";
    case Error::kCorrupt:
      return "corrupt";
    case Error::kTooLarge:
      return "too large";
    case Error::kOutOfRange:
      return "out of range";
  }
  return "?";
}

Expected<ImageInfo> probe(std::span<const uint8_t> bytes) {
  using ProbeFn = Expected<ImageInfo> (*)(std::span<const uint8_t>);
  // Each probe answers kUnknownFormat unless the first bytes are its own.
  for (const ProbeFn probe :
       {probeJpeg, probePng, probeGif, probeTiff, probeBmp, probeIcon, probeMetafile}) {
    auto info = probe(bytes);
    // A picture too large to ever be decoded is refused as soon as its header is read, so that
    // nobody sizes a cell or a window for it. A TIFF decodes small while holding only one band
    // of its rows, so its probe judges that instead.
    if (info && info->width > 0 && info->height > 0 && info->format != Format::kTiff &&
        !fitsPixelBudget(info->width, info->height)) {
      return Error::kTooLarge;
    }
    if (info || info.error() != Error::kUnknownFormat) return info;
  }
  return Error::kUnknownFormat;
}

std::vector<gdi::Size> nativeSizes(const ImageInfo& info) {
  switch (info.format) {
    case Format::kUnknown:
    case Format::kEmf:
    case Format::kWmf:
      return {};
    case Format::kJpeg:
      return jpegNativeSizes(info.width, info.height);
    case Format::kPng:
    case Format::kTiff:
    case Format::kBmp:
      return halvedSizes(info.width, info.height);
    default:
      return {{info.width, info.height}};
  }
}

gdi::Size nativeSizeFor(const ImageInfo& info, gdi::Size wanted) {
  const gdi::Size full{info.width, info.height};
  if (wanted.width <= 0 || wanted.height <= 0) return full;
  // Metafiles draw at any size.
  if (info.format == Format::kEmf || info.format == Format::kWmf) return wanted;
  for (const gdi::Size size : nativeSizes(info)) {
    if (size.width >= wanted.width && size.height >= wanted.height) return size;
  }
  return full;
}

Expected<Decoded> decode(std::span<const uint8_t> bytes, int wantedWidth, int wantedHeight,
                         const Leniency& leniency) {
  auto info = probe(bytes);
  if (!info) return info.error();
  // For the formats that halve while they read.
  const auto halving = [&] {
    return halvingTo(info->width, info->height, nativeSizeFor(*info, {wantedWidth, wantedHeight}));
  };
  switch (info->format) {
    case Format::kJpeg: {
      const gdi::Size native = nativeSizeFor(*info, {wantedWidth, wantedHeight});
      const auto sizes = jpegNativeSizes(info->width, info->height);
      int eighths = 8;
      for (int n = 1; n <= 8; ++n) {
        if (sizes[n - 1] == native) {
          eighths = n;
          break;
        }
      }
      return decodeJpeg(bytes, eighths, leniency);
    }
    case Format::kPng:
      return decodePng(bytes, leniency, halving());
    case Format::kTiff:
      return decodeTiff(bytes, 0, leniency, halving());
    case Format::kGif:
      return decodeGif(bytes, leniency);
    case Format::kBmp:
      return decodeBmp(bytes, leniency, halving());
    case Format::kIco:
    case Format::kCur:
      return decodeIcon(bytes, leniency);
    case Format::kEmf:
    case Format::kWmf:
      return decodeMetafile(bytes, *info, wantedWidth, wantedHeight);
    case Format::kUnknown:
      break;
  }
  return Error::kUnknownFormat;
}

}  // namespace vellumry::codecs
