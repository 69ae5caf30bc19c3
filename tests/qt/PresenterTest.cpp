// The model's forms and controls on screen: places, containment, changes that show at once,
// and windowless controls that cost no widget.

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>

#include "qt/QtFixture.h"

using namespace vellumry;

namespace {

class PresenterTest : public ::testing::Test {
 protected:
  QtProgram p;
  PanelForm& f = p.form();
};

TEST_F(PresenterTest, WidgetsStandAtTheModelsTwipsInPixelsAndFollowMoves) {
  f.Show();
  presenter::FormWindow& w = p.window();
  EXPECT_EQ(w.geometry(), QRect(100, 200, 400, 300));
  EXPECT_TRUE(w.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(p.presenter->widget(f.Frame1)->geometry(), QRect(10, 20, 200, 200));
  EXPECT_EQ(p.widgetOf<QPushButton>(f.Command1)->geometry(), QRect(220, 10, 80, 30));
  // A control inside a frame stands relative to it, as a child of the frame's widget.
  QListWidget* list = p.widgetOf<QListWidget>(f.List1);
  EXPECT_EQ(list->parentWidget(), p.presenter->widget(f.Frame1));
  EXPECT_EQ(list->geometry(), QRect(10, 10, 100, 100));

  f.Command1.Move(0, 0, 1500, 600);
  EXPECT_EQ(p.widgetOf<QPushButton>(f.Command1)->geometry(), QRect(0, 0, 100, 40));
  f.Move(0, 0, 3000, 1500);
  EXPECT_EQ(w.geometry(), QRect(0, 0, 200, 100));
  f.Command1.setContainer(&f.Frame1);
  EXPECT_EQ(p.widgetOf<QPushButton>(f.Command1)->parentWidget(), p.presenter->widget(f.Frame1));
  f.setWindowState(2);
  EXPECT_EQ(w.geometry(), QRect(0, 0, 800, 600));
}

TEST_F(PresenterTest, AThinBorderWithoutATitleBarIsDrawnAroundTheClientArea) {
  f.setBorderStyle(1);
  f.setControlBox(false);
  f.Show();
  presenter::FormWindow& w = p.window();
  EXPECT_TRUE(w.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(w.geometry(), QRect(100, 200, 400, 300));
  EXPECT_EQ(p.widgetOf<QPushButton>(f.Command1)->geometry(), QRect(221, 11, 80, 30));
  const QImage shown = w.grab().toImage();
  const QRgb line = w.palette().color(QPalette::Shadow).rgb();
  EXPECT_EQ(shown.pixel(0, 150), line);
  EXPECT_EQ(shown.pixel(399, 299), line);
  // With a caption the window manager frames it, title bar and all.
  f.setCaption("Pictures");
  EXPECT_FALSE(w.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(p.widgetOf<QPushButton>(f.Command1)->geometry(), QRect(220, 10, 80, 30));
}

TEST_F(PresenterTest, ChangesShowAtOnceAndRaiseTheirEventsOnceWithNothingComingBack) {
  EXPECT_FALSE(p.window().isVisible());
  f.Show();
  EXPECT_TRUE(p.window().isVisible());
  p.log.clear();
  f.setCaption("Pictures");
  EXPECT_EQ(p.window().windowTitle(), "Pictures");
  f.setMousePointer(11);
  EXPECT_EQ(p.window().cursor().shape(), Qt::WaitCursor);
  f.setMousePointer(0);
  EXPECT_EQ(p.window().cursor().shape(), Qt::ArrowCursor);
  f.Command1.setCaption("Stop");
  EXPECT_EQ(p.widgetOf<QPushButton>(f.Command1)->text(), "Stop");
  f.Command1.setToolTipText("Start");
  EXPECT_EQ(p.widgetOf<QPushButton>(f.Command1)->toolTip(), "Start");
  f.Command1.setVisible(false);
  EXPECT_FALSE(p.widgetOf<QPushButton>(f.Command1)->isVisible());
  f.Command1.setEnabled(false);
  EXPECT_FALSE(p.widgetOf<QPushButton>(f.Command1)->isEnabled());

  QListWidget* list = p.widgetOf<QListWidget>(f.List1);
  f.List1.AddItem("a");
  f.List1.AddItem("b");
  f.List1.AddItem("c", 0);
  ASSERT_EQ(list->count(), 3);
  EXPECT_EQ(list->item(0)->text(), "c");
  f.List1.setListIndex(2);
  EXPECT_EQ(list->currentRow(), 2);
  f.List1.RemoveItem(0);
  EXPECT_EQ(list->count(), 2);
  EXPECT_EQ(list->currentRow(), 1);  // the model moved its selection with the items

  QScrollBar* bar = p.widgetOf<QScrollBar>(f.VScroll1);
  f.VScroll1.setValue(7);
  EXPECT_EQ(bar->value(), 7);
  EXPECT_EQ(bar->maximum(), 10);
  f.VScroll1.setMin(20);  // above Max: the bar runs the other way
  EXPECT_TRUE(bar->invertedAppearance());
  EXPECT_EQ(bar->minimum(), 10);
  EXPECT_EQ(bar->maximum(), 20);
  EXPECT_EQ(bar->value(), 10);

  f.Text1.setText("typed");
  EXPECT_EQ(p.widgetOf<QLineEdit>(f.Text1)->text(), "typed");
  EXPECT_EQ(p.widgetOf<QLineEdit>(f.Text1)->cursorPosition(), 0);  // as the model has it
  f.Check1.setValue(1);
  EXPECT_TRUE(p.widgetOf<QCheckBox>(f.Check1)->isChecked());
  f.Tabs1.setSelectedItem(2);
  EXPECT_EQ(p.widgetOf<QTabBar>(f.Tabs1)->currentIndex(), 1);
  // Each setter's own event, once: no widget echoed the change back into the model.
  EXPECT_EQ(p.log,
            (std::vector<std::string>{"List1_Click 2", "VScroll1_Change 7", "VScroll1_Change 10",
                                      "Text1_Change typed", "Check1_Click 1", "Tabs1_Click 2"}));
}

TEST_F(PresenterTest, FocusFollowsTheActiveControl) {
  f.Show();
  f.Text1.setText("abcdef");
  f.Text1.setSelStart(1);
  f.Text1.setSelLength(3);
  f.Text1.SetFocus();
  QLineEdit* edit = p.widgetOf<QLineEdit>(f.Text1);
  EXPECT_EQ(p.window().focusWidget(), edit);
  EXPECT_EQ(edit->selectedText(), "bcd");
  f.List1.SetFocus();
  EXPECT_EQ(p.window().focusWidget(), p.presenter->widget(f.List1));
  // A selection made while the box has the focus already shows too (the offered link name).
  f.Text1.SetFocus();
  f.Text1.setText("samples");
  f.Text1.setSelStart(0);
  f.Text1.setSelLength(7);
  EXPECT_EQ(edit->selectedText(), "samples");
}

TEST_F(PresenterTest, ImagesLabelsAndShapesCostNoWidget) {
  f.Show();
  const auto before = p.window().findChildren<QWidget*>().size();
  EXPECT_EQ(p.presenter->widget(f.Image1(0)), nullptr);
  for (int i = 1; i <= 1000; ++i) {
    f.Image1.Load(i);
    f.Image1(i).setVisible(true);
  }
  EXPECT_EQ(p.window().findChildren<QWidget*>().size(), before);
  EXPECT_EQ(p.window().windowlessCount(), 1003u);  // Label1, Image1(0..1000), Shape1
  for (int i = 1; i <= 1000; ++i) f.Image1.Unload(i);
  EXPECT_EQ(p.window().windowlessCount(), 3u);
}

TEST_F(PresenterTest, KeptPicturesGoWhenThePictureOrSizeChanges) {
  f.Show();
  f.Image1(0).setPicture(solidPicture(4, 4, 0xFF00FF00));
  p.window().grab();
  EXPECT_EQ(p.window().painter().keptImages(), 1u);
  f.Image1(0).setWidth(900);
  EXPECT_EQ(p.window().painter().keptImages(), 0u);
  p.window().grab();
  f.Image1.Load(1);  // a copy of element 0, picture and all
  f.Image1(1).setVisible(true);
  p.window().grab();
  EXPECT_EQ(p.window().painter().keptImages(), 2u);
  f.Image1.Unload(1);
  EXPECT_EQ(p.window().painter().keptImages(), 1u);
  f.Image1(0).setPicture({});
  EXPECT_EQ(p.window().painter().keptImages(), 0u);
}

TEST_F(PresenterTest, UnloadingAFormTakesItsWindowAway) {
  f.Show();
  QPointer<presenter::FormWindow> w = &p.window();
  ASSERT_TRUE(f.Unload());
  EXPECT_EQ(p.presenter->window(f), nullptr);
  EXPECT_FALSE(w->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(w.isNull());
  // Touching the form again loads a new one with a window of its own.
  p.form().Show();
  EXPECT_TRUE(p.window().isVisible());
}

TEST_F(PresenterTest, AFormPlacedInsideAnotherIsItsChildTakesItsKeysAndLeavesWithIt) {
  f.Show();
  tk::FormSlot<PanelForm> innerSlot(p.runtime,
                                    [&] { return std::make_unique<PanelForm>(p.runtime, p.log); });
  PanelForm& inner = innerSlot();
  inner.SetParent(&f);
  inner.Move(150, 300, 1500, 1500);
  inner.Show();
  presenter::FormWindow* innerWindow = p.presenter->window(inner);
  EXPECT_EQ(innerWindow->parentWidget(), &p.window());
  EXPECT_EQ(innerWindow->geometry(), QRect(10, 20, 100, 100));
  EXPECT_EQ(p.presenter->screenRect(inner), QRect(110, 220, 100, 100));
  // Drawn with its owner, not as a window of its own.
  EXPECT_EQ(p.presenter->zOrder().size(), 1u);
  EXPECT_EQ(p.presenter->keyForm(p.window()), &inner);
  inner.Hide();
  EXPECT_EQ(p.presenter->keyForm(p.window()), &f);

  inner.Show();
  ASSERT_TRUE(f.Unload());
  EXPECT_EQ(inner.ownerForm(), nullptr);
  EXPECT_EQ(innerWindow->parentWidget(), nullptr);
  EXPECT_TRUE(innerWindow->isWindow());
}

// A window put inside another while hidden stays hidden when its owner shows, and a presenter
// that goes while one lies inside another deletes each window once.
TEST_F(PresenterTest, AHiddenWindowInsideAnotherStaysHidden) {
  tk::FormSlot<PanelForm> innerSlot(
      p.runtime, [&] { return std::make_unique<PanelForm>(p.runtime, p.log, "Inner"); });
  PanelForm& inner = innerSlot();
  inner.SetParent(&f);
  f.Show();
  EXPECT_FALSE(p.presenter->window(inner)->isVisible());
  inner.Show();
  EXPECT_TRUE(p.presenter->window(inner)->isVisible());
  p.presenter.reset();
}

TEST_F(PresenterTest, EndingTheProgramClosesEveryWindow) {
  f.Show();
  bool told = false;
  p.presenter->onProgramEnded = [&] { told = true; };
  p.runtime.End();
  EXPECT_TRUE(told);
  EXPECT_TRUE(p.presenter->zOrder().empty());
}

}  // namespace
