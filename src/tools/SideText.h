#pragma once
// A BMP may have a text file of the same name beside it; the viewers' menu then offers to open
// it.

namespace vellumry {

class Program;

// Offers "Open text from multiline textbox" in the viewers' menu when the selected file ends in
// "bmp" (lower case only) and its ".txt" lies beside it. For any BMP it sets sideText to that
// text file's path; for other files sideText keeps its old value.
void pRefreshSideMenu(Program& program);

}  // namespace vellumry
