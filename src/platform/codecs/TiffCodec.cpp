#include "platform/codecs/TiffCodec.h"

#include <tiffio.h>

#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "platform/codecs/BlockReducer.h"
#include "platform/codecs/Limits.h"
#include "platform/codecs/Orientation.h"

namespace vellumry::codecs {

namespace {

struct Input {
  std::span<const uint8_t> bytes;
  uint64_t position = 0;
};

tmsize_t readProc(thandle_t handle, void* out, tmsize_t size) {
  auto* in = static_cast<Input*>(handle);
  if (size <= 0 || in->position >= in->bytes.size()) return 0;
  const uint64_t n =
      std::min<uint64_t>(static_cast<uint64_t>(size), in->bytes.size() - in->position);
  std::memcpy(out, in->bytes.data() + in->position, n);
  in->position += n;
  return static_cast<tmsize_t>(n);
}

tmsize_t writeProc(thandle_t, void*, tmsize_t) { return -1; }

toff_t seekProc(thandle_t handle, toff_t offset, int whence) {
  auto* in = static_cast<Input*>(handle);
  uint64_t base = 0;
  if (whence == SEEK_CUR) base = in->position;
  if (whence == SEEK_END) base = in->bytes.size();
  if (offset > UINT64_MAX - base) return static_cast<toff_t>(-1);
  in->position = base + offset;
  return in->position;
}

int closeProc(thandle_t) { return 0; }
toff_t sizeProc(thandle_t handle) { return static_cast<Input*>(handle)->bytes.size(); }

int mapProc(thandle_t handle, void** base, toff_t* size) {
  auto* in = static_cast<Input*>(handle);
  *base = const_cast<uint8_t*>(in->bytes.data());
  *size = in->bytes.size();
  return 1;
}

void unmapProc(thandle_t, void*, toff_t) {}

int quiet(TIFF*, void*, const char*, const char*, va_list) { return 1; }

struct TiffCloser {
  void operator()(TIFF* tif) const { TIFFClose(tif); }
};
using TiffHandle = std::unique_ptr<TIFF, TiffCloser>;

bool isTiff(std::span<const uint8_t> bytes) {
  return bytes.size() >= 4 &&
         ((bytes[0] == 'I' && bytes[1] == 'I' && bytes[2] == 42 && bytes[3] == 0) ||
          (bytes[0] == 'M' && bytes[1] == 'M' && bytes[2] == 0 && bytes[3] == 42) ||
          (bytes[0] == 'I' && bytes[1] == 'I' && bytes[2] == 43 && bytes[3] == 0) ||
          (bytes[0] == 'M' && bytes[1] == 'M' && bytes[2] == 0 && bytes[3] == 43));
}

// Opens the bytes without libtiff printing anything, with its allocations capped.
TiffHandle open(Input& input) {
  TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
  if (!options) return nullptr;
  TIFFOpenOptionsSetErrorHandlerExtR(options, quiet, nullptr);
  TIFFOpenOptionsSetWarningHandlerExtR(options, quiet, nullptr);
  TIFFOpenOptionsSetMaxSingleMemAlloc(options, static_cast<tmsize_t>(kMaxPixelBytes));
  TIFF* tif = TIFFClientOpenExt("memory", "rm", &input, readProc, writeProc, seekProc, closeProc,
                                sizeProc, mapProc, unmapProc, options);
  TIFFOpenOptionsFree(options);
  return TiffHandle(tif);
}

// libtiff takes any 16-bit sample size and count; no picture has samples wider than a double,
// and more than 16 of them a pixel is a broken header, not a picture this viewer can show.
constexpr uint16_t kMaxBitsPerSample = 64;
constexpr uint16_t kMaxSamplesPerPixel = 16;

Expected<ImageInfo> infoOf(TIFF* tif) {
  uint32_t width = 0, height = 0;
  uint16_t bits = 1, samples = 1, extraCount = 0;
  uint16_t* extra = nullptr;
  TIFFGetField(tif, TIFFTAG_IMAGEWIDTH, &width);
  TIFFGetField(tif, TIFFTAG_IMAGELENGTH, &height);
  TIFFGetFieldDefaulted(tif, TIFFTAG_BITSPERSAMPLE, &bits);
  TIFFGetFieldDefaulted(tif, TIFFTAG_SAMPLESPERPIXEL, &samples);
  TIFFGetFieldDefaulted(tif, TIFFTAG_EXTRASAMPLES, &extraCount, &extra);
  if (bits == 0 || bits > kMaxBitsPerSample || samples == 0 || samples > kMaxSamplesPerPixel) {
    return Error::kCorrupt;
  }
  ImageInfo info;
  info.format = Format::kTiff;
  info.width = width > 0x7FFFFFFF ? 0 : static_cast<int>(width);
  info.height = height > 0x7FFFFFFF ? 0 : static_cast<int>(height);
  info.bitsPerPixel = static_cast<int>(int64_t{bits} * samples);
  info.hasAlpha = extraCount > 0;
  return info;
}

uint16_t orientationOf(TIFF* tif) {
  uint16_t orientation = ORIENTATION_TOPLEFT;
  TIFFGetFieldDefaulted(tif, TIFFTAG_ORIENTATION, &orientation);
  return orientation >= ORIENTATION_TOPLEFT && orientation <= ORIENTATION_LEFTBOT
             ? orientation
             : ORIENTATION_TOPLEFT;
}

void makeUpright(ImageInfo& info, int orientation) {
  if (swapsSides(orientation)) std::swap(info.width, info.height);
}

// Rows that libtiff decodes in one piece: a strip, or a row of tiles.
uint32_t rowsPerBand(TIFF* tif, uint32_t height) {
  uint32_t rows = 0;
  if (TIFFIsTiled(tif)) {
    TIFFGetField(tif, TIFFTAG_TILELENGTH, &rows);
  } else {
    TIFFGetFieldDefaulted(tif, TIFFTAG_ROWSPERSTRIP, &rows);
  }
  return rows == 0 || rows > height ? height : rows;
}

// libtiff cuts one raw strip into small ones itself, so the band of a raw page says nothing of
// what the file holds: raw pixels count only when they are there.
bool rawPixelsInFile(TIFF* tif, const ImageInfo& info, uint64_t fileSize) {
  uint16_t compression = COMPRESSION_NONE, planes = PLANARCONFIG_CONTIG, samples = 1;
  TIFFGetFieldDefaulted(tif, TIFFTAG_COMPRESSION, &compression);
  if (compression != COMPRESSION_NONE) return true;
  TIFFGetFieldDefaulted(tif, TIFFTAG_PLANARCONFIG, &planes);
  TIFFGetFieldDefaulted(tif, TIFFTAG_SAMPLESPERPIXEL, &samples);
  const uint64_t plane = TIFFVStripSize64(tif, static_cast<uint32_t>(info.height));
  return plane > 0 && plane * (planes == PLANARCONFIG_SEPARATE ? samples : 1) <= fileSize;
}

// A shrunk decode holds the shrunk picture and one band of full-width rows; a full one, the
// picture alone. A page too large to decode whole must also have its raw pixels in the file.
bool fitsWhileShrinking(TIFF* tif, const ImageInfo& info, uint64_t reduction, uint64_t fileSize) {
  const bool fitsWhole = fitsPixelBudget(info.width, info.height);
  if (reduction == 1) return fitsWhole;
  const uint64_t width = static_cast<uint32_t>(info.width);
  const uint64_t height = static_cast<uint32_t>(info.height);
  const uint64_t shrunk =
      (width + reduction - 1) / reduction * ((height + reduction - 1) / reduction);
  const uint64_t band = width * rowsPerBand(tif, static_cast<uint32_t>(height));
  return width > 0 && height > 0 && shrunk + band <= kMaxPixelBytes / 4 &&
         (fitsWhole || rawPixelsInFile(tif, info, fileSize));
}

// libtiff packs R in the low byte; our pixels keep B there.
void swapRedAndBlue(std::span<uint32_t> pixels) {
  for (uint32_t& p : pixels) p = (p & 0xFF00FF00u) | ((p & 0xFFu) << 16) | ((p >> 16) & 0xFFu);
}

struct RgbaImage {
  TIFFRGBAImage image{};
  bool begun = false;
  ~RgbaImage() {
    if (begun) TIFFRGBAImageEnd(&image);
  }
};

// Reads the page band by band into a reducer, so that only one band of full-size rows is held.
bool readShrinking(TIFFRGBAImage& image, int reduction, gdi::Surface& out) {
  const uint32_t width = image.width, height = image.height;
  const uint32_t bandRows = rowsPerBand(image.tif, height);
  std::vector<uint32_t> band(static_cast<size_t>(width) * bandRows);
  BlockReducer reducer(out, static_cast<int>(width), reduction);
  for (uint32_t top = 0; top < height; top += bandRows) {
    const uint32_t rows = std::min(bandRows, height - top);
    image.row_offset = static_cast<int>(top);
    // libtiff gives up on a damaged strip at the start of a read even when told to go on; the
    // band is then left clear.
    if (!TIFFRGBAImageGet(&image, band.data(), width, rows)) {
      if (image.stoponerr) return false;
      std::fill(band.begin(), band.end(), 0);
    }
    swapRedAndBlue({band.data(), static_cast<size_t>(width) * rows});
    for (uint32_t y = 0; y < rows; ++y) reducer.addRow(&band[static_cast<size_t>(y) * width]);
  }
  reducer.finish();
  return true;
}

}  // namespace

Expected<ImageInfo> probeTiff(std::span<const uint8_t> bytes) {
  if (!isTiff(bytes)) return Error::kUnknownFormat;
  Input input{bytes};
  const TiffHandle tif = open(input);
  if (!tif) return Error::kCorrupt;
  auto info = infoOf(tif.get());
  if (!info) return info;
  if (info->width == 0 || info->height == 0) return Error::kCorrupt;
  // Shrunk far enough, a page is within the budget unless one band of it isn't.
  if (!fitsPixelBudget(info->width, info->height) &&
      !fitsWhileShrinking(tif.get(), *info, uint64_t{1} << 31, bytes.size())) {
    return Error::kTooLarge;
  }
  info->frameCount = static_cast<int>(std::min<tdir_t>(TIFFNumberOfDirectories(tif.get()), 0xFFFF));
  makeUpright(*info, orientationOf(tif.get()));
  return info;
}

Expected<Decoded> decodeTiff(std::span<const uint8_t> bytes, int page, const Leniency& leniency,
                             int reduction) {
  if (!isTiff(bytes)) return Error::kUnknownFormat;
  Input input{bytes};
  const TiffHandle tif = open(input);
  if (!tif) return Error::kCorrupt;
  if (page < 0 || (page > 0 && !TIFFSetDirectory(tif.get(), static_cast<tdir_t>(page)))) {
    return Error::kOutOfRange;
  }
  const auto info = infoOf(tif.get());
  if (!info) return info.error();
  Decoded out;
  out.info = *info;
  if (out.info.width == 0 || out.info.height == 0) return Error::kCorrupt;
  if (!fitsWhileShrinking(tif.get(), out.info, static_cast<uint64_t>(reduction), bytes.size())) {
    return Error::kTooLarge;
  }
  char message[1024];
  if (!TIFFRGBAImageOK(tif.get(), message)) return Error::kUnsupported;
  RgbaImage rgba;
  const int stopOnError = leniency.tiffDamagedStrips ? 0 : 1;
  rgba.begun = TIFFRGBAImageBegin(&rgba.image, tif.get(), stopOnError, message) != 0;
  if (!rgba.begun) return Error::kUnsupported;
  // Asking for the file's own orientation gives the rows as stored; turnUpright does the rest,
  // which libtiff can't for pictures on their side.
  const uint16_t orientation = orientationOf(tif.get());
  rgba.image.req_orientation = orientation;

  const gdi::Size size = reduced(out.info.width, out.info.height, reduction);
  out.surface =
      gdi::Surface(size.width, size.height,
                   out.info.hasAlpha ? gdi::AlphaMode::kPremultiplied : gdi::AlphaMode::kOpaque);
  if (reduction == 1) {
    if (!TIFFRGBAImageGet(&rgba.image, out.surface.Pixels().data(), rgba.image.width,
                          rgba.image.height)) {
      return Error::kCorrupt;
    }
    swapRedAndBlue(out.surface.Pixels());
  } else if (!readShrinking(rgba.image, reduction, out.surface)) {
    return Error::kCorrupt;
  }
  turnUpright(out.surface, orientation);
  makeUpright(out.info, orientation);
  return out;
}

}  // namespace vellumry::codecs
