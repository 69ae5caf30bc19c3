// The grid's phases and the caption of a folder.
#include "ProgramFixture.h"

using namespace vellumry;

using GridModelTest = ProgramFixture;

namespace {
// A row of the table of phases.
void expectPhase(Form1& f, const char* phase, bool loaded, int timer1, int timer2, bool enabled) {
  SCOPED_TRACE(phase);
  EXPECT_EQ(f.bLoaded, loaded);
  EXPECT_EQ(f.Timer1.Interval(), timer1);
  EXPECT_EQ(f.Timer2.Interval(), timer2);
  EXPECT_EQ(f.Enabled(), enabled);
}
}  // namespace

TEST_F(GridModelTest, PhasesWithTheirFlags) {
  makeFiles(30);
  start();
  Form1& f = form1();
  wait(500);
  expectPhase(f, "loading", false, 12, 0, false);
  wait(12 * 29);
  EXPECT_FALSE(f.bLoaded);  // until the last tick
  wait(12);
  expectPhase(f, "loaded", true, 0, 0, true);
  EXPECT_TRUE(f.Image2.Visible());
  EXPECT_FALSE(f.Image3.Visible());
  EXPECT_EQ(f.File2.ListIndex(), 29);  // the selection stands on the last file
  ASSERT_TRUE(tk::user::click(f.Image2));
  wait(1);
  // One position a millisecond, from the highest down.
  expectPhase(f, "emptying", true, 0, 1, false);
  EXPECT_FALSE(f.Image1.exists(30));
  EXPECT_TRUE(f.Image1.exists(29));
  wait(29);
  // The same folder, waiting for a click.
  expectPhase(f, "empty", false, 0, 0, true);
  EXPECT_EQ(f.Image1.Count(), 1u);
  EXPECT_EQ(f.nLoad, 1);
  EXPECT_EQ(f.File2.ListIndex(), 0);
  EXPECT_EQ(f.File2.Path(), pictures.string());
  EXPECT_FALSE(f.VScroll1.Visible());
  EXPECT_FALSE(f.Image2.Visible());
  wait(1000);
  EXPECT_EQ(f.Timer1.Interval(), 0);  // nothing loads by itself again
}

TEST_F(GridModelTest, APictureNamedAtTheStartIsSelectedOnceLoaded) {
  makeFiles(30);
  start();
  program->places.startFile = "img7.jpg";  // as the command line names it
  wait(500 + 12 * 30);
  Form1& f = form1();
  ASSERT_TRUE(f.bLoaded);
  EXPECT_EQ(f.File2.FileName(), "img7.jpg");
  EXPECT_TRUE(f.Frame3(0).Visible());
  EXPECT_EQ(f.nSel, f.File2.ListIndex() + 1);
  EXPECT_TRUE(program->places.startFile.empty());  // only once
}

// The folder's own name, blanks kept, or a root's "Vellumry"; a link's name when the trimmed path
// equals a target as it stands, in any case.
TEST_F(GridModelTest, CaptionOfAFolderOrOfItsLink) {
  Form1& f = loaded();  // the empty pictures folder; its question took No
  const auto spaced = root / "  my  holiday pics ";
  std::filesystem::create_directories(spaced);
  f.File2.setPath(spaced.string());
  f.pCaption();
  EXPECT_EQ(program->Form0().Caption(), "  my  holiday pics ");
  f.File2.setPath("/");
  f.pCaption();
  EXPECT_EQ(program->Form0().Caption(), "Vellumry");
  f.File2.setPath(pictures.string());
  f.List(0).AddItem("Untrimmed");
  f.List(1).AddItem(pictures.string() + " ");
  f.List(0).AddItem("Holidays");
  f.List(1).AddItem(tk::toUpper(pictures.string()));
  f.pCaption();
  EXPECT_EQ(program->Form0().Caption(), "Holidays");
  EXPECT_EQ(f.List(0).ListIndex(), 1);
  EXPECT_EQ(f.List(1).ListIndex(), 1);
  EXPECT_EQ(program->links.iCurLink(), 1);
}
