#pragma once

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QTransform>
#include <optional>
#include <span>
#include <vector>

#include "platform/gdi/Surface.h"
#include "platform/metafile/MetafileObjects.h"

namespace vellumry::metafile {

// The state of the device context that records change and that SaveDC keeps.
struct DcState {
  int mapMode = 1;
  QPointF windowOrg{0, 0};
  QPointF viewportOrg{0, 0};
  QSizeF windowExt{1, 1};
  QSizeF viewportExt{1, 1};
  QTransform world;
  PenSpec pen;
  QBrush brush{Qt::white};
  FontSpec font;
  QColor textColor = Qt::black;
  QColor bkColor = Qt::white;
  bool opaqueBackground = true;
  uint32_t textAlign = 0;
  Qt::FillRule fillRule = Qt::OddEvenFill;
  QPointF position;
  std::optional<QPainterPath> clip;  // in output pixels; none: the whole picture
  bool clockwiseArcs = false;
};

// Draws what the records of either format ask for onto a QPainter: the device context, its
// mapping from logical units to the output, paths and clipping. The record players only decode
// parameters and call these.
class MetafileCanvas {
 public:
  // `deviceToOutput` maps the reference device's pixels to the output image; `pixelsPerMm` is the
  // reference device's resolution, which the metric mapping modes need.
  MetafileCanvas(QPainter& painter, QTransform deviceToOutput, QSizeF pixelsPerMm);

  DcState& dc() { return dc_; }
  void SaveDc();
  // Restores the state saved `which` levels back (negative) or at that depth (positive).
  void RestoreDc(int which);
  // Makes a pen, brush or font the current one; other kinds change nothing.
  void select(const GdiObject& object);

  QTransform logicalToDevice() const;
  QTransform logicalToOutput() const { return logicalToDevice() * deviceToOutput_; }
  const QTransform& deviceToOutput() const { return deviceToOutput_; }

  void MoveTo(QPointF to) { dc_.position = to; }
  void LineTo(QPointF to);
  void Polyline(const QPolygonF& points);
  void Polygon(const QPolygonF& points);
  void PolyPolygon(std::span<const QPolygonF> polygons);
  void PolyPolyline(std::span<const QPolygonF> polylines);
  // Cubic Béziers through `points`: the first is the start unless `fromPosition`.
  void PolyBezier(const QPolygonF& points, bool fromPosition);
  void Rectangle(const QRectF& box);
  void RoundRect(const QRectF& box, QSizeF corner);
  void Ellipse(const QRectF& box);
  enum class ArcKind { kArc, kChord, kPie, kArcTo };
  void Arc(ArcKind kind, const QRectF& box, QPointF start, QPointF end);
  // A line from the current position to the start of the arc, then the arc; degrees
  // counter-clockwise.
  void AngleArc(QPointF centre, double radius, double start, double sweep);
  void setPixel(QPointF at, QColor color);
  // Fills `region` (in the units of `toOutput`) with `brush`.
  void FillRegion(const QPainterPath& region, const QTransform& toOutput, const QBrush& brush);

  struct Text {
    QPointF at;
    QString text;
    std::vector<double> advances;  // logical units between characters; empty: the font's own
    uint32_t options = 0;          // opaque 2, clipped 4
    std::optional<QRectF> box;
  };
  void DrawText(const Text& text);

  // A bitmap stretched from `source` (pixels of the bitmap) to `dest` (logical units) with a
  // ternary raster operation; a null bitmap draws the operation with the brush alone.
  void blit(const QRectF& dest, const gdi::Surface* bitmap, const QRectF& source,
            uint32_t rasterOp);

  // Clipping in logical units, or in device pixels for regions.
  void IntersectClip(const QRectF& box);
  void ExcludeClip(const QRectF& box);
  enum class RegionMode { kAnd = 1, kOr, kXor, kDiff, kCopy };
  void SelectClip(const std::optional<QPainterPath>& deviceRegion, RegionMode mode);
  void OffsetClip(QPointF by);

  void BeginPath();
  void EndPath() { pathOpen_ = false; }
  void AbortPath();
  void CloseFigure();
  void FillPath() { drawPath(true, false); }
  void StrokePath() { drawPath(false, true); }
  void StrokeAndFillPath() { drawPath(true, true); }
  void SelectClipPath(RegionMode mode);

 private:
  QPen outputPen() const;
  // The device context's font at `scaleY` output pixels a logical unit; none when it would be
  // too large to be legible.
  std::optional<QFont> textFont(double scaleY) const;
  // Draws `shape` in logical units, or adds it to the open path.
  void drawShape(const QPainterPath& shape, bool fill, bool stroke);
  void drawPath(bool fill, bool stroke);
  void applyClip();

  QPainter& painter_;
  QTransform deviceToOutput_;
  QSizeF pixelsPerMm_;
  DcState dc_;
  std::vector<DcState> saved_;
  QPainterPath path_;
  bool pathOpen_ = false;
};

}  // namespace vellumry::metafile
