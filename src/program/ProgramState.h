#pragma once
// The program-wide state, grouped by the subsystem that owns it. Other subsystems may read it;
// only the owner's routines change it.

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vellumry {

// The shell: where the settings file and the install folder are, the start folder, the screen.
// `sDataDir` holds the stored pictures (ui/) and the help page (help/).
struct ShellState {
  std::string sIniPath, sInstallDir, sDest;
  std::string sDataDir;
  int32_t vScreenPxW = 0, vScreenPxH = 0;
};

// The grid: each position's natural picture size in twips, from position 1. The tables grow
// with the folder that is loaded.
struct GridSizes {
  std::vector<int32_t> aPicH = std::vector<int32_t>(1002);
  std::vector<int32_t> aPicW = std::vector<int32_t>(1002);
  void fit(int positions) {
    const auto size = static_cast<size_t>(std::max(positions + 1, 1002));
    if (aPicH.size() < size) aPicH.resize(size), aPicW.resize(size);
  }
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

// The tools: marked positions (-1 marked, from position 1; the table grows with the folder), the
// screen picture that a mark asks for, and the text file beside a BMP.
struct ToolState {
  int16_t nDeleted = 0;
  std::vector<int16_t> aDeleted = std::vector<int16_t>(1001);
  void fit(int positions) {
    const auto size = static_cast<size_t>(positions + 1);
    if (aDeleted.size() < size) aDeleted.resize(size);
  }
  // False for a position beyond the table.
  bool marked(int position) const {
    return position >= 0 && static_cast<size_t>(position) < aDeleted.size() &&
           aDeleted[static_cast<size_t>(position)] != 0;
  }
  bool delShot = false;
  int32_t delShotW = 0, delShotH = 0;
  std::string sideText;
};

}  // namespace vellumry
