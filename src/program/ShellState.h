#pragma once
// The shell's program-wide state: where the settings file and the install folder are, the start
// folder, the screen. `sDataDir` holds the stored pictures (ui/) and the help page (help/).
// The shell sets it (Main, Form1's load); the other rooms read it.

#include <cstdint>
#include <string>

namespace vellumry {

namespace tk {
class FieldTable;
}
class Form1;
class Program;

class ShellState {
 public:
  const std::string& sIniPath() const { return sIniPath_; }
  const std::string& sInstallDir() const { return sInstallDir_; }
  const std::string& sDataDir() const { return sDataDir_; }
  const std::string& sDest() const { return sDest_; }
  int32_t vScreenPxW() const { return vScreenPxW_; }
  int32_t vScreenPxH() const { return vScreenPxH_; }

  void addFields(tk::FieldTable& fields);

 private:
  friend void Main(Program& program);
  friend class Form1;

  std::string sIniPath_, sInstallDir_, sDataDir_, sDest_;
  int32_t vScreenPxW_ = 0, vScreenPxH_ = 0;
};

}  // namespace vellumry
