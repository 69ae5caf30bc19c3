// Adding, editing, removing, sorting and selecting links.
#include "LinksFixture.h"

using namespace vellumry;

namespace {

using Operations = LinksFixture;

TEST_F(Operations, AddRefusesWithTheDialogOpenAndNothingChanged) {
  const std::string summer = folder("summer"), other = folder("other");
  writeList0("summer*%*" + summer + "*%*");
  Form1& f = started();
  struct Case {
    std::string typed, target, message;
  };
  const std::vector<Case> cases = {
      {"", other, "msgbox 0 \"\" \"Please type a Link Name.\" -> 1"},
      {"   ", other, "msgbox 0 \"\" \"Please type a Link Name.\" -> 1"},
      {"SUMMER", other,
       "msgbox 0 \"\" \"The name: summer  already exist! Please type a different name.\" -> 1"},
      {"  Summer ", other,
       "msgbox 0 \"\" \"The name: summer  already exist! Please type a different name.\" -> 1"},
      {"Holiday", summer + "  ",
       "msgbox 0 \"\" \"The name: summer with the same link : " + summer +
           " (link alredy exist)!\" -> 1"},
      {"Holi*%*day", other, "msgbox 0 \"\" \"Please type a Link Name without *%*.\" -> 1"},
  };
  for (const Case& c : cases) {
    program->runtime.dispatch([&] { f.File2.setPath(other); });
    program->runtime.dispatch([&] { f.btnADD_Click(); });
    dialog().Label(1).setCaption(c.target);
    tk::user::type(dialog().Text1, c.typed);
    shownSince();
    tk::user::click(dialog().btn(0));
    EXPECT_EQ(shownSince(), std::vector<std::string>{c.message}) << c.typed;
    EXPECT_TRUE(dialog().Visible()) << c.typed;
    EXPECT_EQ(dialog().Text1.Text(), c.typed);
    EXPECT_FALSE(f.Enabled());
    EXPECT_EQ(f.List(0).ListCount(), 1);
    tk::user::click(dialog().btn(1));
  }
  EXPECT_EQ(list0(), "summer*%*" + summer + "*%*");
}

TEST_F(Operations, AFolderThatIsALinkInAnyCaseNeverOpensTheDialog) {
  const std::string lower = folder("pics"), upper = folder("PICS");
  writeList0("My pics*%*" + lower + "*%*");
  Form1& f = started();
  program->runtime.dispatch([&] { f.File2.setPath(upper); });
  shownSince();
  program->runtime.dispatch([&] { f.btnADD_Click(); });
  EXPECT_EQ(shownSince(), std::vector<std::string>{"msgbox 64 \"\" \"The name: \\r\\nMy "
                                                   "pics\\r\\n\\r\\n is with the same link : "
                                                   "\\r\\n" +
                                                   lower + " !\" -> 1"});
  EXPECT_FALSE(program->frmEdit.loaded() && dialog().Visible());
  EXPECT_TRUE(f.Enabled());
}

TEST_F(Operations, AFolderWhosePathHoldsTheSeparatorCantBeALink) {
  const std::string odd = folder("a*%*b");
  Form1& f = started();
  program->runtime.dispatch([&] { f.File2.setPath(odd); });
  shownSince();
  program->runtime.dispatch([&] { f.btnADD_Click(); });
  EXPECT_EQ(shownSince(),
            std::vector<std::string>{
                "msgbox 0 \"\" \"This folder can't be a link: its path holds *%*.\" -> 1"});
  EXPECT_FALSE(program->frmEdit.loaded());
  EXPECT_EQ(list0(), "missing");
}

TEST_F(Operations, ThePromptOffersTheFolderNameByTheSetting) {
  struct Case {
    const char* lnvar;
    std::string path, offered;
  };
  const std::string named = folder("my pics 2");
  for (const Case& c : {Case{"1", named, "my pics 2"}, Case{"0", named, ""}, Case{"1", "/", ""},
                        Case{"?", named, "my pics 2"}}) {
    setting("lnvar", c.lnvar);
    Form1& f = started();
    program->runtime.dispatch([&] { f.File2.setPath(c.path); });
    program->runtime.dispatch([&] { f.btnADD_Click(); });
    EXPECT_EQ(dialog().Text1.Text(), c.offered) << c.lnvar << " " << c.path;
    EXPECT_EQ(dialog().Label(1).Caption(), c.path);
    EXPECT_EQ(dialog().Text1.SelLength(), static_cast<int>(c.offered.size()));
    program.reset();
  }
}

TEST_F(Operations, AnAddedNameIsTrimmedSelectedAndSaved) {
  const std::string a = folder("a");
  Form1& f = started();
  addLink(a, "  Holiday 2024  ");
  EXPECT_EQ(items(f.List(0)), std::vector<std::string>{"Holiday 2024"});
  EXPECT_EQ(f.List(0).ListIndex(), 0);
  EXPECT_EQ(f.List(1).ListIndex(), 0);
  EXPECT_FALSE(dialog().Visible());
  EXPECT_TRUE(f.Enabled());
  EXPECT_EQ(list0(), "Holiday 2024*%*" + a + "*%*");
}

TEST_F(Operations, EditKeepsItsOwnNameRefusesAnotherAndGoesLast) {
  const std::string a = folder("a"), b = folder("b"), c = folder("c");
  writeList0("summer*%*" + a + "*%*winter*%*" + b + "*%*autumn*%*" + c + "*%*");
  Form1& f = started();
  auto edit = [&](int index, const std::string& typed) {
    f.List(0).setListIndex(index);
    program->runtime.dispatch([&] { f.btnEDIT_Click(); });
    tk::user::type(dialog().Text1, typed);
    shownSince();
    tk::user::click(dialog().btn(0));
    return shownSince();
  };
  EXPECT_EQ(edit(1, "SUMMER"), std::vector<std::string>{
                                   "msgbox 64 \"\" \"The name: SUMMER\\r\\nalredy exist!\" -> 1"});
  EXPECT_TRUE(dialog().Visible());
  tk::user::click(dialog().btn(1));
  EXPECT_EQ(edit(1, "  "),
            std::vector<std::string>{"msgbox 0 \"\" \"Please type a LinkName!\" -> 1"});
  EXPECT_EQ(dialog().Text1.Text(), "");
  tk::user::click(dialog().btn(1));
  EXPECT_EQ(list0(), "summer*%*" + a + "*%*winter*%*" + b + "*%*autumn*%*" + c + "*%*");

  EXPECT_TRUE(edit(0, "SUMMER ").empty());  // only the case of its own name
  EXPECT_EQ(items(f.List(0)), (std::vector<std::string>{"winter", "autumn", "SUMMER"}));
  EXPECT_EQ(items(f.List(1)), (std::vector<std::string>{b, c, a}));
  EXPECT_EQ(f.List(1).ListIndex(), 2);
  EXPECT_EQ(list0(), "winter*%*" + b + "*%*autumn*%*" + c + "*%*SUMMER*%*" + a + "*%*");
}

TEST_F(Operations, EditAndRemoveWantASelection) {
  writeList0("a*%*/a*%*");
  Form1& f = started();
  for (auto [routine, message] :
       {std::pair<void (Links::*)(), std::string>{&Links::btnEDIT_Click,
                                                  "Please select a LinkName for edition!"},
        std::pair<void (Links::*)(), std::string>{&Links::btnREMOVE_Click,
                                                  "Plese select a Link Name (click over it)!"}}) {
    shownSince();
    program->runtime.dispatch([&] { (f.*routine)(); });
    EXPECT_EQ(shownSince(), std::vector<std::string>{"msgbox 0 \"\" \"" + message + "\" -> 1"});
  }
  EXPECT_EQ(f.List(0).ListCount(), 1);
}

TEST_F(Operations, RemovingTheLastLinkByTheMenuHidesThePanel) {
  writeList0("a*%*/a*%*");
  Form1& f = started();
  wait(500);  // the start shows the panel and loads the grid
  while (f.Timer1.Interval() != 0) wait(12);
  ASSERT_TRUE(f.List(0).Visible());
  tk::user::select(f.List(0), 0);
  host.queueMenuPick("mnuRllist");
  tk::user::mouseDown(f.List(0), tk::user::kRightButton);
  EXPECT_EQ(list0(), "*%*");
  EXPECT_FALSE(f.List(0).Visible());
  EXPECT_EQ(program->frmMenu().mnuSllist.Caption(), "Show Link List");
}

TEST_F(Operations, SortsByTheBytesOfTheNamesAndKeepsTheSelection) {
  writeList0("ant*%*/ant*%*Zoo*%*/zoo*%* bee*%*/bee *%*");
  Form1& f = started();
  f.List(0).setListIndex(0);
  program->runtime.dispatch([&] { f.btnAz_Click(); });
  EXPECT_EQ(items(f.List(0)), (std::vector<std::string>{"Zoo", "ant", "bee"}));
  EXPECT_EQ(items(f.List(1)), (std::vector<std::string>{"/zoo", "/ant", "/bee"}));
  EXPECT_EQ(f.List(0).ListIndex(), 1);
  EXPECT_EQ(f.List(1).ListIndex(), 1);
  EXPECT_EQ(list0(), "Zoo*%*/zoo*%*ant*%*/ant*%*bee*%*/bee*%*");
  program->runtime.dispatch([&] { f.btnZa_Click(); });
  EXPECT_EQ(items(f.List(0)), (std::vector<std::string>{"bee", "ant", "Zoo"}));
  EXPECT_EQ(f.List(0).Text(), "ant");
  EXPECT_FALSE(program->links.findDone());
  EXPECT_EQ(list0(), "bee*%*/bee*%*ant*%*/ant*%*Zoo*%*/zoo*%*");
}

TEST_F(Operations, AnEmptyListSortsToAnEmptyFile) {
  Form1& f = started();
  program->runtime.dispatch([&] { f.btnAz_Click(); });
  EXPECT_EQ(f.List(0).ListCount(), 0);
  EXPECT_EQ(list0(), "*%*");
}

TEST_F(Operations, AClickWithMarkedFilesAsksFirstAndSelectsNothing) {
  writeList0("a*%*/a*%*");
  Form1& f = started();
  f.List(0).setVisible(true);
  program->fields.set("nDeleted", {}, 1.0);
  host.queueAnswer(tk::mb::Cancel);
  shownSince();
  tk::user::select(f.List(0), 0);
  const auto shown = shownSince();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_TRUE(shown[0].starts_with("msgbox 35 ")) << shown[0];
  EXPECT_EQ(f.List(0).ListIndex(), -1);
  EXPECT_EQ(f.List(1).ListIndex(), -1);
  EXPECT_EQ(f.nAfterClear, 0);
  program->fields.set("nDeleted", {}, 0.0);
  tk::user::select(f.List(0), 0);
  EXPECT_EQ(f.List(1).ListIndex(), 0);
}

TEST_F(Operations, ADoubleClickOnTheLinkOfTheFolderShownDoesNothing) {
  writeList0("here*%*" + pictures.string() + "*%*");
  Form1& f = started();
  f.List(0).setVisible(true);
  tk::user::select(f.List(0), 0);
  tk::user::dblClick(f.List(0));
  EXPECT_FALSE(f.bSwitching);
  EXPECT_TRUE(shownSince().empty());
}

}  // namespace
