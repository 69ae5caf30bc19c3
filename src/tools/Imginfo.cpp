#include "tools/Imginfo.h"

#include <cctype>
#include <cmath>
#include <cstdio>

#include "platform/os/FileFacts.h"
#include "platform/toolkit/Error.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/Value.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

namespace {
constexpr const char* kCrLf = "\r\n";

// `text` with every occurrence of `part` taken out.
std::string without(std::string text, const std::string& part) {
  if (part.empty()) return text;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at))
    text.erase(at, part.size());
  return text;
}

// As the number format "#0.00" writes it: halves round away from zero, where printf would round
// an exact half to even.
std::string twoDecimals(double value, const char* unit) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f %s", std::floor(value * 100 + 0.5) / 100, unit);
  return text;
}
}  // namespace

std::string sizeText(uint64_t bytes) {
  const double size = static_cast<double>(bytes);
  if (bytes >= 1073741824) return twoDecimals(size / 1024 / 1024 / 1024, "GB");
  if (bytes >= 1048576) return twoDecimals(size / 1024 / 1024, "MB");
  if (bytes >= 1024) return twoDecimals(size / 1024, "KB");
  return std::to_string(bytes) + " Bytes";
}

void pImginfo(Program& program, const std::string& path) {
  const std::optional<os::FileFacts> file = os::GetFile(path);
  if (!file) tk::raise(tk::err::FileNotFound, path);
  // The type's first word stands for the extension: "PNG image" strips ".png" from the name.
  std::string suffix = "." + file->Type.substr(0, 3);
  for (char& c : suffix) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  suffix = tk::Trim(suffix);
  const std::string shortName = without(file->Name, suffix);

  const int position = program.mainWindow().File2.ListIndex() + 1;
  const tk::Screen& screen = program.runtime.screen();
  const int32_t width = tk::CLng(program.grid.aPicW(position) / screen.TwipsPerPixelX);
  const int32_t height = tk::CLng(program.grid.aPicH(position) / screen.TwipsPerPixelY);

  const std::string text = "Name: " + shortName + "    Type: " + file->Type + kCrLf + kCrLf +     //
                           "Width:  " + std::to_string(width) + "   picsels" + kCrLf +            //
                           "Height:  " + std::to_string(height) + "   picsels" + kCrLf + kCrLf +  //
                           "Size  " + sizeText(file->Size) + kCrLf + kCrLf +                      //
                           "Modified:  " + file->DateLastModified + kCrLf +                       //
                           "Accessed:  " + file->DateLastAccessed + kCrLf + kCrLf +               //
                           "Sourse Folder  " + without(file->Path, file->Name);
  program.runtime.MsgBox(text, tk::mb::Information, "File Information");
}

}  // namespace vellumry
