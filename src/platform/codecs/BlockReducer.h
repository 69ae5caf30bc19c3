#pragma once

// Shrinks a picture by a whole factor while its rows arrive, averaging each factor x factor
// block, so that a decoder can hand back a small picture without ever holding the full one.

#include <cstdint>
#include <vector>

#include "platform/gdi/Surface.h"

namespace vellumry::codecs {

// The size a width x height picture has once shrunk by `factor`: partial blocks at the right
// and bottom edges count as whole pixels.
gdi::Size reduced(int width, int height, int factor);

// The sizes of a width x height picture halved again and again down to one pixel, smallest
// first; the last is the full size.
std::vector<gdi::Size> halvedSizes(int width, int height);

// The factor, a power of two, that shrinks width x height to `size`; 1 when none does.
int halvingTo(int width, int height, gdi::Size size);

// `full` shrunk by `factor`, for decoders that can't help holding the full picture.
gdi::Surface reduce(const gdi::Surface& full, int factor);

class BlockReducer {
 public:
  // Fills `out`, which must have reduced(sourceWidth, ..., factor)'s size. With straight alpha
  // the colours are weighted by their alpha, so that transparent pixels don't tint the average.
  BlockReducer(gdi::Surface& out, int sourceWidth, int factor);
  // One source row of sourceWidth pixels, top to bottom.
  void addRow(const uint32_t* row);
  // Writes what the last, partial band of rows holds.
  void finish();

 private:
  void emitBand();

  gdi::Surface& out_;
  int sourceWidth_, factor_;
  bool weighted_;
  int rowsInBand_ = 0, outRow_ = 0;
  std::vector<uint64_t> sums_;  // per output pixel: blue, green, red (weighted), alpha
};

}  // namespace vellumry::codecs
