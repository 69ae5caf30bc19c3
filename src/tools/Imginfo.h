#pragma once
// The file information box of the selected picture.

#include <cstdint>
#include <string>

namespace vellumry {

class Program;

// A file's size as the box writes it: "1023 Bytes", "1.00 KB", "1.50 MB", "2.00 GB".
std::string sizeText(uint64_t bytes);

// Shows the box "File Information" for the file `path`, which is the selected file of the main
// window's file list: its width and height are those the grid recorded when it loaded it.
void pImginfo(Program& program, const std::string& path);

}  // namespace vellumry
