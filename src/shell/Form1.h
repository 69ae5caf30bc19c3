#pragma once
// The main window: the grid of thumbnails over the whole screen and the side panel with the
// folder's file list. Its routines are defined by subsystem: the frame and commands in shell/,
// the grid in grid/.

#include <cstdint>
#include <string>

#include "platform/toolkit/BasicControls.h"
#include "platform/toolkit/ControlArray.h"
#include "platform/toolkit/DialogControls.h"
#include "platform/toolkit/ListControls.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/ScrollBar.h"

namespace vellumry {

class Program;

class Form1 : public tk::Form {
 public:
  explicit Form1(Program& program);

  // Controls, in the order they are drawn: the empty cell lies over its picture and takes the
  // mouse.
  tk::Frame Frame1{this, "Frame1"};
  tk::ControlArray<tk::Image> Image123{this, "Image123"};
  tk::ControlArray<tk::Image> Img1{this, "Img1"};
  tk::ControlArray<tk::Image> Image1{this, "Image1"};
  tk::ControlArray<tk::Shape> Frame3{this, "Frame3"};
  tk::Label Label{this, "Label"};
  tk::Frame Frame2{this, "Frame2"};
  tk::FileListBox File2{this, "File2"};
  tk::ControlArray<tk::ListBox> List{this, "List"};
  tk::Image Image3{this, "Image3"};
  tk::Image Image2{this, "Image2"};
  tk::Image Image4{this, "Image4"};
  tk::ControlArray<tk::CommandButton> btn{this, "btn"};
  tk::CommandButton btnmenu{this, "btnmenu"};
  tk::Label Label3{this, "Label3"};
  tk::Label Label1{this, "Label1"};
  tk::ScrollBar VScroll1{this, "VScroll1"};
  tk::PictureBox Picture1{this, "Picture1"};
  tk::Frame Frame4{this, "Frame4"};
  tk::Image Image5{this, "Image5"};
  tk::Image Image2123{this, "Image2123"};
  tk::CommonDialog CD{this, "CD"};
  tk::Timer Timer1{this, "Timer1"};
  tk::Timer Timer2{this, "Timer2"};
  tk::Timer Timer3{this, "Timer3"};
  tk::Timer Timer4{this, "Timer4"};
  tk::Timer Timer5{this, "Timer5"};
  tk::Timer Timer6{this, "Timer6"};

  // Fields of the grid.
  int16_t nLoad = 1, nSel = 0, nCount = 0, nClear = 0;
  std::string sExt;
  int16_t nPerRow = 0, nRolled = 0;
  uint8_t nAfterClear = 0;
  int16_t nPerPage = 0, nShownFirst = 0, nShownLast = 0;
  bool bLoaded = false, bSwitching = false;

  // Frame and life (shell/).
  void Form_Load() override;
  void Form_QueryUnload(int& Cancel, int UnloadMode) override;
  void Form_Unload(int& Cancel) override;
  void pPanelWidth();
  void pQuit();
  void Timer5_Timer();
  void Timer6_Timer();

  // Folder listing and grid model (grid/GridModel.cpp).
  void pAct();
  void Image2_Click();
  void pFoldername();
  void pNewFolder();
  void pCaption();
  void pClearDeleted();
  void pClearGrid();
  void pAskDelete(uint8_t code);
  void pGoLink();
  void Timer2_Timer();
  void Image3_MouseMove();
  void Frame2_MouseMove();

  // Geometry (grid/GridGeometry.cpp).
  void pSizeCell();
  void pMeasure();
  void pCentre();
  // Places Image1(i) after Image1(i - 1); true when a wrapped row doesn't fit the screen.
  bool pPlaceCell(int16_t i);
  void pRollRow();

  // Thumbnails (grid/Thumbnails.cpp).
  void Timer1_Timer();
  void pres(int16_t& i);

  // Scrolling and selection (grid/Scrolling.cpp).
  void pSyncPage();
  void Label1_Change();
  void pShowPage();
  void pFrameSel();
  void pSelPage();
  void VScroll1_Change();
  void File2_Click();

  // Keys and mouse (shell/Form1Commands.cpp).
  void Form_KeyUp(int& KeyCode, int Shift) override;
  void Form_DblClick() override;
  void Image1_Click(int Index);
  void Image1_DblClick(int Index);
  void Image1_MouseDown(int Index, int Button);
  void File2_DblClick();
  void File2_MouseDown(int Button);
  void Frame1_MouseDown(int Button);
  void List_MouseDown(int Index, int Button);
  void btnmenu_Click();
  void btn_Click(int Index);
  void Image4_Click();
  void Label3_Click();
  void Label_MouseMove();
  void Timer3_Timer();
  void Timer4_Timer();
  void pView();

 private:
  Program& program_;
  std::string setting(const std::string& key) const;
  // The screen's width and height in twips, as whole numbers.
  double screenW() const;
  double screenH() const;
};

}  // namespace vellumry
