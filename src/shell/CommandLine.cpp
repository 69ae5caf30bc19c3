#include "shell/CommandLine.h"

#include <filesystem>
#include <system_error>

namespace vellumry {

void takeCommandLine(const std::vector<std::string>& args, Places& places) {
  if (args.size() < 2) return;
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path named = fs::absolute(args[1], error);
  if (error) return;
  if (fs::is_directory(named, error)) {
    places.startFolder = named.lexically_normal().string();
  } else if (fs::is_regular_file(named, error)) {
    places.startFolder = named.parent_path().lexically_normal().string();
    places.startFile = named.filename().string();
  }
}

}  // namespace vellumry
