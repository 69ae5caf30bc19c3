// Finding links by name and pictures by file name with the dialog.
#include "LinksFixture.h"

using namespace vellumry;

namespace {

using Finding = LinksFixture;

const char* kNotFound = "msgbox 48 \"Not found\" \"Not found\" -> 1";

TEST_F(Finding, LinksByAnyPartOfTheirNamesInAnyCase) {
  writeList0("Summer*%*/s*%*Winter*%*/w*%*summit*%*/t*%*");
  Form1& f = started();
  program->runtime.dispatch([&] { f.btnFIND_Click(); });
  struct Case {
    std::string typed;
    std::vector<std::string> hits, positions, shown;
  };
  const std::vector<Case> cases = {
      {"SUM", {"Summer", "summit"}, {"0", "2"}, {}},
      {"er", {"Summer", "Winter"}, {"0", "1"}, {}},
      {"sum ", {}, {}, {kNotFound}},  // a blank at the end is searched for too
      {"s*", {}, {}, {kNotFound}},    // no wildcards
      {"  ", {}, {}, {"msgbox 0 \"\" \"Please type a LinkName!\" -> 1"}},
  };
  for (const Case& c : cases) {
    shownSince();
    search(c.typed);
    EXPECT_EQ(shownSince(), c.shown) << c.typed;
    if (c.typed != "  ") {
      EXPECT_EQ(items(dialog().List(2)), c.hits) << c.typed;
      EXPECT_EQ(items(dialog().List(3)), c.positions) << c.typed;
    }
    EXPECT_TRUE(dialog().Visible());
  }
}

TEST_F(Finding, PicturesByFileNameAndTheGridFollows) {
  makeFiles(3);
  std::ofstream(pictures / "cat.PNG") << "x";
  std::ofstream(pictures / "caf\xE9.gif") << "x";  // a Latin-1 name: bytes that are no text
  Form1& f = started();
  program->runtime.dispatch([&] { f.mnuFimg_Click(); });
  EXPECT_EQ(dialog().Label(0).Caption(), "Image Name");
  search("PNG");
  EXPECT_EQ(items(dialog().List(2)), std::vector<std::string>{"cat.PNG"});
  search("caf\xE9");
  EXPECT_EQ(items(dialog().List(2)), std::vector<std::string>{"caf\xE9.gif"});
  search(".jpg");
  EXPECT_EQ(items(dialog().List(2)),
            (std::vector<std::string>{"img1.jpg", "img2.jpg", "img3.jpg"}));
  tk::user::select(dialog().List(2), 2);
  EXPECT_EQ(f.File2.FileName(), "img3.jpg");
  shownSince();
  search(" ");
  EXPECT_EQ(shownSince(),
            std::vector<std::string>{"msgbox 0 \"\" \"Please type a Name (image name)!\" -> 1"});
}

TEST_F(Finding, AnEmptyListOrFolderFindsNothing) {
  Form1& f = started();
  std::filesystem::create_directory(root / "empty");
  program->runtime.dispatch([&] { f.File2.setPath((root / "empty").string()); });
  for (void (Links::*open)() : {&Links::btnFIND_Click, &Links::mnuFimg_Click}) {
    program->runtime.dispatch([&] { (f.*open)(); });
    shownSince();
    search("a");
    EXPECT_EQ(shownSince(), std::vector<std::string>{kNotFound});
    tk::user::click(dialog().btn(1));
  }
}

}  // namespace
