// The rules controls keep: events inside setters, control arrays, rounding, properties by name,
// and the changes the presenter is told of.
#include <gtest/gtest.h>

#include <functional>
#include <tuple>

#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/PictureControls.h"
#include "toolkit/TestForms.h"

using namespace vellumry;

using Log = std::vector<std::string>;

namespace {

class ControlRules : public ::testing::Test {
 protected:
  void SetUp() override { p.log.clear(); }
  TestProgram p;
  LogForm& f = p.form();
};

TEST_F(ControlRules, SettersRaiseTheirEventInsideTheStatementAndNotOnTheSameValue) {
  f.List1.AddItem("a");
  f.List1.AddItem("b");
  f.List1.setListIndex(1);
  p.log.push_back("after");  // the event ran before the statement returned
  f.List1.setListIndex(1);
  f.Label1.setCaption("x");
  f.Label1.setCaption("x");
  f.VScroll1.setMax(10);
  f.VScroll1.setValue(4);
  f.VScroll1.setValue(4);
  EXPECT_EQ(p.log, (Log{"List1_Click 1", "after", "Label1_Change x", "VScroll1_Change 4"}));
}

TEST_F(ControlRules, AnAutoSizedBoxKeepsItsLengthWhenItIsAlreadyItsPicturesPixels) {
  tk::PictureBox box(&f, "Box");
  box.setAutoSize(true);
  box.Move(0, 0, 16896, 100);  // 1126.4 by 6.7 pixels
  box.setPicture(gdi::Picture::fromSurface(gdi::Surface(1126, 20, gdi::AlphaMode::kOpaque)));
  EXPECT_DOUBLE_EQ(box.Width(), 16896);
  EXPECT_DOUBLE_EQ(box.Height(), 300);
  box.setPicture(gdi::Picture::fromSurface(gdi::Surface(1127, 20, gdi::AlphaMode::kOpaque)));
  EXPECT_DOUBLE_EQ(box.Width(), 16905);
}

TEST_F(ControlRules, PlacesCountInTheContainersScaleWhichMovesNothingWhenItChanges) {
  tk::PictureBox box(&f, "Box");
  tk::Label inside(&f, "Inside");
  inside.setContainer(&box);
  inside.Move(150, 300, 1500, 45);  // twips, as the box counts at first
  box.setScaleMode(3);              // 15 twips a pixel
  EXPECT_EQ(std::tuple(inside.Left(), inside.Top(), inside.Width(), inside.Height()),
            std::tuple(10.0, 20.0, 100.0, 3.0));
  EXPECT_DOUBLE_EQ(inside.leftTwips(), 150);
  inside.setWidth(64);
  EXPECT_DOUBLE_EQ(inside.widthTwips(), 960);
  box.setScaleMode(1);
  EXPECT_DOUBLE_EQ(inside.Width(), 960);
  // The box itself stands in the form's twips, and its own scale counts its inside.
  box.setBorderStyle(0);
  box.Move(0, 0, 3000, 1500);
  box.setScaleMode(3);
  EXPECT_EQ(std::pair(box.Width(), box.ScaleWidth()), std::pair(3000.0, 200.0));
}

TEST_F(ControlRules, ValuesOutOfRangeFailAndAShrinkingRangeMovesTheValue) {
  EXPECT_THROW(f.List1.setListIndex(0), tk::Error);  // empty list
  EXPECT_NO_THROW(f.List1.setListIndex(-1));
  f.VScroll1.setMax(5);
  f.VScroll1.setValue(5);
  EXPECT_THROW(f.VScroll1.setValue(6), tk::Error);
  f.VScroll1.setMax(0);
  EXPECT_EQ(f.VScroll1.Value(), 0);
  EXPECT_EQ(p.log, (Log{"VScroll1_Change 5", "VScroll1_Change 0"}));
}

// What the presenter is told: which control changed, under which property.
struct ChangeLog : tk::Observer {
  void propertyChanged(tk::Control& c, tk::PropertyName property) override {
    changes.emplace_back(&c, property);
  }
  std::vector<std::pair<const tk::Control*, tk::PropertyName>> changes;
};

TEST_F(ControlRules, EachChangeReachesTheObserverOnceUnderItsOwnName) {
  ChangeLog observer;
  p.runtime.setObserver(&observer);
  tk::Control& button = f.Command1;
  tk::Image& image = f.Image1(0);
  namespace prop = tk::prop;
  const struct {
    std::function<void()> change;
    const tk::Control* control;
    tk::PropertyName property;
  } changes[] = {
      {[&] { button.setLeft(15); }, &button, prop::Left},
      {[&] { button.setTop(15); }, &button, prop::Top},
      {[&] { button.setWidth(15); }, &button, prop::Width},
      {[&] { button.setHeight(15); }, &button, prop::Height},
      {[&] { button.setVisible(false); }, &button, prop::Visible},
      {[&] { button.setEnabled(false); }, &button, prop::Enabled},
      {[&] { button.setToolTipText("tip"); }, &button, prop::ToolTipText},
      {[&] { button.setContainer(&f); }, &button, prop::Container},
      {[&] { image.setStretch(true); }, &image, prop::Stretch},
      {[&] { image.setPicture({}); }, &image, prop::Picture},
      {[&] { f.List1.AddItem("a"); }, &f.List1, prop::List},
      {[&] { f.Label1.setCaption("x"); }, &f.Label1, prop::Caption},
      {[&] { f.setCaption("x"); }, &f, prop::Caption},
      {[&] { f.setWindowState(2); }, &f, prop::WindowState},
      {[&] { f.setMousePointer(11); }, &f, prop::MousePointer},
      {[&] { f.setBorderStyle(0); }, &f, prop::BorderStyle},
  };
  for (const auto& c : changes) {
    observer.changes.clear();
    c.change();
    const std::string_view expected = c.property;
    ASSERT_EQ(observer.changes.size(), 1u) << expected;
    EXPECT_EQ(observer.changes[0].first, c.control) << expected;
    EXPECT_EQ(std::string_view(observer.changes[0].second), expected);
  }
  p.runtime.setObserver(nullptr);
}

TEST_F(ControlRules, ControlArrayLoadsHiddenCopiesOfElementZero) {
  f.Image1(0).Move(10, 150, 1575, 1335);
  f.Image1(0).setToolTipText("template");
  f.Image1(0).setStretch(true);
  tk::Image& one = f.Image1.Load(1);
  EXPECT_FALSE(one.Visible());
  EXPECT_EQ(one.Index(), 1);
  EXPECT_EQ(one.Top(), 150);
  EXPECT_EQ(one.Width(), 1575);
  EXPECT_TRUE(one.Stretch());
  EXPECT_EQ(f.find("Image1", 1), &one);

  EXPECT_THROW(f.Image1.Load(1), tk::Error);    // loading an element that exists
  EXPECT_THROW(f.Image1.Load(0), tk::Error);    // element 0 exists from the start
  EXPECT_THROW(f.Image1(2).Left(), tk::Error);  // touching one that doesn't
  EXPECT_THROW(f.Image1.Unload(2), tk::Error);
  EXPECT_THROW(f.Image1.Unload(0), tk::Error);

  f.Image1.Load(2);
  f.Image1.Unload(2);
  f.Image1.Unload(1);
  EXPECT_EQ(f.Image1.Count(), 1u);
  EXPECT_EQ(f.find("Image1", 1), nullptr);
  f.Image1.Load(1);  // a position can be loaded again after its unload
}

TEST_F(ControlRules, ArrayEventsCarryTheIndex) {
  f.Show();
  f.Image1.Load(3).setVisible(true);
  p.log.clear();
  tk::user::dblClick(f.Image1(3));
  EXPECT_EQ(p.log, (Log{"Image1_MouseDown 3 1", "Image1_MouseUp 3 1", "Image1_Click 3",
                        "Image1_DblClick 3", "Image1_MouseUp 3 1"}));
}

TEST(Numbers, RoundingIsHalfToEvenAndIntDivDropsTheRemainder) {
  EXPECT_EQ(tk::CInt(2.5), 2);
  EXPECT_EQ(tk::CInt(3.5), 4);
  EXPECT_EQ(tk::CInt(-2.5), -2);
  EXPECT_EQ(tk::CLng(1403.5), 1404);
  EXPECT_THROW(tk::CInt(32767.5), tk::Error);
  EXPECT_EQ(tk::intDiv(11520, 4), 2880);
  EXPECT_EQ(tk::intDiv(300, 4), 75);
  EXPECT_EQ(tk::intDiv(-7, 2), -3);
  EXPECT_EQ(tk::intDiv(7.5, 2), 4);  // 7.5 rounds to 8 first
}

TEST_F(ControlRules, PropertiesByNameCaseBlind) {
  f.Label1.set("caption", std::string("by name"));
  EXPECT_EQ(p.log, (Log{"Label1_Change by name"}));
  EXPECT_EQ(std::get<std::string>(f.Label1.get("Caption")), "by name");
  f.VScroll1.set("Max", 3.0);
  f.VScroll1.set("VALUE", std::string("2"));
  EXPECT_EQ(f.VScroll1.Value(), 2);
  f.List1.AddItem("zero");
  f.List1.AddItem("one");
  EXPECT_EQ(std::get<std::string>(f.List1.get("List(1)")), "one");
  EXPECT_EQ(std::get<double>(f.List1.get("ListCount")), 2);
  EXPECT_THROW(f.List1.set("ListCount", 5.0), tk::Error);
  EXPECT_THROW(f.Label1.get("NoSuchThing"), tk::Error);
  EXPECT_THROW(f.VScroll1.set("Value", std::string("abc")), tk::Error);
}

}  // namespace
