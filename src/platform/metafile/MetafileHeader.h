#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace vellumry::metafile {

struct IntBox {
  int32_t left = 0, top = 0, right = 0, bottom = 0;
  int64_t Width() const { return int64_t{right} - left; }
  int64_t Height() const { return int64_t{bottom} - top; }
};

// Where a WMF's records start and the box its drawing fills, in logical units.
struct WmfFrame {
  uint64_t recordsAt = 0;  // the first record, behind the header
  IntBox box;              // the placeable box, else the first window origin and extent
  int unitsPerInch = 0;    // placeable files only; 0 for a bare WMF
  uint16_t objectCount = 0;
};

// An EMF's header: the frame in hundredths of a millimetre, the reference device.
struct EmfFrame {
  IntBox bounds;                              // device pixels
  IntBox frame;                               // hundredths of a millimetre
  int32_t deviceWidth = 0, deviceHeight = 0;  // pixels
  int32_t deviceWidthMm = 0, deviceHeightMm = 0;
  uint16_t handleCount = 0;
};

// The frame of a WMF, placeable or bare; nothing for anything else. A bare WMF's box is its first
// window origin and extent, and empty when it sets none before drawing.
std::optional<WmfFrame> readWmfFrame(std::span<const uint8_t> bytes);
// Whether the bytes start with a placeable WMF's key.
bool isPlaceableWmf(std::span<const uint8_t> bytes);
std::optional<EmfFrame> readEmfFrame(std::span<const uint8_t> bytes);

}  // namespace vellumry::metafile
