// Save Image As: the dialog of the window on top, the copy of the bytes, and the way back.
#include <fstream>
#include <sstream>

#include "ProgramFixture.h"
#include "tools/Saveimg.h"

using namespace vellumry;

namespace {

std::string bytesOf(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

class Saveimg : public ProgramFixture {
 protected:
  void SetUp() override {
    ProgramFixture::SetUp();
    std::ofstream(pictures / "a.tif", std::ios::binary) << std::string("II*\0pixels", 10);
    source = (pictures / "a.tif").string();
    target = (root / "copy.tif").string();
    start();
  }
  std::string source, target;
};

TEST(SaveExtension, TheLastFourCharactersWithoutDots) {
  struct Case {
    const char* path;
    const char* ext;
  };
  for (const Case& c :
       {Case{"/p/a.tif", "tif"}, Case{"/p/b.jpeg", "jpeg"}, Case{"/p/C.JPG", "JPG"},
        Case{"/p/photo", "hoto"}, Case{"/p/été.png", "png"}, Case{"/p/x.é.ab", "éab"}})
    EXPECT_EQ(saveExtension(c.path), c.ext) << c.path;
}

TEST_F(Saveimg, CopiesTheBytesThroughTheMainWindowsDialog) {
  host.queueSaveFile(target);
  pSaveimg(*program, source);
  EXPECT_EQ(bytesOf(target), bytesOf(source));
  const tk::CommonDialog& cd = form1().CD;
  EXPECT_EQ(cd.Filter, "Files (*.tif) |*.tif");
  EXPECT_EQ(cd.DefaultExt, "tif");
  EXPECT_EQ(cd.DialogTitle, "Save Image As");
  EXPECT_EQ(cd.Flags, 2050);
  EXPECT_FALSE(cd.CancelError);
  EXPECT_EQ(cd.FileName, "");  // the next call starts clean
  EXPECT_TRUE(form1().Timer5.Enabled());
}

TEST_F(Saveimg, NamesThatAreNoTextAreCopiedAsTheyAre) {
  const auto odd = pictures / "caf\xE9.tif", copy = root / "copie \xFF.tif";
  std::filesystem::copy_file(source, odd);
  host.queueSaveFile(copy.string());
  pSaveimg(*program, odd.string());
  EXPECT_EQ(bytesOf(copy), bytesOf(source));
}

TEST_F(Saveimg, AConfirmedNameThatExistsIsOverwritten) {
  std::ofstream(target) << "older and longer bytes";
  host.queueSaveFile(target);
  pSaveimg(*program, source);
  EXPECT_EQ(bytesOf(target), bytesOf(source));
}

TEST_F(Saveimg, ACancelOrAVanishedSourceWritesNothing) {
  host.queueSaveFile(std::nullopt);
  pSaveimg(*program, source);
  EXPECT_FALSE(std::filesystem::exists(target));
  std::filesystem::remove(source);
  host.queueSaveFile(target);
  host.shown.clear();
  pSaveimg(*program, source);
  EXPECT_FALSE(std::filesystem::exists(target));
  ASSERT_EQ(host.shown.size(), 2u);
  EXPECT_EQ(host.shown[1], "msgbox 48 \"Source File Missing\" \"" + source +
                               " does not exist!\" -> 1 (no answer queued)");
}

TEST_F(Saveimg, TheViewersMenuUsesTheViewersDialogAndGivesItTheKeysBack) {
  form1().Timer5.setEnabled(false);
  program->runtime.dispatch([&] { form1().File2.setListIndex(0); });
  host.queueSaveFile(target);
  program->runtime.dispatch([&] { program->frmMenu().mnuSaveimg22_Click(); });
  EXPECT_EQ(program->viewer.ViewerUp(), ViewerState::kViewer);
  EXPECT_EQ(bytesOf(target), bytesOf(source));
  EXPECT_EQ(program->Form2().CD.Filter, "Files (*.tif) |*.tif");
  EXPECT_EQ(form1().CD.Filter, "");
  EXPECT_TRUE(program->Form2().Timer3.Enabled());
  EXPECT_FALSE(form1().Timer5.Enabled());
}

}  // namespace
