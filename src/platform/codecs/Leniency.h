#pragma once

namespace vellumry::codecs {

// Each tolerance of damaged input that the decoders offer, by name. The defaults are what the
// system uses: show as much of a damaged picture as can be read, as the platform's decoders do.
// Turning one off makes that damage a failure.
struct Leniency {
  // A JPEG that libjpeg reads only with warnings (a scan cut off early, corrupt entropy data):
  // the rows it couldn't read come out grey.
  bool jpegDataWarnings = true;
  // A PNG whose pixel rows are all there but whose end (chunks after the image data, IEND) is
  // missing or damaged.
  bool pngMissingEnd = true;
  // A GIF frame whose compressed data ends early: the rows decoded are kept, the rest stay
  // transparent.
  bool gifTruncatedFrame = true;
  // A BMP (or icon image) whose pixel data ends early: missing rows stay 0.
  bool bmpShortPixels = true;
  // A TIFF strip or tile that can't be read: it is left out and the rest of the page kept.
  bool tiffDamagedStrips = true;
  // An icon image whose AND mask is missing from the end of its data: no pixel is masked.
  bool iconMissingMask = true;
};

}  // namespace vellumry::codecs
