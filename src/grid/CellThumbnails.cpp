// The shared thumbnail cache serves the grid's cells, and only them.
#include <algorithm>
#include <cmath>

#include "grid/Grid.h"
#include "picture/PictureServices.h"
#include "picture/ThumbnailCache.h"
#include "program/Form1Controls.h"
#include "program/Program.h"

namespace vellumry {

void Grid::pThumbnailCache() {
  const tk::Screen& screen = form_.runtime().screen();
  const tk::Image& cell = form_.Image1(0);
  const double longest =
      std::max(cell.Width() / screen.TwipsPerPixelX, cell.Height() / screen.TwipsPerPixelY);
  program_.pictures().thumbnails().configure(program_.readSetting("thumbcache") != "0",
                                             static_cast<int>(std::ceil(longest)));
}

}  // namespace vellumry
