#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "platform/gdi/IconImage.h"
#include "platform/gdi/PixelSource.h"
#include "platform/gdi/Surface.h"

namespace vellumry::gdi {

enum class PictureType : int16_t {
  kNone = 0,
  kBitmap = 1,
  kMetafile = 2,
  kIcon = 3,
  kEnhancedMetafile = 4,
};

// Attributes() bit: the picture has transparent parts.
constexpr uint32_t kPictureTransparent = 2;

class Picture;

// Reads a metafile picture's file when asked.
using MetafileRecords = std::function<std::shared_ptr<const std::vector<uint8_t>>()>;

// Render's arguments: target rectangle in pixels; source rectangle in hundredths of a millimetre
// measured from the picture's bottom edge, so an upright drawing of the whole picture passes
// (0, Height(), Width(), -Height()).
struct RenderArgs {
  int x = 0;
  int y = 0;
  int cx = 0;
  int cy = 0;
  int32_t xSrc = 0;
  int32_t ySrc = 0;
  int32_t cxSrc = 0;
  int32_t cySrc = 0;
};

// Lets the picture engine take over drawing of a picture and learn when its last reference goes.
// A picture holds its manager weakly: once the manager is gone the picture draws plainly and
// reports its release to no one.
class PictureManager {
 public:
  virtual ~PictureManager() = default;
  // Draws `picture`; returns false to let the picture draw as it does without a manager.
  virtual bool Render(const Picture& picture, Surface& target, const RenderArgs& args) = 0;
  // The last reference to the picture whose Handle() was `handle` went away. Called on the thread
  // that dropped it; the picture can't be reached any more.
  virtual void released(uint32_t handle) = 0;
};

// The picture object of the system: a counted reference. Copies share one object; the last one to
// go frees it. A default-constructed Picture is empty ("Nothing").
class Picture {
 public:
  Picture();
  // A bitmap picture over `pixels`. Natural size from the pixel size at `twipsPerPixel`. Empty
  // pixels make a picture all the same, of no size, that draws nothing.
  static Picture fromSurface(Surface pixels, double twipsPerPixel = 15);
  // A bitmap picture whose pixels are decoded when first drawn, at the size they are drawn.
  static Picture fromLazyPixels(std::shared_ptr<LazyPixels> pixels, double twipsPerPixel = 15);
  static Picture fromIcon(IconImage icon, double twipsPerPixel = 15);
  // A metafile (kMetafile or kEnhancedMetafile) whose drawing is played when first drawn, at the
  // size it is drawn, by `drawing`; `records` gives its file when a copy of it is made.
  static Picture fromMetafile(std::shared_ptr<LazyPixels> drawing, PictureType type,
                              double twipsPerPixel, MetafileRecords records);

  bool isNothing() const { return object_ == nullptr; }
  explicit operator bool() const { return object_ != nullptr; }
  // True when both refer to the same object (or both are empty).
  bool sameObject(const Picture& other) const { return object_ == other.object_; }

  // Non-zero while the picture holds something, unique within the process.
  uint32_t Handle() const;
  PictureType Type() const;
  // Natural size in hundredths of a millimetre.
  int32_t Width() const;
  int32_t Height() const;
  // kPictureTransparent for icons, for bitmaps with alpha and for managed pictures.
  uint32_t Attributes() const;

  // Natural size in pixels.
  Size pixelSize() const;
  // Bitmap pixels covering at least `wanted` (0 x 0: full size), a metafile's drawing at that
  // size; null for icons or when the file can't be decoded.
  std::shared_ptr<const Surface> Pixels(Size wanted = {}) const;
  // The icon image of an icon picture, else null.
  const IconImage* icon() const;
  // The lazily decoded pixels of a bitmap picture, else null; lets pixels be decoded ahead
  // without holding the picture itself.
  std::shared_ptr<LazyPixels> lazy() const;

  // Source bytes kept with the picture, to be saved as they are.
  bool KeepOriginalFormat() const;
  void keepOriginal(std::shared_ptr<const std::vector<uint8_t>> bytes);
  void dropOriginal();
  const std::vector<uint8_t>* originalBytes() const;
  // A metafile's file, as a memory copy of it is written; null for other pictures or when it
  // can't be read.
  std::shared_ptr<const std::vector<uint8_t>> metafileBits() const;

  // Draws the picture (see RenderArgs). Through the manager when it has one that accepts; else
  // bitmaps are stretched with halftone quality (blended when they carry alpha) and icons drawn
  // with their mask or alpha, and metafiles played at the size drawn, over what lies beneath.
  void Render(Surface& target, int x, int y, int cx, int cy, int32_t xSrc, int32_t ySrc,
              int32_t cxSrc, int32_t cySrc) const;
  // Draws into an 8-bit target: each drawn colour becomes the first table index of exactly that
  // colour (the nearest colour when none matches), sampled without smoothing, so a palette picture
  // drawn 1:1 into a surface with the identity table gives each pixel its own index.
  void Render(IndexedSurface& target, int x, int y, int cx, int cy, int32_t xSrc, int32_t ySrc,
              int32_t cxSrc, int32_t cySrc) const;
  // The drawing without a manager, for managers that want it.
  void renderPlain(Surface& target, const RenderArgs& args) const;

  void setManager(std::shared_ptr<PictureManager> manager);
  // From now on the picture draws as a plain bitmap: the fourth byte of its pixels is ignored.
  void dropAlpha();
  std::shared_ptr<PictureManager> manager() const;

 private:
  struct Object;
  explicit Picture(std::shared_ptr<Object> object);
  static std::shared_ptr<Object> newObject(PictureType type, Size pixels, double twipsPerPixel);
  void draw(Surface& target, const RenderArgs& args, bool smooth) const;

  std::shared_ptr<Object> object_;
};

}  // namespace vellumry::gdi
