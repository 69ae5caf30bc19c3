#pragma once

#include <QBrush>
#include <QPainterPath>
#include <QPen>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vellumry::metafile {

// A logical font as a metafile describes it; sizes in logical units.
struct FontSpec {
  int height = 0;      // below 0: the em height; above 0: the cell height; 0: a default size
  int escapement = 0;  // tenths of a degree, counter-clockwise
  int weight = 400;
  bool italic = false;
  bool underline = false;
  bool strikeOut = false;
  uint8_t charset = 0;
  QString face;
};

// A pen as created; its width is in logical units and is turned into pixels when drawing.
struct PenSpec {
  int style = 0;  // low byte: solid, dash, dot, dash-dot, dash-dot-dot, null, inside frame
  double width = 0;
  QColor color = Qt::black;
};

struct GdiObject {
  enum class Kind { kEmpty, kPen, kBrush, kFont, kPalette, kRegion };
  Kind kind = Kind::kEmpty;
  PenSpec pen;
  QBrush brush;
  FontSpec font;
  QPainterPath region;  // regions of WMF in logical units, of EMF in device units
};

// The objects a metafile creates, at most `capacity` of them, so a hostile header can't make
// the table grow without bound.
class ObjectTable {
 public:
  explicit ObjectTable(size_t capacity) : slots_(capacity) {}

  // Puts the object in the lowest free slot, as WMF numbers its objects; -1 when all are taken.
  int addToFreeSlot(GdiObject object);
  // Puts the object at `index`, as EMF names it; false when out of range.
  bool put(uint32_t index, GdiObject object);
  // The object at `index`, or null for an empty or missing slot.
  const GdiObject* get(uint32_t index) const;
  void remove(uint32_t index);

 private:
  std::vector<GdiObject> slots_;
};

}  // namespace vellumry::metafile
