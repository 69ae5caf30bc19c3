// The shared thumbnail cache under the grid's pictures: which entries are trusted, what a miss
// writes for other programs, and what can't hurt.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <utime.h>

#include <QImage>
#include <filesystem>
#include <fstream>
#include <tuple>

#include "codecs/TestImages.h"
#include "picture/PictureTestSupport.h"
#include "picture/PlainLoader.h"
#include "picture/ThumbnailCache.h"
#include "platform/os/ThumbnailStore.h"

namespace vellumry {
namespace {

using codecs::testing::makeJpeg;
using codecs::testing::makePng;
using testsupport::filled;

constexpr uint32_t kRed = 0xFFFF0000u, kBlue = 0xFF0000FFu;
constexpr int kCellPixels = 200;
constexpr time_t kWhen = 1700000000;
constexpr gdi::Size kCellSize{150, 100};  // a 600 x 400 photo in a 200-pixel cell

bool near(uint32_t a, uint32_t b) { return testsupport::near(a, b, 8); }

void setModified(const std::string& path, time_t when) {
  const utimbuf times{when, when};
  ASSERT_EQ(::utime(path.c_str(), &times), 0);
}

std::string Text(const QImage& image, const char* key) { return image.text(key).toStdString(); }

class ThumbnailCacheTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ::setenv("XDG_CACHE_HOME", folder_.Path("cache").c_str(), 1);
    photo_ = folder_.write("my photo #1.jpg", makeJpeg(filled(600, 400, kBlue), 95));
    setModified(photo_, kWhen);
    size_ = std::filesystem::file_size(photo_);
  }
  std::string large() const { return folder_.Path("cache/thumbnails/large"); }
  std::string uri() const { return "file://" + folder_.Path("my%20photo%20%231.jpg"); }
  // Named by the cache's own rule (its hand-computed check is in the os tests).
  std::string entryPath() const { return large() + "/" + os::thumbnailName(uri()); }
  // A red entry of the photo, written as another program would (Qt's writer, not ours).
  void writeEntry(const std::string& uri, time_t mtime, const char* size) const {
    std::filesystem::create_directories(large());
    QImage image(256, 171, QImage::Format_RGB32);
    image.fill(QColor(255, 0, 0));
    image.setText("Thumb::URI", QString::fromStdString(uri));
    image.setText("Thumb::MTime", QString::number(mtime));
    if (size) image.setText("Thumb::Size", size);
    ASSERT_TRUE(image.save(QString::fromStdString(entryPath()), "PNG"));
  }
  // The centre pixel of the photo decoded at `size` by a new run's pictures.
  uint32_t centre(gdi::Size size, bool on = true) {
    PictureServices services(15, 16u << 20, 1);
    services.thumbnails().configure(on, kCellPixels);
    const gdi::Picture picture = LoadPicture(services, photo_);
    const auto pixels = picture.Pixels(size);
    services.drain();
    return pixels ? pixels->pixel(pixels->Width() / 2, pixels->Height() / 2) : 0;
  }

  testsupport::TempFolder folder_;
  std::string photo_;
  uintmax_t size_ = 0;
};

TEST_F(ThumbnailCacheTest, OnlyAnEntryOfThisVeryFileServesAndTheRestAreRewritten) {
  const std::string size = std::to_string(size_);
  // The entry's URI, modification time and length (null: the key left out); whether it serves.
  const std::tuple<const char*, std::string, time_t, const char*, bool> cases[] = {
      {"valid", uri(), kWhen, size.c_str(), true},
      {"valid without a length", uri(), kWhen, nullptr, true},
      {"stale modification time", uri(), kWhen - 1, size.c_str(), false},
      {"another file under the same name", uri() + "x", kWhen, size.c_str(), false},
      {"another length", uri(), kWhen, "12", false},
  };
  for (const auto& [name, entryUri, mtime, length, served] : cases) {
    writeEntry(entryUri, mtime, length);
    EXPECT_TRUE(near(centre(kCellSize), served ? kRed : kBlue)) << name;
    const QImage after(QString::fromStdString(entryPath()));
    EXPECT_EQ(Text(after, "Thumb::URI"), uri()) << name;
    EXPECT_EQ(Text(after, "Thumb::MTime"), std::to_string(kWhen)) << name;
    EXPECT_EQ(near(after.pixel(128, 85), kRed), served) << name;
  }
}

TEST_F(ThumbnailCacheTest, OnlyTheCellsSizesComeFromAnEntry) {
  writeEntry(uri(), kWhen, nullptr);
  EXPECT_TRUE(near(centre(kCellSize), kRed));
  EXPECT_TRUE(near(centre({600, 400}), kBlue)) << "the viewer's natural size";
  EXPECT_TRUE(near(centre({300, 200}), kBlue)) << "larger than a cell";
  EXPECT_TRUE(near(centre(kCellSize, false), kBlue)) << "the cache turned off";
}

TEST_F(ThumbnailCacheTest, ACorruptEntryCostsADecode) {
  std::filesystem::create_directories(large());
  std::ofstream(entryPath()) << "\x89PNG\r\n\x1a\n broken";
  EXPECT_TRUE(near(centre(kCellSize), kBlue));
  EXPECT_EQ(Text(QImage(QString::fromStdString(entryPath())), "Thumb::URI"), uri());
}

TEST_F(ThumbnailCacheTest, OurEntryCarriesWhatOtherProgramsNeedAndOnlyWeMayReadIt) {
  EXPECT_TRUE(near(centre(kCellSize), kBlue));
  struct stat facts {};
  ASSERT_EQ(::stat(entryPath().c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777, 0600u);
  ASSERT_EQ(::stat(large().c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 0777, 0700u);
  const QImage entry(QString::fromStdString(entryPath()));
  EXPECT_EQ(entry.size(), QSize(256, 171)) << "the large size, the photo's proportion";
  EXPECT_EQ(Text(entry, "Thumb::URI"), uri());
  EXPECT_EQ(Text(entry, "Thumb::MTime"), "1700000000");
  EXPECT_EQ(Text(entry, "Thumb::Size"), std::to_string(size_));
  EXPECT_EQ(Text(entry, "Thumb::Image::Width"), "600");
  EXPECT_EQ(Text(entry, "Thumb::Image::Height"), "400");
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("cache/thumbnails/normal")));
}

TEST_F(ThumbnailCacheTest, ACacheThatCannotBeWrittenCostsNothing) {
  // A file where the cache's folder should be: nothing can go under it, even for root.
  std::filesystem::create_directories(folder_.Path("cache"));
  std::ofstream(folder_.Path("cache/thumbnails")) << "in the way";
  EXPECT_TRUE(near(centre(kCellSize), kBlue));
  EXPECT_TRUE(near(centre(kCellSize), kBlue));
}

TEST_F(ThumbnailCacheTest, AFailureEntryStopsTheNextDecodeOfTheSameFile) {
  const auto good = makePng(filled(600, 400, kBlue));
  auto broken = good;
  std::fill(broken.begin() + 100, broken.end() - 20, uint8_t{0});  // the pixel data, not the header
  folder_.write("my photo #1.jpg", broken);
  setModified(photo_, kWhen);
  EXPECT_EQ(centre(kCellSize), 0u) << "a file that can't be decoded";
  EXPECT_TRUE(std::filesystem::is_directory(folder_.Path("cache/thumbnails/fail")));
  // The same name, length and time, now decodable: the failure entry still stands for it.
  folder_.write("my photo #1.jpg", good);
  setModified(photo_, kWhen);
  EXPECT_EQ(centre(kCellSize), 0u);
  setModified(photo_, kWhen + 1);
  EXPECT_TRUE(near(centre(kCellSize), kBlue)) << "a changed file is tried again";
}

TEST_F(ThumbnailCacheTest, APictureInsideTheCacheGetsNoEntry) {
  std::filesystem::create_directories(folder_.Path("cache/thumbnails/normal"));
  photo_ =
      folder_.write("cache/thumbnails/normal/photo.jpg", makeJpeg(filled(600, 400, kBlue), 95));
  EXPECT_TRUE(near(centre(kCellSize), kBlue));
  EXPECT_FALSE(std::filesystem::exists(large()));
}

}  // namespace
}  // namespace vellumry
