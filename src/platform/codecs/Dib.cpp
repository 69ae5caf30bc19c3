#include "platform/codecs/Dib.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "platform/codecs/BlockReducer.h"
#include "platform/codecs/Limits.h"

namespace vellumry::codecs {

namespace {

constexpr uint32_t kOs2CoreHeader = 12;

// Turns a bit-field mask into an 8-bit channel value.
class Channel {
 public:
  explicit Channel(uint32_t mask)
      : mask_(mask), shift_(mask ? std::countr_zero(mask) : 0), bits_(std::popcount(mask)) {}
  bool present() const { return mask_ != 0; }
  uint8_t get(uint32_t pixel) const {
    if (!mask_) return 0;
    const uint32_t v = (pixel & mask_) >> shift_;
    if (bits_ >= 8) return static_cast<uint8_t>(v >> (bits_ - 8));
    const uint32_t max = (1u << bits_) - 1;
    return static_cast<uint8_t>((v * 255 + max / 2) / max);
  }

 private:
  uint32_t mask_;
  int shift_;
  int bits_;
};

uint32_t paletteColor(const DibHeader& h, uint32_t index) {
  // Indices beyond the table read as black.
  return index < h.palette.size() ? h.palette[index] : 0xFF000000u;
}

// A top-down surface of the picture shrunk by `reduction`, whose rows `readRow(y, row)` writes one
// at a time: shrunk, only one full-width row is held.
template <typename ReadRow>
gdi::Surface assembleRows(const DibHeader& h, gdi::AlphaMode alpha, int reduction,
                          ReadRow readRow) {
  if (reduction == 1) {
    gdi::Surface out(h.width, h.height, alpha);
    for (int y = 0; y < h.height; ++y) readRow(y, out.Row(y));
    return out;
  }
  const gdi::Size size = reduced(h.width, h.height, reduction);
  gdi::Surface out(size.width, size.height, alpha);
  std::vector<uint32_t> row(static_cast<size_t>(h.width));
  BlockReducer reducer(out, h.width, reduction);
  for (int y = 0; y < h.height; ++y) {
    readRow(y, row.data());
    reducer.addRow(row.data());
  }
  reducer.finish();
  return out;
}

// Expands RLE8/RLE4 data into one palette index a pixel, bottom-up rows as stored. Pixels the
// data skips (deltas, early line ends) keep index 0. Returns false when the data ends before its
// end-of-bitmap code.
bool expandRle(const DibHeader& h, std::span<const uint8_t> data, std::vector<uint8_t>& indices) {
  const bool four = h.compression == kBiRle4;
  int64_t x = 0, y = 0;
  size_t at = 0;
  auto put = [&](uint8_t index) {
    if (x < h.width && y < h.height) indices[static_cast<size_t>(y) * h.width + x] = index;
    ++x;
  };
  while (at + 2 <= data.size()) {
    const uint8_t count = data[at], value = data[at + 1];
    at += 2;
    if (count > 0) {
      for (int i = 0; i < count && x < h.width; ++i) {
        put(four ? ((i & 1) ? value & 0x0F : value >> 4) : value);
      }
      continue;
    }
    if (value == 0) {  // end of line
      x = 0;
      ++y;
    } else if (value == 1) {  // end of bitmap
      return true;
    } else if (value == 2) {  // delta
      if (at + 2 > data.size()) return false;
      x += data[at];
      y += data[at + 1];
      at += 2;
    } else {  // a literal run, padded to a 16-bit boundary
      const size_t bytes = four ? (value + 1u) / 2 : value;
      if (at + bytes > data.size()) return false;
      for (int i = 0; i < value; ++i) {
        const uint8_t b = data[at + (four ? i / 2 : i)];
        put(four ? ((i & 1) ? b & 0x0F : b >> 4) : b);
      }
      at += bytes + (bytes & 1);
    }
    if (y >= h.height) return true;
  }
  return false;
}

// Runs may jump anywhere, so the indices are expanded whole (a byte a pixel) before the colours.
Expected<gdi::Surface> readRle(const DibHeader& h, std::span<const uint8_t> data,
                               const Leniency& leniency, int reduction) {
  std::vector<uint8_t> indices(static_cast<size_t>(h.width) * h.height, 0);
  if (!expandRle(h, data, indices) && !leniency.bmpShortPixels) return Error::kTruncated;
  return assembleRows(h, gdi::AlphaMode::kOpaque, reduction, [&](int y, uint32_t* px) {
    const uint8_t* in = indices.data() + static_cast<size_t>(h.height - 1 - y) * h.width;
    for (int x = 0; x < h.width; ++x) px[x] = paletteColor(h, in[x]);
  });
}

void decodeRow(const DibHeader& h, const uint8_t* in, uint32_t* px, const Channel (&ch)[4]) {
  const int bits = h.bitsPerPixel;
  for (int x = 0; x < h.width; ++x) {
    switch (bits) {
      case 1:
      case 2:
      case 4:
      case 8: {
        const int bit = x * bits;
        const uint32_t index = (in[bit / 8] >> (8 - bits - bit % 8)) & ((1u << bits) - 1);
        px[x] = paletteColor(h, index);
        break;
      }
      case 24:
        px[x] = gdi::argb(255, in[x * 3 + 2], in[x * 3 + 1], in[x * 3]);
        break;
      default: {  // 16 and 32 bits
        const uint32_t v = bits == 16
                               ? uint32_t{in[x * 2]} | uint32_t{in[x * 2 + 1]} << 8
                               : uint32_t{in[x * 4]} | uint32_t{in[x * 4 + 1]} << 8 |
                                     uint32_t{in[x * 4 + 2]} << 16 | uint32_t{in[x * 4 + 3]} << 24;
        if (bits == 32 && h.compression == kBiRgb) {
          px[x] = v;  // the fourth byte as stored
        } else {
          const uint8_t a = ch[3].present() ? ch[3].get(v) : 255;
          px[x] = gdi::argb(a, ch[0].get(v), ch[1].get(v), ch[2].get(v));
        }
      }
    }
  }
}

}  // namespace

uint64_t dibRowBytes(int bitsPerPixel, int width) {
  return (static_cast<uint64_t>(bitsPerPixel) * static_cast<uint64_t>(width) + 31) / 32 * 4;
}

Expected<DibHeader> parseDibHeader(const gdi::ByteReader& in, uint64_t at, bool iconImage) {
  DibHeader h;
  const auto size = in.le32(at);
  if (!size) return Error::kTruncated;
  h.headerSize = *size;
  if (h.headerSize != kOs2CoreHeader && (h.headerSize < 16 || h.headerSize > 4096)) {
    return Error::kCorrupt;
  }
  if (!in.has(at, h.headerSize)) return Error::kTruncated;
  int64_t width = 0, height = 0;
  if (h.headerSize == kOs2CoreHeader) {
    width = *in.le16(at + 4);
    height = *in.le16(at + 6);
    h.bitsPerPixel = *in.le16(at + 10);
  } else {
    width = static_cast<int32_t>(*in.le32(at + 4));
    height = static_cast<int32_t>(*in.le32(at + 8));
    h.bitsPerPixel = *in.le16(at + 14);
    if (h.headerSize >= 20) h.compression = *in.le32(at + 16);
  }
  const bool os2v2 = h.headerSize == 64 || (h.headerSize > 12 && h.headerSize < 40);
  if (os2v2 && (h.compression == 3 || h.compression == 4)) return Error::kUnsupported;
  if (h.compression == 4 || h.compression == 5) return Error::kUnsupported;  // JPEG, PNG inside
  if (h.compression != kBiRgb && h.compression != kBiRle8 && h.compression != kBiRle4 &&
      h.compression != kBiBitFields && h.compression != kBiAlphaBitFields) {
    return Error::kCorrupt;
  }
  h.topDown = height < 0;
  height = std::abs(height);
  if (iconImage) height /= 2;
  if (width <= 0 || height <= 0) return Error::kCorrupt;
  if (!fitsPixelBudget(width, height)) return Error::kTooLarge;
  h.width = static_cast<int>(width);
  h.height = static_cast<int>(height);
  switch (h.bitsPerPixel) {
    case 1:
    case 2:
    case 4:
    case 8:
    case 16:
    case 24:
    case 32:
      break;
    default:
      return Error::kUnsupported;
  }
  if ((h.compression == kBiRle8 && h.bitsPerPixel != 8) ||
      (h.compression == kBiRle4 && h.bitsPerPixel != 4) ||
      ((h.compression == kBiRle8 || h.compression == kBiRle4) && h.topDown)) {
    return Error::kCorrupt;
  }
  const bool fields = h.compression == kBiBitFields || h.compression == kBiAlphaBitFields;
  if (fields && h.bitsPerPixel != 16 && h.bitsPerPixel != 32) return Error::kCorrupt;

  uint64_t next = at + h.headerSize;
  if (fields) {
    // Masks lie inside a large header, or right behind a 40-byte one.
    const int count = h.compression == kBiAlphaBitFields || h.headerSize >= 56 ? 4 : 3;
    uint64_t maskAt = at + 40;
    if (h.headerSize < 40 + 4u * count) {
      maskAt = next;
      next += 4u * count;
    }
    for (int i = 0; i < count; ++i) {
      const auto mask = in.le32(maskAt + 4u * i);
      if (!mask) return Error::kTruncated;
      h.masks[i] = *mask;
    }
  } else if (h.bitsPerPixel == 16) {
    h.masks = {0x7C00, 0x03E0, 0x001F, 0};
  }

  const uint32_t used = h.headerSize >= 36 ? *in.le32(at + 32) : 0;
  const uint64_t entrySize = h.headerSize == kOs2CoreHeader ? 3 : 4;
  uint64_t entries = used;
  if (h.bitsPerPixel <= 8 && used == 0) entries = uint64_t{1} << h.bitsPerPixel;
  if (!in.has(next, entries * entrySize)) return Error::kTruncated;
  const uint64_t kept = h.bitsPerPixel <= 8 ? std::min<uint64_t>(entries, 256) : 0;
  for (uint64_t i = 0; i < kept; ++i) {
    const uint64_t e = next + i * entrySize;
    h.palette.push_back(gdi::argb(255, *in.u8(e + 2), *in.u8(e + 1), *in.u8(e)));
  }
  h.tableEnd = next + entries * entrySize;
  return h;
}

Expected<gdi::Surface> readDibPixels(const DibHeader& h, std::span<const uint8_t> data,
                                     const Leniency& leniency, int reduction) {
  if (h.compression == kBiRle8 || h.compression == kBiRle4) {
    return readRle(h, data, leniency, reduction);
  }
  const uint64_t stride = dibRowBytes(h.bitsPerPixel, h.width);
  const uint64_t rowsThere = std::min<uint64_t>(data.size() / stride, h.height);
  if (rowsThere < static_cast<uint64_t>(h.height) && !leniency.bmpShortPixels) {
    return Error::kTruncated;
  }
  gdi::AlphaMode alpha = gdi::AlphaMode::kOpaque;
  if (h.bitsPerPixel == 32 && h.compression == kBiRgb) alpha = gdi::AlphaMode::kUnknown;
  const bool fields = h.compression == kBiBitFields || h.compression == kBiAlphaBitFields;
  if (fields && h.masks[3] != 0) alpha = gdi::AlphaMode::kStraight;
  const Channel channels[4] = {Channel(h.masks[0]), Channel(h.masks[1]), Channel(h.masks[2]),
                               Channel(h.masks[3])};
  // Rows past the end of short data stay clear.
  return assembleRows(h, alpha, reduction, [&](int y, uint32_t* px) {
    const uint64_t r = h.topDown ? y : h.height - 1 - y;
    if (r < rowsThere) {
      decodeRow(h, data.data() + r * stride, px, channels);
    } else {
      std::fill(px, px + h.width, 0);
    }
  });
}

}  // namespace vellumry::codecs
