// What the DIB road learns of a BMP before its pixels are decoded.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/codecs/DibSectionProbe.h"
#include "platform/codecs/Encoders.h"

namespace vellumry::codecs {
namespace {

using gdi::AlphaMode;

constexpr size_t kPixelsAt = 54;  // behind the file header and the 40-byte info header

// A BMP of `rows` (top first, 0xAARRGGBB), stored bottom-up, or top-down with a negative height.
std::vector<uint8_t> bmp(const std::vector<std::vector<uint32_t>>& rows, AlphaMode mode,
                         bool topDown = false) {
  const int width = static_cast<int>(rows[0].size()), height = static_cast<int>(rows.size());
  gdi::Surface pixels(width, height, mode);
  for (int y = 0; y < height; ++y) std::copy(rows[y].begin(), rows[y].end(), pixels.Row(y));
  std::vector<uint8_t> file = codecs::encodeBmp(pixels);
  if (topDown) {
    const size_t rowBytes = (file.size() - kPixelsAt) / static_cast<size_t>(height);
    std::vector<uint8_t> stored(file.begin() + kPixelsAt, file.end());
    for (int r = 0; r < height; ++r) {
      std::copy_n(stored.begin() + static_cast<ptrdiff_t>((height - 1 - r) * rowBytes), rowBytes,
                  file.begin() + static_cast<ptrdiff_t>(kPixelsAt + r * rowBytes));
    }
    const uint32_t negative = static_cast<uint32_t>(-height);
    for (int i = 0; i < 4; ++i) file[22 + i] = static_cast<uint8_t>(negative >> (8 * i));
  }
  return file;
}

TEST(DibSectionProbe, SizeAndMeaningOfTheFourthByteWithoutDecoding) {
  // The pixels are read in memory order, the bottom row first in a bottom-up file. A hidden
  // colour above a pixel of partial alpha: read top row first this is premultiplied alpha, read
  // bottom row first it is straight. A clear red row under an opaque one: read bottom row first
  // the clear pixel comes before the opaque one, which makes the alpha straight; read the other
  // way round there is no alpha at all.
  const std::vector<std::vector<uint32_t>> hiddenAbovePartial = {{0x00FF0000}, {0x80404040}};
  const std::vector<std::vector<uint32_t>> opaqueAboveClear = {{0xFFFF0000}, {0x00FF0000}};
  struct Case {
    const char* name;
    std::vector<uint8_t> file;
    std::optional<AlphaMode> stored;  // null: refused
    gdi::Size natural{2, 1};
  };
  std::vector<uint8_t> shortData = bmp({{0xFF102030, 0xFF102030}}, AlphaMode::kOpaque);
  shortData.pop_back();
  const Case cases[] = {
      {"24 bits", bmp({{0xFF102030, 0xFF405060}}, AlphaMode::kOpaque), AlphaMode::kOpaque},
      {"bottom-up, hidden above partial",
       bmp(hiddenAbovePartial, AlphaMode::kStraight),
       AlphaMode::kStraight,
       {1, 2}},
      {"top-down, hidden above partial",
       bmp(hiddenAbovePartial, AlphaMode::kStraight, true),
       AlphaMode::kPremultiplied,
       {1, 2}},
      {"bottom-up, opaque above clear",
       bmp(opaqueAboveClear, AlphaMode::kStraight),
       AlphaMode::kStraight,
       {1, 2}},
      {"top-down, opaque above clear",
       bmp(opaqueAboveClear, AlphaMode::kStraight, true),
       AlphaMode::kUnknown,
       {1, 2}},
      {"a channel above its alpha", bmp({{0xFF000000, 0x80C80000}}, AlphaMode::kStraight),
       AlphaMode::kStraight},
      {"a fourth byte of 0 everywhere", bmp({{0x00102030, 0x00405060}}, AlphaMode::kStraight),
       AlphaMode::kUnknown},
      {"pixels that end a byte early", shortData, std::nullopt},
  };
  for (const Case& c : cases) {
    const auto info = probeDibSection(c.file);
    ASSERT_EQ(info.has_value(), c.stored.has_value()) << c.name;
    if (!info) continue;
    EXPECT_EQ(info->stored, *c.stored) << c.name;
    EXPECT_EQ(info->natural, c.natural) << c.name;
  }
}

}  // namespace
}  // namespace vellumry::codecs
