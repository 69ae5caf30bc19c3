#pragma once
// Save Image As: a copy of a picture file's bytes under a name and in a folder that the user
// picks, in the save dialog of the window on top.

#include <string>

namespace vellumry {

class Program;

// The extension that the copy of `path` is offered with: its last four characters without any
// "." ("tif" for a.tif, "jpeg" for b.jpeg, "hoto" for a name "photo" without one).
std::string saveExtension(const std::string& path);

// Asks for a name in the dialog `CD` of the window that ViewerUp names (the GIF window, the
// viewer, else the main window) and copies the file `path` there. The dialog asks before it
// overwrites, so a confirmed name that exists is overwritten. A source that has gone is
// reported; a cancelled dialog does nothing; any other failing step is skipped.
void pSaveimg(Program& program, const std::string& path);

// Gives the keyboard back to the window that ViewerUp names, through its focus timer.
void pResumeview(Program& program);

}  // namespace vellumry
