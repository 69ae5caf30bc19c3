#pragma once
// The settings dialog: eleven keys of the settings file on two tab pages. It reads them when it
// opens and writes them back on Save, then leaves a copy of the file as "1.INI". It applies
// nothing itself: the grid takes the values at its next loading. A new dialog is made for every
// opening; the main window is disabled while it stands.

#include <cstdint>

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/ControlArray.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/ListControls.h"

namespace vellumry {

class Program;

class frmSet : public tk::Form {
 public:
  explicit frmSet(Program& program);

  tk::TabStrip TabStrip1{this, "TabStrip1"};
  // (1) and (2) are the two pages, (0) holds the note under them.
  tk::ControlArray<tk::Frame> FrameList1{this, "FrameList1"};
  tk::ControlArray<tk::Label> Label1{this, "Label1"};
  // (0) rows, (1) slideshow seconds.
  tk::ControlArray<tk::ComboBox> cbo{this, "cbo"};
  // (0) Save, (1) Cancel, (2) Check.
  tk::ControlArray<tk::CommandButton> btn{this, "btn"};
  // Buttons that show the grid's background (0) and the selection frame's colour (1).
  tk::ControlArray<tk::CommandButton> cmb{this, "cmb"};
  tk::ControlArray<tk::CheckBox> Check{this, "Check"};
  tk::ControlArray<tk::CommonDialog> CD{this, "CD"};

  int16_t curTab = 1;
  int16_t rowsChecked = 0;
  bool firstActivate = false;

  void Form_Load() override;
  void Form_Activate() override;
  void btn_Click(int Index);
  void cbo_Click(int Index);
  void cmb_Click(int Index);
  void TabStrip1_Click();

 private:
  void placeControls();
  void pSave();
  // Enables the main window again and closes the dialog.
  void pClose();
  Program& program_;
};

}  // namespace vellumry
