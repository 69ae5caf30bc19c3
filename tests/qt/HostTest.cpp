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
  QObject::connect(poll, &QTimer::timeout, [poll, act, polls = 0]() mutable {
    W* w = qobject_cast<W*>(QApplication::activeModalWidget());
    if (!w) w = qobject_cast<W*>(QApplication::activePopupWidget());
    if (!w && ++polls < 2000) return;
    poll->stop();
    poll->deleteLater();
    if (w) return act(w);
    // Ten seconds without it: whatever stands is closed, so that the test fails and ends.
    ADD_FAILURE() << "the dialog never came up";
    for (QWidget* shown : QApplication::topLevelWidgets()) shown->close();
  });
  poll->start(5);
}

TEST(QtHostMsgBox, StyleGivesButtonsAndIconAndTheAnswerIsTheToolkitsNumber) {
  // Styles: buttons 0 OK, 1 OK Cancel, 3 Yes No Cancel, 4 Yes No; icons 32 question,
  // 48 warning, 64 information. Answers: 1 OK, 2 Cancel, 6 Yes, 7 No.
  const struct {
    int style;
    QMessageBox::StandardButton press;  // NoButton: the user closes the box
    int answer;
    QMessageBox::Icon icon;
    int buttons;
  } boxes[] = {
      {0, QMessageBox::Ok, 1, QMessageBox::NoIcon, 1},
      {1, QMessageBox::Cancel, 2, QMessageBox::NoIcon, 2},
      {36, QMessageBox::Yes, 6, QMessageBox::Question, 2},
      {36, QMessageBox::No, 7, QMessageBox::Question, 2},
      {64, QMessageBox::Ok, 1, QMessageBox::Information, 1},
      {3 + 48, QMessageBox::Cancel, 2, QMessageBox::Warning, 3},
      // Closing gives Cancel where the box has it, else No.
      {35, QMessageBox::NoButton, 2, QMessageBox::Question, 3},
      {36, QMessageBox::NoButton, 7, QMessageBox::Question, 2},
  };
  presenter::QtHost host;
  for (const auto& b : boxes) {
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    qsizetype buttons = 0;
    whenShown<QMessageBox>([&](QMessageBox* box) {
      icon = box->icon();
      buttons = box->buttons().size();
      if (b.press == QMessageBox::NoButton)
        box->reject();
      else
        box->button(b.press)->click();
    });
    EXPECT_EQ(host.MsgBox("Sure?", b.style, "Title"), b.answer) << "style " << b.style;
    EXPECT_EQ(icon, b.icon) << "style " << b.style;
    EXPECT_EQ(buttons, b.buttons) << "style " << b.style;
  }
}

TEST(QtHostPopup, ShowsVisibleEntriesWithSeparatorsGreyAndChecksAndReturnsThePick) {
  QtProgram p;
  PanelForm& f = p.form();
  tk::Menu top{&f, "mnuTop", "Top"}, one{&f, "mnuOne", "One"}, sep{&f, "mnuSep", "-"},
      two{&f, "mnuTwo", "Two"}, hidden{&f, "mnuHidden", "Hidden"}, off{&f, "mnuOff", "Off"};
  for (tk::Menu* m : {&one, &sep, &two, &hidden, &off}) top.add(*m);
  hidden.setVisible(false);
  off.setEnabled(false);
  two.setChecked(true);
  one.setShortcut("F1");

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

  presenter::QtHost host;
  host.setPresenter(p.presenter.get());
  f.Show();
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
  EXPECT_EQ(presenter::qtFileFilter("Files (*.jpg)|*.jpg"), "Files (*.jpg)");
  EXPECT_EQ(presenter::qtFileFilter(""), "");
  EXPECT_EQ(presenter::qtFileFilter("Lonely"), "");  // a name without patterns stands for nothing
}

}  // namespace
