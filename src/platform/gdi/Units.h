#pragma once

#include <cstdint>

namespace vellumry::gdi {

// Natural sizes of pictures are hundredths of a millimetre ("himetric"); the screen counts in
// pixels of `twipsPerPixel` twips each (15 at 96 dots per inch). Both directions round half to
// even, as the rest of the system does.
int himetricToPixels(int32_t himetric, double twipsPerPixel);
int32_t pixelsToHimetric(int pixels, double twipsPerPixel);

}  // namespace vellumry::gdi
