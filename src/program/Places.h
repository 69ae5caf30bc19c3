#pragma once

#include <string>

namespace vellumry {

// Where the program finds its files; filled from the machine by the program's main, or by
// the driver's set-up commands.
struct Places {
  std::string programFolder;   // holds the settings file and the link list
  std::string installFolder;   // the per-user install folder setting
  std::string picturesFolder;  // the user's default folder of pictures
  std::string startFile;       // a file named on the command line: selected once the grid loads
  std::string startFolder;     // a folder named on the command line: the start folder of this run
};

}  // namespace vellumry
