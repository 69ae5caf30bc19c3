#pragma once
// The program-wide state, grouped by the subsystem that owns it. Other subsystems may read it;
// only the owner's routines change it.

#include <cstdint>
#include <string>
#include <vector>

namespace vellumry {

// The shell: where the settings file and the install folder are, the start folder, the screen.
struct ShellState {
  std::string sIniPath, sInstallDir, sDest;
  int32_t vScreenPxW = 0, vScreenPxH = 0;
};

// The grid: each position's natural picture size in twips, positions 1 to 1001.
struct GridSizes {
  std::vector<int32_t> aPicH = std::vector<int32_t>(1002);
  std::vector<int32_t> aPicW = std::vector<int32_t>(1002);
};

// The link list: the current link, the link dialog's mode, finding and sorting.
struct LinkState {
  int16_t iCurLink = -1;
  std::string linkMode;
  bool findDone = false, sortAsc = false;
};

// The viewers: what stood on the screen when minimising, the slideshow, the GIF window's size.
struct ViewerState {
  // What ViewerUp tells: nothing, the viewer, or the viewer with the GIF window over it.
  static constexpr uint8_t kGrid = 0, kViewer = 2, kGifViewer = 3;
  uint8_t ViewerUp = kGrid;
  int32_t lSlideMs = 0;
  std::string sAniGif;
  bool bBigPlay = false;
};

// The tools: marked positions (-1 marked, positions 0 to 1000), the screen picture that a mark
// asks for, and the text file beside a BMP.
struct ToolState {
  int16_t nDeleted = 0;
  std::vector<int16_t> aDeleted = std::vector<int16_t>(1001);
  bool delShot = false;
  int32_t delShotW = 0, delShotH = 0;
  std::string sideText;
};

}  // namespace vellumry
