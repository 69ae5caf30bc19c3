#pragma once
// What the program asks of the desktop: message boxes, popup menus, common dialogs, the beep,
// starting programs and opening files. The presenter answers with real windows; the headless
// host with scripted answers. The runtime blocks timers around every blocking call.

#include <cstdint>
#include <optional>
#include <string>

#include "platform/gdi/Picture.h"

namespace vellumry::tk {

class Menu;

// Message box styles and answers.
namespace mb {
inline constexpr int OKOnly = 0, OKCancel = 1, AbortRetryIgnore = 2, YesNoCancel = 3, YesNo = 4,
                     RetryCancel = 5;
inline constexpr int Critical = 16, Question = 32, Exclamation = 48, Information = 64;
inline constexpr int OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7;
// Whether a box of `style` offers the answer `answer`.
bool offers(int style, int answer);
// The answer a box gets when it is closed without a choice: Cancel, else No, else OK.
int closedAnswer(int style);
}  // namespace mb

struct SaveFileRequest {
  std::string title;
  std::string filter;    // "Text|*.txt|All|*.*"
  std::string fileName;  // proposed name
  std::string initDir;
  std::string defaultExt;  // given to a chosen name that has no extension, without the dot
};

class Host {
 public:
  virtual ~Host() = default;
  // Blocks until answered; returns one of mb::OK ... mb::No that the style offers.
  virtual int MsgBox(const std::string& prompt, int style, const std::string& title) = 0;
  // Shows `menu`'s visible children as a popup at (x, y) in twips of `form` (or at the pointer
  // when absent); returns the picked entry, or nullptr when the popup closed without a pick.
  virtual Menu* PopupMenu(Menu& menu, int flags, std::optional<double> x,
                          std::optional<double> y) = 0;
  // The chosen path, or nothing when the user cancelled.
  virtual std::optional<std::string> saveFile(const SaveFileRequest& request) = 0;
  // The chosen colour as 0x00BBGGRR, or nothing when the user cancelled.
  virtual std::optional<uint32_t> ChooseColor(uint32_t initial) = 0;
  virtual void Beep() = 0;
  // Starts a program by its command line and leaves it alone; false when it can't start.
  virtual bool run(const std::string& commandLine) = 0;
  // Opens a file or folder with the desktop's associated program; false on failure.
  virtual bool open(const std::string& path) = 0;
  // Asks the desktop to offer its programs for opening the file; false when it has no chooser.
  virtual bool openWith(const std::string& path) = 0;
  // What the program's own windows show on the screen, as a picture of the screen's size;
  // an empty picture where nothing draws them.
  virtual gdi::Picture screenPicture() = 0;
};

}  // namespace vellumry::tk
