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
  ToolState& tools = program_.tools;
  const int p = form_.File2.ListIndex() + 1;
  tk::Image& shown = form_.Image123(p);
  if (tools.marked(p)) {
    shown.setPicture(form_.Img1(p).Picture());
    form_.Img1.Unload(p);
    tools.aDeleted[static_cast<size_t>(p)] = 0;
    --tools.nDeleted;
    return;
  }
  // The thumbnail and the cross are laid out in the hidden Frame4, at the thumbnail's size,
  // and the screen capture draws them into one picture.
  form_.Frame4.setBackColor(form_.Frame1.BackColor());
  form_.Image2123.setVisible(true);
  form_.Image2123.setStretch(true);
  tools.delShotH = tk::CLng(shown.Height());
  tools.delShotW = tk::CLng(shown.Width());
  form_.Image2123.setPicture(shown.Picture());
  form_.Img1.Load(p);
  form_.Img1(p).setPicture(shown.Picture());
  form_.Frame4.Move(0, 0, tools.delShotW, tools.delShotH);
  form_.Image2123.Move(0, 0, tools.delShotW, tools.delShotH);
  form_.Image5.setStretch(true);
  form_.Image5.setVisible(true);
  form_.Image5.Move(0, 0, tools.delShotW, tools.delShotH);
  tools.delShot = true;
  program_.FormScreenCapture.form().Show();
  form_.Image2123.setVisible(false);
  form_.Image5.setStretch(false);
  tools.fit(p);
  tools.aDeleted[static_cast<size_t>(p)] = -1;
  ++tools.nDeleted;
  form_.Image5.Move(0, 0, 256, 256);
}

void Grid::pFinddelsel() {
  for (int i = 0; i <= form_.File2.ListCount(); ++i) {
    if (!program_.tools.marked(i + 1)) continue;
    if (form_.Image1.onClick) form_.Image1.onClick(i);
    form_.File2.setListIndex(i);
    return;
  }
}

}  // namespace vellumry
