#pragma once

#include <QPainter>
#include <cstdint>
#include <span>

#include "platform/metafile/MetafileBitmaps.h"
#include "platform/metafile/MetafileHeader.h"

namespace vellumry::metafile {

// Plays an EMF's records onto `painter`, its frame filling the painter's whole device. EMF+
// records ride in comments and are skipped, so a dual file draws its EMF twin. Stops at the
// first record that doesn't fit in the file, keeping what was drawn.
void playEmf(std::span<const uint8_t> bytes, const EmfFrame& frame, QPainter& painter,
             const DibReader& dibs);

}  // namespace vellumry::metafile
