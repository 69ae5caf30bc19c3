// The link list between runs: loaded once at the start, written whole after every change.
#include "LinksFixture.h"

using namespace vellumry;

namespace {

using Store = LinksFixture;

TEST_F(Store, TheFileLoadsAsItStandsAndTheStartShowsThePanelWhenAsked) {
  const std::string text = " x *%*/gone/away*%**%*" + folder("a") + "*%*";
  struct Case {
    const char* showll;
    bool panel;
  };
  for (const Case& c : {Case{"1", true}, Case{"0", false}}) {
    writeList0(text);
    setting("showll", c.showll);
    Form1& f = started();
    EXPECT_EQ(items(f.List(0)), (std::vector<std::string>{" x ", ""}));
    EXPECT_EQ(items(f.List(1)), (std::vector<std::string>{"/gone/away", (root / "a").string()}));
    wait(500);
    EXPECT_EQ(f.List(0).Visible(), c.panel) << c.showll;
    program.reset();
  }
  EXPECT_EQ(list0(), text);  // loading never writes
}

TEST_F(Store, AVanishedFolderLoadsAndIsReportedWhenOpened) {
  writeList0("Old*%*/gone/away*%*");
  Form1& f = started();
  ASSERT_EQ(f.List(0).ListCount(), 1);
  f.List(0).setVisible(true);
  tk::user::select(f.List(0), 0);
  shownSince();
  tk::user::dblClick(f.List(0));
  EXPECT_EQ(shownSince(),
            (std::vector<std::string>{
                "msgbox 64 \"Invalid Path\" \"The Link does not exist! \\r\\n/gone/"
                "away\\r\\n\\r\\n You must remove the name of the link: Old\" -> 1"}));
  EXPECT_EQ(f.List(0).ListCount(), 1);
  EXPECT_EQ(f.File2.Path(), pictures.string());
}

TEST_F(Store, AFileThatCantBeReadOrWrittenLeavesTheListsUsable) {
  // A folder in the file's place can be neither read nor replaced.
  std::filesystem::create_directory(listFile());
  Form1& f = started();
  EXPECT_EQ(f.List(0).ListCount(), 0);
  addLink(folder("a"), "Alpha");
  addLink(folder("b"), "Beta");
  EXPECT_EQ(items(f.List(0)), (std::vector<std::string>{"Alpha", "Beta"}));
  EXPECT_EQ(f.List(1).ListIndex(), 1);
  EXPECT_TRUE(std::filesystem::is_directory(listFile()));
  EXPECT_FALSE(dialog().Visible());
}

TEST_F(Store, ANameInAnyScriptSurvivesASaveAndAStart) {
  const std::string a = folder("été"), b = folder("b");
  started();
  addLink(a, "Été à Kyōto 東京");
  addLink(b, "Ελλάδα");
  program.reset();
  Form1& f = started();
  EXPECT_EQ(items(f.List(0)), (std::vector<std::string>{"Été à Kyōto 東京", "Ελλάδα"}));
  EXPECT_EQ(items(f.List(1)), (std::vector<std::string>{a, b}));
}

}  // namespace
