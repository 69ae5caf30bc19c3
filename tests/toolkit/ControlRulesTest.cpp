// The rules controls keep: events inside setters, control arrays, rounding, properties by name.
#include <gtest/gtest.h>

#include "platform/toolkit/Numbers.h"
#include "toolkit/TestForms.h"

using namespace vellumry;

using Log = std::vector<std::string>;

TEST(ControlRules, SettersRaiseTheirEventInsideTheStatementAndNotOnTheSameValue) {
  TestProgram p;
  LogForm& f = p.form();
  p.log.clear();
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

TEST(ControlRules, ValuesOutOfRangeFailAndAShrinkingRangeMovesTheValue) {
  TestProgram p;
  LogForm& f = p.form();
  p.log.clear();
  EXPECT_THROW(f.List1.setListIndex(0), tk::Error);  // empty list
  EXPECT_NO_THROW(f.List1.setListIndex(-1));
  f.VScroll1.setMax(5);
  f.VScroll1.setValue(5);
  EXPECT_THROW(f.VScroll1.setValue(6), tk::Error);
  f.VScroll1.setMax(0);
  EXPECT_EQ(f.VScroll1.Value(), 0);
  EXPECT_EQ(p.log, (Log{"VScroll1_Change 5", "VScroll1_Change 0"}));
}

TEST(ControlRules, ControlArrayLoadsHiddenCopiesOfElementZero) {
  TestProgram p;
  LogForm& f = p.form();
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

TEST(ControlRules, ArrayEventsCarryTheIndex) {
  TestProgram p;
  LogForm& f = p.form();
  f.Show();
  f.Image1.Load(3).setVisible(true);
  p.log.clear();
  tk::user::dblClick(f.Image1(3));
  EXPECT_EQ(p.log, (Log{"Image1_MouseDown 3 1", "Image1_MouseUp 3 1", "Image1_Click 3",
                        "Image1_DblClick 3", "Image1_MouseUp 3 1"}));
}

TEST(ControlRules, RoundingIsHalfToEvenAndIntDivDropsTheRemainder) {
  EXPECT_EQ(tk::CInt(2.5), 2);
  EXPECT_EQ(tk::CInt(3.5), 4);
  EXPECT_EQ(tk::CInt(-2.5), -2);
  EXPECT_EQ(tk::CLng(1403.5), 1404);
  EXPECT_THROW(tk::CInt(32767.5), tk::Error);
  EXPECT_EQ(tk::IntDiv(11520, 4), 2880);
  EXPECT_EQ(tk::IntDiv(300, 4), 75);
  EXPECT_EQ(tk::IntDiv(-7, 2), -3);
  EXPECT_EQ(tk::IntDiv(7.5, 2), 4);  // 7.5 rounds to 8 first
}

TEST(ControlRules, PropertiesByNameCaseBlind) {
  TestProgram p;
  LogForm& f = p.form();
  p.log.clear();
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

TEST(ControlRules, ImageWithoutStretchTakesThePictureSize) {
  TestProgram p;
  LogForm& f = p.form();
  gdi::Surface pixels(40, 30, gdi::AlphaMode::kOpaque);
  auto picture = gdi::Picture::FromSurface(std::move(pixels), 15);
  f.Image1(0).setPicture(picture);
  EXPECT_EQ(f.Image1(0).Width(), 600);
  EXPECT_EQ(f.Image1(0).Height(), 450);
  tk::Image& stretched = f.Image1.Load(1);
  stretched.setStretch(true);
  stretched.Move(0, 0, 100, 100);
  stretched.setPicture(picture);
  EXPECT_EQ(stretched.Width(), 100);
}
