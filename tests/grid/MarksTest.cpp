// Marking files and deleting them after the question: what the cell shows, what the question
// says, and what leaves the disk, tick by tick.
#include <fstream>
#include <map>
#include <set>

#include "GridFixture.h"
#include "platform/os/FileSystem.h"

using namespace vellumry;

namespace {

// The colour at pixel (x, y) of `picture` drawn at `w` by `h` pixels over black.
uint32_t pixelAt(const gdi::Picture& picture, int w, int h, int x, int y) {
  gdi::Surface shown(w, h, gdi::AlphaMode::kOpaque);
  picture.Render(shown, 0, 0, w, h, 0, picture.Height(), picture.Width(), -picture.Height());
  return shown.pixel(x, y) & 0xFFFFFFu;
}

class MarksTest : public GridFixture {
 protected:
  // Marks position `p`, or takes its mark back, through the grid's popup menu.
  void toggle(int p) {
    host.queueMenuPick("mDelselected");
    ASSERT_TRUE(tk::user::mouseDown(form1().Image1(p), tk::user::kRightButton));
  }
  // The names in the pictures folder with their bytes.
  auto disk() const {
    std::map<std::string, std::optional<std::vector<uint8_t>>> files;
    for (const auto& entry : fs::directory_iterator(pictures))
      files[entry.path().filename().string()] = os::readWholeFile(entry.path().string());
    return files;
  }
};

// The cross is drawn into the thumbnail by a capture of its own: a later minimising keeps the
// whole screen, and the cell its cross.
TEST_F(MarksTest, AMarkDrawsTheCrossAndUndoBringsTheThumbnailBack) {
  fs::create_directories(home / "ui");  // where the mark is found
  fs::copy_file("assets/ui/mark.gif", home / "ui" / "mark.gif");
  for (const char* name : {"a.png", "b.png", "c.png"}) picture(pictures / name, 60, 40, Qt::blue);
  Form1& f = loaded();
  const gdi::Picture screen =
      gdi::Picture::fromSurface(gdi::Surface(4, 3, gdi::AlphaMode::kOpaque));
  host.drawScreen = [&] { return screen; };
  const gdi::Picture plain = f.Image123(2).Picture();
  toggle(2);
  EXPECT_TRUE(f.Img1(2).Picture().sameObject(plain));
  EXPECT_EQ(pixelAt(f.Image123(2).Picture(), 60, 40, 30, 20), 0xE01010u);  // the cross
  EXPECT_EQ(pixelAt(f.Image123(2).Picture(), 60, 40, 58, 2), 0x0000FFu);   // the thumbnail
  program->frmMenu().pDelcaption();
  EXPECT_EQ(program->frmMenu().mDelselected.Caption(), "Undo Delete Selected File");
  const gdi::Picture crossed = f.Image123(2).Picture();
  program->pMinimise(ViewerState::kGrid);
  EXPECT_TRUE(program->Form0().Picture().sameObject(screen));
  EXPECT_TRUE(f.Image123(2).Picture().sameObject(crossed));
  program->Form0().setWindowState(0);

  toggle(2);
  EXPECT_TRUE(f.Image123(2).Picture().sameObject(plain));
  EXPECT_FALSE(f.Img1.exists(2));
  program->frmMenu().pDelcaption();
  EXPECT_EQ(program->frmMenu().mDelselected.Caption(), "Delete Selected File");
}

// The question counts the marks and selects the first. Stopped after any tick of the run, the
// disk holds every unmarked file as it was; before the answer, every file. A file that vanished
// before the run costs nothing. Names are bytes; a link shows its target but goes itself, and a
// link to nothing is no file.
TEST_F(MarksTest, EveryTickOfTheRunDeletesNothingButMarkedFiles) {
  for (const char* name : {"new\nline.png", "-leading dash.png", "a*%*b.png", "caf\xE9 latin-1.png",
                           "p2.png", "p4.png", "\xFF\xFE.png"})
    picture(pictures / name);
  picture(root / "target.png");
  fs::create_symlink(root / "target.png", pictures / "link.png");
  fs::create_symlink(root / "nowhere.png", pictures / "dangling.png");
  Form1& f = loaded();
  ASSERT_EQ(f.nCount, 8);
  for (int i = 1; i <= 8; ++i) EXPECT_GT(program->grid.aPicW(i), 0) << f.File2.List(i - 1);
  const std::set<std::string> marked = {"p2.png", "p4.png", "\xFF\xFE.png", "link.png"};
  int first = 8;
  for (const std::string& name : marked) {
    toggle(position(name));
    first = std::min(first, position(name) - 1);
  }
  fs::remove(pictures / "p4.png");
  const auto before = disk();
  host.onShown = [&](const std::string& line) {
    if (!line.starts_with("msgbox")) return;
    EXPECT_TRUE(line.ends_with("previous  picture. 4 files ?\" -> 6")) << line;
    EXPECT_EQ(form1().File2.ListIndex(), first);
    EXPECT_EQ(disk(), before);
  };
  host.queueAnswer(tk::mb::Yes);
  ASSERT_TRUE(tk::user::click(f.Image2));
  host.onShown = nullptr;
  waitUntil(
      [&] {
        for (const auto& [name, bytes] : before)
          EXPECT_TRUE(marked.contains(name) ||
                      os::readWholeFile((pictures / name).string()) == bytes)
              << name;
        return f.Timer2.Interval() == 0;
      },
      1);
  EXPECT_EQ(disk().size(), 5u);
  EXPECT_EQ(f.File2.ListCount(), 4);  // the list was read again: the program stays
  EXPECT_TRUE(fs::exists(root / "data/Trash/files/p2.png"));
  EXPECT_TRUE(fs::is_regular_file(root / "target.png"));
}

// Nothing holds a folder to a thousand files: the loading runs to its end, and positions beyond
// the tables show, mark and delete as any other.
TEST_F(MarksTest, PositionsBeyondAThousandLoadMarkAndDelete) {
  const auto name = [](int i) { return "p" + std::to_string(10000 + i) + ".png"; };
  picture(pictures / name(1), 60, 40);
  for (int i = 2; i <= 2500; ++i) fs::copy_file(pictures / name(1), pictures / name(i));
  Form1& f = loaded();
  EXPECT_EQ(f.VScroll1.Max(), 496);  // 500 rows, 4 on the page
  EXPECT_EQ(f.Image1(2500).Top(), 150 + 3 * 2805);
  EXPECT_EQ(program->grid.aPicW(2400), 900);  // 60 pixels
  EXPECT_EQ(program->grid.aPicH(2400), 600);
  toggle(2400);
  EXPECT_TRUE(f.Img1.exists(2400));
  host.queueAnswer(tk::mb::Yes);
  ASSERT_TRUE(tk::user::click(f.Image2));
  EXPECT_TRUE(host.shown.back().ends_with("previous  picture. file ?\" -> 6"));
  waitUntil([&] { return f.Timer2.Interval() == 0; }, 1);
  EXPECT_EQ(disk().size(), 2499u);
  EXPECT_FALSE(fs::exists(pictures / name(2400)));
}

// A folder of more files than a 16-bit count holds: it lists, the last position marks, and the
// mark's file goes after Yes.
TEST_F(MarksTest, AFolderOf40000FilesListsMarksItsLastAndDeletesIt) {
  constexpr int kFiles = 40000;
  for (int i = 1; i <= kFiles; ++i)
    std::ofstream(pictures / ("f" + std::to_string(100000 + i) + ".jpg")) << "x";
  start();
  Form1& f = form1();
  waitUntil([&] { return f.nCount != 0; });
  EXPECT_EQ(f.nCount, kFiles);
  f.VScroll1.setValue(f.VScroll1.Max());  // to the end
  waitUntil([&] { return f.Image1.exists(kFiles) && f.Image1(kFiles).Visible(); });
  toggle(kFiles);
  EXPECT_EQ(program->grid.nDeleted(), 1);
  host.queueAnswer(tk::mb::Yes);
  ASSERT_TRUE(tk::user::click(f.Image2));
  waitUntil([&] { return f.Timer2.Interval() == 0; }, 1);
  EXPECT_FALSE(fs::exists(pictures / ("f" + std::to_string(100000 + kFiles) + ".jpg")));
  EXPECT_TRUE(fs::exists(pictures / ("f" + std::to_string(100000 + kFiles - 1) + ".jpg")));
}

}  // namespace
