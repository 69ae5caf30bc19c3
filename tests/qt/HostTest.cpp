// The desktop host: message boxes, popup menus and the file dialog's filter.

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/qt/QtHost.h"
#include "qt/QtFixture.h"

using namespace vellumry;

namespace {

// Once `widget` of type W stands, presses `act` on it (from inside its own event loop).
template <class W, class F>
void whenShown(F act) {
  auto* poll = new QTimer;
  QObject::connect(poll, &QTimer::timeout, [poll, act] {
    W* w = qobject_cast<W*>(QApplication::activeModalWidget());
    if (!w) w = qobject_cast<W*>(QApplication::activePopupWidget());
    if (!w) return;
    poll->stop();
    poll->deleteLater();
    act(w);
  });
  poll->start(5);
}

int answerWith(int style, QMessageBox::StandardButton press) {
  presenter::QtHost host;
  whenShown<QMessageBox>([press](QMessageBox* box) {
    if (press == QMessageBox::NoButton)
      box->reject();
    else
      box->button(press)->click();
  });
  return host.MsgBox("Sure?", style, "Title");
}

TEST(QtHostMsgBox, AnswersAreTheToolkitsNumbers) {
  EXPECT_EQ(answerWith(0, QMessageBox::Ok), tk::mb::OK);
  EXPECT_EQ(answerWith(1, QMessageBox::Cancel), tk::mb::Cancel);
  EXPECT_EQ(answerWith(36, QMessageBox::Yes), tk::mb::Yes);
  EXPECT_EQ(answerWith(36, QMessageBox::No), tk::mb::No);
  EXPECT_EQ(answerWith(35, QMessageBox::Cancel), tk::mb::Cancel);
}

TEST(QtHostMsgBox, AClosedBoxGivesTheClosingAnswer) {
  EXPECT_EQ(answerWith(3 + 32, QMessageBox::NoButton), tk::mb::Cancel);
  EXPECT_EQ(answerWith(4 + 32, QMessageBox::NoButton), tk::mb::No);
}

TEST(QtHostMsgBox, StyleGivesButtonsAndIcon) {
  presenter::QtHost host;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  int buttons = 0;
  whenShown<QMessageBox>([&](QMessageBox* box) {
    icon = box->icon();
    buttons = static_cast<int>(box->buttons().size());
    box->button(QMessageBox::Ok)->click();
  });
  host.MsgBox("Note", 64, "");
  EXPECT_EQ(icon, QMessageBox::Information);
  EXPECT_EQ(buttons, 1);
  whenShown<QMessageBox>([&](QMessageBox* box) {
    icon = box->icon();
    buttons = static_cast<int>(box->buttons().size());
    box->button(QMessageBox::Yes)->click();
  });
  host.MsgBox("Really?", 3 + 48, "");
  EXPECT_EQ(icon, QMessageBox::Warning);
  EXPECT_EQ(buttons, 3);
}

class PopupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    f = &p.form();
    for (tk::Menu* m : {&one, &sep, &two, &hidden, &off}) top.add(*m);
    hidden.setVisible(false);
    off.setEnabled(false);
    two.setChecked(true);
    one.setShortcut("F1");
  }
  QtProgram p;
  PanelForm* f = nullptr;
  tk::Menu top{&p.form(), "mnuTop", "Top"};
  tk::Menu one{&p.form(), "mnuOne", "One"};
  tk::Menu sep{&p.form(), "mnuSep", "-"};
  tk::Menu two{&p.form(), "mnuTwo", "Two"};
  tk::Menu hidden{&p.form(), "mnuHidden", "Hidden"};
  tk::Menu off{&p.form(), "mnuOff", "Off"};
};

TEST_F(PopupTest, ShowsVisibleEntriesWithSeparatorsGreyAndChecks) {
  QMenu menu;
  auto entries = presenter::buildMenu(top, menu);
  const auto actions = menu.actions();
  ASSERT_EQ(actions.size(), 4);              // the hidden entry is left out
  EXPECT_EQ(actions[0]->text(), "One\tF1");  // the key shows beside the caption
  EXPECT_TRUE(actions[1]->isSeparator());
  EXPECT_TRUE(actions[2]->isChecked());
  EXPECT_FALSE(actions[3]->isEnabled());
  EXPECT_EQ(entries.at(actions[2]), &two);
  EXPECT_EQ(entries.count(actions[1]), 0u);
}

TEST_F(PopupTest, ReturnsThePickedEntryOrNothing) {
  presenter::QtHost host;
  host.setPresenter(p.presenter.get());
  f->Show();
  whenShown<QMenu>([](QMenu* m) {
    m->setActiveAction(m->actions()[2]);
    QTest::keyClick(m, Qt::Key_Return);
  });
  EXPECT_EQ(host.PopupMenu(top, 2, 300.0, 300.0), &two);
  whenShown<QMenu>([](QMenu* m) { m->close(); });
  EXPECT_EQ(host.PopupMenu(top, 0, {}, {}), nullptr);
}

TEST(QtHostSaveFile, FiltersBecomeQtFilters) {
  EXPECT_EQ(presenter::qtFileFilter("Bitmap|*.bmp|All|*.*"), "Bitmap (*.bmp);;All (*.*)");
  EXPECT_EQ(presenter::qtFileFilter("Pictures|*.jpg;*.png"), "Pictures (*.jpg *.png)");
  EXPECT_EQ(presenter::qtFileFilter(""), "");
  EXPECT_EQ(presenter::qtFileFilter("Lonely"), "");  // a name without patterns stands for nothing
}

TEST(QtHostShell, OpenWithHasNoChooser) {
  presenter::QtHost host;
  EXPECT_FALSE(host.OpenWith("/tmp/x.png"));
  EXPECT_FALSE(host.Run(""));
}

}  // namespace
