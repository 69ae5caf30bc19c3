// StdPictureEx: the load dispatch (arguments, sources, the sniff by content, icon files, pictures
// made from pictures), the managed pictures and their rows, and saving.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "codecs/TestFiles.h"
#include "codecs/TestImages.h"
#include "codecs/TestMetafiles.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"
#include "platform/codecs/Encoders.h"
#include "platform/toolkit/EventLoop.h"

namespace vellumry {
namespace {

using namespace codecs::testing;
using namespace testsupport;
using StdPictureExTest = EngineTest;
using SavePictureTest = EngineTest;

// A BMP of 4 x 4 pixels of one colour, their fourth byte as `mode` says.
ByteArray bmp(uint32_t argb, gdi::AlphaMode mode = gdi::AlphaMode::kOpaque) {
  return {codecs::encodeBmp(filled(4, 4, argb, mode))};
}

// A BMP of `width` x 1 pixels as given, their fourth byte written as it stands.
ByteArray bmp32(const std::vector<uint32_t>& pixels) {
  gdi::Surface surface(static_cast<int>(pixels.size()), 1, gdi::AlphaMode::kUnknown);
  std::copy(pixels.begin(), pixels.end(), surface.Pixels().begin());
  return {codecs::encodeBmp(surface)};
}

// The bytes SavePicture gives for `picture` in a byte array.
std::vector<uint8_t> saved(StdPictureEx& ex, const gdi::Picture& picture, bool asBitmap = false,
                           int32_t keepAlpha = 0, int32_t backColor = 0) {
  SaveDestination destination = ByteArray{};
  ex.SavePicture(picture, destination, asBitmap, keepAlpha, backColor);
  return std::get<ByteArray>(destination).bytes;
}

TEST(StdPictureExStatics, ArgumentsAreNormalisedAndRowsPaddedTo32Bits) {
  const auto normalised = [](int32_t depth, int32_t width, int32_t height, int32_t convertTo) {
    const auto a = StdPictureEx::normaliseArguments(-1, depth, width, height, true, convertTo);
    return std::tuple(a.ColorDepth, a.Width, a.Height, a.KeepOriginalFormat, a.ConvertTo,
                      a.KeepForIcon);
  };
  // Sizes keep their low 12 bits and negatives become 0; ConvertTo 2 is no conversion.
  EXPECT_EQ(normalised(-8, 4096, 4100, 2), std::tuple(0, 0, 4, true, 0, false));
  // A conversion keeps no source; ConvertTo 3 remembers it for the icon.
  EXPECT_EQ(normalised(24, -5, 4095, 1), std::tuple(24, 0, 4095, false, 1, false));
  EXPECT_EQ(normalised(0, 0, 0, 3), std::tuple(0, 0, 0, false, 3, true));
  EXPECT_EQ(StdPictureEx::RowBytes(1, 1, 0), 4);  // height 0: one row
  EXPECT_EQ(StdPictureEx::RowBytes(1, 33, 1), 8);
  EXPECT_EQ(StdPictureEx::RowBytes(24, 3, 2), 24);   // 9 bytes padded to 12, two rows
  EXPECT_EQ(StdPictureEx::RowBytes(24, 3, -2), 24);  // top-down rows count alike
}

TEST_F(StdPictureExTest, SourcesThatGiveNoPicture) {
  EXPECT_FALSE(ex.LoadPicture(PictureSource{}));
  EXPECT_FALSE(ex.LoadPicture(std::string()));
  EXPECT_FALSE(ex.LoadPicture(ByteArray{{0x42}}));                         // one element
  EXPECT_FALSE(ex.LoadPicture(ByteArray{makePng(gradient(8, 8)), 0, 2}));  // two dimensions
  EXPECT_FALSE(ex.LoadPicture(gdi::Picture{}));
  // A file of no bytes, or none at all: no picture and no error.
  EXPECT_FALSE(ex.LoadPicture(folder.write("empty.bmp", {})));
  EXPECT_FALSE(ex.LoadPicture(folder.Path("missing.bmp")));
  // Data that no decoder knows, shorter than the magic or not.
  EXPECT_FALSE(ex.LoadPicture(ByteArray{{'B', 'M', 1}}));
  EXPECT_FALSE(ex.LoadPicture(folder.write("text.ico", {'h', 'e', 'l', 'l', 'o', '\n'})));
}

// The kind PictureType gives (1 bitmap, 5 JPEG, 6 PNG, 7 GIF, 8 TIFF) and the Flags of the
// picture's row, 0 when it isn't managed.
TEST_F(StdPictureExTest, KindAndRowOfEachRoad) {
  const std::string jpeg = folder.write("a.jpg", makeJpeg(16, 8));
  const ByteArray gif{makeGif(4, 2, {0, 1, 2, 3, 3, 2, 1, 0}, -1)};
  const auto png = makePng(gradient(9, 9));
  const std::string tiff = folder.Path("d.tif");
  writeTiff(tiff, 4, 4, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF});
  const std::tuple<const char*, PictureSource, bool, int32_t, uint32_t> cases[] = {
      // JPEG and a one-frame GIF go by the platform loader; kept, they still tell their kind.
      {"jpeg", jpeg, false, 1, 0},
      {"kept jpeg", jpeg, true, 5, 0},
      {"gif", gif, false, 1, 0},
      {"kept gif", gif, true, 7, 0},
      // The content decides, not the name; nor does an array's lower bound.
      {"png named .bmp", folder.write("really-a-png.bmp", png), false, 6, 6},
      {"png from bytes", ByteArray{png, 5, 1}, false, 6, 6},
      {"png with alpha: an alpha bitmap", folder.write("c.png", makePng(filled(9, 9, 0x80FF0000))),
       false, 1, 1},
      // Current page 1 in bits 4-15, three pages in bits 16-27.
      {"kept tiff of three pages", tiff, true, 8, 8 | 1 << 4 | 3 << 16},
  };
  for (const auto& [what, source, keep, kind, flags] : cases) {
    SCOPED_TRACE(what);
    const gdi::Picture picture = ex.LoadPicture(source, -1, 0, 0, 0, keep);
    ASSERT_TRUE(picture);
    EXPECT_EQ(ex.PictureType(picture), kind);
    const PictureRecord& row = ex.Record(ex.FindRecord(picture));
    EXPECT_EQ(row.Flags, flags);
    EXPECT_EQ(ex.RecordCount(), flags ? 1 : 0);
    EXPECT_EQ(row.SourceBytes != nullptr, keep && flags);
    // A managed picture reports transparent parts whatever its pixels.
    EXPECT_EQ((picture.Attributes() & gdi::kPictureTransparent) != 0, flags != 0);
  }
  // A picture the class never saw: its own type.
  EXPECT_EQ(ex.PictureType(gdi::Picture::fromSurface(gradient(3, 3))), 1);
  EXPECT_EQ(ex.PictureType({}), 0);
}

TEST_F(StdPictureExTest, PagesOfAKeptTiff) {
  const std::string tiff = folder.Path("pages.tif");
  writeTiff(tiff, 4, 4, {0xFFFF0000, 0xFF00FF00, 0xFF0000FF});
  const gdi::Picture first = ex.LoadPicture(tiff, -1, 0, 0, 0, true);
  ASSERT_EQ(ex.SubImageCount(first), 3);
  // Out of range, or below 1: the picture itself, still on page 1.
  EXPECT_TRUE(ex.SubImage(first, 4).sameObject(first));
  EXPECT_TRUE(ex.SubImage(first, 0).sameObject(first));
  EXPECT_EQ(ex.SubImageIndex(first), 1);
  // Page 2 is a new picture that takes the row over.
  const gdi::Picture second = ex.SubImage(first, 2);
  ASSERT_TRUE(second);
  EXPECT_EQ(second.Pixels()->pixel(1, 1) & 0xFFFFFF, 0x00FF00u);
  EXPECT_EQ(ex.SubImageIndex(second), 2);
  EXPECT_EQ(ex.FindRecord(first), -1);
  EXPECT_EQ(ex.RecordCount(), 1);
}

TEST_F(StdPictureExTest, AnIconFileGivesTheImageAtTheSizeAskedFor) {
  // 16, 32 and 48 pixels of blue, green and red, without alpha; and a file of one image.
  const ByteArray sizes{iconFile(1, {{iconImageBytes(16, 0xFF0000FF)},
                                     {iconImageBytes(32, 0xFF00FF00)},
                                     {iconImageBytes(48, 0xFFFF0000)}})};
  const ByteArray one{iconFile(1, {{iconImageBytes(64, 0xFF336699)}})};
  // IconSize, Width and Height asked, the file; the picture's size. One image is shown at its own
  // size unless another is asked for.
  const std::tuple<int32_t, int32_t, int32_t, const ByteArray&, gdi::Size> cases[] = {
      {-3, 0, 0, sizes, {256, 256}}, {-2, 0, 0, sizes, {48, 48}},  {-1, 5, 5, sizes, {32, 32}},
      {0, 0, 0, sizes, {16, 16}},    {1, 0, 0, sizes, {32, 32}},   {2, 0, 0, sizes, {16, 16}},
      {3, 0, 0, sizes, {32, 32}},    {4, 20, 0, sizes, {20, 20}},  {4, 0, 24, sizes, {24, 24}},
      {4, 0, 0, sizes, {32, 32}},    {7, 10, 12, sizes, {10, 12}}, {-1, 5, 5, one, {64, 64}},
      {4, 0, 0, one, {64, 64}}};
  for (const auto& [iconSize, width, height, file, wanted] : cases) {
    SCOPED_TRACE(::testing::Message() << iconSize << ": " << width << " x " << height);
    EXPECT_EQ(ex.LoadPicture(file, iconSize, 0, width, height).pixelSize(), wanted);
  }
  // Above the largest image, the largest is chosen; without alpha it is plain.
  const gdi::Picture jumbo = ex.LoadPicture(sizes, -3);
  EXPECT_EQ(jumbo.icon()->colour.pixel(100, 100) & 0xFFFFFF, 0xFF0000u);
  EXPECT_FALSE(ex.IsManaged(jumbo));
  // Kept, the image chosen is managed, to keep a file of it alone.
  const gdi::Picture kept = ex.LoadPicture(sizes, -1, 0, 0, 0, true);
  EXPECT_TRUE(ex.IsManaged(kept));
  EXPECT_EQ(saved(ex, kept), iconFile(1, {{iconImageBytes(32, 0xFF00FF00)}}));
}

// What a picture holds at (x, y): its pixels, or an icon's colour.
uint32_t pixelOf(const gdi::Picture& picture, int x, int y) {
  return picture.icon() ? picture.icon()->colour.pixel(x, y) : picture.Pixels()->pixel(x, y);
}

TEST_F(StdPictureExTest, PicturesMadeFromPictures) {
  const gdi::Picture alpha = ex.LoadPicture(bmp(0x80C80000, gdi::AlphaMode::kUnknown));
  const gdi::Picture opaque = ex.LoadPicture(bmp(0xFF123456, gdi::AlphaMode::kOpaque));
  const gdi::Picture keptGif =
      ex.LoadPicture(ByteArray{makeGif(4, 2, std::vector<uint8_t>(8, 1), -1)}, -1, 0, 0, 0, true);
  const gdi::Picture alphaIcon =
      ex.LoadPicture(ByteArray{iconFile(1, {{iconImageBytes(8, 0x80C80000)}})});
  const gdi::Picture maskedIcon =
      ex.LoadPicture(ByteArray{iconFile(1, {{iconImageBytes(8, 0xFF123456)}})});
  // A spacer: clear all over, which the pixels alone can't tell from black.
  const gdi::Picture spacerGif =
      LoadPicture(services, folder.write("t.gif", makeGif(2, 2, {2, 2, 2, 2}, 2)));
  // The source, KeepOriginalFormat, ConvertTo; PictureType, managed, and the pixels at (0, 0),
  // where an icon's mask lets the target through, and at (1, 1).
  const std::tuple<const char*, const gdi::Picture&, bool, int32_t, int32_t, bool, uint32_t,
                   uint32_t>
      cases[] = {
          // A copy owned here: pixels examined again, kept bytes read again (and not kept unless
          // asked), an icon copied.
          {"copy of an alpha bitmap", alpha, false, 0, 1, true, 0x80640000, 0x80640000},
          {"copy of a plain bitmap", opaque, false, 0, 1, false, 0xFF123456, 0xFF123456},
          {"copy of a kept GIF", keptGif, false, 0, 1, false, 0xFFFF0000, 0xFFFF0000},
          {"copy of an alpha icon", alphaIcon, false, 0, 3, true, 0x80C80000, 0x80C80000},
          {"copy of a clear GIF", spacerGif, false, 0, 1, true, 0, 0},
          // ConvertTo 1: an icon's alpha, or its mask; a bitmap stays what it is.
          {"alpha icon to bitmap", alphaIcon, false, 1, 1, true, 0x80640000, 0x80640000},
          {"masked icon to bitmap", maskedIcon, false, 1, 1, true, 0, 0xFF123456},
          {"bitmap to bitmap", opaque, false, 1, 1, false, 0xFF123456, 0xFF123456},
          // ConvertTo 3: an icon of one image, straight again (red 100 x 255 / 128), managed when
          // it has 32 bits or keeps its file.
          {"alpha bitmap to icon", alpha, false, 3, 3, true, 0x80C70000, 0x80C70000},
          {"opaque bitmap to icon", opaque, false, 3, 3, false, 0xFF123456, 0xFF123456},
          {"opaque bitmap to a kept icon", opaque, true, 3, 3, true, 0xFF123456, 0xFF123456},
      };
  for (const auto& [name, source, keep, convertTo, type, managed, topLeft, inside] : cases) {
    SCOPED_TRACE(name);
    const gdi::Picture made = ex.LoadPicture(source, -1, 0, 0, 0, keep, convertTo);
    ASSERT_TRUE(made);
    EXPECT_FALSE(made.sameObject(source));
    EXPECT_EQ(made.pixelSize(), source.pixelSize());
    EXPECT_EQ(ex.PictureType(made), type);
    EXPECT_EQ(ex.IsManaged(made), managed);
    EXPECT_EQ(ex.Record(ex.FindRecord(made)).SourceBytes != nullptr, keep);
    EXPECT_EQ(pixelOf(made, 0, 0), topLeft);
    EXPECT_EQ(pixelOf(made, 1, 1), inside);
  }
}

// A metafile converted to a bitmap keeps what it painted, opaque, and clears the rest; converted
// to an icon, it masks the rest.
TEST_F(StdPictureExTest, AMetafileBecomesABitmapOrIconOfWhatItPainted) {
  const gdi::Picture metafile =
      ex.LoadPicture(ByteArray{wmf(2, {windowExtent(100, 100), solidBrush(0x0000FF), select(0),
                                       nullPen(), select(1), Rectangle(0, 0, 50, 100)})});
  ASSERT_EQ(metafile.Type(), gdi::PictureType::kMetafile);
  // Copied, it is read again from its records: a metafile of its own.
  const gdi::Picture copy = ex.LoadPicture(metafile);
  ASSERT_TRUE(copy);
  EXPECT_FALSE(copy.sameObject(metafile));
  EXPECT_EQ(copy.Type(), gdi::PictureType::kMetafile);
  EXPECT_EQ(copy.pixelSize(), metafile.pixelSize());
  const gdi::Picture made = ex.LoadPicture(metafile, -1, 0, 0, 0, false, 1);
  ASSERT_TRUE(made);
  EXPECT_EQ(made.Type(), gdi::PictureType::kBitmap);
  EXPECT_EQ(made.pixelSize(), metafile.pixelSize());
  EXPECT_TRUE(ex.IsManaged(made));
  EXPECT_EQ(pixelOf(made, 10, 50), 0xFFFF0000u);
  EXPECT_EQ(pixelOf(made, 90, 50), 0u);
  // As an icon, what it didn't paint is masked.
  const gdi::Picture icon = ex.LoadPicture(metafile, -1, 0, 0, 0, false, 3);
  ASSERT_TRUE(icon && icon.icon());
  EXPECT_EQ(icon.pixelSize(), metafile.pixelSize());
  EXPECT_FALSE(icon.icon()->masked(10, 50));
  EXPECT_TRUE(icon.icon()->masked(90, 50));
  EXPECT_EQ(pixelOf(icon, 10, 50), 0xFFFF0000u);
}

// What `picture` shows at the top left drawn at `zoom` times its size over grey 0x808080.
uint32_t drawnOverGrey(const gdi::Picture& picture, int zoom) {
  const gdi::Size size = picture.pixelSize();
  return drawn(picture,
               filled(size.width * zoom, size.height * zoom, 0xFF808080, gdi::AlphaMode::kOpaque))
      .pixel(0, 0);
}

class ManagedPicturesTest : public EngineTest {
 protected:
  ManagedPicturesTest() {
    services.setPoster([this](PictureServices::Call call) { loop.post(std::move(call)); });
  }
  tk::EventLoop loop{tk::EventLoop::Clock::Virtual};
};

// engine.drive shows premultiplied and all-0 alpha in the grid; here straight alpha at two zooms,
// and the meanings the grid doesn't meet.
TEST_F(ManagedPicturesTest, TheFourthByteDecidesHowABitmapDraws) {
  // The pixels; managed; the first pixel drawn over grey 128.
  const std::tuple<const char*, std::vector<uint32_t>, bool, uint32_t> cases[] = {
      // 200 x 128 / 255 + 128 x 127 / 255: red 164, the grey 64 through.
      {"straight: alpha 128 over red 200", {0x80C80000, 0x80C80000}, true, 0xFFA44040},
      {"all alpha 255", {0xFFC80000, 0xFF102030}, false, 0xFFC80000},
      {"pure zero holes among opaque pixels", {0xFFC80000, 0}, false, 0xFFC80000},
      {"a hidden colour before an opaque pixel", {0x00C80000, 0xFFC80000}, true, 0xFF808080},
  };
  for (const auto& [name, pixels, managed, drawn] : cases) {
    SCOPED_TRACE(name);
    const gdi::Picture picture = ex.LoadPicture(bmp32(pixels));
    EXPECT_EQ(ex.PictureType(picture), 1);
    EXPECT_EQ(ex.IsManaged(picture), managed);
    for (const int zoom : {1, 3}) EXPECT_TRUE(near(drawnOverGrey(picture, zoom), drawn, 1));
  }
}

TEST_F(ManagedPicturesTest, ARowGoesOnceTheEventLoopHasRunAfterTheLastReferenceOrAtOnceOnUnManage) {
  gdi::Picture first = ex.LoadPicture(bmp32({0x80640000}));
  const gdi::Picture second = ex.LoadPicture(bmp32({0x80640000}));
  const gdi::Picture third = ex.LoadPicture(bmp32({0x80640000}));
  ASSERT_EQ(ex.FindRecord(third), 2);
  gdi::Picture copy = first;
  first = {};
  loop.advance(1);
  EXPECT_EQ(ex.RecordCount(), 3);  // the copy holds it
  copy = {};
  EXPECT_EQ(ex.RecordCount(), 3);  // the release is posted, not run within it
  loop.advance(1);
  EXPECT_EQ(ex.RecordCount(), 2);
  // The last row takes the freed place and is emptied; row -1 of "not found" stays empty.
  EXPECT_EQ(ex.FindRecord(third), 0);
  EXPECT_EQ(ex.FindRecord(second), 1);
  EXPECT_EQ(ex.Record(2).Flags, 0u);
  EXPECT_EQ(ex.Record(-1).Flags, 0u);
  // A picture made plain draws the colour it holds, the grey gone, as its own type says.
  ex.UnManage(third);
  EXPECT_EQ(ex.RecordCount(), 1);
  EXPECT_FALSE(ex.IsManaged(third));
  EXPECT_TRUE(near(drawnOverGrey(third, 1), 0xFF640000, 1));
  EXPECT_EQ(ex.PictureType(third), 1);
  EXPECT_FALSE(ex.IsManaged(gdi::Picture{}));
}

TEST(ManagedPicturesEnd, AReleasePostedAfterTheClassEndedFindsNoOne) {
  tk::EventLoop loop{tk::EventLoop::Clock::Virtual};
  {
    PictureServices services{15, 16u << 20, 1};
    services.setPoster([&loop](PictureServices::Call call) { loop.post(std::move(call)); });
    gdi::Picture picture = services.stdPictureEx().LoadPicture(bmp32({0x80640000}));
    ASSERT_EQ(services.stdPictureEx().RecordCount(), 1);
    picture = {};
  }
  loop.advance(1);  // under the sanitizers: no use of the class that is gone
}

TEST_F(SavePictureTest, ABitmapIsDrawnIntoABmp) {
  const gdi::Picture plain = ex.LoadPicture(bmp(0xFF123456));
  const gdi::Picture alpha = ex.LoadPicture(bmp(0x80640000, gdi::AlphaMode::kUnknown));
  // KeepAlpha, BackColor (0x00BBGGRR); the bit count and the first pixel's bytes (B, G, R[, A]).
  const std::tuple<const char*, gdi::Picture, int, int, int, std::vector<uint8_t>> cases[] = {
      {"plain: 24 bits", plain, -1, 0, 24, {0x56, 0x34, 0x12}},
      {"managed, premultiplied alpha kept", alpha, -1, 0, 32, {0, 0, 100, 128}},
      // Over blue: 255 x 127 / 255 of it shows through.
      {"managed, flattened", alpha, 0, 0xFF0000, 24, {127, 0, 100}},
  };
  for (const auto& [name, picture, keepAlpha, backColor, bits, first] : cases) {
    SCOPED_TRACE(name);
    const std::vector<uint8_t> bmp = saved(ex, picture, false, keepAlpha, backColor);
    ASSERT_EQ(bmp.size(), 54u + 16 * bits / 8);
    EXPECT_EQ(bmp[28], bits);
    EXPECT_EQ(std::vector<uint8_t>(bmp.begin() + 54, bmp.begin() + 54 + bits / 8), first);
  }
  // A picture variable receives a new picture of the drawing.
  SaveDestination variable = gdi::Picture{};
  ex.SavePicture(plain, variable);
  EXPECT_FALSE(std::get<gdi::Picture>(variable).sameObject(plain));
  EXPECT_EQ(std::get<gdi::Picture>(variable).Pixels()->pixel(2, 1) & 0xFFFFFF, 0x123456u);
}

TEST_F(SavePictureTest, KeptBytesComeOutAsTheyWereRead) {
  const std::vector<uint8_t> jpeg = makeJpeg(16, 8);
  const gdi::Picture kept = ex.LoadPicture(ByteArray{jpeg}, -1, 0, 0, 0, true);
  EXPECT_EQ(saved(ex, kept), jpeg);
  SaveDestination file = folder.Path("copy.jpg");
  ex.SavePicture(kept, file);
  EXPECT_EQ(ReadFile(folder.Path("copy.jpg")), jpeg);
  EXPECT_EQ(saved(ex, kept, true).at(28), 24);  // drawn as a bitmap when asked
}

TEST_F(SavePictureTest, ErrorsOrNothingDone) {
  const gdi::Picture bitmap = ex.LoadPicture(bmp(0xFF123456));
  const gdi::Picture icon =
      ex.LoadPicture(ByteArray{iconFile(1, {{iconImageBytes(16, 0xFF112233)}})});
  // The error raised, 0 for none.
  const std::tuple<const char*, gdi::Picture, SaveDestination, int> cases[] = {
      {"a number", bitmap, int32_t{3}, 17},
      {"nothing", bitmap, std::monostate{}, 17},
      {"an icon kept in no source form", icon, ByteArray{}, 5},
      {"a folder that isn't there", bitmap, folder.Path("no/such/folder.bmp"), ENOENT},
      {"an empty picture", gdi::Picture{}, int32_t{3}, 0},
      {"an empty file name", bitmap, std::string(), 0},
  };
  for (auto [name, picture, destination, number] : cases) {
    const auto save = [&] { ex.SavePicture(picture, destination); };
    const tk::Error raised = errorOf(save).value_or(tk::Error(0, "SavePicture", ""));
    EXPECT_EQ(std::tuple(raised.Number, raised.Source), std::tuple(number, "SavePicture")) << name;
  }
}

}  // namespace
}  // namespace vellumry
