// The text of the link list file; then the link list of a started program: its file, adding,
// editing, removing, sorting, opening, finding, and the dialog. tests/scripts/links.drive
// follows a whole run: the prompt on and off, a new file, an edited link going last, both
// sorts keeping the selection, a link found and its hit clicked, a link opened and one removed.
#include <iterator>

#include "ProgramFixture.h"
#include "links/LinkFile.h"
#include "links/frmEdit.h"

using namespace vellumry;

namespace {

using Lines = std::vector<std::string>;

// Every field is written with its separator. Reading, the pieces pair up as name and target; a
// piece without a partner is dropped, and whatever follows the last separator is ignored, so a
// line end there reads alike. A long list, of 499 records and a 500th added to them, is read
// and written whole.
TEST(LinkFile, ReadsFieldsInPairsAndWritesEachWithItsSeparator) {
  const std::pair<std::string, std::vector<LinkRecord>> cases[] = {
      {"Alpha*%*/p/Alpha*%*Beta*%*/d/Beta*%*", {{"Alpha", "/p/Alpha"}, {"Beta", "/d/Beta"}}},
      {"Alpha*%*/p/Alpha*%*\r\n", {{"Alpha", "/p/Alpha"}}},
      {"A*%*/a*%*B*%*/b", {{"A", "/a"}}},  // the last target lost its separator
      {"*%*", {}},
      {"Alpha*%*", {}},
      {" a *%* /x *%**%*/y*%*", {{" a ", " /x "}, {"", "/y"}}},  // no trimming, no checks
  };
  for (const auto& [text, records] : cases) EXPECT_EQ(parseLinkList(text), records) << text;
  EXPECT_EQ(formatLinkList({}), "*%*");
  EXPECT_EQ(formatLinkList({{"Alpha", "/p/Alpha"}, {"", " "}}), "Alpha*%*/p/Alpha*%**%* *%*");
  const std::vector<LinkRecord> records(1200, {"name", "/pictures/a"});
  const std::string text = formatLinkList(records);
  EXPECT_EQ(parseLinkList(text), records);
}

// The host's line for a message box of `style` and `title` showing `text`, answered with OK.
// A box asked for without a title carries the program's.
std::string box(const std::string& text, int style = 0, const std::string& title = "Vellumry") {
  return "msgbox " + std::to_string(style) + " \"" + title + "\" \"" + text +
         "\" -> 1 (no answer queued)";
}

class LinkList : public ProgramFixture {
 protected:
  std::string list0() const {
    std::ifstream in(home / "list0.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void writeList0(const std::string& bytes) { std::ofstream(home / "list0.txt") << bytes; }
  std::string folder(const std::string& name) {
    std::filesystem::create_directories(root / name);
    return (root / name).string();
  }
  // Started on a pictures folder with one file, the grid not loaded yet.
  Form1& started() {
    makeFiles(1);
    start();
    return form1();
  }
  frmEdit& dialog() { return program->frmEdit(); }
  static Lines items(const tk::ListControl& list) {
    Lines out;
    for (int i = 0; i < list.ListCount(); ++i) out.push_back(list.List(i));
    return out;
  }
  // What the host showed since the last call.
  Lines shownSince() {
    Lines out(host.shown.begin() + static_cast<long>(seen_), host.shown.end());
    seen_ = host.shown.size();
    return out;
  }
  // A routine of the main window run as its menus run it, and the user in the dialog.
  void run(void (Links::*r)()) {
    program->runtime.dispatch([&] { (form1().*r)(); });
  }
  void press(const std::string& text) {
    tk::user::type(dialog().Text1, text);
    tk::user::click(dialog().btn(0));
  }
  void cancel() { tk::user::click(dialog().btn(1)); }
  void cd(const std::string& p) {
    program->runtime.dispatch([&] { form1().File2.setPath(p); });
  }
  void addLink(const std::string& path, const std::string& name) {
    cd(path);
    run(&Links::btnADD_Click);
    press(name);
  }
  size_t seen_ = 0;
};

// A hand-edited file loads as it stands and loading never writes it. A vanished folder shows
// only when its link is opened, and the link stays; the link of the folder shown opens nothing.
// With marked files pending a click asks about them first (Cancel here) and takes no link.
TEST_F(LinkList, ALoadedLinkIsCheckedWhenOpenedAndTakenOnlyAfterTheMarks) {
  const std::string text = " x *%*/gone/away*%**%*" + pictures.string() + "*%*";
  writeList0(text);
  setting("showll", "0");
  makeFiles(1);
  Form1& f = loaded();
  EXPECT_EQ(items(f.List(0)), (Lines{" x ", ""}));
  EXPECT_EQ(items(f.List(1)), (Lines{"/gone/away", pictures.string()}));
  EXPECT_FALSE(f.List(0).Visible()) << "the panel shows at the start only when asked";
  f.List(0).setVisible(true);
  tk::user::select(f.List(0), 1);
  ASSERT_TRUE(tk::user::dblClick(f.List(0)));
  tk::user::select(f.List(0), 0);
  tk::user::dblClick(f.List(0));
  EXPECT_FALSE(f.bSwitching);
  EXPECT_EQ(shownSince(), Lines{box("The Link does not exist! \\r\\n/gone/away\\r\\n\\r\\n You "
                                    "must remove the name of the link:  x ",
                                    64, "Invalid Path")});
  EXPECT_EQ(f.List(0).ListCount(), 2);
  EXPECT_EQ(list0(), text);
  program->fields.set("nDeleted", {}, 1.0);
  host.queueAnswer(tk::mb::Cancel);
  tk::user::select(f.List(0), 1);
  EXPECT_TRUE(host.shown.back().starts_with("msgbox 35 ")) << host.shown.back();
  EXPECT_EQ(std::pair(f.List(0).ListIndex(), f.List(1).ListIndex()), std::pair(-1, -1));
}

TEST_F(LinkList, AnAddedNameIsTrimmedSelectedSavedAndReadBackInAnyScript) {
  const std::string a = folder("été"), b = folder("b");
  Form1& f = started();
  addLink(a, "  Été à Kyōto 東京  ");
  addLink(b, "Ελλάδα");
  EXPECT_EQ(f.List(0).ListIndex(), 1);
  EXPECT_TRUE(!dialog().Visible() && f.Enabled());
  EXPECT_EQ(list0(), "Été à Kyōto 東京*%*" + a + "*%*Ελλάδα*%*" + b + "*%*");
  program.reset();
  started();
  EXPECT_EQ(items(form1().List(0)), (Lines{"Été à Kyōto 東京", "Ελλάδα"}));
  EXPECT_EQ(items(form1().List(1)), (Lines{a, b}));
}

TEST_F(LinkList, AFileThatCantBeReadOrWrittenLeavesTheListsUsable) {
  // A folder in the file's place can be neither read nor replaced.
  std::filesystem::create_directory(home / "list0.txt");
  Form1& f = started();
  addLink(folder("a"), "Alpha");
  addLink(folder("b"), "Beta");
  EXPECT_EQ(items(f.List(0)), (Lines{"Alpha", "Beta"}));
  EXPECT_TRUE(std::filesystem::is_directory(home / "list0.txt"));
}

// A folder that is a link already, in any case, or whose path holds the separator opens no
// dialog. The prompt is off only at "0". A refused name keeps the dialog open with its text.
// Nothing is stored.
TEST_F(LinkList, AddOffersTheFolderNameAndRefusesAKnownFolderOrABadName) {
  const std::string summer = folder("summer"), other = folder("other");
  writeList0("summer*%*" + summer + "*%*");
  Form1& f = started();
  const std::string known = "The name: \\r\\nsummer\\r\\n\\r\\n is with the same link : \\r\\n";
  cd(folder("SUMMER"));
  run(&Links::btnADD_Click);
  cd(folder("a*%*b"));
  run(&Links::btnADD_Click);
  EXPECT_EQ(shownSince(), (Lines{box(known + summer + " !", 64, ""),
                                 box("This folder can't be a link: its path holds *%*.")}));
  EXPECT_FALSE(program->frmEdit.loaded());
  setting("lnvar", "?");
  const std::tuple<std::string, std::string, std::string> names[] = {
      // typed, target, message
      {"   ", other, "Please type a Link Name."},
      {"  SUMMER ", other, "The name: summer  already exist! Please type a different name."},
      {"Holiday", summer + "  ",
       "The name: summer with the same link : " + summer + " (link alredy exist)!"},
      {"Holi*%*day", other, "Please type a Link Name without *%*."},
  };
  cd(other);
  for (const auto& [typed, target, message] : names) {
    run(&Links::btnADD_Click);
    EXPECT_EQ(dialog().Text1.Text(), "other");
    dialog().Label(1).setCaption(target);
    press(typed);
    EXPECT_EQ(shownSince(), Lines{box(message)}) << typed;
    EXPECT_TRUE(dialog().Visible() && !f.Enabled()) << typed;
    EXPECT_EQ(dialog().Text1.Text(), typed);
    cancel();
  }
  EXPECT_EQ(list0(), "summer*%*" + summer + "*%*");
}

TEST_F(LinkList, EditKeepsItsOwnNameRefusesAnotherAndGoesLast) {
  const std::string a = folder("a"), b = folder("b"), c = folder("c");
  writeList0("summer*%*" + a + "*%*winter*%*" + b + "*%*autumn*%*" + c + "*%*");
  Form1& f = started();
  auto edit = [&](int index, const std::string& typed) {
    f.List(0).setListIndex(index);
    run(&Links::btnEDIT_Click);
    press(typed);
    return shownSince();
  };
  EXPECT_EQ(edit(1, "SUMMER"), Lines{box("The name: SUMMER\\r\\nalredy exist!", 64, "")});
  cancel();
  EXPECT_EQ(edit(1, "  "), Lines{box("Please type a LinkName!")});
  EXPECT_EQ(dialog().Text1.Text(), "") << "the blanks go";
  cancel();
  EXPECT_EQ(items(f.List(0)), (Lines{"summer", "winter", "autumn"}));
  EXPECT_TRUE(edit(0, "SUMMER ").empty()) << "only the case of its own name";
  EXPECT_EQ(items(f.List(1)), (Lines{b, c, a}));
}

// Removing the last link by the menu leaves the file of an empty list and hides the panel.
TEST_F(LinkList, EditAndRemoveWantASelectionAndTheLastRemovedHidesThePanel) {
  writeList0("a*%*/a*%*");
  makeFiles(1);
  Form1& f = loaded();
  ASSERT_TRUE(f.List(0).Visible());
  shownSince();
  run(&Links::btnEDIT_Click);
  run(&Links::btnREMOVE_Click);
  EXPECT_EQ(shownSince(), (Lines{box("Please select a LinkName for edition!"),
                                 box("Plese select a Link Name (click over it)!")}));
  tk::user::select(f.List(0), 0);
  host.queueMenuPick("mnuRllist");
  tk::user::mouseDown(f.List(0), tk::user::kRightButton);
  EXPECT_EQ(list0(), "*%*");
  EXPECT_FALSE(f.List(0).Visible());
}

// Binary order puts every capital first; names and targets are stored trimmed. Each name takes
// the target of the first record of exactly that name: a name given twice takes the first one's
// twice, and a name with blanks around it (a hand-edited file) finds none. Old hits go stale.
TEST_F(LinkList, SortingGoesByTheBytesAndSavesEvenAnEmptyList) {
  started();
  run(&Links::btnAz_Click);
  EXPECT_EQ(list0(), "*%*");
  program.reset();
  writeList0("ant*%*/ant*%*Zoo*%*/zoo*%* bee*%*/bee *%*ant*%*/other*%*");
  started();
  run(&Links::btnFIND_Click);
  press("a");  // hits, which the sort makes stale
  cancel();
  run(&Links::btnAz_Click);
  EXPECT_EQ(list0(), "Zoo*%*/zoo*%*ant*%*/ant*%*ant*%*/ant*%*bee*%**%*");
  EXPECT_FALSE(program->links.findDone());
}

// Any part of a name in any case, the text as typed: a blank at its end counts, '*' is no
// wildcard. A search replaces the hits of the one before.
TEST_F(LinkList, FindingListsEveryItemHoldingTheTextAndTheGridFollowsAHit) {
  writeList0("Summer*%*/s*%*Winter*%*/w*%*summit*%*/t*%*\xC3\x89T\xC3\x89*%*/e*%*");
  makeFiles(3);
  std::ofstream(pictures / "cat.PNG") << "x";
  std::ofstream(pictures / "caf\xE9.gif") << "x";  // a Latin-1 name: bytes that are no text
  Form1& f = started();
  const std::string notFound = box("Not found", 48, "Not found");
  // The routine that opens the dialog (none: the same again), the text, the hits, the messages.
  const std::tuple<void (Links::*)(), std::string, Lines, Lines> cases[] = {
      {&Links::btnFIND_Click, "SUM", {"Summer", "summit"}, {}},
      {nullptr, "\xC3\xA9", {"\xC3\x89T\xC3\x89"}, {}},  // "é" finds "ÉTÉ"
      {nullptr, "sum ", {}, {notFound}},
      {nullptr, "s*", {}, {notFound}},
      {nullptr, "  ", {}, {box("Please type a LinkName!")}},
      {&Links::mnuFimg_Click, "png", {"cat.PNG"}, {}},
      {nullptr, "caf\xE9", {"caf\xE9.gif"}, {}},
      {nullptr, " ", {"caf\xE9.gif"}, {box("Please type a Name (image name)!")}},
      {nullptr, ".jpg", {"img1.jpg", "img2.jpg", "img3.jpg"}, {}},
  };
  for (const auto& [open, typed, hits, shown] : cases) {
    SCOPED_TRACE(typed);
    if (open) cancel(), run(open);
    press(typed);
    EXPECT_EQ(shownSince(), shown);
    EXPECT_EQ(items(dialog().List(2)), hits);
  }
  tk::user::select(dialog().List(2), 2);
  EXPECT_EQ(f.File2.FileName(), "img3.jpg");
}

// Each opening sets the dialog up for its mode and centres it, the text in focus; the dialog is
// shown before its text is set, so only a text left from before ends selected. Cancel gives the
// main window back and leaves the text. The design label's colon shows only until the first
// Cancel.
TEST_F(LinkList, EachModeSetsUpTheDialogAndCancelLeavesTheText) {
  writeList0("a*%*/a*%*");
  Form1& f = started();
  f.List(0).setListIndex(0);
  const struct {
    void (Links::*open)();
    const char *label, *caption, *offered, *region;  // the region in pixels, 15 twips each
    int selected;                                    // characters
    double height, buttonTop;
    bool hits;
  } cases[] = {
      {&Links::btnADD_Click, "Link Name:", "Add", "pictures", "286 92 40 40", 0, 1380, 840, false},
      {&Links::btnEDIT_Click, "Link Name", "Edit", "a", "286 92 40 40", 0, 1380, 840, false},
      {&Links::btnFIND_Click, "Link Name", "Find", "", "286 226 40 40", 0, 3390, 2760, true},
      {&Links::mnuFimg_Click, "Image Name", "Find", " Été ", "286 226 40 40", 5, 3390, 2760, true},
  };
  for (const auto& c : cases) {
    run(c.open);
    frmEdit& d = dialog();
    EXPECT_TRUE(d.Visible() && d.topMost() && !f.Enabled() && d.ActiveControl() == &d.Text1);
    EXPECT_TRUE(d.BorderStyle() == 1 && !d.hasTitleBar());  // a thin line around the client
    EXPECT_EQ(d.List(2).BackColor(), 0x8000000Fu);  // the button face, in every mode
    EXPECT_EQ(std::tuple(d.Label(0).Caption(), d.btn(0).Caption(), d.List(2).Visible(),
                         tk::toText(d.get("Region")), d.Text1.Text(), d.Text1.SelStart(),
                         d.Text1.SelLength()),
              std::tuple(c.label, c.caption, c.hits, c.region, c.offered, 0, c.selected));
    // Centred on a screen of 15360 by 11520 twips.
    EXPECT_EQ(std::tuple(d.Height(), d.btn(0).Top(), d.btn(1).Top(), d.Left(), d.Top()),
              std::tuple(c.height, c.buttonTop, c.buttonTop, (15360 - 4290) / 2.0,
                         (11520 - c.height) / 2));
    tk::user::type(d.Text1, " Été ");
    d.Text1.setSelLength(0);  // so that a mode that selects nothing shows nothing left over
    cancel();
    EXPECT_TRUE(!d.Visible() && f.Enabled());
  }
}

TEST_F(LinkList, ADoubleClickSelectsTheWholeTextAndADroppedDialogSnapsBackOntoTheScreen) {
  started();
  run(&Links::btnADD_Click);
  frmEdit& d = dialog();
  tk::user::type(d.Text1, " Été ");
  d.Text1.setSelLength(0);
  tk::user::dblClick(d.Text1);
  EXPECT_EQ(d.Text1.SelLength(), 5);
  // Where a drag to (left, top) ends after the release; the drag itself isn't limited.
  auto drop = [&](double left, double top) {
    tk::user::mouseDown(d, tk::user::kLeftButton, 0, 100, 200);
    tk::user::mouseMove(d, tk::user::kLeftButton, 0, left - d.Left() + 100, top - d.Top() + 200);
    EXPECT_EQ(std::pair(d.Left(), d.Top()), std::pair(left, top));
    tk::user::mouseUp(d, tk::user::kLeftButton, 0, 100, 200);
    return std::pair(d.Left(), d.Top());
  };
  // The dialog is 4290 by 1380 twips on a screen of 15360 by 11520, the task bar 450 high.
  EXPECT_EQ(drop(16000, 12000), std::pair(15360.0 - 4290, 11520.0 - 1380 - 450));
  EXPECT_EQ(drop(-900, -700), std::pair(0.0, 0.0));
  tk::user::mouseMove(d, 0, 0, 0, 0);  // no button: no drag
  EXPECT_EQ(d.Left(), 0);
  tk::user::mouseMove(d, tk::user::kRightButton, 0, 300, 200);  // the right one alone: no drag
  EXPECT_EQ(d.Left(), 0);
  // Both buttons down: the left one drags.
  tk::user::mouseMove(d, tk::user::kLeftButton | tk::user::kRightButton, 0, 300, 200);
  EXPECT_EQ(d.Left(), 200);
}

}  // namespace
