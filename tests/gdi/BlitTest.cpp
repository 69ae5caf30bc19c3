// The pixel operations the system relies on.
#include <gtest/gtest.h>

#include "platform/gdi/Blit.h"
#include "platform/gdi/IconImage.h"
#include "platform/gdi/LockBits.h"
#include "platform/gdi/Units.h"

namespace vellumry::gdi {
namespace {

Surface filled(int w, int h, uint32_t argb, AlphaMode mode = AlphaMode::kOpaque) {
  Surface s(w, h, mode);
  fill(s, {0, 0, w, h}, argb);
  return s;
}

TEST(Units, HimetricAndPixelsRoundToNearest) {
  EXPECT_EQ(himetricToPixels(2540, 15), 96);
  EXPECT_EQ(himetricToPixels(2540, 12), 120);
  EXPECT_EQ(pixelsToHimetric(100, 15), 2646);  // 2645.83
  EXPECT_EQ(himetricToPixels(40, 15), 2);      // 1.51
  EXPECT_EQ(himetricToPixels(39, 15), 1);      // 1.47
  EXPECT_EQ(himetricToPixels(-2540, 15), -96);
}

TEST(Blit, RasterOpsCombineWholePixelsAndClip) {
  Surface dst = filled(4, 4, 0xFF0F0F0Fu);
  const Surface src = filled(2, 2, 0x00F0FF00u);
  blit(dst, 3, 3, src, {0, 0, 2, 2}, RasterOp::kOr);  // only one pixel lands
  EXPECT_EQ(dst.pixel(3, 3), 0xFFFFFF0Fu);
  EXPECT_EQ(dst.pixel(2, 2), 0xFF0F0F0Fu);
  blit(dst, -1, 0, src, {0, 0, 2, 2}, RasterOp::kAnd);
  EXPECT_EQ(dst.pixel(0, 0), 0x00000F00u);
  EXPECT_EQ(dst.pixel(1, 0), 0xFF0F0F0Fu);
  blit(dst, 1, 1, src, {0, 0, 2, 2}, RasterOp::kCopy);
  EXPECT_EQ(dst.pixel(2, 2), 0x00F0FF00u);
}

TEST(Blit, OverlappingCopyWithinOneSurfaceReadsBeforeWriting) {
  IndexedSurface s(5, 1);
  for (int x = 0; x < 5; ++x) s.setIndex(x, 0, static_cast<uint8_t>(x));
  blit(s, 1, 0, s, {0, 0, 4, 1}, RasterOp::kCopy);
  EXPECT_EQ(std::vector<uint8_t>(s.Row(0), s.Row(0) + 5), (std::vector<uint8_t>{0, 0, 1, 2, 3}));
  Surface rows(1, 3, AlphaMode::kOpaque);
  for (int y = 0; y < 3; ++y) rows.setPixel(0, y, static_cast<uint32_t>(y + 1));
  blit(rows, 0, 1, rows, {0, 0, 1, 2}, RasterOp::kCopy);
  EXPECT_EQ(rows.pixel(0, 1), 1u);
  EXPECT_EQ(rows.pixel(0, 2), 2u);
}

TEST(Blit, HalftoneStretchAveragesAndMirrors) {
  Surface src(2, 1, AlphaMode::kOpaque);
  src.setPixel(0, 0, 0xFF000000u);
  src.setPixel(1, 0, 0xFFFFFFFFu);
  Surface one(1, 1, AlphaMode::kOpaque);
  stretchHalftone(one, {0, 0, 1, 1}, src, {0, 0, 2, 1});
  EXPECT_NEAR(redOf(one.pixel(0, 0)), 128, 2);
  Surface mirrored(2, 1, AlphaMode::kOpaque);
  stretchHalftone(mirrored, {0, 0, 2, 1}, src, {2, 0, -2, 1});
  EXPECT_EQ(mirrored.pixel(0, 0), 0xFFFFFFFFu);
  EXPECT_EQ(mirrored.pixel(1, 0), 0xFF000000u);
}

// The mask passes of a transparent frame: AND keeps what lies under white, OR paints the rest;
// a target reaching past the surface's edge is clipped.
TEST(Blit, HalftoneStretchCombinesByItsOperation) {
  Surface mask(4, 1, AlphaMode::kOpaque), colour(4, 1, AlphaMode::kOpaque);
  for (int x = 0; x < 4; ++x) {
    mask.setPixel(x, 0, x < 2 ? 0xFF000000u : 0xFFFFFFFFu);
    colour.setPixel(x, 0, x < 2 ? 0xFF00FF00u : 0xFF000000u);
  }
  Surface dst = filled(5, 1, 0xFF0000FFu);
  stretchHalftone(dst, {-2, 0, 8, 1}, mask, {0, 0, 4, 1}, RasterOp::kAnd);
  stretchHalftone(dst, {-2, 0, 8, 1}, colour, {0, 0, 4, 1}, RasterOp::kOr);
  EXPECT_EQ(dst.pixel(0, 0), 0xFF00FF00u);  // the frame's own pixel
  EXPECT_EQ(dst.pixel(4, 0), 0xFF0000FFu);  // what lay beneath shows through
}

TEST(Blit, AlphaBlendOfPremultipliedSourceWithConstantAlpha) {
  Surface dst = filled(2, 2, argb(255, 0, 0, 200));
  const Surface halfRed = filled(1, 1, argb(128, 128, 0, 0), AlphaMode::kPremultiplied);
  AlphaBlend(dst, {0, 0, 1, 2}, halfRed, {0, 0, 1, 1});
  EXPECT_EQ(dst.pixel(0, 1), argb(255, 128, 0, 100));
  EXPECT_EQ(dst.pixel(1, 0), argb(255, 0, 0, 200));
  Surface dst2 = filled(1, 1, argb(255, 0, 0, 200));
  AlphaBlend(dst2, {0, 0, 1, 1}, filled(1, 1, argb(255, 255, 0, 0), AlphaMode::kPremultiplied),
             {0, 0, 1, 1}, 51);  // a fifth
  EXPECT_EQ(dst2.pixel(0, 0), argb(255, 51, 0, 160));
}

TEST(LockBits, ConvertsBetweenStraightPremultipliedAnd24Bits) {
  Surface s(3, 1, AlphaMode::kStraight);
  s.setPixel(0, 0, argb(128, 200, 100, 50));
  s.setPixel(1, 0, argb(0, 200, 100, 50));
  s.setPixel(2, 0, argb(255, 1, 2, 3));
  const LockedPixels pre = lockBits(s, LockFormat::kBgra32Premultiplied);
  EXPECT_EQ(std::vector<uint8_t>(pre.bytes.begin(), pre.bytes.begin() + 8),
            (std::vector<uint8_t>{25, 50, 100, 128, 0, 0, 0, 0}));
  const LockedPixels rgb = lockBits(s, LockFormat::kBgr24);
  EXPECT_EQ(rgb.stride, 12);  // 9 bytes padded to 4
  EXPECT_EQ(rgb.bytes[6], 3);
  EXPECT_EQ(rgb.bytes[8], 1);
  // Back from premultiplied to straight loses at most rounding.
  const Surface back =
      convertAlpha(convertAlpha(s, AlphaMode::kPremultiplied), AlphaMode::kStraight);
  EXPECT_NEAR(redOf(back.pixel(0, 0)), 200, 1);
  // Pixels without alpha lock as opaque, whatever their fourth byte.
  Surface raw(1, 1, AlphaMode::kUnknown);
  raw.setPixel(0, 0, 0x10203040u);
  EXPECT_EQ(lockBits(raw, LockFormat::kBgra32Straight).bytes[3], 255);
}

TEST(DrawIcon, MaskKeepsOrInvertsTheTargetAndAlphaBlends) {
  IconImage icon{filled(2, 1, 0xFF00FF00u), {0, 1}};
  icon.colour.setPixel(1, 0, 0x00FFFFFFu);  // masked and white: inverts
  Surface target = filled(4, 2, 0xFF102030u);
  DrawIcon(target, {0, 0, 4, 2}, icon);
  EXPECT_EQ(target.pixel(0, 1), 0xFF00FF00u);
  EXPECT_EQ(target.pixel(3, 0), 0xFFEFDFCFu);

  IconImage alpha{filled(1, 1, argb(0, 255, 255, 255), AlphaMode::kStraight), {}};
  Surface under = filled(1, 1, 0xFF102030u);
  DrawIcon(under, {0, 0, 1, 1}, alpha);
  EXPECT_EQ(under.pixel(0, 0), 0xFF102030u);
}

}  // namespace
}  // namespace vellumry::gdi
