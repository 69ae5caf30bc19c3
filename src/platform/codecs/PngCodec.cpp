#include "platform/codecs/PngCodec.h"

#include <png.h>

#include <csetjmp>
#include <cstring>
#include <optional>
#include <vector>

#include "platform/codecs/BlockReducer.h"
#include "platform/codecs/Limits.h"
#include "platform/codecs/PngIo.h"
#include "platform/gdi/ByteReader.h"

namespace vellumry::codecs {

namespace {

using pngio::Input;
using pngio::onError;
using pngio::onWarning;
using pngio::Reader;
using pngio::readFromMemory;

constexpr uint8_t kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

int channels(int colorType) {
  switch (colorType) {
    case PNG_COLOR_TYPE_GRAY_ALPHA:
      return 2;
    case PNG_COLOR_TYPE_RGB:
      return 3;
    case PNG_COLOR_TYPE_RGB_ALPHA:
      return 4;
    default:
      return 1;
  }
}

// Which stage a failing decode reached, to tell a damaged end from damaged pixels.
enum class Stage { kHeader, kRows, kEnd, kDone };

// What the decode works in; it lives in the caller (see the note on jumps in the JPEG decoder).
struct Scratch {
  std::vector<png_bytep> rows;
  std::vector<uint32_t> row;
  std::optional<BlockReducer> reducer;
};

// Rows are read one by one into the reducer, so that a shrunk picture never holds its full
// pixels. An interlaced picture only completes its rows in the last pass, so it is read whole
// and shrunk after.
void readRowsShrinking(png_structp png, png_uint_32 width, png_uint_32 height, int reduction,
                       Decoded& out, Scratch& scratch) {
  const gdi::AlphaMode alpha = out.surface.alpha();
  const gdi::Size size = reduced(static_cast<int>(width), static_cast<int>(height), reduction);
  out.surface = gdi::Surface(size.width, size.height, alpha);
  scratch.row.resize(width);
  scratch.reducer.emplace(out.surface, static_cast<int>(width), reduction);
  for (png_uint_32 y = 0; y < height; ++y) {
    png_read_row(png, reinterpret_cast<png_bytep>(scratch.row.data()), nullptr);
    scratch.reducer->addRow(scratch.row.data());
  }
  scratch.reducer->finish();
}

void readRowsWhole(png_structp png, png_uint_32 height, int reduction, Decoded& out,
                   Scratch& scratch) {
  scratch.rows.resize(height);
  for (png_uint_32 y = 0; y < height; ++y) {
    scratch.rows[y] = reinterpret_cast<png_bytep>(out.surface.Row(static_cast<int>(y)));
  }
  png_read_image(png, scratch.rows.data());
  if (reduction > 1) out.surface = reduce(out.surface, reduction);
}

// The decode proper; objects it fills live in the caller.
Stage runDecode(Reader& r, Input& input, int reduction, Decoded& out, Scratch& scratch,
                Error& error) {
  png_structp png = r.png();
  png_infop info = r.info();
  volatile Stage stage = Stage::kHeader;  // read after a jump back
  if (setjmp(png_jmpbuf(png))) return stage;
  png_set_read_fn(png, &input, readFromMemory);
  // Of the ancillary chunks only tRNS matters here. libpng allocates a chunk's stated length
  // before reading it, so a broken length in a text or profile chunk would ask for gigabytes;
  // skipped unread, they cost nothing.
  png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
  png_read_info(png, info);
  const png_uint_32 width = png_get_image_width(png, info);
  const png_uint_32 height = png_get_image_height(png, info);
  if (!fitsPixelBudget(width, height)) {
    error = Error::kTooLarge;
    return stage;
  }
  const int colorType = png_get_color_type(png, info);
  const bool alpha =
      (colorType & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(png, info, PNG_INFO_tRNS) != 0;
  out.info.width = static_cast<int>(width);
  out.info.height = static_cast<int>(height);
  out.info.bitsPerPixel = png_get_bit_depth(png, info) * channels(colorType);
  out.info.hasAlpha = alpha;

  png_set_expand(png);
  png_set_scale_16(png);
  png_set_gray_to_rgb(png);
  png_set_bgr(png);
  if (!alpha) png_set_filler(png, 0xFF, PNG_FILLER_AFTER);
  png_set_interlace_handling(png);
  png_read_update_info(png, info);
  if (png_get_rowbytes(png, info) != size_t{width} * 4) {
    error = Error::kUnsupported;
    return stage;
  }
  const bool interlaced = png_get_interlace_type(png, info) != PNG_INTERLACE_NONE;
  const gdi::AlphaMode mode = alpha ? gdi::AlphaMode::kStraight : gdi::AlphaMode::kOpaque;
  stage = Stage::kRows;
  if (reduction > 1 && !interlaced) {
    out.surface.setAlpha(mode);
    readRowsShrinking(png, width, height, reduction, out, scratch);
  } else {
    out.surface = gdi::Surface(static_cast<int>(width), static_cast<int>(height), mode);
    readRowsWhole(png, height, reduction, out, scratch);
  }
  stage = Stage::kEnd;
  png_read_end(png, nullptr);
  return Stage::kDone;
}

}  // namespace

Expected<ImageInfo> probePng(std::span<const uint8_t> bytes) {
  if (bytes.size() < 8 || std::memcmp(bytes.data(), kSignature, 8) != 0) {
    return Error::kUnknownFormat;
  }
  const gdi::ByteReader in(bytes);
  const auto length = in.be32(8);
  const auto type = in.be32(12);
  const auto width = in.be32(16);
  const auto height = in.be32(20);
  const auto depth = in.u8(24);
  const auto colorType = in.u8(25);
  if (!length || !type || !width || !height || !depth || !colorType) return Error::kTruncated;
  if (*type != 0x49484452 /* IHDR */ || *length != 13 || *width == 0 || *height == 0 ||
      *width > 0x7FFFFFFF || *height > 0x7FFFFFFF) {
    return Error::kCorrupt;
  }
  ImageInfo info;
  info.format = Format::kPng;
  info.width = static_cast<int>(*width);
  info.height = static_cast<int>(*height);
  info.bitsPerPixel = *depth * channels(*colorType);
  info.hasAlpha = (*colorType & PNG_COLOR_MASK_ALPHA) != 0;
  // Walk the chunks before the image data for a transparent colour.
  uint64_t at = 8;
  for (int chunks = 0; !info.hasAlpha && chunks < 1000; ++chunks) {
    const auto chunkLength = in.be32(at);
    const auto chunkType = in.be32(at + 4);
    if (!chunkLength || !chunkType || *chunkType == 0x49444154 /* IDAT */) break;
    if (*chunkType == 0x74524E53 /* tRNS */) info.hasAlpha = true;
    at += uint64_t{*chunkLength} + 12;
  }
  return info;
}

Expected<Decoded> decodePng(std::span<const uint8_t> bytes, const Leniency& leniency,
                            int reduction) {
  if (bytes.size() < 8 || std::memcmp(bytes.data(), kSignature, 8) != 0) {
    return Error::kUnknownFormat;
  }
  Reader reader;
  if (!reader.ok()) return Error::kCorrupt;
  Input input{bytes};
  Decoded out;
  out.info.format = Format::kPng;
  Scratch scratch;
  Error error = Error::kCorrupt;
  const Stage reached = runDecode(reader, input, reduction, out, scratch, error);
  if (reached == Stage::kDone || (reached == Stage::kEnd && leniency.pngMissingEnd)) return out;
  if (input.position >= bytes.size()) return Error::kTruncated;
  return error;
}

}  // namespace vellumry::codecs
