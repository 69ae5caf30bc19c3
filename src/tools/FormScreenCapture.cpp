#include "tools/FormScreenCapture.h"

#include <algorithm>

#include "platform/gdi/Blit.h"
#include "platform/toolkit/Numbers.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

namespace {

// What the hidden Frame4 would show in the screen's top left corner, `w` by `h` pixels: its
// back colour, the thumbnail and the cross over it, each stretched over its place.
gdi::Picture markedThumbnail(const Form1Controls& f, const tk::Screen& screen, int w, int h) {
  gdi::Surface canvas(std::max(w, 1), std::max(h, 1), gdi::AlphaMode::kOpaque);
  gdi::fill(canvas, {0, 0, canvas.Width(), canvas.Height()}, tk::pixelOf(f.Frame4.BackColor()));
  const auto px = [](double twips, double perPixel) {
    return static_cast<int>(tk::roundHalfEven(twips / perPixel));
  };
  for (const tk::Image* image : {&f.Image2123, &f.Image5}) {
    const gdi::Picture& picture = image->Picture();
    if (!image->Visible() || !picture) continue;
    picture.Render(
        canvas, px(image->Left(), screen.TwipsPerPixelX), px(image->Top(), screen.TwipsPerPixelY),
        px(image->Width(), screen.TwipsPerPixelX), px(image->Height(), screen.TwipsPerPixelY), 0,
        picture.Height(), picture.Width(), -picture.Height());
  }
  return gdi::Picture::fromSurface(std::move(canvas), screen.TwipsPerPixelX);
}

}  // namespace

FormScreenCapture::FormScreenCapture(Program& program)
    : Form(program.runtime, "FormScreenCapture"), program_(program) {
  setBorderStyle(0);
  setBackColor(0x00C0C0C0);
}

void FormScreenCapture::Form_Load() {
  ToolState& tools = program_.tools;
  const tk::Screen& screen = runtime().screen();
  if (tools.delShotH() == 0 || !tools.delShot()) {
    setWidth(screen.Width);
    setHeight(screen.Height);
  } else {
    program_.runtime.host().Beep();
    setWidth(tools.delShotW());
    setHeight(tools.delShotH());
  }
  setLeft(-Width());
  if (!tools.delShot()) return program_.Form0.form().setPicture(runtime().host().screenPicture());
  Form1Controls& f = program_.mainWindow();
  f.Image123(f.File2.ListIndex() + 1)
      .setPicture(markedThumbnail(f, screen, static_cast<int>(Width() / screen.TwipsPerPixelX),
                                  static_cast<int>(Height() / screen.TwipsPerPixelY)));
  if (tools.delShotH() == 0) return;
  tools.delShotH_ = 0;
  tools.delShot_ = false;
  setWidth(screen.Width);
  setHeight(screen.Height);
}

}  // namespace vellumry
