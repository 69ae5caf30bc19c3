#include "platform/qt/QtHost.h"

#include <QApplication>
#include <QColorDialog>
#include <QCursor>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>

#include "platform/qt/FormWindow.h"
#include "platform/qt/Presenter.h"
#include "platform/qt/ScreenShot.h"
#include "platform/qt/Units.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/Menu.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::presenter {

namespace {
QMessageBox::StandardButton buttonFor(int answer) {
  switch (answer) {
    case tk::mb::OK:
      return QMessageBox::Ok;
    case tk::mb::Cancel:
      return QMessageBox::Cancel;
    case tk::mb::Abort:
      return QMessageBox::Abort;
    case tk::mb::Retry:
      return QMessageBox::Retry;
    case tk::mb::Ignore:
      return QMessageBox::Ignore;
    case tk::mb::Yes:
      return QMessageBox::Yes;
    default:
      return QMessageBox::No;
  }
}

QMessageBox::Icon iconFor(int style) {
  switch (style & 0x70) {
    case tk::mb::Critical:
      return QMessageBox::Critical;
    case tk::mb::Question:
      return QMessageBox::Question;
    case tk::mb::Exclamation:
      return QMessageBox::Warning;
    case tk::mb::Information:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

// The answers a box of `style` offers, in the order its buttons stand.
std::vector<int> answersOf(int style) {
  using namespace tk::mb;
  switch (style & 7) {
    case OKCancel:
      return {OK, Cancel};
    case AbortRetryIgnore:
      return {Abort, Retry, Ignore};
    case YesNoCancel:
      return {Yes, No, Cancel};
    case YesNo:
      return {Yes, No};
    case RetryCancel:
      return {Retry, Cancel};
    default:
      return {OK};
  }
}
}  // namespace

QWidget* QtHost::dialogParent() const {
  if (!presenter_) return QApplication::activeWindow();
  if (tk::Form* f = presenter_->inputForm())
    if (FormWindow* w = presenter_->window(*f); w && w->isVisible()) return w;
  return QApplication::activeWindow();
}

int QtHost::MsgBox(const std::string& prompt, int style, const std::string& title) {
  QMessageBox box(dialogParent());
  box.setIcon(iconFor(style));
  // An empty title would show the program's name: a blank keeps the bar empty.
  box.setWindowTitle(title.empty() ? QStringLiteral(" ") : QString::fromStdString(title));
  box.setText(QString::fromStdString(prompt));
  const std::vector<int> answers = answersOf(style);
  std::map<QAbstractButton*, int> answerOf;
  for (int answer : answers)
    answerOf[static_cast<QAbstractButton*>(box.addButton(buttonFor(answer)))] = answer;
  // Style 256 and 512 make the second and third button the default one.
  const size_t preferred = static_cast<size_t>((style >> 8) & 3);
  box.setDefaultButton(buttonFor(answers[preferred < answers.size() ? preferred : 0]));
  box.setEscapeButton(box.button(buttonFor(tk::mb::closedAnswer(style))));
  box.exec();
  auto it = answerOf.find(box.clickedButton());
  return it == answerOf.end() ? tk::mb::closedAnswer(style) : it->second;
}

std::map<const QAction*, tk::Menu*> buildMenu(const tk::Menu& menu, QMenu& out) {
  std::map<const QAction*, tk::Menu*> entries;
  for (tk::Menu* child : menu.children()) {
    if (!child->Visible()) continue;
    if (child->separator()) {
      out.addSeparator();
      continue;
    }
    const QString caption = QString::fromStdString(child->Caption());
    if (!child->children().empty()) {
      QMenu* sub = out.addMenu(caption);
      sub->setEnabled(child->Enabled());
      entries.merge(buildMenu(*child, *sub));
      continue;
    }
    // Text behind a tab shows as the entry's key, right-aligned.
    QAction* action = out.addAction(
        child->Shortcut().empty() ? caption
                                  : caption + "\t" + QString::fromStdString(child->Shortcut()));
    action->setEnabled(child->Enabled());
    action->setCheckable(child->Checked());
    action->setChecked(child->Checked());
    entries[action] = child;
  }
  return entries;
}

tk::Menu* QtHost::PopupMenu(tk::Menu& menu, int, std::optional<double> x, std::optional<double> y) {
  QMenu popup(dialogParent());
  const auto entries = buildMenu(menu, popup);
  QPoint at = QCursor::pos();
  // The place is in the units of the form the user acted on, as it calls PopupMenu.
  tk::Form* form = presenter_ ? presenter_->inputForm() : nullptr;
  if (x && y && form) {
    if (FormWindow* w = presenter_->window(*form)) {
      QPointF per = unitsPerPixelInside(*form);
      at = w->mapToGlobal(QPoint(static_cast<int>(*x / per.x()), static_cast<int>(*y / per.y())));
    }
  }
  QAction* picked = popup.exec(at);
  auto it = entries.find(picked);
  return it == entries.end() ? nullptr : it->second;
}

QString qtFileFilter(const std::string& filter) {
  const QStringList parts = QString::fromStdString(filter).split('|');
  QStringList out;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    QString patterns = parts[i + 1];
    patterns.replace(';', ' ');
    // A name that shows its patterns already needs them no second time.
    const QString shown = "(" + patterns.simplified() + ")";
    out.push_back(parts[i].contains(shown) ? parts[i] : parts[i] + " " + shown);
  }
  return out.join(";;");
}

std::optional<std::string> QtHost::saveFile(const tk::SaveFileRequest& request) {
  QString start = QString::fromStdString(request.initDir);
  // Without a folder of its own the dialog starts where the desktop keeps pictures, not in
  // whatever folder the program was started from.
  if (start.isEmpty()) start = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
  if (!QDir(start).exists()) start = QDir::homePath();
  if (!request.fileName.empty())
    start = start.isEmpty() ? QString::fromStdString(request.fileName)
                            : start + "/" + QString::fromStdString(request.fileName);
  QString path = QFileDialog::getSaveFileName(dialogParent(), QString::fromStdString(request.title),
                                              start, qtFileFilter(request.filter));
  if (path.isEmpty()) return std::nullopt;
  if (!request.defaultExt.empty() && QFileInfo(path).suffix().isEmpty())
    path += "." + QString::fromStdString(request.defaultExt);
  return path.toStdString();
}

std::optional<uint32_t> QtHost::ChooseColor(uint32_t initial) {
  QColor color = QColorDialog::getColor(qtColor(initial, QApplication::palette()), dialogParent());
  if (!color.isValid()) return std::nullopt;
  return modelColor(color);
}

void QtHost::Beep() { QApplication::beep(); }

bool QtHost::run(const std::string& commandLine) {
  QStringList words = QProcess::splitCommand(QString::fromStdString(commandLine));
  if (words.isEmpty()) return false;
  const QString program = words.takeFirst();
  return QProcess::startDetached(program, words);
}

bool QtHost::open(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

bool QtHost::openWith(const std::string&) { return false; }

gdi::Picture QtHost::screenPicture() {
  if (!presenter_) return {};
  return asPicture(renderScreen(*presenter_), presenter_->runtime().screen().TwipsPerPixelX);
}

}  // namespace vellumry::presenter
