#include "platform/gdi/Picture.h"

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <unordered_map>

#include "platform/gdi/Blit.h"
#include "platform/gdi/Units.h"

namespace vellumry::gdi {

struct Picture::Object {
  uint32_t handle = 0;
  PictureType type = PictureType::kNone;
  Size pixelSize;
  int32_t himetricWidth = 0;
  int32_t himetricHeight = 0;
  std::shared_ptr<const Surface> bitmap;
  std::shared_ptr<LazyPixels> lazy;
  std::shared_ptr<const IconImage> icon;
  std::shared_ptr<const std::vector<uint8_t>> original;
  MetafileRecords metafile;
  std::weak_ptr<PictureManager> manager;
  bool alphaDropped = false;

  ~Object() {
    if (auto m = manager.lock()) m->released(handle);
  }
};

namespace {

// Handles only need to be unique and non-zero; a process-wide counter is the one shared state.
uint32_t nextHandle() {
  static std::atomic<uint32_t> next{1};
  uint32_t handle = next.fetch_add(1);
  while (handle == 0) handle = next.fetch_add(1);
  return handle;
}

bool opaque(AlphaMode mode) { return mode == AlphaMode::kOpaque || mode == AlphaMode::kUnknown; }

// Index of the table colour equal to `argb` (alpha ignored), else of the nearest one.
class ColorMatcher {
 public:
  explicit ColorMatcher(const IndexedSurface::ColorTable& table) : table_(table) {
    for (int i = 255; i >= 0; --i) exact_[table[i] & 0xFFFFFFu] = static_cast<uint8_t>(i);
  }
  uint8_t match(uint32_t argb) const {
    const uint32_t rgb = argb & 0xFFFFFFu;
    if (auto it = exact_.find(rgb); it != exact_.end()) return it->second;
    int best = 0;
    int64_t bestDistance = INT64_MAX;
    for (int i = 0; i < 256; ++i) {
      const int dr = redOf(table_[i]) - redOf(rgb);
      const int dg = greenOf(table_[i]) - greenOf(rgb);
      const int db = blueOf(table_[i]) - blueOf(rgb);
      const int64_t distance = int64_t{dr} * dr + int64_t{dg} * dg + int64_t{db} * db;
      if (distance < bestDistance) {
        bestDistance = distance;
        best = i;
      }
    }
    return static_cast<uint8_t>(best);
  }

 private:
  const IndexedSurface::ColorTable& table_;
  std::unordered_map<uint32_t, uint8_t> exact_;
};

}  // namespace

Picture::Picture() = default;

Picture::Picture(std::shared_ptr<Object> object) : object_(std::move(object)) {}

std::shared_ptr<Picture::Object> Picture::newObject(PictureType type, Size pixels,
                                                    double twipsPerPixel) {
  auto object = std::make_shared<Picture::Object>();
  object->handle = nextHandle();
  object->type = type;
  object->pixelSize = pixels;
  object->himetricWidth = pixelsToHimetric(pixels.width, twipsPerPixel);
  object->himetricHeight = pixelsToHimetric(pixels.height, twipsPerPixel);
  return object;
}

Picture Picture::fromSurface(Surface pixels, double twipsPerPixel) {
  auto object = newObject(PictureType::kBitmap, pixels.dimensions(), twipsPerPixel);
  object->bitmap = std::make_shared<const Surface>(std::move(pixels));
  return Picture(std::move(object));
}

Picture Picture::fromLazyPixels(std::shared_ptr<LazyPixels> pixels, double twipsPerPixel) {
  if (!pixels || pixels->naturalSize().width <= 0 || pixels->naturalSize().height <= 0) return {};
  auto object = newObject(PictureType::kBitmap, pixels->naturalSize(), twipsPerPixel);
  object->lazy = std::move(pixels);
  return Picture(std::move(object));
}

Picture Picture::fromMetafile(std::shared_ptr<LazyPixels> drawing, PictureType type,
                              double twipsPerPixel, MetafileRecords records) {
  Picture picture = fromLazyPixels(std::move(drawing), twipsPerPixel);
  if (picture) {
    picture.object_->type = type;
    picture.object_->metafile = std::move(records);
  }
  return picture;
}

Picture Picture::fromIcon(IconImage icon, double twipsPerPixel) {
  if (icon.colour.empty()) return {};
  auto object = newObject(PictureType::kIcon, icon.colour.dimensions(), twipsPerPixel);
  object->icon = std::make_shared<const IconImage>(std::move(icon));
  return Picture(std::move(object));
}

uint32_t Picture::Handle() const { return object_ ? object_->handle : 0; }

PictureType Picture::Type() const { return object_ ? object_->type : PictureType::kNone; }

int32_t Picture::Width() const { return object_ ? object_->himetricWidth : 0; }

int32_t Picture::Height() const { return object_ ? object_->himetricHeight : 0; }

uint32_t Picture::Attributes() const {
  if (!object_) return 0;
  const bool alpha =
      !object_->alphaDropped && ((object_->bitmap && !opaque(object_->bitmap->alpha())) ||
                                 (object_->lazy && object_->lazy->hasAlpha()));
  const bool transparent = alpha || object_->icon || manager();
  return transparent ? kPictureTransparent : 0;
}

Size Picture::pixelSize() const { return object_ ? object_->pixelSize : Size{}; }

std::shared_ptr<const Surface> Picture::Pixels(Size wanted) const {
  if (!object_) return nullptr;
  if (object_->bitmap) return object_->bitmap;
  if (object_->lazy) return object_->lazy->pixelsFor(wanted);
  return nullptr;
}

const IconImage* Picture::icon() const { return object_ ? object_->icon.get() : nullptr; }

std::shared_ptr<LazyPixels> Picture::lazy() const { return object_ ? object_->lazy : nullptr; }

bool Picture::KeepOriginalFormat() const { return object_ && object_->original; }

void Picture::keepOriginal(std::shared_ptr<const std::vector<uint8_t>> bytes) {
  if (object_) object_->original = std::move(bytes);
}

void Picture::dropOriginal() {
  if (object_) object_->original.reset();
}

const std::vector<uint8_t>* Picture::originalBytes() const {
  return object_ ? object_->original.get() : nullptr;
}

std::shared_ptr<const std::vector<uint8_t>> Picture::metafileBits() const {
  return object_ && object_->metafile ? object_->metafile() : nullptr;
}

void Picture::setManager(std::shared_ptr<PictureManager> manager) {
  if (object_) object_->manager = manager;
}

void Picture::dropAlpha() {
  if (object_) object_->alphaDropped = true;
}

std::shared_ptr<PictureManager> Picture::manager() const {
  return object_ ? object_->manager.lock() : nullptr;
}

void Picture::Render(Surface& target, int x, int y, int cx, int cy, int32_t xSrc, int32_t ySrc,
                     int32_t cxSrc, int32_t cySrc) const {
  const RenderArgs args{x, y, cx, cy, xSrc, ySrc, cxSrc, cySrc};
  if (auto m = manager(); m && m->Render(*this, target, args)) return;
  draw(target, args, true);
}

void Picture::renderPlain(Surface& target, const RenderArgs& args) const {
  draw(target, args, true);
}

void Picture::Render(IndexedSurface& target, int x, int y, int cx, int cy, int32_t xSrc,
                     int32_t ySrc, int32_t cxSrc, int32_t cySrc) const {
  if (!object_ || target.empty()) return;
  const Surface before = target.toSurface();
  Surface canvas = before;
  draw(canvas, {x, y, cx, cy, xSrc, ySrc, cxSrc, cySrc}, false);
  const ColorMatcher matcher(target.colors());
  for (int row = 0; row < target.Height(); ++row) {
    for (int col = 0; col < target.Width(); ++col) {
      const uint32_t drawn = canvas.pixel(col, row);
      if (drawn != before.pixel(col, row)) target.setIndex(col, row, matcher.match(drawn));
    }
  }
}

void Picture::draw(Surface& target, const RenderArgs& a, bool smooth) const {
  if (!object_ || a.cx == 0 || a.cy == 0) return;
  const Rect dest{a.x, a.y, a.cx, a.cy};
  if (object_->icon) {
    DrawIcon(target, dest, *object_->icon);
    return;
  }
  if (object_->type == PictureType::kNone || object_->himetricWidth == 0 ||
      object_->himetricHeight == 0) {
    return;
  }
  // Source rectangle in natural pixels; a positive cySrc walks upwards and so mirrors.
  const Size natural = object_->pixelSize;
  const double toPxX = static_cast<double>(natural.width) / object_->himetricWidth;
  const double toPxY = static_cast<double>(natural.height) / object_->himetricHeight;
  const double left = a.xSrc * toPxX;
  const double top = (object_->himetricHeight - a.ySrc) * toPxY;
  const double width = a.cxSrc * toPxX;
  const double height = -a.cySrc * toPxY;
  if (std::abs(width) < 0.5 || std::abs(height) < 0.5) return;

  // Decode no larger than the drawing needs: the whole picture at the target's scale. The slack
  // keeps a rounding error of the unit conversion from asking one pixel more than drawn, so that
  // a drawing of the whole picture asks exactly its target size (what decoding ahead prepared).
  const auto needed = [](double pixels) {
    return static_cast<int>(std::min(std::ceil(pixels - 1e-6), 1e9));
  };
  const Size wanted{
      needed(static_cast<double>(natural.width) * std::abs(a.cx) / std::abs(width)),
      needed(static_cast<double>(natural.height) * std::abs(a.cy) / std::abs(height))};
  const auto pixels = Pixels(wanted);
  if (!pixels || pixels->empty()) return;
  const double sx = static_cast<double>(pixels->Width()) / natural.width;
  const double sy = static_cast<double>(pixels->Height()) / natural.height;
  const Rect source{
      static_cast<int>(std::lround(left * sx)), static_cast<int>(std::lround(top * sy)),
      static_cast<int>(std::lround(width * sx)), static_cast<int>(std::lround(height * sy))};
  if (!opaque(pixels->alpha()) && !object_->alphaDropped) {
    AlphaBlend(target, dest, *pixels, source);
  } else if (smooth) {
    stretchHalftone(target, dest, *pixels, source);
  } else {
    stretchNearest(target, dest, *pixels, source);
  }
}

}  // namespace vellumry::gdi
