#include "platform/metafile/MetafileHeader.h"

#include "platform/gdi/ByteReader.h"

namespace vellumry::metafile {

namespace {

constexpr uint32_t kEmfHeaderRecord = 1;
constexpr uint32_t kEmfSignature = 0x464D4520;  // " EMF"
constexpr uint32_t kPlaceableKey = 0x9AC6CDD7;
constexpr uint64_t kPlaceableSize = 22;
constexpr uint64_t kWmfHeaderSize = 18;
constexpr uint16_t kSetWindowOrg = 0x020B, kSetWindowExt = 0x020C;

int16_t s16(const gdi::ByteReader& in, uint64_t at) {
  return static_cast<int16_t>(in.le16(at).value_or(0));
}

// The first window origin and extent a bare WMF sets, read from its records up to the first
// that draws or the end.
IntBox firstWindow(const gdi::ByteReader& in, uint64_t at) {
  IntBox box;
  bool extentSet = false;
  while (auto words = in.le32(at)) {
    const uint16_t function = in.le16(at + 4).value_or(0);
    if (*words < 3 || !in.has(at, uint64_t{*words} * 2) || function == 0) break;
    if (function == kSetWindowOrg) {
      box.top = s16(in, at + 6);
      box.left = s16(in, at + 8);
    } else if (function == kSetWindowExt) {
      box.bottom = s16(in, at + 6);
      box.right = s16(in, at + 8);
      extentSet = true;
    } else if ((function & 0xFF) >= 0x13 && extentSet) {
      break;  // drawing has started
    }
    at += uint64_t{*words} * 2;
  }
  box.right += box.left;
  box.bottom += box.top;
  return box;
}

}  // namespace

bool isPlaceableWmf(std::span<const uint8_t> bytes) {
  return gdi::ByteReader(bytes).le32(0) == kPlaceableKey;
}

std::optional<WmfFrame> readWmfFrame(std::span<const uint8_t> bytes) {
  const gdi::ByteReader in(bytes);
  WmfFrame frame;
  const bool placeable = isPlaceableWmf(bytes);
  if (placeable) {
    if (!in.has(0, kPlaceableSize)) return std::nullopt;
    frame.box = {s16(in, 6), s16(in, 8), s16(in, 10), s16(in, 12)};
    frame.unitsPerInch = in.le16(14).value_or(0);
    frame.recordsAt = kPlaceableSize;
  }
  const uint64_t at = frame.recordsAt;
  const auto type = in.le16(at), headerWords = in.le16(at + 2), version = in.le16(at + 4);
  const bool header =
      (type == 1 || type == 2) && headerWords == 9 && (version == 0x100 || version == 0x300);
  // Placeable files are known by their key even when the header behind it is damaged.
  if (!header && !placeable) return std::nullopt;
  frame.objectCount = in.le16(at + 10).value_or(0);
  frame.recordsAt = at + kWmfHeaderSize;
  if (!placeable) frame.box = firstWindow(in, frame.recordsAt);
  return frame;
}

std::optional<EmfFrame> readEmfFrame(std::span<const uint8_t> bytes) {
  const gdi::ByteReader in(bytes);
  if (in.le32(0) != kEmfHeaderRecord || in.le32(40) != kEmfSignature) return std::nullopt;
  const auto s32 = [&](uint64_t at) { return static_cast<int32_t>(in.le32(at).value_or(0)); };
  EmfFrame frame;
  frame.bounds = {s32(8), s32(12), s32(16), s32(20)};
  frame.frame = {s32(24), s32(28), s32(32), s32(36)};
  frame.handleCount = in.le16(56).value_or(0);
  frame.deviceWidth = s32(72);
  frame.deviceHeight = s32(76);
  frame.deviceWidthMm = s32(80);
  frame.deviceHeightMm = s32(84);
  return frame;
}

}  // namespace vellumry::metafile
