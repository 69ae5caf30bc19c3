// 32-bit BMP files on the DIB road: what their fourth byte is found to mean, how the pictures
// draw, and the rows kept for managed ones.
#include <gtest/gtest.h>

#include <cstdlib>

#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/Encoders.h"
#include "platform/toolkit/EventLoop.h"

namespace vellumry {
namespace {

using testsupport::Filled;

// A BMP of `width` x 1 pixels as given, their fourth byte written as it stands.
ByteArray Bmp32(const std::vector<uint32_t>& pixels) {
  gdi::Surface surface(static_cast<int>(pixels.size()), 1, gdi::AlphaMode::kUnknown);
  for (size_t x = 0; x < pixels.size(); ++x) surface.SetPixel(static_cast<int>(x), 0, pixels[x]);
  return {codecs::EncodeBmp(surface), 0, 1};
}

class ManagedPicturesTest : public ::testing::Test {
 protected:
  ManagedPicturesTest() {
    services.setPoster([this](PictureServices::Call call) { loop.post(std::move(call)); });
  }
  // What `picture` shows drawn at `zoom` times its size over grey 0x808080, at the top left.
  static uint32_t DrawnOverGrey(const gdi::Picture& picture, int zoom) {
    const gdi::Size size = picture.PixelSize();
    gdi::Surface target =
        Filled(size.width * zoom, size.height * zoom, 0xFF808080, gdi::AlphaMode::kOpaque);
    picture.Render(target, 0, 0, target.Width(), target.Height(), 0, picture.Height(),
                   picture.Width(), -picture.Height());
    return target.Pixel(0, 0);
  }

  tk::EventLoop loop{tk::EventLoop::Clock::Virtual};
  PictureServices services{15, 16u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
};

// Each colour channel within one of the expected value; the target is opaque, so its fourth
// byte shows nothing.
void ExpectNear(uint32_t actual, uint32_t expected, const char* name) {
  for (int shift = 0; shift < 24; shift += 8) {
    EXPECT_LE(std::abs(int((actual >> shift) & 0xFF) - int((expected >> shift) & 0xFF)), 1)
        << name << std::hex << ": 0x" << actual << " for 0x" << expected;
  }
}

TEST_F(ManagedPicturesTest, TheFourthByteDecidesHowABitmapDraws) {
  struct Case {
    const char* name;
    std::vector<uint32_t> pixels;
    bool managed;
    uint32_t drawn;  // the first pixel over grey 128
  };
  const Case cases[] = {
      // 200 x 128 / 255 + 128 x 127 / 255: red 164, the grey 64 through.
      {"straight: alpha 128 over red 200", {0x80C80000, 0x80C80000}, true, 0xFFA44040},
      {"premultiplied: alpha 128 over red 100", {0x80640000, 0x80640000}, true, 0xFFA44040},
      {"all alpha 0: opaque", {0x00C80000, 0x00102030}, false, 0xFFC80000},
      {"all alpha 255", {0xFFC80000, 0xFF102030}, false, 0xFFC80000},
      {"pure zero holes among opaque pixels", {0xFFC80000, 0}, false, 0xFFC80000},
      {"a hidden colour before an opaque pixel", {0x00C80000, 0xFFC80000}, true, 0xFF808080},
  };
  for (const Case& c : cases) {
    const gdi::Picture picture = ex.LoadPicture(Bmp32(c.pixels));
    ASSERT_TRUE(picture) << c.name;
    EXPECT_EQ(ex.PictureType(picture), 1) << c.name;
    EXPECT_EQ(ex.IsManaged(picture), c.managed) << c.name;
    EXPECT_EQ(picture.Attributes() & gdi::kPictureTransparent,
              c.managed ? gdi::kPictureTransparent : 0u)
        << c.name;
    for (const int zoom : {1, 3}) ExpectNear(DrawnOverGrey(picture, zoom), c.drawn, c.name);
  }
}

TEST_F(ManagedPicturesTest, ARowGoesOnceTheEventLoopHasRun) {
  gdi::Picture picture = ex.LoadPicture(Bmp32({0x80640000}));
  ASSERT_TRUE(ex.IsManaged(picture));
  ASSERT_EQ(ex.RecordCount(), 1);
  picture = {};
  EXPECT_EQ(ex.RecordCount(), 1);  // the release is posted, not run within it
  loop.advance(1);
  EXPECT_EQ(ex.RecordCount(), 0);
}

TEST_F(ManagedPicturesTest, TheLastRowTakesTheFreedPlace) {
  gdi::Picture first = ex.LoadPicture(Bmp32({0x80640000}));
  const gdi::Picture second = ex.LoadPicture(Bmp32({0x40202020}));
  const gdi::Picture third = ex.LoadPicture(Bmp32({0x40101010}));
  ASSERT_EQ(ex.FindRecord(third), 2);
  first = {};
  loop.advance(1);
  EXPECT_EQ(ex.RecordCount(), 2);
  EXPECT_EQ(ex.FindRecord(third), 0);
  EXPECT_EQ(ex.FindRecord(second), 1);
  EXPECT_EQ(ex.Record(2).Flags, 0u);  // the old last row is emptied
}

TEST_F(ManagedPicturesTest, UnManageMakesAPicturePlainAtOnce) {
  const gdi::Picture picture = ex.LoadPicture(Bmp32({0x80640000}));
  ASSERT_TRUE(ex.IsManaged(picture));
  ExpectNear(DrawnOverGrey(picture, 1), 0xFFA44040, "managed, blended");
  ex.UnManage(picture);
  EXPECT_FALSE(ex.IsManaged(picture));
  // No alpha any more: the colour as the picture holds it, the grey gone.
  ExpectNear(DrawnOverGrey(picture, 1), 0xFF640000, "plain");
  EXPECT_EQ(ex.RecordCount(), 0);
  EXPECT_EQ(ex.PictureType(picture), 1);  // as the picture's own type says
  EXPECT_FALSE(ex.IsManaged(gdi::Picture{}));
}

TEST(ManagedPicturesEnd, AReleasePostedAfterTheClassEndedFindsNoOne) {
  tk::EventLoop loop{tk::EventLoop::Clock::Virtual};
  {
    PictureServices services{15, 16u << 20, 1};
    services.setPoster([&loop](PictureServices::Call call) { loop.post(std::move(call)); });
    gdi::Picture picture = services.stdPictureEx().LoadPicture(Bmp32({0x80640000}));
    ASSERT_EQ(services.stdPictureEx().RecordCount(), 1);
    picture = {};
  }
  loop.advance(1);  // under the sanitizers: no use of the class that is gone
}

}  // namespace
}  // namespace vellumry
