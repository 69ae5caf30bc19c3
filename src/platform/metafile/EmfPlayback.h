#pragma once
// The EMF player's inside, shared by the files that play its families of records: the player,
// and how its records store points, boxes, sizes and regions.

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/metafile/EmfRecord.h"
#include "platform/metafile/MetafileBitmaps.h"
#include "platform/metafile/MetafileCanvas.h"
#include "platform/metafile/MetafileHeader.h"
#include "platform/metafile/MetafileObjects.h"
#include "platform/metafile/MetafileParams.h"

namespace vellumry::metafile::emf {

inline QPointF Point32(const Params& p, uint64_t at) { return QPointF(p.S32(at), p.S32(at + 4)); }
inline QRectF Box32(const Params& p, uint64_t at) {
  return QRectF(Point32(p, at), Point32(p, at + 8));
}
inline QSizeF Size32(const Params& p, uint64_t at) { return QSizeF(p.S32(at), p.S32(at + 4)); }
// A region mode as stored, kept to the five there are.
inline MetafileCanvas::RegionMode RegionMode(uint32_t stored) {
  return static_cast<MetafileCanvas::RegionMode>(std::clamp<uint32_t>(stored, 1, 5));
}

// Region data: a header of 32 bytes, then its rectangles, in device pixels.
std::optional<QPainterPath> Region(const Params& p, uint64_t at, uint32_t size);

// Plays one EMF's records onto its canvas, each family of records by a handler of its own.
class Player {
 public:
  Player(const EmfFrame& frame, QPainter& painter, QTransform deviceToOutput, QSizeF perMm,
         const DibReader& dibs)
      : canvas_(painter, deviceToOutput, perMm), objects_(frame.handleCount), dibs_(dibs) {}

  void Play(const Params& p, uint32_t type);

 private:
  using R = EmfRecord;
  // The records of one family, each played by its handler.
  using Family = void (Player::*)(const Params&, EmfRecord);
  static Family FamilyOf(EmfRecord record);
  void Lines(const Params& p, EmfRecord record);
  void State(const Params& p, EmfRecord record);
  void Transform(const Params& p, EmfRecord record);
  void Clipping(const Params& p, EmfRecord record);
  void Objects(const Params& p, EmfRecord record);
  void Shapes(const Params& p, EmfRecord record);
  void Paths(const Params& p, EmfRecord record);
  void Texts(const Params& p, EmfRecord record);
  void Bitmaps(const Params& p, EmfRecord record);

  void Select(uint32_t index);
  void Text(const Params& p, bool wide);
  // A bitmap of a blit record, whose header and pixels are given by offsets and sizes at `at`.
  std::optional<gdi::Surface> Bitmap(const Params& p, uint64_t at);
  void Blit(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t bitmapAt);

  MetafileCanvas canvas_;
  ObjectTable objects_;
  const DibReader& dibs_;
};

}  // namespace vellumry::metafile::emf
