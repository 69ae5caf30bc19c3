// Marking files to be deleted and taking marks back. A mark lives in three places that change
// together: the table of marks, their count, and the picture pair of the position (the
// crossed thumbnail in Image123, the plain one kept in Img1).
#include "grid/Grid.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

Grid& Grid::of(Program& program) { return dynamic_cast<Grid&>(program.Form1.form()); }

void Grid::pdelsel() {
  GridState& marks = program_.grid;
  const int p = form_.File2.ListIndex() + 1;
  tk::Image& shown = form_.Image123(p);
  if (marks.marked(p)) {
    shown.setPicture(form_.Img1(p).Picture());
    form_.Img1.Unload(p);
    marks.aDeleted_[static_cast<size_t>(p)] = 0;
    --marks.nDeleted_;
    return;
  }
  // The thumbnail and the cross are laid out in the hidden Frame4, at the thumbnail's size,
  // and the screen capture draws them into one picture.
  form_.Frame4.setBackColor(form_.Frame1.BackColor());
  form_.Image2123.setVisible(true);
  form_.Image2123.setStretch(true);
  const int32_t height = tk::CLng(shown.Height()), width = tk::CLng(shown.Width());
  form_.Image2123.setPicture(shown.Picture());
  form_.Img1.Load(p);
  form_.Img1(p).setPicture(shown.Picture());
  form_.Frame4.Move(0, 0, width, height);
  form_.Image2123.Move(0, 0, width, height);
  form_.Image5.setStretch(true);
  form_.Image5.setVisible(true);
  form_.Image5.Move(0, 0, width, height);
  program_.tools.askShot(width, height);
  program_.FormScreenCapture.form().Show();
  form_.Image2123.setVisible(false);
  form_.Image5.setStretch(false);
  marks.fit(p);
  marks.aDeleted_[static_cast<size_t>(p)] = -1;
  ++marks.nDeleted_;
  form_.Image5.Move(0, 0, 256, 256);
}

void Grid::resetMarkCount() { program_.grid.nDeleted_ = 0; }

void Grid::pFinddelsel() {
  for (int i = 0; i <= form_.File2.ListCount(); ++i) {
    if (!program_.grid.marked(i + 1)) continue;
    if (form_.Image1.onClick) form_.Image1.onClick(i);
    form_.File2.setListIndex(i);
    return;
  }
}

}  // namespace vellumry
