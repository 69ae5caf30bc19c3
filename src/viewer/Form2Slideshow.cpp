// The slideshow on Timer2, and Timer3, which gives the focus back to the hidden bar.
#include "platform/toolkit/PictureControls.h"
#include "program/Program.h"
#include "viewer/Form2.h"

namespace vellumry {

void Form2::pSlideshow() {
  tk::Frame& playButtons = tk::controlOf<tk::Frame>(program_.Form3.form(), "Framep");
  if (Timer2.Enabled()) {
    if (program_.viewer.sAniGif() == "1") playButtons.setVisible(true);
    Timer2.setEnabled(false);
    Timer2.setInterval(kSlideIdleMs);
    // Placed afresh from Image2, so a zoomed picture comes back at its fitted size.
    Image1.setVisible(false);
    Timer1.setInterval(1);
  } else {
    // The screen shows the bare colour until the first tick, one whole interval later.
    playButtons.setVisible(false);
    Image1.setVisible(false);
    program_.Form3.form().setVisible(false);
    Timer2.setEnabled(true);
    Timer2.setInterval(program_.viewer.lSlideMs());
  }
}

void Form2::Timer2_Timer() {
  // The last frame of a GIF leaves the screen.
  tk::Form& gifWindow = program_.Form3.form();
  if (gifWindow.Visible()) tk::controlOf<tk::PictureBox>(gifWindow, "picBkg").setPicture({});
  pbUp();
}

void Form2::Timer3_Timer() {
  Timer3.setEnabled(false);
  if (Visible()) VScroll2.SetFocus();
}

}  // namespace vellumry
