// tomeview: the help program. Opens the help page that lies beside it with the desktop's
// browser and ends; the program that started it doesn't wait for it.
#include <unistd.h>

#include <cstdio>
#include <filesystem>

int main() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::filesystem::path page = self.parent_path() / "help" / "index.html";
  if (error || !std::filesystem::is_regular_file(page)) {
    std::fprintf(stderr, "tomeview: no help page at %s\n", page.c_str());
    return 1;
  }
  execlp("xdg-open", "xdg-open", page.c_str(), static_cast<char*>(nullptr));
  std::perror("tomeview: xdg-open");
  return 1;
}
