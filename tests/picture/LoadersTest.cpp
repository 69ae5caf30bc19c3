// The roads besides the picture class: the plain loader and the lazy pictures it gives (errors,
// pixels read from the file when drawn, one decode shared by every thread that asks, decoding
// ahead into the cache), and Module1's (errors, sizes, flattening over the grid's colour, the
// first page of a TIFF, the picture box that hands out its picture).
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>
#include <tuple>

#include "codecs/TestImages.h"
#include "codecs/TestMetafiles.h"
#include "picture/Module1.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"
#include "platform/gdi/Blit.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry {
namespace {

using namespace codecs::testing;
using namespace testsupport;
using PlainLoaderTest = EngineTest;
using LazyPictureTest = EngineTest;

TEST_F(PlainLoaderTest, MissingAndUnreadableFilesRaise) {
  const auto raised = [&](const std::string& path) {
    return errorOf([&] { LoadPicture(services, path); }).value_or(tk::Error(0, "", "")).Number;
  };
  EXPECT_EQ(raised(folder.Path("missing.jpg")), 53);
  EXPECT_EQ(raised(folder.Path("")), 53);  // a folder is no file
  EXPECT_EQ(raised(folder.write("empty.jpg", {})), 481);
  EXPECT_EQ(raised(folder.write("text.gif", {'G', 'I', 'F', '8', '9', 'a'})), 481);
  const std::vector<uint8_t> wmf = {0xD7, 0xCD, 0xC6, 0x9A, 0, 0, 0, 0, 0, 0, 100, 0, 100, 0};
  EXPECT_EQ(raised(folder.write("a.wmf", wmf)), 481);  // a placeable header stopping short
}

TEST_F(PlainLoaderTest, SizeAtOnceAndPixelsFromTheFileAtEachDecode) {
  auto png = makePng(gradient(64, 48));
  const std::string path = folder.write("a.png", png);
  const gdi::Picture picture = LoadPicture(services, path);
  EXPECT_EQ(picture.pixelSize(), (gdi::Size{64, 48}));
  EXPECT_EQ(services.cache()->bytesInUse(), 0u);
  EXPECT_TRUE(picture.Pixels({32, 24}));
  // Pixel data that turns out bad draws nothing; a file gone decodes to nothing.
  png.resize(png.size() / 2);
  folder.write("a.png", png);
  EXPECT_EQ(drawn(picture, filled(16, 12, 0xFF123456u, gdi::AlphaMode::kOpaque)).pixel(10, 10),
            0xFF123456u);
  std::filesystem::remove(path);
  EXPECT_FALSE(picture.Pixels());
}

TEST_F(PlainLoaderTest, AGifKeepsItsTransparencyAndAWmfIsAMetafileDrawnOverWhatLiesBeneath) {
  const gdi::Picture gif =
      LoadPicture(services, folder.write("a.gif", makeGif(4, 2, {0, 1, 2, 3, 3, 2, 1, 0}, 1)));
  EXPECT_EQ(gif.pixelSize(), (gdi::Size{4, 2}));
  EXPECT_TRUE(gif.Attributes() & gdi::kPictureTransparent);
  const gdi::Picture metafile = LoadPicture(
      services,
      folder.write("a.wmf", wmf(2, {windowExtent(100, 100), solidBrush(0x0000FF), select(0),
                                    nullPen(), select(1), Rectangle(0, 0, 50, 100)})));
  EXPECT_EQ(metafile.Type(), gdi::PictureType::kMetafile);
  EXPECT_EQ(metafile.pixelSize(), (gdi::Size{100, 100}));
  // Drawn at half its size onto white: red where the records drew, white where they didn't.
  const gdi::Surface target = drawn(metafile, filled(50, 50, 0xFFFFFFFF, gdi::AlphaMode::kOpaque));
  EXPECT_EQ(target.pixel(10, 25) & 0xFFFFFF, 0xFF0000u);
  EXPECT_EQ(target.pixel(40, 25) & 0xFFFFFF, 0xFFFFFFu);
}

TEST_F(LazyPictureTest, ThreadsAskingAtOnceShareOneDecode) {
  const gdi::Picture picture = LoadPicture(services, folder.write("a.jpg", makeJpeg(320, 240)));
  std::vector<std::shared_ptr<const gdi::Surface>> seen(4);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&, i] { seen[i] = picture.Pixels({80, 60}); });
  }
  for (auto& t : threads) t.join();
  for (const auto& pixels : seen) EXPECT_EQ(pixels, seen[0]);
  EXPECT_EQ(services.cache()->bytesInUse(), 80u * 60 * 4);
}

TEST_F(LazyPictureTest, PrefetchCachesThumbnailsAtTheSizeAskedAndNothingElse) {
  std::vector<gdi::Picture> pictures;
  for (int i = 0; i < 6; ++i) {
    pictures.push_back(
        LoadPicture(services, folder.write("p" + std::to_string(i) + ".jpg", makeJpeg(800, 600))));
    services.prefetch(pictures.back(), {100, 75});
  }
  // A picture without lazy pixels, none, no size, a picture dropped after its prefetch.
  services.prefetch(gdi::Picture::fromSurface(gradient(50, 50)), {10, 10});
  services.prefetch(gdi::Picture{}, {10, 10});
  services.prefetch(pictures[0], {0, 8});
  services.prefetch(LoadPicture(services, folder.write("b.jpg", makeJpeg(64, 64))), {16, 16});
  services.drain();
  // Six thumbnails of 100 x 75, not six eighths of 800 x 600 or more.
  EXPECT_EQ(services.cache()->bytesInUse(), 6u * 100 * 75 * 4);
  // A draw of the whole picture into that size asks for exactly those pixels.
  const gdi::Surface target = drawn(pictures[2], gdi::Surface(100, 75, gdi::AlphaMode::kOpaque));
  EXPECT_EQ(services.cache()->bytesInUse(), 6u * 100 * 75 * 4);
  // A gradient, scaled: red grows to the right.
  EXPECT_GT(gdi::redOf(target.pixel(90, 40)), gdi::redOf(target.pixel(10, 40)) + 150);
}

class Module1Test : public EngineTest {
 protected:
  gdi::Picture Load(const GdiSource& source, int32_t& w, int32_t& h, bool retainRatio = false) {
    return module1.LoadGdiPicture(source, w, h, 0xFFFFFF, retainRatio);
  }
  uint32_t gridColor = 0x00402010;  // 0x00BBGGRR
  Module1 module1{services, [this] { return gridColor; }};
  tk::HeadlessHost host;
  tk::Runtime runtime{tk::Screen{}, host, tk::EventLoop::Clock::Virtual};
  tk::Form form{runtime, "Form1"};
  tk::PictureBox box{&form, "Picture1"};
};

TEST_F(Module1Test, FailuresRaiseNumberedErrorsNamingTheFile) {
  const std::string bad = folder.write("not a picture.png", {'n', 'o', 'p', 'e', '!'});
  const std::tuple<GdiSource, int, std::string> cases[] = {
      {bad, 999, "Error loading picture " + bad},
      {ByteArray{{1, 2, 3, 4, 5}}, 999, "Error loading picture"},
      {ByteArray{{1, 0, 0, 0, 108, 0, 0, 0}}, 999, "Error loading picture"},  // EMF cut short
      {GdiSource{7}, 998, "Passed invalid parameter as PicFile"},
  };
  int32_t w = -1, h = -1;
  for (const auto& [source, number, description] : cases) {
    const tk::Error raised = errorOf([&] { Load(source, w, h); }).value_or(tk::Error(0, "", ""));
    EXPECT_EQ(std::tuple(raised.Number, raised.Source, raised.Description),
              std::tuple(number, "GDI+ Module", description));
  }
  EXPECT_FALSE(Load(GdiSource{}, w, h));
}

TEST_F(Module1Test, SizesOwnOrAskedOfTheFirstPage) {
  const std::string path = folder.Path("pages.tif");
  writeTiff(path, 64, 48, {0xFF00FF00, 0xFFFF0000});
  // The size asked, RetainRatio; the bitmap's size, and the arguments after: only -1 is written
  // back, as the image's two sizes.
  const std::tuple<gdi::Size, bool, gdi::Size, gdi::Size> cases[] = {
      {{-1, 10}, false, {64, 48}, {64, 48}},
      {{32, 40}, false, {32, 40}, {32, 40}},  // the pixels stretched to the size asked
      // Any other size of 0 or below gives a bitmap without pixels along it.
      {{0, 10}, false, {0, 10}, {0, 10}},
      {{-5, 10}, true, {0, 10}, {-5, 10}},
  };
  for (const auto& [asked, retainRatio, expected, after] : cases) {
    SCOPED_TRACE(::testing::Message() << asked.width << " x " << asked.height);
    int32_t w = asked.width, h = asked.height;
    const gdi::Picture picture = Load(path, w, h, retainRatio);
    EXPECT_EQ(picture.Type(), gdi::PictureType::kBitmap);
    EXPECT_EQ(picture.pixelSize(), expected);
    EXPECT_EQ(gdi::Size(w, h), after);
    if (expected.width == 0) continue;
    EXPECT_EQ(picture.Pixels()->dimensions(), expected);
    EXPECT_EQ(picture.Pixels()->pixel(3, 3) & 0xFFFFFF, 0x00FF00u);
  }
}

TEST_F(Module1Test, NativeIsTheImagesSizeElseTheBoxsInnerSizeInPixels) {
  const std::string path = folder.write("a.jpg", makeJpeg(64, 48));
  // 15 twips a pixel across, 12 down: a box of 200 x 100 pixels; a border takes two a side.
  runtime.screen().TwipsPerPixelY = 12;
  box.setWidth(3000);
  box.setHeight(1200);
  const std::tuple<bool, int, gdi::Size> cases[] = {
      {true, 1, {64, 48}}, {false, 1, {196, 96}}, {false, 0, {200, 100}}};
  for (const auto& [native, borderStyle, expected] : cases) {
    SCOPED_TRACE(::testing::Message() << "native " << native << ", border " << borderStyle);
    box.setBorderStyle(borderStyle);
    module1.ShowPictureGdi(path, box, native);
    EXPECT_EQ(box.Picture().pixelSize(), expected);
  }
}

TEST_F(Module1Test, RatioKeptCentresOnTheRoundedDrawnSize) {
  // A 200 x 74 image in 20 x 10 is drawn 20 x 7.4, rounded to 7: its top is (10 - 7) / 2 = 1.5,
  // rounded to 2, not (10 - 7.4) / 2 = 1.3. Turned a quarter, the same for the left edge.
  const std::tuple<gdi::Size, gdi::Size, gdi::Rect> cases[] = {
      {{200, 74}, {20, 10}, {0, 2, 20, 7}}, {{74, 200}, {10, 20}, {2, 0, 7, 20}}};
  for (const auto& [image, size, drawn] : cases) {
    SCOPED_TRACE(::testing::Message() << image.width << " x " << image.height);
    int32_t w = size.width, h = size.height;
    const gdi::Picture picture =
        Load(folder.write("red.png", makePng(filled(image.width, image.height, 0xFFFF0000))), w, h,
             true);
    gdi::Surface wanted = filled(size.width, size.height, 0xFF102040, gdi::AlphaMode::kOpaque);
    gdi::fill(wanted, drawn, 0xFFFF0000);
    const auto pixels = picture.Pixels()->Pixels();
    EXPECT_EQ(std::vector(pixels.begin(), pixels.end()),
              std::vector(wanted.Pixels().begin(), wanted.Pixels().end()));
  }
}

TEST_F(Module1Test, TransparentPartsShowTheGridColourReadAtEachLoad) {
  const std::string png = folder.write("alpha.png", makePng(filled(10, 4, 0x80FF0000)));
  module1.ShowPictureGdi(png, box, true);
  EXPECT_EQ(box.Picture().Attributes() & gdi::kPictureTransparent, 0u);
  // Red 255 half over the grid's red 0x10, green 0x20 and blue 0x40, not over the white passed.
  EXPECT_TRUE(near(box.Picture().Pixels()->pixel(2, 2), 0x871020, 2));
  // An EMF is a bitmap of its drawing, undrawn parts in the grid's colour.
  module1.ShowPictureGdi(folder.write("a.emf", emf(40, {emfBrush(1, 0x0000FF), emfSelect(1),
                                                        kEmfNullPen, emfRectangle(0, 0, 20, 40)})),
                         box, true);
  EXPECT_EQ(box.Picture().Type(), gdi::PictureType::kBitmap);
  const auto emf = box.Picture().Pixels();
  EXPECT_EQ(emf->dimensions(), (gdi::Size{40, 40}));
  EXPECT_EQ(emf->pixel(10, 20) & 0xFFFFFF, 0xFF0000u);
  EXPECT_EQ(emf->pixel(30, 20) & 0xFFFFFF, 0x102040u);
  gridColor = 0x00FFFFFF;
  module1.ShowPictureGdi(png, box, true);
  EXPECT_TRUE(near(box.Picture().Pixels()->pixel(2, 2), 0xFF8080, 2));
}

TEST_F(Module1Test, TheBoxKeepsItsPictureOnFailureAndHandsOutAnOpaqueOneAsItsImage) {
  box.setAutoSize(true);
  module1.ShowPictureGdi(folder.write("a.png", makePng(gradient(30, 20))), box, true);
  const gdi::Picture shown = box.Picture();
  ASSERT_TRUE(shown);
  EXPECT_THROW(module1.ShowPictureGdi(folder.Path("gone.png"), box, true), tk::Error);
  EXPECT_TRUE(box.Picture().sameObject(shown));
  EXPECT_TRUE(box.Image().sameObject(shown));
  // A picture with transparent parts, or a box of another size, is painted onto a canvas.
  box.setPicture(gdi::Picture::fromSurface(filled(30, 20, 0x80FF0000)));
  EXPECT_FALSE(box.Image().sameObject(box.Picture()));
  EXPECT_EQ(box.Image().Attributes() & gdi::kPictureTransparent, 0u);
  box.setAutoSize(false);
  box.setPicture(gdi::Picture::fromSurface(gradient(30, 20)));
  box.setWidth(600);
  EXPECT_EQ(box.Image().pixelSize(), (gdi::Size{40, 20}));
}

}  // namespace
}  // namespace vellumry
