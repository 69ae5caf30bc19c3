// The task-bar owner: never seen at work, the task-bar entry while minimised, minimising and
// restoring through the model.

#include "qt/QtFixture.h"

using namespace vellumry;

namespace {

class TaskbarTest : public ::testing::Test {
 protected:
  void SetUp() override {
    p.presenter->setTaskbarForm("PanelForm");
    f = &p.form();
    f->setBorderStyle(2);
    f->setCaption("Vellumry");
    f->Show();
    p.log.clear();
  }
  QtProgram p;
  PanelForm* f = nullptr;
  tk::FormSlot<PanelForm> other{
      p.runtime, [this] { return std::make_unique<PanelForm>(p.runtime, otherLog, "Other"); }};
  std::vector<std::string> otherLog;
};

TEST_F(TaskbarTest, TheOwnerIsNeverSeenAtWork) {
  other().Show();
  EXPECT_EQ(p.window().windowFlags() & Qt::WindowType_Mask, Qt::Window);
  EXPECT_EQ(p.presenter->window(other())->windowFlags() & Qt::WindowType_Mask, Qt::Tool);
  f->setLeft(-f->Width());  // parked one screen to the left, as the program does
  EXPECT_TRUE(f->Visible());
  EXPECT_FALSE(p.window().isVisible());
  EXPECT_TRUE(p.presenter->window(other())->isVisible());
  f->setCaption("Holiday");
  EXPECT_EQ(p.window().windowTitle(), "Holiday");
  other().Unload();
}

TEST_F(TaskbarTest, MinimisedItIsTheEntryThatRestores) {
  f->setWindowState(1);  // by the program
  EXPECT_TRUE(p.window().isVisible());
  EXPECT_TRUE(p.window().isMinimized());
  p.window().showNormal();  // the user restores it from the task bar
  QCoreApplication::processEvents();
  EXPECT_EQ(f->WindowState(), 0);
  EXPECT_FALSE(p.window().isVisible());
  EXPECT_EQ(p.log, (std::vector<std::string>{"Form_Resize 1", "Form_Resize 0"}));
}

TEST_F(TaskbarTest, OtherWindowsDontTouchTheirWindowState) {
  other().Show();
  presenter::FormWindow* w = p.presenter->window(other());
  w->showMinimized();
  QCoreApplication::processEvents();
  EXPECT_EQ(other().WindowState(), 0);
  other().Unload();
}

}  // namespace
