#pragma once

#include <QBrush>
#include <cstdint>
#include <optional>

#include "platform/codecs/MetafileParams.h"
#include "platform/gdi/Surface.h"

namespace vellumry::codecs {

// The device-independent bitmap a record carries: its header at `headerAt` and its pixels at
// `bitsAt`, both inside the record. Nothing when either lies outside it or can't be decoded.
std::optional<gdi::Surface> RecordBitmap(const Params& record, uint64_t headerAt, uint64_t bitsAt,
                                         uint64_t bitsSize);

// A packed bitmap: its header at `at`, colour table and pixels following.
std::optional<gdi::Surface> PackedBitmap(const Params& record, uint64_t at);

// A brush that tiles `pattern`.
QBrush PatternBrush(const gdi::Surface& pattern);

// A COLORREF (0x00BBGGRR) as a colour.
inline QColor ColorRef(uint32_t value) {
  return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF);
}

// A brush of the given style, colour and hatch as both formats describe them.
QBrush StyledBrush(uint32_t style, QColor color, uint32_t hatch);

}  // namespace vellumry::codecs
