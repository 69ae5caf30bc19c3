#include "platform/metafile/MetafileBitmaps.h"

namespace vellumry::metafile {

QBrush patternBrush(const gdi::Surface& pattern) {
  // A deep copy: the view borrows the surface's pixels, and the brush outlives it.
  return QBrush(pattern.view().convertToFormat(QImage::Format_RGB32).copy());
}

QBrush styledBrush(uint32_t style, QColor color, uint32_t hatch) {
  switch (style) {
    case 1:  // hollow
      return Qt::NoBrush;
    case 2: {
      static constexpr Qt::BrushStyle kHatches[] = {Qt::HorPattern,   Qt::VerPattern,
                                                    Qt::FDiagPattern, Qt::BDiagPattern,
                                                    Qt::CrossPattern, Qt::DiagCrossPattern};
      return QBrush(color, hatch < 6 ? kHatches[hatch] : Qt::SolidPattern);
    }
    default:
      return QBrush(color);
  }
}

}  // namespace vellumry::metafile
