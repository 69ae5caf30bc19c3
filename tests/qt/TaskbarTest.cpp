// The task-bar owner: one entry on the task bar, minimising and restoring through the model.

#include "qt/QtFixture.h"

using namespace vellumry;

namespace {

class TaskbarTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f = &p.form();
    f->setBorderStyle(2);
    f->setCaption("Vellumry");
    f->Show();
    p.presenter->setTaskbarForm(*f);
    p.log.clear();
  }
  QtProgram p;
  PanelForm* f = nullptr;
  tk::FormSlot<PanelForm> other{
      p.runtime, [this] { return std::make_unique<PanelForm>(p.runtime, otherLog); }};
  std::vector<std::string> otherLog;
};

TEST_F(TaskbarTest, OnlyTheOwnerIsANormalWindow) {
  other().Show();
  EXPECT_EQ(p.window().windowFlags() & Qt::WindowType_Mask, Qt::Window);
  EXPECT_EQ(p.presenter->window(other())->windowFlags() & Qt::WindowType_Mask, Qt::Tool);
  EXPECT_TRUE(p.window().isVisible());  // changing its kind didn't leave it hidden
  f->setCaption("Holiday");
  EXPECT_EQ(p.window().windowTitle(), "Holiday");
  other().Unload();
}

TEST_F(TaskbarTest, MinimisingAndRestoringRunsThroughTheModelOnce) {
  p.window().showMinimized();  // by the user
  EXPECT_EQ(f->WindowState(), 1);
  p.window().showNormal();
  EXPECT_EQ(f->WindowState(), 0);
  f->setWindowState(1);  // by the program
  EXPECT_TRUE(p.window().isMinimized());
  f->setWindowState(0);
  EXPECT_FALSE(p.window().isMinimized());
  EXPECT_EQ(p.log, (std::vector<std::string>{"Form_Resize 1", "Form_Resize 0", "Form_Resize 1",
                                             "Form_Resize 0"}));
}

TEST_F(TaskbarTest, OtherWindowsDontTouchTheirWindowState) {
  other().Show();
  presenter::FormWindow* w = p.presenter->window(other());
  w->showMinimized();
  EXPECT_EQ(other().WindowState(), 0);
  other().Unload();
}

TEST_F(TaskbarTest, ParkedOffTheScreenItStandsWhereTheModelSays) {
  f->setLeft(-f->Width());
  EXPECT_EQ(p.window().geometry().left(), -400);
}

}  // namespace
