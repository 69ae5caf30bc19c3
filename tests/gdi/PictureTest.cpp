// The picture object: shared ownership, its hook, natural size, drawing and saving.
#include <gtest/gtest.h>

#include <thread>

#include "platform/gdi/Blit.h"
#include "platform/gdi/Picture.h"
#include "platform/gdi/PixelCache.h"

namespace vellumry::gdi {
namespace {

Surface squares() {
  Surface s(4, 2, AlphaMode::kOpaque);
  for (int x = 0; x < 4; ++x) {
    s.setPixel(x, 0, argb(255, 0, 0, static_cast<uint8_t>(x)));
    s.setPixel(x, 1, argb(255, 0, 0, static_cast<uint8_t>(4 + x)));
  }
  return s;
}

class RecordingManager : public PictureManager {
 public:
  bool Render(const Picture&, Surface& target, const RenderArgs& args) override {
    ++renders;
    fill(target, {args.x, args.y, args.cx, args.cy}, 0xFFABCDEFu);
    return take;
  }
  void released(uint32_t handle) override { releases.push_back(handle); }
  bool take = true;
  int renders = 0;
  std::vector<uint32_t> releases;
};

TEST(Picture, CopiesShareOneObjectWhoseManagerDrawsItAndHearsItsLastRelease) {
  EXPECT_EQ(Picture().Handle(), 0u);
  EXPECT_EQ(Picture().Type(), PictureType::kNone);
  auto manager = std::make_shared<RecordingManager>();
  Surface target(4, 2, AlphaMode::kOpaque);
  uint32_t handle = 0;
  {
    Picture a = Picture::fromSurface(squares());
    EXPECT_EQ(a.Attributes(), 0u);
    a.setManager(manager);
    EXPECT_EQ(a.Attributes(), kPictureTransparent);
    handle = a.Handle();
    EXPECT_NE(handle, 0u);
    Picture b = a;
    EXPECT_TRUE(b.sameObject(a));
    EXPECT_EQ(b.Handle(), handle);
    // The manager draws when it accepts; else the picture draws itself.
    b.Render(target, 0, 0, 4, 2, 0, b.Height(), b.Width(), -b.Height());
    EXPECT_EQ(target.pixel(0, 0), 0xFFABCDEFu);
    manager->take = false;
    b.Render(target, 0, 0, 4, 2, 0, b.Height(), b.Width(), -b.Height());
    EXPECT_EQ(target.pixel(0, 0), squares().pixel(0, 0));
    EXPECT_EQ(manager->renders, 2);
    a = Picture();
    EXPECT_TRUE(manager->releases.empty());
  }
  EXPECT_EQ(manager->releases, std::vector<uint32_t>{handle});
  // A picture that outlives its manager is harmless.
  Picture orphan = Picture::fromSurface(squares());
  orphan.setManager(manager);
  manager.reset();
  fill(target, {0, 0, 4, 2}, 0);
  orphan.Render(target, 0, 0, 4, 2, 0, orphan.Height(), orphan.Width(), -orphan.Height());
  EXPECT_EQ(target.pixel(3, 1), squares().pixel(3, 1));
}

TEST(Picture, NaturalSizeAndSourceRectanglesInHimetric) {
  const Picture p = Picture::fromSurface(squares(), 15);
  // 96 pixels an inch at 15 twips a pixel, 120 at 12; 2540 hundredths of a millimetre an inch.
  EXPECT_EQ(p.Width(), 106);                                   // 105.83
  EXPECT_EQ(p.Height(), 53);                                   // 52.92
  EXPECT_EQ(Picture::fromSurface(squares(), 12).Width(), 85);  // 84.67
  // The right half, upright: source measured from the bottom edge.
  Surface half(2, 2, AlphaMode::kOpaque);
  p.Render(half, 0, 0, 2, 2, p.Width() / 2, p.Height(), p.Width() / 2, -p.Height());
  EXPECT_EQ(half.pixel(0, 0), squares().pixel(2, 0));
  EXPECT_EQ(half.pixel(1, 1), squares().pixel(3, 1));
  // A positive source height draws upside down.
  Surface flipped(4, 2, AlphaMode::kOpaque);
  p.Render(flipped, 0, 0, 4, 2, 0, 0, p.Width(), p.Height());
  EXPECT_EQ(flipped.pixel(1, 0), squares().pixel(1, 1));
}

TEST(Picture, PalettePixelsDrawnIntoAnIdentityTableKeepTheirIndices) {
  const Picture p = Picture::fromSurface(squares());
  IndexedSurface strip(6, 2);
  strip.setColors(IndexedSurface::identityTable());
  fill(strip, {0, 0, 6, 2}, 200);
  p.Render(strip, 1, 0, 4, 2, 0, p.Height(), p.Width(), -p.Height());
  EXPECT_EQ(strip.Index(0, 0), 200);
  for (int x = 0; x < 4; ++x) {
    EXPECT_EQ(strip.Index(1 + x, 0), x);
    EXPECT_EQ(strip.Index(1 + x, 1), 4 + x);
  }
  EXPECT_EQ(strip.Index(5, 1), 200);
}

TEST(PixelCache, StaysWithinItsBudgetDroppingTheLeastRecentlyUsed) {
  PixelCache cache(3 * 400);  // three 10 x 10 surfaces
  auto surface = [] { return std::make_shared<const Surface>(10, 10, AlphaMode::kOpaque); };
  const uint64_t a = cache.newOwner(), b = cache.newOwner();
  cache.insert(a, {10, 10}, surface());
  cache.insert(b, {10, 10}, surface());
  cache.insert(a, {20, 5}, surface());
  ASSERT_NE(cache.find(a, {10, 10}), nullptr);  // now the most recent
  cache.insert(b, {1, 1}, surface());
  EXPECT_EQ(cache.find(b, {10, 10}), nullptr);
  EXPECT_NE(cache.find(a, {10, 10}), nullptr);
  EXPECT_EQ(cache.bytesInUse(), 1200u);
  cache.insert(a, {99, 99}, std::make_shared<const Surface>(100, 100, AlphaMode::kOpaque));
  EXPECT_EQ(cache.find(a, {99, 99}), nullptr) << "larger than the whole budget";
  cache.forget(a);
  EXPECT_EQ(cache.bytesInUse(), 400u);
}

}  // namespace
}  // namespace vellumry::gdi
