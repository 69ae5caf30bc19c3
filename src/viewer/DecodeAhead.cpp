#include "viewer/DecodeAhead.h"

#include "picture/PictureServices.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"
#include "viewer/FitRule.h"

namespace vellumry {

gdi::Picture heldPicture(Program& program, int i) {
  Form1Controls& f = program.mainWindow();
  // A marked position shows the cross; its plain picture is kept aside.
  const tk::ControlArray<tk::Image>& holders = program.grid.marked(i) ? f.Img1 : f.Image123;
  return holders.exists(i) ? holders(i).Picture() : gdi::Picture();
}

void decodeForViewer(Program& program, int i) {
  const gdi::Picture picture = heldPicture(program, i);
  if (!picture) return;
  // The viewer covers the screen.
  const tk::Screen& screen = program.runtime.screen();
  const ShownSize natural{tk::pictureTwipsX(picture, screen.TwipsPerPixelX),
                          tk::pictureTwipsY(picture, screen.TwipsPerPixelY)};
  const ShownSize shown =
      fitToForm(natural.width, natural.height, screen.Width, screen.Height).value_or(natural);
  program.pictures().prefetch(
      picture, {static_cast<int>(tk::roundHalfEven(shown.width / screen.TwipsPerPixelX)),
                static_cast<int>(tk::roundHalfEven(shown.height / screen.TwipsPerPixelY))});
}

}  // namespace vellumry
