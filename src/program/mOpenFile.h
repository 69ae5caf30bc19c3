#pragma once
// Whether a file is there, and opening a file with whatever program the desktop gives it.

#include <string>

namespace vellumry {

namespace tk {
class Runtime;
}

// True when `path` names a file whose length can be read; never shows anything.
bool pFileexists(const std::string& path);

// Opens `path` with the desktop's opener; when that fails, offers the desktop's chooser of
// programs; when there is none, tells the user in an "Info" box. Nothing else is reported.
void pOpenfile(tk::Runtime& runtime, const std::string& path);

}  // namespace vellumry
