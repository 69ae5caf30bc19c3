#pragma once
// The desktop's answers to the program: real message boxes, popup menus and common dialogs,
// the beep, starting programs and opening files.

#include <QString>
#include <map>

#include "platform/toolkit/Host.h"

class QMenu;
class QAction;
class QWidget;

namespace vellumry::presenter {

class Presenter;

class QtHost final : public tk::Host {
 public:
  // The presenter, once there is one, gives popups and dialogs their window and place.
  void setPresenter(const Presenter* presenter) { presenter_ = presenter; }

  int MsgBox(const std::string& prompt, int style, const std::string& title) override;
  tk::Menu* PopupMenu(tk::Menu& menu, int flags, std::optional<double> x,
                      std::optional<double> y) override;
  std::optional<std::string> saveFile(const tk::SaveFileRequest& request) override;
  std::optional<uint32_t> ChooseColor(uint32_t initial) override;
  void Beep() override;
  bool run(const std::string& commandLine) override;
  bool open(const std::string& path) override;
  bool openWith(const std::string& path) override;
  gdi::Picture screenPicture() override;

 private:
  QWidget* dialogParent() const;
  const Presenter* presenter_ = nullptr;
};

// Fills `out` with `menu`'s visible children: separators for "-", disabled entries greyed,
// checked ones checked, entries with children as submenus. Returns which action is which entry.
std::map<const QAction*, tk::Menu*> buildMenu(const tk::Menu& menu, QMenu& out);

// "Bitmap|*.bmp|All|*.*" as a Qt file dialog filter: "Bitmap (*.bmp);;All (*.*)".
QString qtFileFilter(const std::string& filter);

}  // namespace vellumry::presenter
