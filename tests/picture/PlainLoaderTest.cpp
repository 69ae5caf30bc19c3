// The plain loader: its errors, and pictures of files that keep none of their bytes.
#include <gtest/gtest.h>

#include <filesystem>

#include "codecs/TestImages.h"
#include "codecs/TestMetafiles.h"
#include "picture/PictureServices.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"
#include "platform/codecs/Encoders.h"
#include "platform/toolkit/Error.h"

namespace vellumry {
namespace {

using namespace codecs::testing;

class PlainLoaderTest : public ::testing::Test {
 protected:
  int Raised(const std::string& path) {
    try {
      LoadPicture(services, path);
    } catch (const tk::Error& error) {
      return error.Number;
    }
    return 0;
  }
  PictureServices services{15, 16u << 20, 1};
  testsupport::TempFolder folder;
};

TEST_F(PlainLoaderTest, MissingAndUnreadableFilesRaise) {
  EXPECT_EQ(Raised(folder.Path("missing.jpg")), 53);
  EXPECT_EQ(Raised(folder.Path("")), 53);  // a folder is no file
  EXPECT_EQ(Raised(folder.Write("empty.jpg", {})), 481);
  EXPECT_EQ(Raised(folder.Write("text.gif", {'G', 'I', 'F', '8', '9', 'a'})), 481);
  // A placeable metafile whose header stops short.
  std::vector<uint8_t> wmf = {0xD7, 0xCD, 0xC6, 0x9A, 0, 0, 0, 0, 0, 0, 100, 0, 100, 0};
  EXPECT_EQ(Raised(folder.Write("a.wmf", wmf)), 481);
}

TEST_F(PlainLoaderTest, SizeAtOnceAndPixelsFromTheFileWhenDrawn) {
  const std::string path = folder.Write("a.jpg", MakeJpeg(320, 200));
  const gdi::Picture picture = LoadPicture(services, path);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{320, 200}));
  EXPECT_EQ(picture.Width(), 8467);  // 320 pixels at 96 per inch, in hundredths of a millimetre
  EXPECT_FALSE(picture.KeepOriginalFormat());
  EXPECT_EQ(services.cache()->BytesInUse(), 0u);
  // The file is read again when the picture decodes: a changed file shows its new content,
  // and a file gone decodes to nothing.
  folder.Write("a.jpg", MakeJpeg(320, 200));
  ASSERT_TRUE(picture.Pixels({40, 25}));
  std::filesystem::remove(path);
  EXPECT_FALSE(picture.Pixels());
}

TEST_F(PlainLoaderTest, ReadsTheOtherFormats) {
  const auto gif = MakeGif(4, 2, {0, 1, 2, 3, 3, 2, 1, 0}, 1);
  const gdi::Picture fromGif = LoadPicture(services, folder.Write("a.gif", gif));
  EXPECT_EQ(fromGif.PixelSize(), (gdi::Size{4, 2}));
  EXPECT_TRUE(fromGif.Attributes() & gdi::kPictureTransparent);
  const gdi::Picture fromPng =
      LoadPicture(services, folder.Write("b.png", MakePng(Gradient(5, 3))));
  EXPECT_EQ(fromPng.PixelSize(), (gdi::Size{5, 3}));
  const gdi::IconImage cursor{Gradient(2, 2), std::vector<uint8_t>(4, 0), true, 1, 1};
  const gdi::Picture fromCur = LoadPicture(services, folder.Write("a.cur", codecs::EncodeIco(cursor)));
  ASSERT_TRUE(fromCur);
  EXPECT_EQ(fromCur.Type(), gdi::PictureType::kIcon);
  EXPECT_EQ(fromCur.PixelSize(), (gdi::Size{2, 2}));
}

}  // namespace
}  // namespace vellumry

namespace vellumry {
namespace {

using namespace codecs::testing;

TEST(PlainLoaderMetafileTest, AWmfIsAMetafileDrawnOverWhatLiesBeneath) {
  PictureServices services{15, 16u << 20, 1};
  testsupport::TempFolder folder;
  const std::string path =
      folder.Write("a.wmf", Wmf(2, {WindowExtent(100, 100), SolidBrush(0x0000FF), Select(0),
                                    NullPen(), Select(1), Rectangle(0, 0, 50, 100)}));
  const gdi::Picture picture = LoadPicture(services, path);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture.Type(), gdi::PictureType::kMetafile);
  EXPECT_EQ(picture.PixelSize(), (gdi::Size{100, 100}));
  // Drawn at half its size onto white: red where the records drew, white where they didn't.
  gdi::Surface target(50, 50, gdi::AlphaMode::kOpaque);
  for (uint32_t& p : target.Pixels()) p = 0xFFFFFFFF;
  picture.Render(target, 0, 0, 50, 50, 0, picture.Height(), picture.Width(), -picture.Height());
  EXPECT_EQ(target.Pixel(10, 25) & 0xFFFFFF, 0xFF0000u);
  EXPECT_EQ(target.Pixel(40, 25) & 0xFFFFFF, 0xFFFFFFu);
}

}  // namespace
}  // namespace vellumry
