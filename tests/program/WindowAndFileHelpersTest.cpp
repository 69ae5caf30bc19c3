// The helpers that every window and every file command shares: the rounded outline, staying on
// top, and opening a file with the desktop.
#include <gtest/gtest.h>

#include "platform/toolkit/Form.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/Runtime.h"
#include "program/Rcorners.h"
#include "program/mOpenFile.h"
#include "program/mTop.h"

using namespace vellumry;

namespace {

// A desktop whose opener and chooser fail as asked.
class Desktop : public tk::HeadlessHost {
 public:
  bool opens = true, chooses = true;
  bool open(const std::string& path) override { return HeadlessHost::open(path) && opens; }
  bool openWith(const std::string& path) override {
    return HeadlessHost::openWith(path) && chooses;
  }
};

TEST(WindowHelpers, TheOutlineIsCutFromThePresentSizeInPixels) {
  tk::HeadlessHost host;
  struct Case {
    int twipsPerPixel;
    double width, height;
    tk::Form::Region region;
  };
  for (const Case& c :
       {Case{15, 4290, 1380, {286, 92, 40, 40}}, Case{15, 4290, 3390, {286, 226, 40, 40}},
        Case{12, 4290, 1380, {358, 115, 40, 40}},  // 357.5 and 115 rounded
        Case{15, 22.5, 37.5, {2, 2, 40, 40}}}) {   // halves to the even pixel
    tk::Runtime runtime(tk::Screen::ofPixels(800, 600, c.twipsPerPixel), host,
                        tk::EventLoop::Clock::Virtual);
    tk::Form form(runtime, "F");
    form.Move(0, 0, c.width, c.height);
    EXPECT_FALSE(form.topMost());
    pMakeround(form);
    pSettop(form);
    EXPECT_EQ(form.windowRegion(), c.region) << c.width << "x" << c.height;
    EXPECT_TRUE(form.topMost());
  }
}

TEST(OpenFile, TriesTheOpenerThenTheChooserThenTellsTheUser) {
  struct Case {
    bool opens, chooses;
    std::vector<std::string> shown;
  };
  const std::vector<Case> cases = {
      {true, true, {"open \"/p/a.txt\""}},
      {false, true, {"open \"/p/a.txt\"", "openwith \"/p/a.txt\""}},
      {false,
       false,
       {"open \"/p/a.txt\"", "openwith \"/p/a.txt\"",
        "msgbox 64 \"Info\" \"Unkwown filetype.\" -> 1 (no answer queued)"}},
  };
  for (const Case& c : cases) {
    Desktop desktop;
    desktop.opens = c.opens;
    desktop.chooses = c.chooses;
    tk::Runtime runtime(tk::Screen::ofPixels(800, 600), desktop, tk::EventLoop::Clock::Virtual);
    pOpenfile(runtime, "/p/a.txt");
    EXPECT_EQ(desktop.shown, c.shown);
  }
}

}  // namespace
