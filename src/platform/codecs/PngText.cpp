#include "platform/codecs/PngText.h"

#include <algorithm>
#include <csetjmp>

#include "platform/codecs/Encoders.h"
#include "platform/codecs/PngIo.h"
#include "platform/gdi/ByteReader.h"
#include "platform/gdi/LockBits.h"

namespace vellumry::codecs {

namespace {

constexpr size_t kSignatureBytes = 8;
// libpng allocates a text chunk's stated length before it reads it. A compressed text may
// unpack to more than the file holds, but no key we read comes near a mebibyte.
constexpr size_t kMinChunkLimit = size_t{1} << 20;
constexpr uint32_t kIdat = 0x49444154;  // "IDAT"

// Whether every chunk before the image data lies wholly in `bytes`, so that libpng never
// allocates for a length that the file doesn't hold.
bool chunksBeforeImageFit(std::span<const uint8_t> bytes) {
  const gdi::ByteReader reader(bytes);
  uint64_t at = kSignatureBytes;
  while (true) {
    const auto length = reader.be32(at), type = reader.be32(at + 4);
    if (!length || !type || !reader.has(at + 8, uint64_t{*length} + 4)) return false;
    if (*type == kIdat) return true;
    at += uint64_t{*length} + 12;
  }
}

// One row of `pixels` as R, G, B, A bytes with straight alpha.
void rgbaRow(const gdi::Surface& pixels, int y, std::vector<uint8_t>& row) {
  const uint32_t* in = pixels.Row(y);
  const gdi::AlphaMode alpha = pixels.alpha();
  for (int x = 0; x < pixels.Width(); ++x) {
    uint32_t p = in[x];
    if (alpha == gdi::AlphaMode::kPremultiplied) p = gdi::unpremultiply(p);
    const bool opaque = alpha == gdi::AlphaMode::kOpaque || alpha == gdi::AlphaMode::kUnknown;
    uint8_t* out = row.data() + static_cast<size_t>(x) * 4;
    out[0] = gdi::redOf(p);
    out[1] = gdi::greenOf(p);
    out[2] = gdi::blueOf(p);
    out[3] = opaque ? 255 : gdi::alphaOf(p);
  }
}

// Kept apart from anything with a destructor, which libpng's long jump on an error would skip.
bool readChunksBeforeImage(png_structp png, png_infop info, pngio::Input& input) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_set_read_fn(png, &input, pngio::readFromMemory);
  png_set_chunk_malloc_max(png, std::max(input.bytes.size(), kMinChunkLimit));
  png_read_info(png, info);
  return true;
}

// Like readChunksBeforeImage, kept apart from anything with a destructor.
bool writeImage(png_structp png, png_infop info, const gdi::Surface& pixels,
                std::vector<png_text>& text, std::vector<uint8_t>& row, std::vector<uint8_t>& out) {
  if (setjmp(png_jmpbuf(png))) return false;
  png_set_write_fn(png, &out, pngio::writeToMemory, pngio::flushNothing);
  // Small pictures written as they are decoded: speed matters more than the last bytes.
  png_set_compression_level(png, 1);
  png_set_IHDR(png, info, static_cast<png_uint_32>(pixels.Width()),
               static_cast<png_uint_32>(pixels.Height()), 8, PNG_COLOR_TYPE_RGB_ALPHA,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_set_text(png, info, text.data(), static_cast<int>(text.size()));
  png_write_info(png, info);
  for (int y = 0; y < pixels.Height(); ++y) {
    rgbaRow(pixels, y, row);
    png_write_row(png, row.data());
  }
  png_write_end(png, nullptr);
  return true;
}

}  // namespace

Expected<PngTextKeys> readPngText(std::span<const uint8_t> bytes) {
  if (bytes.size() < kSignatureBytes || png_sig_cmp(bytes.data(), 0, kSignatureBytes) != 0) {
    return Error::kUnknownFormat;
  }
  if (!chunksBeforeImageFit(bytes)) return Error::kTruncated;
  pngio::Reader reader;
  if (!reader.ok()) return Error::kCorrupt;
  png_structp png = reader.png();
  pngio::Input input{bytes, 0};
  if (!readChunksBeforeImage(png, reader.info(), input)) return Error::kCorrupt;
  png_textp text = nullptr;
  const int count = png_get_text(png, reader.info(), &text, nullptr);
  PngTextKeys keys;
  for (int i = 0; i < count; ++i) {
    if (!text[i].key) continue;
    keys.emplace(text[i].key, text[i].text ? text[i].text : "");
  }
  return keys;
}

std::vector<uint8_t> encodePng(const gdi::Surface& pixels, const PngTextKeys& keys) {
  if (pixels.empty()) return {};
  pngio::Writer writer;
  if (!writer.ok()) return {};
  std::vector<png_text> text(keys.size());
  size_t i = 0;
  for (const auto& [key, value] : keys) {
    text[i].compression = PNG_TEXT_COMPRESSION_NONE;
    text[i].key = const_cast<char*>(key.c_str());
    text[i].text = const_cast<char*>(value.c_str());
    text[i].text_length = value.size();
    ++i;
  }
  std::vector<uint8_t> row(static_cast<size_t>(pixels.Width()) * 4);
  std::vector<uint8_t> out;
  if (!writeImage(writer.png(), writer.info(), pixels, text, row, out)) return {};
  return out;
}

}  // namespace vellumry::codecs
