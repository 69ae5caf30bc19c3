#pragma once
// The tools' program-wide state: the screen picture that a mark asks for, and the text file
// beside a BMP. The screen capture and the side menu change it; the grid asks for a picture.

#include <cstdint>
#include <string>

namespace vellumry {

namespace tk {
class FieldTable;
}
class FormScreenCapture;
class Program;

class ToolState {
 public:
  bool delShot() const { return delShot_; }
  int32_t delShotW() const { return delShotW_; }
  int32_t delShotH() const { return delShotH_; }
  const std::string& sideText() const { return sideText_; }

  // Asks the screen capture for a picture of `width` by `height` twips for a mark.
  void askShot(int32_t width, int32_t height) {
    delShotW_ = width;
    delShotH_ = height;
    delShot_ = true;
  }

  void addFields(tk::FieldTable& fields);

 private:
  friend class FormScreenCapture;
  friend void pRefreshSideMenu(Program& program);

  bool delShot_ = false;
  int32_t delShotW_ = 0, delShotH_ = 0;
  std::string sideText_;
};

}  // namespace vellumry
