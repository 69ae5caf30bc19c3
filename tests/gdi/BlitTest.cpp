// The pixel operations the system relies on.
#include <gtest/gtest.h>

#include "platform/gdi/Blit.h"
#include "platform/gdi/IconImage.h"
#include "platform/gdi/LockBits.h"
#include "platform/gdi/Units.h"

namespace vellumry::gdi {
namespace {

Surface Filled(int w, int h, uint32_t argb, AlphaMode mode = AlphaMode::kOpaque) {
  Surface s(w, h, mode);
  Fill(s, {0, 0, w, h}, argb);
  return s;
}

TEST(Units, HimetricAndPixelsRoundToNearest) {
  EXPECT_EQ(HimetricToPixels(2540, 15), 96);
  EXPECT_EQ(HimetricToPixels(2540, 12), 120);
  EXPECT_EQ(PixelsToHimetric(100, 15), 2646);  // 2645.83
  EXPECT_EQ(HimetricToPixels(40, 15), 2);      // 1.51
  EXPECT_EQ(HimetricToPixels(39, 15), 1);      // 1.47
  EXPECT_EQ(HimetricToPixels(-2540, 15), -96);
}

TEST(Blit, RasterOpsCombineWholePixelsAndClip) {
  Surface dst = Filled(4, 4, 0xFF0F0F0Fu);
  const Surface src = Filled(2, 2, 0x00F0FF00u);
  Blit(dst, 3, 3, src, {0, 0, 2, 2}, RasterOp::kOr);  // only one pixel lands
  EXPECT_EQ(dst.Pixel(3, 3), 0xFFFFFF0Fu);
  EXPECT_EQ(dst.Pixel(2, 2), 0xFF0F0F0Fu);
  Blit(dst, -1, 0, src, {0, 0, 2, 2}, RasterOp::kAnd);
  EXPECT_EQ(dst.Pixel(0, 0), 0x00000F00u);
  EXPECT_EQ(dst.Pixel(1, 0), 0xFF0F0F0Fu);
  Blit(dst, 1, 1, src, {0, 0, 2, 2}, RasterOp::kCopy);
  EXPECT_EQ(dst.Pixel(2, 2), 0x00F0FF00u);
}

TEST(Blit, OverlappingCopyWithinOneSurfaceReadsBeforeWriting) {
  IndexedSurface s(5, 1);
  for (int x = 0; x < 5; ++x) s.SetIndex(x, 0, static_cast<uint8_t>(x));
  Blit(s, 1, 0, s, {0, 0, 4, 1}, RasterOp::kCopy);
  EXPECT_EQ(std::vector<uint8_t>(s.Row(0), s.Row(0) + 5), (std::vector<uint8_t>{0, 0, 1, 2, 3}));
  Surface rows(1, 3, AlphaMode::kOpaque);
  for (int y = 0; y < 3; ++y) rows.SetPixel(0, y, static_cast<uint32_t>(y + 1));
  Blit(rows, 0, 1, rows, {0, 0, 1, 2}, RasterOp::kCopy);
  EXPECT_EQ(rows.Pixel(0, 1), 1u);
  EXPECT_EQ(rows.Pixel(0, 2), 2u);
}

TEST(Blit, HalftoneStretchAveragesAndMirrors) {
  Surface src(2, 1, AlphaMode::kOpaque);
  src.SetPixel(0, 0, 0xFF000000u);
  src.SetPixel(1, 0, 0xFFFFFFFFu);
  Surface one(1, 1, AlphaMode::kOpaque);
  StretchHalftone(one, {0, 0, 1, 1}, src, {0, 0, 2, 1});
  EXPECT_NEAR(RedOf(one.Pixel(0, 0)), 128, 2);
  Surface mirrored(2, 1, AlphaMode::kOpaque);
  StretchHalftone(mirrored, {0, 0, 2, 1}, src, {2, 0, -2, 1});
  EXPECT_EQ(mirrored.Pixel(0, 0), 0xFFFFFFFFu);
  EXPECT_EQ(mirrored.Pixel(1, 0), 0xFF000000u);
}

// The mask passes of a transparent frame: AND keeps what lies under white, OR paints the rest;
// a target reaching past the surface's edge is clipped.
TEST(Blit, HalftoneStretchCombinesByItsOperation) {
  Surface mask(4, 1, AlphaMode::kOpaque), colour(4, 1, AlphaMode::kOpaque);
  for (int x = 0; x < 4; ++x) {
    mask.SetPixel(x, 0, x < 2 ? 0xFF000000u : 0xFFFFFFFFu);
    colour.SetPixel(x, 0, x < 2 ? 0xFF00FF00u : 0xFF000000u);
  }
  Surface dst = Filled(5, 1, 0xFF0000FFu);
  StretchHalftone(dst, {-2, 0, 8, 1}, mask, {0, 0, 4, 1}, RasterOp::kAnd);
  StretchHalftone(dst, {-2, 0, 8, 1}, colour, {0, 0, 4, 1}, RasterOp::kOr);
  EXPECT_EQ(dst.Pixel(0, 0), 0xFF00FF00u);  // the frame's own pixel
  EXPECT_EQ(dst.Pixel(4, 0), 0xFF0000FFu);  // what lay beneath shows through
}

TEST(Blit, AlphaBlendOfPremultipliedSourceWithConstantAlpha) {
  Surface dst = Filled(2, 2, Argb(255, 0, 0, 200));
  const Surface halfRed = Filled(1, 1, Argb(128, 128, 0, 0), AlphaMode::kPremultiplied);
  AlphaBlend(dst, {0, 0, 1, 2}, halfRed, {0, 0, 1, 1});
  EXPECT_EQ(dst.Pixel(0, 1), Argb(255, 128, 0, 100));
  EXPECT_EQ(dst.Pixel(1, 0), Argb(255, 0, 0, 200));
  Surface dst2 = Filled(1, 1, Argb(255, 0, 0, 200));
  AlphaBlend(dst2, {0, 0, 1, 1}, Filled(1, 1, Argb(255, 255, 0, 0), AlphaMode::kPremultiplied),
             {0, 0, 1, 1}, 51);  // a fifth
  EXPECT_EQ(dst2.Pixel(0, 0), Argb(255, 51, 0, 160));
}

TEST(LockBits, ConvertsBetweenStraightPremultipliedAnd24Bits) {
  Surface s(3, 1, AlphaMode::kStraight);
  s.SetPixel(0, 0, Argb(128, 200, 100, 50));
  s.SetPixel(1, 0, Argb(0, 200, 100, 50));
  s.SetPixel(2, 0, Argb(255, 1, 2, 3));
  const LockedPixels pre = LockBits(s, LockFormat::kBgra32Premultiplied);
  EXPECT_EQ(std::vector<uint8_t>(pre.bytes.begin(), pre.bytes.begin() + 8),
            (std::vector<uint8_t>{25, 50, 100, 128, 0, 0, 0, 0}));
  const LockedPixels rgb = LockBits(s, LockFormat::kBgr24);
  EXPECT_EQ(rgb.stride, 12);  // 9 bytes padded to 4
  EXPECT_EQ(rgb.bytes[6], 3);
  EXPECT_EQ(rgb.bytes[8], 1);
  // Back from premultiplied to straight loses at most rounding.
  const Surface back =
      ConvertAlpha(ConvertAlpha(s, AlphaMode::kPremultiplied), AlphaMode::kStraight);
  EXPECT_NEAR(RedOf(back.Pixel(0, 0)), 200, 1);
  // Pixels without alpha lock as opaque, whatever their fourth byte.
  Surface raw(1, 1, AlphaMode::kUnknown);
  raw.SetPixel(0, 0, 0x10203040u);
  EXPECT_EQ(LockBits(raw, LockFormat::kBgra32Straight).bytes[3], 255);
}

TEST(DrawIcon, MaskKeepsOrInvertsTheTargetAndAlphaBlends) {
  IconImage icon{Filled(2, 1, 0xFF00FF00u), {0, 1}};
  icon.colour.SetPixel(1, 0, 0x00FFFFFFu);  // masked and white: inverts
  Surface target = Filled(4, 2, 0xFF102030u);
  DrawIcon(target, {0, 0, 4, 2}, icon);
  EXPECT_EQ(target.Pixel(0, 1), 0xFF00FF00u);
  EXPECT_EQ(target.Pixel(3, 0), 0xFFEFDFCFu);

  IconImage alpha{Filled(1, 1, Argb(0, 255, 255, 255), AlphaMode::kStraight), {}};
  Surface under = Filled(1, 1, 0xFF102030u);
  DrawIcon(under, {0, 0, 1, 1}, alpha);
  EXPECT_EQ(under.Pixel(0, 0), 0xFF102030u);
}

}  // namespace
}  // namespace vellumry::gdi
