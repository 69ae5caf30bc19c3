#pragma once
// The main window's controls: the grid of thumbnails over the whole screen and the side panel
// with the folder's file list and the link list. They are the model that the subsystems share
// (File2's selection is the one selection of the whole program), so they stand here, beneath
// them all; the routines of each subsystem live in its own folder, and shell's Form1 joins them.

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

class Form1Controls : public tk::Form {
 public:
  // The controls at their design places, with their captions, tool tips and stored pictures.
  explicit Form1Controls(Program& program);

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

  // The screen's width and height in twips, as whole numbers.
  double screenW() const;
  double screenH() const;

 private:
  // The design, part by part: places in twips, captions and tool tips.
  void placeGrid();
  void placePanel();
  void placeOthers();
  void loadStoredPictures(Program& program);
};

}  // namespace vellumry
