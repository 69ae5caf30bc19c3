#pragma once
// The short road from a picture file to a plain opaque picture: transparent parts flattened at
// once over the grid's colour.

#include <cstdint>
#include <functional>
#include <string>
#include <variant>

#include "picture/StdPictureEx.h"
#include "platform/gdi/Picture.h"
#include "platform/toolkit/PictureControls.h"

namespace vellumry {

class PictureServices;

using GdiSource = std::variant<std::monostate, std::string, ByteArray, int /* any other kind */>;

class Module1 {
 public:
  // `gridBackColor` gives Form1.Frame1.BackColor (0x00BBGGRR) at the moment of each load.
  Module1(PictureServices& services, std::function<uint32_t()> gridBackColor);

  // Box.Picture = the first frame or page of `PicFile`, opaque over the grid's colour: at the
  // image's own size when `Native`, else at the box's inner size. A failure raises (see
  // LoadGdiPicture) and leaves the box as it was.
  void ShowPictureGdi(const GdiSource& PicFile, tk::PictureBox& Box, bool Native);
  // The picture of `PicFile` at Width x Height pixels, -1 in either meaning the image's own size,
  // which is then written back into both; any other size of 0 or below gives a bitmap without
  // pixels along it. `BackColor` is not used: transparent parts always take the grid's colour.
  // Raises tk::Error 999 (source "GDI+ Module") for a file or bytes that can't be read, 998 for a
  // source of another kind; an empty source gives an empty picture. With `RetainRatio` the image
  // keeps its proportions, centred.
  gdi::Picture LoadGdiPicture(const GdiSource& PicFile, int32_t& Width, int32_t& Height,
                              uint32_t BackColor, bool RetainRatio);

 private:
  PictureServices& services_;
  std::function<uint32_t()> gridBackColor_;
};

}  // namespace vellumry
