#include "tools/SideText.h"

#include "program/Form1Controls.h"
#include "program/Program.h"
#include "program/mOpenFile.h"
#include "tools/frmMenu.h"

namespace vellumry {

void pRefreshSideMenu(Program& program) {
  const tk::FileListBox& files = program.mainWindow().File2;
  const std::string name = files.FileName();
  tk::Menu& entry = program.frmMenu().mOpentxt;
  if (name.size() < 3 || name.compare(name.size() - 3, 3, "bmp") != 0) {
    entry.setVisible(false);
    return;
  }
  program.tools.sideText_ = files.Path() + "/" + name.substr(0, name.size() - 4) + ".txt";
  entry.setVisible(pFileexists(program.tools.sideText()));
}

}  // namespace vellumry
