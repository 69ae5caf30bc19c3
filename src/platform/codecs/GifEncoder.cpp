#include <algorithm>

#include "platform/codecs/Encoders.h"

namespace vellumry::codecs {

namespace {

constexpr int kClearCode = 256;
constexpr int kEndCode = 257;
constexpr int kFirstFreeCode = 258;
constexpr int kCodeLimit = 4096;  // one past the last code of 12 bits
constexpr int kFirstCodeWidth = 9;
constexpr int kHashSize = 5003;  // a prime above the 4096 codes, so a free slot always exists
constexpr int32_t kEmpty = -1;

// The hash mixes the pixel in shifted by 8 less the doublings that take the table size past 16
// bits: 4, a factor of 16.
constexpr int hashShift() {
  int doublings = 0;
  for (int size = kHashSize; size <= 0xFFFF; size *= 2) ++doublings;
  return 8 - doublings;
}

// Packs codes low bits first into sub-blocks of 254 bytes behind their size byte.
class CodeWriter {
 public:
  explicit CodeWriter(std::vector<uint8_t>& out) : out_(out) {}

  void put(int code, int width) {
    bits_ |= static_cast<uint32_t>(code) << count_;
    for (count_ += width; count_ >= 8; count_ -= 8, bits_ >>= 8) byte(bits_ & 0xFF);
  }
  // The bits left over as one last byte, then the last block.
  void flush() {
    if (count_ > 0) byte(bits_ & 0xFF);
    bits_ = 0;
    count_ = 0;
    if (!block_.empty()) writeBlock();
  }

 private:
  static constexpr size_t kBlockBytes = 254;

  void byte(uint8_t byte) {
    block_.push_back(byte);
    if (block_.size() == kBlockBytes) writeBlock();
  }
  void writeBlock() {
    out_.push_back(static_cast<uint8_t>(block_.size()));
    out_.insert(out_.end(), block_.begin(), block_.end());
    block_.clear();
  }

  std::vector<uint8_t>& out_;
  std::vector<uint8_t> block_;
  uint32_t bits_ = 0;
  int count_ = 0;
};

// Hashed LZW: each (prefix code, pixel) pair seen is looked up in an open-addressed table that
// probes backwards by a step of its own.
void compress(const gdi::IndexedSurface& pixels, std::vector<uint8_t>& out) {
  CodeWriter writer(out);
  std::vector<int32_t> keys(kHashSize, kEmpty);
  std::vector<int32_t> codes(kHashSize, 0);
  int width = kFirstCodeWidth;
  int next = kFirstFreeCode;
  int32_t prefix = kEmpty;
  writer.put(kClearCode, width);
  for (int y = 0; y < pixels.Height(); ++y) {
    const uint8_t* row = pixels.Row(y);
    for (int x = 0; x < pixels.Width(); ++x) {
      const int32_t pixel = row[x];
      if (prefix == kEmpty) {
        prefix = pixel;
        continue;
      }
      const int32_t key = pixel * kCodeLimit + prefix;
      int h = (pixel << hashShift()) ^ prefix;
      if (h >= kHashSize) h = 0;
      const int step = h == 0 ? 1 : kHashSize - h;
      while (keys[h] != key && keys[h] != kEmpty) {
        h -= step;
        if (h < 0) h += kHashSize;
      }
      if (keys[h] == key) {
        prefix = codes[h];
        continue;
      }
      writer.put(prefix, width);
      prefix = pixel;
      codes[h] = next;
      keys[h] = key;
      if (next > (1 << width) - 1) {
        if (next == kCodeLimit) {
          writer.put(kClearCode, width);
          std::fill(keys.begin(), keys.end(), kEmpty);
          width = kFirstCodeWidth;
          next = kEndCode;
        } else {
          ++width;
        }
      }
      ++next;
    }
  }
  if (prefix != kEmpty) writer.put(prefix, width);
  writer.put(kEndCode, width);
  writer.flush();
}

}  // namespace

std::vector<uint8_t> encodeGif(const gdi::IndexedSurface& pixels, int transIndex) {
  std::vector<uint8_t> out = {'G', 'I', 'F', '8', '9', 'a'};
  out.reserve(size_t(pixels.Width()) * pixels.Height() + 800);
  putLe16(out, pixels.Width());
  putLe16(out, pixels.Height());
  out.insert(out.end(), {0x87, 0, 0});  // a global table of 256 entries
  for (const uint32_t color : pixels.colors()) {
    out.insert(out.end(), {static_cast<uint8_t>(color >> 16), static_cast<uint8_t>(color >> 8),
                           static_cast<uint8_t>(color)});
  }
  if (transIndex >= 0 && transIndex <= 255) {
    out.insert(out.end(), {0x21, 0xF9, 0x04, 0x01, 0, 0, static_cast<uint8_t>(transIndex), 0});
  }
  out.insert(out.end(), {0x2C, 0, 0, 0, 0});
  putLe16(out, pixels.Width());
  putLe16(out, pixels.Height());
  out.insert(out.end(), {0, 8});  // no local table, not interlaced; 8-bit pixels
  compress(pixels, out);
  out.insert(out.end(), {0, 0x3B});
  return out;
}

}  // namespace vellumry::codecs
