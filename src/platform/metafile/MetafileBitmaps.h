#pragma once

#include <QBrush>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/gdi/ByteReader.h"
#include "platform/gdi/Surface.h"

namespace vellumry::metafile {

// Reads the device-independent bitmap a record carries: its header at `headerAt`, its pixels from
// `bitsAt` (kAfterTable: right after the header's colour table, as in a packed bitmap) for
// `bitsSize` bytes (0: to the record's end). Nothing when either lies outside the record or can't
// be decoded. The player is given one, so that a record's bitmap reads as a BMP file's does.
using DibReader = std::function<std::optional<gdi::Surface>(
    const gdi::ByteReader& record, uint64_t headerAt, uint64_t bitsAt, uint64_t bitsSize)>;
inline constexpr uint64_t kAfterTable = UINT64_MAX;

// A brush that tiles `pattern`.
QBrush patternBrush(const gdi::Surface& pattern);

// A COLORREF (0x00BBGGRR) as a colour.
inline QColor colorRef(uint32_t value) {
  return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

// A brush of the given style, colour and hatch as both formats describe them.
QBrush styledBrush(uint32_t style, QColor color, uint32_t hatch);

}  // namespace vellumry::metafile
