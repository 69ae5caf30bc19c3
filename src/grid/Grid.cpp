#include "grid/Grid.h"

#include "program/Form1Controls.h"

namespace vellumry {

Grid::Grid(Program& program, Form1Controls& form) : program_(program), form_(form) {
  form.Timer1.onTimer = [this] { Timer1_Timer(); };
  form.Timer2.onTimer = [this] { Timer2_Timer(); };
  form.Image2.onClick = [this] { Image2_Click(); };
  form.Image3.onMouseMove = [this](int, int, double, double) { Image3_MouseMove(); };
  form.Frame2.onMouseMove = [this](int, int, double, double) { Frame2_MouseMove(); };
  form.Label1.onChange = [this] { Label1_Change(); };
  form.VScroll1.onChange = [this] { VScroll1_Change(); };
  form.File2.onClick = [this] { File2_Click(); };

  tk::FieldTable& f = form.fields();
  f.add("nLoad", nLoad);
  f.add("nSel", nSel);
  f.add("nCount", nCount);
  f.add("nClear", nClear);
  f.add("sExt", sExt);
  f.add("nPerRow", nPerRow);
  f.add("nRolled", nRolled);
  f.add("nAfterClear", nAfterClear);
  f.add("nPerPage", nPerPage);
  f.add("nShownFirst", nShownFirst);
  f.add("nShownLast", nShownLast);
  f.add("bLoaded", bLoaded);
  f.add("bSwitching", bSwitching);
}

}  // namespace vellumry
