// tomeview: the help program. Opens the program's help page with the desktop's browser and
// ends; the program that started it doesn't wait for it.
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "platform/os/Folders.h"

int main() {
  const std::string folder = vellumry::os::executableFolder();
  const std::filesystem::path page =
      std::filesystem::path(vellumry::os::dataFolderFor(folder)) / "help" / "index.html";
  if (folder.empty() || !std::filesystem::is_regular_file(page)) {
    std::fprintf(stderr, "tomeview: no help page at %s\n", page.c_str());
    return 1;
  }
  execlp("xdg-open", "xdg-open", page.c_str(), static_cast<char*>(nullptr));
  std::perror("tomeview: xdg-open");
  return 1;
}
