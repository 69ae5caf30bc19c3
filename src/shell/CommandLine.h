#pragma once
// What the program takes from its command line: `vellumry [FOLDER|PICTURE]`.

#include <string>
#include <vector>

#include "program/Places.h"

namespace vellumry {

// A folder named in `args` (after the program's own name) becomes the start folder of this
// run only; a picture named there gives its folder and is selected once the grid has loaded.
// Anything else, or nothing, leaves `places` as it is.
void takeCommandLine(const std::vector<std::string>& args, Places& places);

}  // namespace vellumry
