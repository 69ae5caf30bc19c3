#include "platform/qt/WindowedControls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTabBar>
#include <algorithm>
#include <optional>

#include "platform/qt/ControlTap.h"
#include "platform/qt/Units.h"
#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/Input.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/ScrollBar.h"

namespace vellumry::presenter {

namespace {
QString text(const std::string& s) { return QString::fromStdString(s); }

// A button lower than a line of its caption (the minimise button's "__") would show none of it:
// its strokes are centred instead, as much of them as fits.
class CaptionButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    if (fontMetrics().height() <= height() - kFrame) {
      painter.drawControl(QStyle::CE_PushButton, option);
      return;
    }
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    const QRect ink = fontMetrics().tightBoundingRect(text());
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(rect().center() - ink.center(), text());
  }

 private:
  static constexpr int kFrame = 4;  // pixels of the button's frame, above and below
};

QStringList itemsOf(const tk::ListControl& list) {
  QStringList items;
  items.reserve(list.ListCount());
  for (int i = 0; i < list.ListCount(); ++i) items.push_back(text(list.List(i)));
  return items;
}

void syncList(QListWidget* w, const tk::ListControl& list, bool items) {
  if (items) {
    w->clear();
    w->addItems(itemsOf(list));
  }
  w->setCurrentRow(list.ListIndex());
  if (list.ListIndex() < 0) w->clearSelection();
  if (QListWidgetItem* item = w->currentItem()) w->scrollToItem(item);
}

void syncCombo(QComboBox* w, const tk::ComboBox& list, bool items) {
  if (items) {
    w->clear();
    w->addItems(itemsOf(list));
  }
  w->setCurrentIndex(list.ListIndex());
  // A text that is none of the items shows with nothing selected.
  w->setPlaceholderText(list.ListIndex() < 0 ? QString::fromStdString(list.Text()) : QString());
}

// A colour that the model gives a widget of its own. The system colours a kind of widget has by
// default keep the desktop's look; another system colour shows as the desktop has it.
void syncColors(QWidget* w, uint32_t back, uint32_t defaultBack, std::optional<uint32_t> fore = {},
                uint32_t defaultFore = tk::kSystemText) {
  QString sheet;
  if (back != defaultBack) sheet += "background-color: " + qtColor(back, w->palette()).name() + ";";
  if (fore && *fore != defaultFore) sheet += "color: " + qtColor(*fore, w->palette()).name() + ";";
  if (w->styleSheet() != sheet) w->setStyleSheet(sheet);
}

void syncScrollBar(QScrollBar* w, const tk::ScrollBar& bar) {
  // The model allows Min above Max: the bar then runs the other way.
  w->setInvertedAppearance(bar.Min() > bar.Max());
  w->setRange(std::min(bar.Min(), bar.Max()), std::max(bar.Min(), bar.Max()));
  w->setSingleStep(bar.SmallChange());
  w->setPageStep(bar.LargeChange());
  w->setValue(bar.Value());
}

void syncTabs(QTabBar* w, const tk::TabStrip& tabs) {
  const auto& captions = tabs.tabs();
  while (w->count() > static_cast<int>(captions.size())) w->removeTab(w->count() - 1);
  for (size_t i = 0; i < captions.size(); ++i) {
    if (static_cast<int>(i) < w->count())
      w->setTabText(static_cast<int>(i), text(captions[i]));
    else
      w->addTab(text(captions[i]));
  }
  w->setCurrentIndex(tabs.selectedItem() - 1);
}
}  // namespace

bool isContainer(const tk::Control& c) {
  return c.kind() == tk::Kind::Frame || c.kind() == tk::Kind::PictureBox;
}

bool isWindowless(const tk::Control& c) {
  return c.kind() == tk::Kind::Image || c.kind() == tk::Kind::Label || c.kind() == tk::Kind::Shape;
}

bool isWindowed(const tk::Control& c) {
  switch (c.kind()) {
    case tk::Kind::CommandButton:
    case tk::Kind::CheckBox:
    case tk::Kind::TextBox:
    case tk::Kind::ListBox:
    case tk::Kind::FileListBox:
    case tk::Kind::ComboBox:
    case tk::Kind::VScrollBar:
    case tk::Kind::HScrollBar:
    case tk::Kind::TabStrip:
      return true;
    default:
      return false;
  }
}

QWidget* createWindowed(Presenter& presenter, tk::Control& c, QWidget* parent, ControlTap*& tap) {
  QWidget* w = nullptr;
  switch (c.kind()) {
    case tk::Kind::CommandButton: {
      auto* button = new CaptionButton(parent);
      tap = new ControlTap(presenter, c, button);
      QObject::connect(button, &QPushButton::clicked, tap,
                       [tap] { tap->act([](tk::Control& b) { tk::user::raiseClick(b); }); });
      w = button;
      break;
    }
    case tk::Kind::CheckBox: {
      auto* box = new QCheckBox(parent);
      tap = new ControlTap(presenter, c, box);
      QObject::connect(box, &QCheckBox::clicked, tap, [tap](bool on) {
        tap->act(
            [on](tk::Control& b) { tk::user::check(static_cast<tk::CheckBox&>(b), on ? 1 : 0); });
      });
      w = box;
      break;
    }
    case tk::Kind::TextBox: {
      auto* edit = new QLineEdit(parent);
      tap = new ControlTap(presenter, c, edit);
      QObject::connect(edit, &QLineEdit::textEdited, tap, [tap, edit](const QString& s) {
        tap->act([s, caret = edit->cursorPosition()](tk::Control& b) {
          tk::user::type(static_cast<tk::TextBox&>(b), s.toStdString(), caret);
        });
      });
      w = edit;
      break;
    }
    case tk::Kind::ListBox:
    case tk::Kind::FileListBox: {
      auto* list = new QListWidget(parent);
      list->setSelectionMode(QAbstractItemView::SingleSelection);
      list->setUniformItemSizes(true);
      tap = new ControlTap(presenter, c, list);
      tap->watchMouse(list->viewport());
      list->viewport()->setMouseTracking(true);
      // The selection, not the current row: a list that gets the focus moves its current row
      // to the top without the user choosing anything.
      QObject::connect(list, &QListWidget::itemSelectionChanged, tap, [tap, list] {
        const QList<QListWidgetItem*> chosen = list->selectedItems();
        const int row = chosen.isEmpty() ? -1 : list->row(chosen.front());
        tap->act([row](tk::Control& b) {
          if (row >= 0) tk::user::select(static_cast<tk::ListControl&>(b), row);
        });
      });
      w = list;
      break;
    }
    case tk::Kind::ComboBox: {
      auto* combo = new QComboBox(parent);
      tap = new ControlTap(presenter, c, combo);
      QObject::connect(combo, &QComboBox::activated, tap, [tap](int row) {
        tap->act(
            [row](tk::Control& b) { tk::user::select(static_cast<tk::ListControl&>(b), row); });
      });
      w = combo;
      break;
    }
    case tk::Kind::VScrollBar:
    case tk::Kind::HScrollBar: {
      auto* bar =
          new QScrollBar(c.kind() == tk::Kind::VScrollBar ? Qt::Vertical : Qt::Horizontal, parent);
      // Change comes when the thumb is let go, not on every step of a drag.
      bar->setTracking(false);
      tap = new ControlTap(presenter, c, bar);
      QObject::connect(bar, &QScrollBar::valueChanged, tap, [tap](int value) {
        tap->act(
            [value](tk::Control& b) { tk::user::scroll(static_cast<tk::ScrollBar&>(b), value); });
      });
      w = bar;
      break;
    }
    case tk::Kind::TabStrip: {
      auto* tabs = new QTabBar(parent);
      tabs->setExpanding(false);
      tap = new ControlTap(presenter, c, tabs);
      QObject::connect(tabs, &QTabBar::currentChanged, tap, [tap](int index) {
        tap->act([index](tk::Control& b) {
          tk::user::pickTab(static_cast<tk::TabStrip&>(b), index + 1);
        });
      });
      w = tabs;
      break;
    }
    default:
      return nullptr;
  }
  // Focus moves only by a click, which the model sees, or by the model itself.
  w->setFocusPolicy(Qt::ClickFocus);
  w->setMouseTracking(true);
  syncWindowed(w, c, true);
  return w;
}

void syncWindowed(QWidget* widget, const tk::Control& c, bool items) {
  const QSignalBlocker block(widget);
  switch (c.kind()) {
    case tk::Kind::CommandButton: {
      const auto& button = static_cast<const tk::CommandButton&>(c);
      static_cast<QPushButton*>(widget)->setText(text(button.Caption()));
      syncColors(widget, button.BackColor(), tk::kSystemFace);
      break;
    }
    case tk::Kind::CheckBox: {
      auto* box = static_cast<QCheckBox*>(widget);
      const auto& check = static_cast<const tk::CheckBox&>(c);
      box->setText(text(check.Caption()));
      box->setTristate(check.Value() == 2);
      box->setCheckState(check.Value() == 0   ? Qt::Unchecked
                         : check.Value() == 1 ? Qt::Checked
                                              : Qt::PartiallyChecked);
      break;
    }
    case tk::Kind::TextBox: {
      auto* edit = static_cast<QLineEdit*>(widget);
      const auto& box = static_cast<const tk::TextBox&>(c);
      // Setting the same text again would move the cursor under the user's hands.
      if (edit->text() != text(box.Text())) {
        edit->setText(text(box.Text()));
        edit->setSelection(box.SelStart(), box.SelLength());
      }
      edit->setReadOnly(box.Locked());
      break;
    }
    case tk::Kind::ListBox: {
      const auto& list = static_cast<const tk::ListBox&>(c);
      syncList(static_cast<QListWidget*>(widget), list, items);
      syncColors(widget, list.BackColor(), tk::kSystemWindow, list.ForeColor(),
                 tk::kSystemWindowText);
      break;
    }
    case tk::Kind::FileListBox:
      syncList(static_cast<QListWidget*>(widget), static_cast<const tk::ListControl&>(c), items);
      break;
    case tk::Kind::ComboBox: {
      const auto& combo = static_cast<const tk::ComboBox&>(c);
      syncCombo(static_cast<QComboBox*>(widget), combo, items);
      syncColors(widget, combo.BackColor(), tk::kSystemWindow, combo.ForeColor(),
                 tk::kSystemWindowText);
      // A text that is none of the items looks like one.
      QPalette palette = widget->palette();
      palette.setColor(QPalette::PlaceholderText, qtColor(combo.ForeColor(), palette));
      widget->setPalette(palette);
      break;
    }
    case tk::Kind::VScrollBar:
    case tk::Kind::HScrollBar:
      syncScrollBar(static_cast<QScrollBar*>(widget), static_cast<const tk::ScrollBar&>(c));
      break;
    case tk::Kind::TabStrip:
      syncTabs(static_cast<QTabBar*>(widget), static_cast<const tk::TabStrip&>(c));
      break;
    default:
      break;
  }
}

}  // namespace vellumry::presenter
