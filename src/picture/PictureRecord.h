#pragma once
// The row StdPictureEx keeps for a picture that needs more than the plain picture object gives.

#include <cstdint>
#include <memory>
#include <vector>

namespace vellumry {

// Kinds of picture, as PictureType and the low bits of Flags count them.
enum PictureKind : int32_t {
  kKindNone = 0,
  kKindBitmap = 1,
  kKindMetafile = 2,
  kKindIcon = 3,
  kKindEnhancedMetafile = 4,
  kKindJpeg = 5,
  kKindPng = 6,
  kKindGif = 7,
  kKindTiff = 8,
};

struct PictureRecord {
  // Bits 0-3 the kind; 4-15 the current sub-image, from 1; 16-27 the number of sub-images.
  // 0: the picture isn't managed.
  uint32_t Flags = 0;
  uint32_t PictureKey = 0;   // the picture's Handle
  uint32_t DispatchKey = 0;  // the same: here a picture has one identity
  uint32_t Image = 0;        // no decoder handle is kept between calls here
  std::shared_ptr<const std::vector<uint8_t>> SourceBytes;  // kept for KeepOriginalFormat
};

constexpr uint32_t flagsOf(int32_t kind, uint32_t current = 0, uint32_t count = 0) {
  return (static_cast<uint32_t>(kind) & 0xFu) | ((current & 0xFFFu) << 4) |
         ((count & 0xFFFu) << 16);
}
constexpr int32_t kindOf(uint32_t flags) { return static_cast<int32_t>(flags & 0xFu); }
constexpr uint32_t subImageOf(uint32_t flags) { return (flags >> 4) & 0xFFFu; }
constexpr uint32_t subImageCountOf(uint32_t flags) { return (flags >> 16) & 0xFFFu; }

}  // namespace vellumry
