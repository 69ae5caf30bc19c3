#pragma once
// A host without a display: answers come from queues filled beforehand, and every call is
// written down as a line of what the program showed.

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/toolkit/Host.h"

namespace vellumry::tk {

class HeadlessHost : public Host {
 public:
  void queueAnswer(int answer) { answers_.push_back(answer); }
  // The next popup's pick by entry name; an empty name picks nothing.
  void queueMenuPick(std::string name) { picks_.push_back(std::move(name)); }
  void queueSaveFile(std::optional<std::string> path) { saves_.push_back(std::move(path)); }
  void queueColor(std::optional<uint32_t> color) { colors_.push_back(color); }

  // Each line as it is shown, e.g. `msgbox 36 "" "text" -> 6`; also kept in `shown`.
  std::function<void(const std::string&)> onShown;
  std::vector<std::string> shown;
  // Draws the screen for screenPicture; without it the screen has no picture.
  std::function<gdi::Picture()> drawScreen;

  int MsgBox(const std::string& prompt, int style, const std::string& title) override;
  Menu* PopupMenu(Menu& menu, int flags, std::optional<double> x, std::optional<double> y) override;
  std::optional<std::string> saveFile(const SaveFileRequest& request) override;
  std::optional<uint32_t> ChooseColor(uint32_t initial) override;
  void Beep() override;
  bool run(const std::string& commandLine) override;
  bool open(const std::string& path) override;
  bool openWith(const std::string& path) override;
  gdi::Picture screenPicture() override { return drawScreen ? drawScreen() : gdi::Picture(); }

 private:
  void show(const std::string& line);

  std::deque<int> answers_;
  std::deque<std::string> picks_;
  std::deque<std::optional<std::string>> saves_;
  std::deque<std::optional<uint32_t>> colors_;
};

}  // namespace vellumry::tk
