#pragma once

// The decoders behind one small interface. None of these functions throws or crashes on bad
// input: failures come back as an Error. Sizes are pixels; bytes are borrowed for the length of
// the call only.

#include <cstdint>
#include <span>
#include <vector>

#include "platform/codecs/Expected.h"
#include "platform/codecs/Leniency.h"
#include "platform/gdi/Surface.h"

namespace vellumry::codecs {

enum class Format { kUnknown, kJpeg, kPng, kTiff, kGif, kBmp, kIco, kCur, kEmf, kWmf };

// What a header tells without decoding pixels.
struct ImageInfo {
  Format format = Format::kUnknown;
  int width = 0;  // pixels; 0 when the header doesn't say (a non-placeable WMF)
  int height = 0;
  int bitsPerPixel = 0;   // as stored: 1 to 64 (JPEG: 8 a component)
  bool hasAlpha = false;  // the stored pixels carry an alpha channel or a transparent colour
  int frameCount = 1;     // GIF frames, TIFF pages, icon entries; 1 for the rest
};

struct Decoded {
  gdi::Surface surface;  // top-down; alpha mode says what the fourth byte means
  ImageInfo info;
};

// Recognises the format from its first bytes and reads its header. Never touches pixel data.
// Returns kUnknownFormat for anything it doesn't recognise, kTruncated/kCorrupt for a broken
// header of a recognised format, kTooLarge for a picture of more than kMaxPixelBytes (a TIFF: for
// one that can't be decoded even small).
Expected<ImageInfo> probe(std::span<const uint8_t> bytes);

// Decodes the first image (frame, page, default icon entry) at the smallest size its format
// produces directly that covers wantedWidth x wantedHeight (0, 0: full size). JPEG scales
// natively in eighths and PNG, TIFF and BMP in halves; EMF and WMF are drawn at the wanted size;
// the others come back at full size. Pictures whose header asks for more than kMaxPixelBytes are
// refused (kTooLarge) before anything is allocated; a TIFF only when what its decode holds at the
// asked size (see decodeTiff) is more.
Expected<Decoded> decode(std::span<const uint8_t> bytes, int wantedWidth = 0, int wantedHeight = 0,
                         const Leniency& leniency = {});

// The sizes Decode can produce directly for a picture of this header, smallest first; the last
// is the full size. Empty for formats Decode refuses.
std::vector<gdi::Size> nativeSizes(const ImageInfo& info);

// The smallest of nativeSizes covering `wanted` in both directions, else the full size; for
// metafiles, which draw at any size, `wanted` itself. A 0 in `wanted` means full size.
gdi::Size nativeSizeFor(const ImageInfo& info, gdi::Size wanted);

}  // namespace vellumry::codecs
