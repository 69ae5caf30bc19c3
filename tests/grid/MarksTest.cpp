// Marking files and deleting them after the question: what the cell shows, what the question
// says, and what leaves the disk, tick by tick.
#include <QColor>
#include <QImage>
#include <fstream>
#include <map>
#include <sstream>

#include "ProgramFixture.h"

using namespace vellumry;
namespace fs = std::filesystem;

namespace {

std::string bytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::stringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

// The colour at pixel (x, y) of `picture` drawn at `w` by `h` pixels over black.
uint32_t pixelAt(const gdi::Picture& picture, int w, int h, int x, int y) {
  gdi::Surface shown(w, h, gdi::AlphaMode::kOpaque);
  picture.Render(shown, 0, 0, w, h, 0, picture.Height(), picture.Width(), -picture.Height());
  return shown.Pixel(x, y) & 0xFFFFFFu;
}

class MarksTest : public ProgramFixture {
 protected:
  void SetUp() override {
    ProgramFixture::SetUp();
    fs::create_directories(home / "ui");
    fs::copy_file("assets/ui/mark.gif", home / "ui" / "mark.gif");
  }
  // `count` small PNG files p0001.png ..., all alike, in the pictures folder.
  void pictureFiles(int count) {
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(QColor(0, 0, 255));
    const fs::path first = pictures / "p0001.png";
    ASSERT_TRUE(image.save(QString::fromStdString(first.string()), "PNG"));
    char name[32];
    for (int i = 2; i <= count; ++i) {
      std::snprintf(name, sizeof name, "p%04d.png", i);
      fs::copy_file(first, pictures / name);
    }
  }
  // Marks position `p`, or takes its mark back, through the grid's popup menu.
  void toggle(int p) {
    host.queueMenuPick("mDelselected");
    ASSERT_TRUE(tk::user::mouseDown(form1().Image1(p), tk::user::kRightButton));
  }
  // The names in the pictures folder with their bytes.
  std::map<std::string, std::string> disk() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(pictures))
      files[entry.path().filename().string()] = bytesOf(entry.path());
    return files;
  }
  void emptyToTheEnd() {
    while (form1().Timer2.Interval() != 0) wait(1);
  }
};

TEST_F(MarksTest, MarkDrawsTheCrossAndUndoBringsTheThumbnailBack) {
  pictureFiles(3);
  Form1& f = loaded();
  const gdi::Picture plain = f.Image123(2).Picture();
  const size_t beeps = std::count(host.shown.begin(), host.shown.end(), "beep");
  toggle(2);
  EXPECT_EQ(std::count(host.shown.begin(), host.shown.end(), "beep"), beeps + 1);
  EXPECT_EQ(program->grid.nDeleted(), 1);
  EXPECT_TRUE(f.Img1(2).Picture().SameObject(plain));
  EXPECT_EQ(pixelAt(f.Image123(2).Picture(), 60, 40, 30, 20), 0xE01010u);  // the cross
  EXPECT_EQ(pixelAt(f.Image123(2).Picture(), 60, 40, 58, 2), 0x0000FFu);   // the thumbnail
  f.File2.setListIndex(1);
  program->frmMenu().pDelcaption();
  EXPECT_EQ(program->frmMenu().mDelselected.Caption(), "Undo Delete Selected File");

  toggle(2);
  EXPECT_EQ(program->grid.nDeleted(), 0);
  EXPECT_TRUE(f.Image123(2).Picture().SameObject(plain));
  EXPECT_FALSE(f.Img1.exists(2));
  program->frmMenu().pDelcaption();
  EXPECT_EQ(program->frmMenu().mDelselected.Caption(), "Delete Selected File");
}

TEST_F(MarksTest, AMinimisingAfterAMarkingKeepsTheWholeScreen) {
  pictureFiles(2);
  Form1& f = loaded();
  const gdi::Picture screen =
      gdi::Picture::FromSurface(gdi::Surface(4, 3, gdi::AlphaMode::kOpaque));
  host.screenPicture = [&] { return screen; };
  toggle(1);
  const gdi::Picture crossed = f.Image123(1).Picture();
  program->pMinimise(ViewerState::kGrid);
  EXPECT_TRUE(program->Form0().Picture().SameObject(screen));
  EXPECT_TRUE(f.Image123(1).Picture().SameObject(crossed));
}

// The question counts the marks and selects the first. Stopped after any tick of the run, the
// disk holds every unmarked file as it was; before the answer, every file. A file that vanished
// before the run costs nothing.
TEST_F(MarksTest, EveryTickOfTheRunDeletesNothingButMarkedFiles) {
  pictureFiles(6);
  Form1& f = loaded();
  for (int p : {4, 2, 6}) toggle(p);
  fs::remove(pictures / "p0004.png");
  const auto before = disk();
  host.onShown = [&](const std::string& line) {
    if (!line.starts_with("msgbox")) return;
    EXPECT_TRUE(line.ends_with("previous  picture. 3 files ?\" -> 6")) << line;
    EXPECT_EQ(form1().File2.ListIndex(), 1);
    EXPECT_EQ(disk(), before);
  };
  host.queueAnswer(tk::mb::Yes);
  ASSERT_TRUE(tk::user::click(f.Image2));
  host.onShown = nullptr;
  while (f.Timer2.Interval() != 0) {
    wait(1);
    for (const auto& [name, bytes] : before) {
      if (name == "p0002.png" || name == "p0006.png") continue;
      EXPECT_EQ(bytesOf(pictures / name), bytes) << name;
    }
  }
  EXPECT_EQ(disk().size(), 3u);
  EXPECT_TRUE(fs::exists(root / "data/Trash/files/p0006.png"));
}

// Every file of a folder can go. Names are bytes, and a link goes itself, never its target.
TEST_F(MarksTest, AFolderEmptiedWithOddNamesAndLinks) {
  pictureFiles(1);
  fs::create_directories(root / "elsewhere");
  fs::copy_file(pictures / "p0001.png", root / "elsewhere/target.png");
  fs::rename(pictures / "p0001.png", pictures / "\xFF\xFE odd.png");
  fs::create_symlink(root / "elsewhere/target.png", pictures / "link.png");
  pictureFiles(1);
  Form1& f = loaded();
  ASSERT_EQ(f.File2.ListCount(), 3);
  for (int p = 1; p <= 3; ++p) toggle(p);
  host.queueAnswer(tk::mb::Yes);
  ASSERT_TRUE(tk::user::click(f.Image2));
  emptyToTheEnd();
  EXPECT_TRUE(disk().empty());
  EXPECT_EQ(f.File2.ListCount(), 0);
  EXPECT_TRUE(fs::is_regular_file(root / "elsewhere/target.png"));
}

TEST_F(MarksTest, PositionsBeyondAThousandShowMarkAndDelete) {
  pictureFiles(2500);
  Form1& f = loaded();
  EXPECT_EQ(program->grid.aPicW(2400), 900);  // 60 pixels
  EXPECT_EQ(program->grid.aPicH(2400), 600);
  toggle(2400);
  EXPECT_TRUE(f.Img1.exists(2400));
  host.queueAnswer(tk::mb::Yes);
  ASSERT_TRUE(tk::user::click(f.Image2));
  EXPECT_TRUE(host.shown.back().ends_with("previous  picture. file ?\" -> 6"));
  emptyToTheEnd();
  EXPECT_EQ(disk().size(), 2499u);
  EXPECT_FALSE(fs::exists(pictures / "p2400.png"));
}

}  // namespace
