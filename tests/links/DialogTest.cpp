// The link dialog: its four modes, its ways out, its outline and its drag.
#include "LinksFixture.h"

using namespace vellumry;

namespace {

using Dialog = LinksFixture;

TEST_F(Dialog, EachModeSetsItsButtonHeightHitsAndOutline) {
  writeList0("a*%*/a*%*");
  Form1& f = started();
  struct Case {
    void (Links::*open)();
    const char* mode;
    const char* caption;
    double height, buttonTop;
    bool hits;
    const char* region;  // pixels at 15 twips a pixel
  };
  const std::vector<Case> cases = {
      {&Links::btnADD_Click, "add", "Add", 1380, 840, false, "286 92 40 40"},
      {&Links::btnEDIT_Click, "edit", "Edit", 1380, 840, false, "286 92 40 40"},
      {&Links::btnFIND_Click, "find", "Find", 3390, 2760, true, "286 226 40 40"},
      {&Links::mnuFimg_Click, "find2", "Find", 3390, 2760, true, "286 226 40 40"},
  };
  for (const Case& c : cases) {
    f.List(0).setListIndex(0);
    program->runtime.dispatch([&] { (f.*c.open)(); });
    frmEdit& d = dialog();
    EXPECT_EQ(program->links.linkMode(), c.mode);
    EXPECT_TRUE(d.Visible()) << c.mode;
    EXPECT_FALSE(f.Enabled()) << c.mode;
    EXPECT_EQ(d.btn(0).Caption(), c.caption) << c.mode;
    EXPECT_EQ(d.Height(), c.height) << c.mode;
    EXPECT_EQ(d.List(2).Visible(), c.hits) << c.mode;
    EXPECT_EQ(d.btn(0).Top(), c.buttonTop) << c.mode;
    EXPECT_EQ(d.btn(1).Top(), c.buttonTop) << c.mode;
    EXPECT_EQ(tk::toText(d.get("Region")), c.region) << c.mode;
    EXPECT_TRUE(d.TopMost()) << c.mode;
    EXPECT_EQ(d.Left(), (15360 - 4290) / 2) << c.mode;
    EXPECT_EQ(d.Top(), (11520 - c.height) / 2) << c.mode;
    EXPECT_EQ(d.ActiveControl(), &d.Text1) << c.mode;
    tk::user::click(d.btn(1));
    EXPECT_FALSE(d.Visible()) << c.mode;
    EXPECT_TRUE(f.Enabled()) << c.mode;
  }
}

TEST_F(Dialog, CancelRestoresTheLabelWithoutItsColonAndKeepsTheText) {
  Form1& f = started();
  program->runtime.dispatch([&] { f.btnFIND_Click(); });
  EXPECT_EQ(dialog().Label(0).Caption(), "Link Name:");
  tk::user::type(dialog().Text1, "holiday");
  tk::user::click(dialog().btn(1));
  EXPECT_EQ(dialog().Label(0).Caption(), "Link Name");
  program->runtime.dispatch([&] { f.mnuFimg_Click(); });
  EXPECT_EQ(dialog().Text1.Text(), "holiday");  // offered again, selected
  EXPECT_EQ(dialog().Text1.SelStart(), 0);
  EXPECT_EQ(dialog().Text1.SelLength(), 7);
  tk::user::click(dialog().btn(1));
  EXPECT_EQ(dialog().Label(0).Caption(), "Link Name");
}

TEST_F(Dialog, ADoubleClickSelectsTheWholeTextInCharacters) {
  Form1& f = started();
  program->runtime.dispatch([&] { f.btnFIND_Click(); });
  tk::user::type(dialog().Text1, " Été ");
  dialog().Text1.setSelLength(0);
  tk::user::dblClick(dialog().Text1);
  EXPECT_EQ(dialog().Text1.SelStart(), 0);
  EXPECT_EQ(dialog().Text1.SelLength(), 5);
}

TEST_F(Dialog, ADroppedWindowSnapsBackOntoTheScreen) {
  Form1& f = started();
  program->runtime.dispatch([&] { f.btnADD_Click(); });
  frmEdit& d = dialog();
  // Screen 15360 by 11520 twips; the dialog 4290 by 1380.
  struct Case {
    const char* what;
    double left, top, snappedLeft, snappedTop;
  };
  const std::vector<Case> cases = {
      {"inside", 3000, 2000, 3000, 2000},
      {"past the right edge", 14000, 2000, 15360 - 4290, 2000},
      {"past the left edge", -900, 2000, 0, 2000},
      {"above the top", 3000, -700, 3000, 0},
      {"low, into the task bar", 3000, 10500, 3000, 11520 - 1380 - 450},
      {"off a corner", 16000, 12000, 15360 - 4290, 11520 - 1380 - 450},
  };
  for (const Case& c : cases) {
    tk::user::mouseDown(d, tk::user::kLeftButton, 0, 100, 200);
    EXPECT_EQ(d.dragX, 100);
    tk::user::mouseMove(d, tk::user::kLeftButton, 0, c.left - d.Left() + 100,
                        c.top - d.Top() + 200);
    EXPECT_EQ(d.Left(), c.left) << c.what;  // dragging itself isn't limited
    EXPECT_EQ(d.Top(), c.top) << c.what;
    tk::user::mouseUp(d, tk::user::kLeftButton, 0, 100, 200);
    EXPECT_EQ(d.Left(), c.snappedLeft) << c.what;
    EXPECT_EQ(d.Top(), c.snappedTop) << c.what;
  }
  tk::user::mouseMove(d, 0, 0, 3000, 3000);  // no button: no drag
  EXPECT_EQ(d.Left(), 15360 - 4290);
}

}  // namespace
