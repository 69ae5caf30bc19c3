#include "platform/toolkit/HeadlessHost.h"

#include "platform/toolkit/Menu.h"
#include "platform/toolkit/Value.h"

namespace vellumry::tk {

void HeadlessHost::show(const std::string& line) {
  shown.push_back(line);
  if (onShown) onShown(line);
}

int HeadlessHost::MsgBox(const std::string& prompt, int style, const std::string& title) {
  std::string line =
      "msgbox " + std::to_string(style) + " " + jsonQuote(title) + " " + jsonQuote(prompt) + " -> ";
  if (answers_.empty()) {
    int answer = mb::closedAnswer(style);
    show(line + std::to_string(answer) + " (no answer queued)");
    return answer;
  }
  int answer = answers_.front();
  answers_.pop_front();
  show(line + std::to_string(answer));
  return answer;
}

namespace {
Menu* findEntry(Menu& menu, const std::string& name) {
  for (Menu* child : menu.children()) {
    if (!child->Visible() || !child->Enabled()) continue;
    if (iequals(child->Name(), name)) return child;
    if (Menu* found = findEntry(*child, name)) return found;
  }
  return nullptr;
}
}  // namespace

Menu* HeadlessHost::PopupMenu(Menu& menu, int flags, std::optional<double> x,
                              std::optional<double> y) {
  std::string line = "popup " + menu.Name() + " " + std::to_string(flags);
  if (x && y) line += " " + toText(*x) + " " + toText(*y);
  std::string pick;
  if (!picks_.empty()) {
    pick = picks_.front();
    picks_.pop_front();
  }
  Menu* entry = pick.empty() ? nullptr : findEntry(menu, pick);
  show(line + " -> " + (entry ? entry->Name() : std::string("none")));
  return entry;
}

std::optional<std::string> HeadlessHost::saveFile(const SaveFileRequest& request) {
  std::optional<std::string> path;
  if (!saves_.empty()) {
    path = saves_.front();
    saves_.pop_front();
  }
  show("savefile " + jsonQuote(request.fileName) + " -> " + (path ? jsonQuote(*path) : "cancel"));
  return path;
}

std::optional<uint32_t> HeadlessHost::ChooseColor(uint32_t initial) {
  std::optional<uint32_t> color;
  if (!colors_.empty()) {
    color = colors_.front();
    colors_.pop_front();
  }
  show("color " + std::to_string(initial) + " -> " +
       (color ? std::to_string(*color) : std::string("cancel")));
  return color;
}

void HeadlessHost::Beep() { show("beep"); }

bool HeadlessHost::run(const std::string& commandLine) {
  show("run " + jsonQuote(commandLine));
  return true;
}

bool HeadlessHost::open(const std::string& path) {
  show("open " + jsonQuote(path));
  return true;
}

bool HeadlessHost::openWith(const std::string& path) {
  show("openwith " + jsonQuote(path));
  return true;
}

}  // namespace vellumry::tk
