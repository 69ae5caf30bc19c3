#pragma once
// The link dialog: one small window without a title bar for adding a link, editing one,
// finding a link and finding a picture. The mode decides its first button's caption, its
// height, whether the hits show, and which routine of the main window that button runs. It is
// made once and hidden after use; the main window is disabled while it stands.

#include <cstdint>
#include <string>

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/ControlArray.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/ListControls.h"

namespace vellumry {

class Program;

class frmEdit : public tk::Form {
 public:
  explicit frmEdit(Program& program);

  // Label(0) says what to type; Label(1) holds the link's target, out of the user's reach.
  tk::ControlArray<tk::Label> Label{this, "Label"};
  tk::TextBox Text1{this, "Text1"};
  // List(2) shows the hits, List(3) holds their positions; both serve the sort as scratch.
  // List(0) is only the array's template and never shows.
  tk::ControlArray<tk::ListBox> List{this, "List"};
  tk::ControlArray<tk::CommandButton> btn{this, "btn"};

  // The mouse-down point of a drag, twips.
  int32_t dragX = 0, dragY = 0;

  // Sets linkMode to `mode` ("add", "edit", "find" or "find2") and the dialog to what it asks
  // (first button's caption, height, hits list, button tops), then shows it. The caller fills
  // Text1 and Label(1) first, so that activating selects the text it will show.
  void pShowMode(const std::string& mode);

  void Form_Activate() override;
  void btn_Click(int Index);
  void List_Click(int Index);
  void Text1_DblClick();
  void pSefocus();
  void Form_MouseDown(int Button, int Shift, double X, double Y) override;
  void Form_MouseMove(int Button, int Shift, double X, double Y) override;
  void Form_MouseUp(int Button, int Shift, double X, double Y) override;

 private:
  // Selects the whole of Text1, counted in characters.
  void selectAllText();
  Program& program_;
};

}  // namespace vellumry
