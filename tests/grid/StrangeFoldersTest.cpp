// Folders as a real disk has them: odd names, links, files that change under the grid. Each
// costs at most its own cell, and nothing on disk changes.
#include <sys/stat.h>
#include <unistd.h>

#include <QImage>

#include "ProgramFixture.h"

using namespace vellumry;
namespace fs = std::filesystem;

namespace {

class StrangeFoldersTest : public ProgramFixture {
 protected:
  void picture(const fs::path& file) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(QColor(10, 120, 200));
    // Through a plain name: Qt would read the bytes of an odd name as text.
    const fs::path plain = root / "made.png";
    ASSERT_TRUE(image.save(QString::fromStdString(plain.string()), "PNG"));
    fs::rename(plain, file);
  }
  int position(const std::string& name) {
    for (int i = 0; i < form1().File2.ListCount(); ++i)
      if (form1().File2.List(i) == name) return i + 1;
    ADD_FAILURE() << "not listed: " << name;
    return 0;
  }
  bool shown(const std::string& name) { return program->grid.aPicW(position(name)) > 0; }
  // Starts and runs until the folder is listed, before its files are read.
  void listed() {
    start();
    while (form1().File2.ListCount() == 0) wait(12);
  }
  void loadToTheEnd() {
    while (form1().Timer1.Interval() != 0 || !form1().bLoaded) wait(12);
  }
};

TEST_F(StrangeFoldersTest, OddNamesAreListedShownAndLeftAsTheyAre) {
  const std::vector<std::string> names = {"new\nline.png", "-leading dash.png", "a*%*b.png",
                                          "caf\xE9 latin-1.png", "\xFF\xFE.png"};
  for (const std::string& name : names) picture(pictures / name);
  loaded();
  ASSERT_TRUE(form1().bLoaded);
  EXPECT_EQ(form1().nCount, static_cast<int>(names.size()));
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(shown(name));
    EXPECT_TRUE(fs::exists(pictures / name));
  }
}

TEST_F(StrangeFoldersTest, LinksArePicturesWhenTheyLeadToOne) {
  fs::create_directories(root / "elsewhere");
  picture(root / "elsewhere" / "real.png");
  fs::create_symlink(root / "elsewhere" / "real.png", pictures / "link.png");
  fs::create_symlink(root / "nowhere.png", pictures / "dangling.png");
  picture(pictures / "plain.png");
  loaded();
  ASSERT_TRUE(form1().bLoaded);
  EXPECT_TRUE(shown("link.png"));
  EXPECT_TRUE(shown("plain.png"));
  EXPECT_EQ(form1().File2.ListCount(), 2);  // a link to nothing is no file
  EXPECT_TRUE(fs::exists(root / "elsewhere" / "real.png"));
}

TEST_F(StrangeFoldersTest, AnUnreadableFileCostsItsCell) {
  if (::geteuid() == 0) GTEST_SKIP() << "root reads every file";
  picture(pictures / "a.png");
  picture(pictures / "b.png");
  ::chmod((pictures / "a.png").c_str(), 0);
  loaded();
  ASSERT_TRUE(form1().bLoaded);
  EXPECT_FALSE(shown("a.png"));
  EXPECT_TRUE(shown("b.png"));
}

TEST_F(StrangeFoldersTest, FilesThatChangeAfterTheListingCostTheirCells) {
  for (int i = 1; i <= 20; ++i) picture(pictures / ("p" + std::to_string(100 + i) + ".png"));
  listed();
  fs::remove(pictures / "p119.png");
  fs::resize_file(pictures / "p120.png", 20);
  loadToTheEnd();
  EXPECT_EQ(form1().nCount, 20);
  EXPECT_TRUE(shown("p118.png"));
  EXPECT_FALSE(shown("p119.png"));
  EXPECT_FALSE(shown("p120.png"));
}

TEST_F(StrangeFoldersTest, AFolderThatVanishesWhileItLoadsEndsTheLoad) {
  for (int i = 1; i <= 20; ++i) picture(pictures / ("p" + std::to_string(100 + i) + ".png"));
  listed();
  fs::remove_all(pictures);
  loadToTheEnd();
  EXPECT_TRUE(form1().bLoaded);
  for (int i = 1; i <= form1().nCount; ++i) EXPECT_EQ(program->grid.aPicW(i), 0);
}

}  // namespace
