#pragma once

// Small pictures made at run time with the encoders, so that tests need no stored files.
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/gdi/Surface.h"

namespace vellumry::codecs::testing {

// A width x height gradient (red across, green down, blue 64), JPEG at quality 90.
std::vector<uint8_t> makeJpeg(int width, int height);
// `pixels` (opaque) as a JPEG at `quality`.
std::vector<uint8_t> makeJpeg(const gdi::Surface& pixels, int quality);
// `pixels` as a PNG (with alpha when the surface has straight alpha).
std::vector<uint8_t> makePng(const gdi::Surface& pixels);
// A one-frame GIF of `indices` with a 4-colour table, transparent index `transparent` (-1 none).
std::vector<uint8_t> makeGif(int width, int height, const std::vector<uint8_t>& indices,
                             int transparent);
// One frame of makeAnimatedGif: its rectangle, indices into the 4-colour table (black, red,
// green, blue), delay in hundredths, disposal 0 to 3, transparent index (-1 none).
struct GifFrameSpec {
  int left = 0, top = 0, width = 1, height = 1;
  std::vector<uint8_t> indices;
  int delay = 0, disposal = 0, transparent = -1;
};
// A GIF of a `width` x `height` screen with the table above and `frames`, each with a graphic
// control; with a looping extension of `loopCount` unless it is -1.
std::vector<uint8_t> makeAnimatedGif(int width, int height, const std::vector<GifFrameSpec>& frames,
                                     int loopCount);
// The bytes of an icon image of `size` x `size` in one colour (0xAARRGGBB) as an icon file holds
// them: 32 bits with alpha unless the colour is opaque, 24 bits then; the AND mask lets the
// target through at the top left pixel only.
std::vector<uint8_t> iconImageBytes(int size, uint32_t argb);

struct IconFileImage {
  std::vector<uint8_t> bytes;
  uint16_t hotspotX = 0;  // a cursor's; 0 for an icon
  uint16_t hotspotY = 0;
};
// An icon (type 1) or cursor (type 2) file of `images`, laid out end to end behind the directory.
std::vector<uint8_t> iconFile(uint16_t type, const std::vector<IconFileImage>& images);

// How makeTiff lays out its RGB pixels.
struct TiffLayout {
  int rowsPerStrip = 0;  // 0: one strip
  int tileSize = 0;      // a multiple of 16; 0: strips
  int orientation = 1;   // stored as is: the pixels given are the stored ones
  bool lzw = true;
  bool predictor = false;  // horizontal differencing, with LZW
};
// Writes row y (our pixels) into `row`.
using TiffRowMaker = std::function<void(int y, uint32_t* row)>;
// An RGB TIFF of rows made one at a time, so that a huge one needn't exist whole in memory.
std::vector<uint8_t> makeTiff(int width, int height, const TiffLayout& layout,
                              const TiffRowMaker& rowAt);
std::vector<uint8_t> makeTiff(const gdi::Surface& pixels, const TiffLayout& layout);

// A gradient surface like makeJpeg's, opaque.
gdi::Surface gradient(int width, int height);

}  // namespace vellumry::codecs::testing
