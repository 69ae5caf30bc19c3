// The check of the live driver: silent while the screen says what the model says, and naming
// the first thing that a window or widget shows otherwise.

#include <QCoreApplication>

#include "platform/qt/ScreenCheck.h"
#include "qt/QtFixture.h"

using namespace vellumry;

namespace {

std::string disagreement(const presenter::Presenter& p) {
  QCoreApplication::processEvents();
  return presenter::screenDisagreement(p).value_or("");
}

TEST(ScreenCheck, NamesWhatTheScreenShowsOtherwise) {
  struct Case {
    const char* what;
    std::function<void(QtProgram&)> behindTheModelsBack;
    std::string said;
  };
  const std::vector<Case> cases = {
      {"nothing", [](QtProgram&) {}, ""},
      {"a hidden widget",
       [](QtProgram& p) { p.presenter->widget(p.form().Command1)->hide(); },
       "PanelForm.Command1 is hidden, the model has it shown"},
      {"a moved widget",
       [](QtProgram& p) { p.presenter->widget(p.form().Command1)->move(0, 0); },
       "PanelForm.Command1 shows at 0,0 80x30, the model has it at 220,10 80x30"},
      {"a moved window", [](QtProgram& p) { p.window().move(0, 0); },
       "PanelForm shows at 0,0 400x300, the model has it at 100,200 400x300"},
      {"a hidden window", [](QtProgram& p) { p.window().hide(); },
       "PanelForm is hidden, the model has it shown"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    QtProgram p;
    p.form().Show();
    ASSERT_EQ(disagreement(*p.presenter), "");
    c.behindTheModelsBack(p);
    EXPECT_EQ(disagreement(*p.presenter), c.said);
  }
}

TEST(ScreenCheck, KnowsWhichWindowHasTheKeyboard) {
  QtProgram p;
  std::vector<std::string> log;
  tk::FormSlot<PanelForm> other(
      p.runtime, [&] { return std::make_unique<PanelForm>(p.runtime, log, "Other"); });
  p.form().Show();
  other().Show();
  EXPECT_EQ(disagreement(*p.presenter), "");
  p.window().activateWindow();  // as a desktop might after a dialog of its own
  EXPECT_EQ(disagreement(*p.presenter),
            "the keyboard is with PanelForm, the model gives it to Other");
  QCoreApplication::processEvents();  // the presenter gives it back
  EXPECT_EQ(disagreement(*p.presenter), "");
  other().Unload();
  EXPECT_EQ(disagreement(*p.presenter), "");
}

}  // namespace
