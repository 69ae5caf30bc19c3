#pragma once

#include <QPainter>
#include <cstdint>
#include <span>

#include "platform/metafile/MetafileBitmaps.h"
#include "platform/metafile/MetafileHeader.h"

namespace vellumry::metafile {

// Plays a WMF's records onto `painter`, its box filling the painter's whole device. Stops at the
// first record that doesn't fit in the file, keeping what was drawn.
void playWmf(std::span<const uint8_t> bytes, const WmfFrame& frame, QPainter& painter,
             const DibReader& dibs);

}  // namespace vellumry::metafile
