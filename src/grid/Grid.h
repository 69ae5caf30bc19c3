#pragma once
// The image grid: the part of the main window that lists the folder as a grid of thumbnails,
// loads it one cell a tick, scrolls it by rows and shows the selection. It works on Form1's
// controls and keeps its own fields there, under their names, for the driver.

#include <cstdint>
#include <string>

namespace vellumry {

class Program;
class Form1Controls;

class Grid {
 public:
  // Wires the grid's events of `form` and adds the grid's fields to the form's field table.
  Grid(Program& program, Form1Controls& form);
  // The grid part of the program's main window.
  static Grid& of(Program& program);

  // Who asks pAskDelete. nAfterClear keeps the code until the grid is empty, plus
  // kDeleteMarked when the marked files go with it.
  static constexpr uint8_t kAskClosing = 1, kAskStartButton = 2, kAskLink = 6;
  static constexpr uint8_t kDeleteMarked = 10;

  int32_t nLoad = 1, nSel = 0, nCount = 0, nClear = 0;
  std::string sExt;
  int32_t nPerRow = 0, nRolled = 0;
  uint8_t nAfterClear = 0;
  int32_t nPerPage = 0, nShownFirst = 0, nShownLast = 0;
  bool bLoaded = false, bSwitching = false;

  // Folder listing and grid model (GridModel.cpp).
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

  // Marks of files to be deleted (Marks.cpp).
  void pdelsel();
  void pFinddelsel();
  // Form1's load: no marks counted.
  void resetMarkCount();

  // Geometry (GridGeometry.cpp).
  void pSizeCell();
  // Turns the shared thumbnail cache on for cells of this size, or off (CellThumbnails.cpp).
  void pThumbnailCache();
  void pMeasure();
  void pCentre();
  // Places Image1(i) after Image1(i - 1); true when a wrapped row doesn't fit the screen.
  bool pPlaceCell(int32_t i);
  void pRollRow();

  // Thumbnails (Thumbnails.cpp).
  void Timer1_Timer();
  void pres(int32_t& i);

  // Scrolling and selection (Scrolling.cpp).
  void pSyncPage();
  void Label1_Change();
  void pShowPage();
  void pFrameSel();
  void pSelPage();
  void VScroll1_Change();
  void File2_Click();

 private:
  Program& program_;
  Form1Controls& form_;
};

}  // namespace vellumry
