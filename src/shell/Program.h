#pragma once
// One running program: its toolkit, its forms and the state that all of them share. Nothing is
// global, so tests can run several programs side by side.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "gif/Form3.h"
#include "picture/Module1.h"
#include "picture/PictureServices.h"
#include "platform/toolkit/FormSlot.h"
#include "platform/toolkit/Runtime.h"
#include "shell/Form0.h"
#include "shell/Form1.h"
#include "tools/FormScreenCapture.h"
#include "tools/frmMenu.h"
#include "viewer/Form2.h"

namespace vellumry {

// Where the program finds its files; filled from the machine by the program's main, or by
// the driver's set-up commands.
struct Places {
  std::string programFolder;   // holds the settings file and the link list
  std::string installFolder;   // the per-user install folder setting
  std::string picturesFolder;  // the user's default folder of pictures
  std::string startFile;       // a file named on the command line: selected once the grid loads
};

class Program {
 public:
  Program(tk::Host& host, tk::EventLoop::Clock clock, tk::Screen screen, Places places);
  ~Program();

  tk::Runtime runtime;
  Places places;
  // The picture engine: decoders, pixel cache, decoding ahead, and the two roads of the grid.
  PictureServices pictures;
  Module1 module1;

  // Program-wide state.
  std::string sIniPath, sInstallDir, sDest;
  int32_t lSlideMs = 0;
  std::string sAniGif;
  int32_t vScreenPxW = 0, vScreenPxH = 0;
  uint8_t ViewerUp = 0;
  bool bBigPlay = false;
  int16_t iCurLink = -1;
  int16_t nDeleted = 0;
  std::vector<int16_t> aDeleted = std::vector<int16_t>(1001);  // positions 0 to 1000
  std::vector<int32_t> aPicH = std::vector<int32_t>(1002);     // positions 1 to 1001
  std::vector<int32_t> aPicW = std::vector<int32_t>(1002);
  std::string linkMode;
  bool findDone = false, sortAsc = false;
  bool delShot = false;
  int32_t delShotW = 0, delShotH = 0;
  std::string sideText;
  // The state above by name, for the driver.
  tk::FieldTable fields;

  tk::FormSlot<vellumry::Form0> Form0;
  tk::FormSlot<vellumry::Form1> Form1;
  tk::FormSlot<vellumry::Form2> Form2;
  tk::FormSlot<vellumry::Form3> Form3;
  tk::FormSlot<vellumry::FormScreenCapture> FormScreenCapture;
  tk::FormSlot<vellumry::frmMenu> frmMenu;

  // A key of the settings file, "?" when missing; each read goes to the file.
  std::string ReadSetting(const std::string& key) const;
  // A numeric key; one that holds no number reads as its default.
  long ReadSettingNumber(const std::string& key) const;
  void WriteSetting(const std::string& key, const std::string& value) const;
  // Minimises the program as every minimising does: the screen picture, ViewerUp when given,
  // then Form0 to the screen and minimised; Form0's Resize hides the rest.
  void pMinimise(std::optional<uint8_t> viewerUp);
  // Starts the help program beside the program; a failure to start is err::FileNotFound.
  void StartHelp();
  // Opens a folder in the desktop's file manager; a failure is err::FileNotFound.
  void OpenFolder(const std::string& path);
  // Twips to whole pixels by the screen; direction 0 horizontal, else vertical.
  int32_t ConvertTwipsToPixels(int32_t twips, uint8_t direction);
};

// The program's entry: finds the settings file and the install folder, shows Form0.
void Main(Program& program);

}  // namespace vellumry
