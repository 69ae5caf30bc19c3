#include "platform/codecs/Orientation.h"

#include <optional>
#include <utility>

#include "platform/gdi/ByteReader.h"

namespace vellumry::codecs {

namespace {

constexpr uint16_t kOrientationTag = 0x0112;
constexpr uint16_t kShortType = 3;
constexpr uint64_t kEntrySize = 12;

bool known(int orientation) { return orientation >= 1 && orientation <= 8; }

}  // namespace

int exifOrientation(std::span<const uint8_t> exif) {
  const gdi::ByteReader in(exif);
  const bool little = exif.size() >= 2 && exif[0] == 'I' && exif[1] == 'I';
  const bool big = exif.size() >= 2 && exif[0] == 'M' && exif[1] == 'M';
  if (!little && !big) return 1;
  const auto u16 = [&](uint64_t at) { return little ? in.le16(at) : in.be16(at); };
  const auto u32 = [&](uint64_t at) -> std::optional<uint32_t> {
    if (little) return in.le32(at);
    return in.be32(at);
  };
  const auto offset = u32(4);
  if (u16(2) != 42 || !offset) return 1;
  const auto count = u16(*offset);
  if (!count) return 1;
  for (uint64_t i = 0; i < *count; ++i) {
    const uint64_t entry = *offset + 2 + i * kEntrySize;
    const auto tag = u16(entry);
    if (!tag) return 1;
    if (*tag != kOrientationTag) continue;
    const auto value = u16(entry + 8);
    if (u16(entry + 2) != kShortType || !value || !known(*value)) return 1;
    return *value;
  }
  return 1;
}

bool swapsSides(int orientation) { return orientation >= 5 && orientation <= 8; }

void turnUpright(gdi::Surface& surface, int orientation) {
  if (!known(orientation) || orientation == 1) return;
  const int w = surface.Width();
  const int h = surface.Height();
  const bool swap = swapsSides(orientation);
  // After the swap, whether the stored columns and rows run backwards.
  const bool mirrorColumns =
      orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
  const bool mirrorRows =
      orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
  gdi::Surface upright(swap ? h : w, swap ? w : h, surface.alpha());
  for (int y = 0; y < upright.Height(); ++y) {
    uint32_t* row = upright.Row(y);
    for (int x = 0; x < upright.Width(); ++x) {
      const int u = swap ? y : x;
      const int v = swap ? x : y;
      row[x] = surface.pixel(mirrorColumns ? w - 1 - u : u, mirrorRows ? h - 1 - v : v);
    }
  }
  surface = std::move(upright);
}

}  // namespace vellumry::codecs
