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

inline QPointF point32(const Params& p, uint64_t at) { return QPointF(p.s32(at), p.s32(at + 4)); }
inline QRectF box32(const Params& p, uint64_t at) {
  return QRectF(point32(p, at), point32(p, at + 8));
}
inline QSizeF size32(const Params& p, uint64_t at) { return QSizeF(p.s32(at), p.s32(at + 4)); }
// A region mode as stored, kept to the five there are.
inline MetafileCanvas::RegionMode regionMode(uint32_t stored) {
  return static_cast<MetafileCanvas::RegionMode>(std::clamp<uint32_t>(stored, 1, 5));
}

// Region data: a header of 32 bytes, then its rectangles, in device pixels.
std::optional<QPainterPath> readRegion(const Params& p, uint64_t at, uint32_t size);

// Plays one EMF's records onto its canvas, each family of records by a handler of its own.
class Player {
 public:
  Player(const EmfFrame& frame, QPainter& painter, QTransform deviceToOutput, QSizeF perMm,
         const DibReader& dibs)
      : canvas_(painter, deviceToOutput, perMm), objects_(frame.handleCount), dibs_(dibs) {}

  void play(const Params& p, uint32_t type);

 private:
  using R = EmfRecord;
  // The records of one family, each played by its handler.
  using Family = void (Player::*)(const Params&, EmfRecord);
  static Family familyOf(EmfRecord record);
  void lines(const Params& p, EmfRecord record);
  void state(const Params& p, EmfRecord record);
  void transform(const Params& p, EmfRecord record);
  void clipping(const Params& p, EmfRecord record);
  void objects(const Params& p, EmfRecord record);
  void shapes(const Params& p, EmfRecord record);
  void paths(const Params& p, EmfRecord record);
  void texts(const Params& p, EmfRecord record);
  void bitmaps(const Params& p, EmfRecord record);

  void select(uint32_t index);
  void Text(const Params& p, bool wide);
  // A bitmap of a blit record, whose header and pixels are given by offsets and sizes at `at`.
  std::optional<gdi::Surface> readBitmap(const Params& p, uint64_t at);
  void blit(const Params& p, QRectF dest, QRectF source, uint32_t rop, uint64_t bitmapAt);

  MetafileCanvas canvas_;
  ObjectTable objects_;
  const DibReader& dibs_;
};

}  // namespace vellumry::metafile::emf
