#include "picture/Module1.h"

#include <utility>

#include "picture/LazyPicture.h"
#include "picture/PictureServices.h"
#include "picture/SourceDecoder.h"
#include "platform/gdi/Blit.h"
#include "platform/toolkit/Error.h"
#include "platform/toolkit/Numbers.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry {

namespace {

constexpr int kErrorLoading = 999;
constexpr int kErrorParameter = 998;
constexpr const char* kSource = "GDI+ Module";

[[noreturn]] void fail(int number, const std::string& description) {
  throw tk::Error(number, kSource, description);
}

int32_t rounded(double value) { return static_cast<int32_t>(tk::roundHalfEven(value)); }

// Where the image lands in a width x height bitmap when it keeps its proportions: as large as
// fits, centred on the rounded size it is drawn at.
gdi::Rect ratioKept(gdi::Size own, int32_t width, int32_t height) {
  const double src = static_cast<double>(own.width) / own.height;
  const double dst = static_cast<double>(width) / height;
  gdi::Rect drawn;
  drawn.width = rounded(dst < src ? width : height * src);
  drawn.height = rounded(dst < src ? width / src : height);
  drawn.x = rounded((width - drawn.width) / 2.0);
  drawn.y = rounded((height - drawn.height) / 2.0);
  return drawn;
}

// The image drawn at once over `background` into a width x height bitmap, stretched to it or,
// with `retainRatio`, keeping its proportions. A side of 0 or below leaves the bitmap without
// pixels.
gdi::Picture drawnAtOnce(const gdi::Picture& image, int32_t width, int32_t height, bool retainRatio,
                         uint32_t background, double twipsPerPixel) {
  const gdi::Rect drawn =
      retainRatio ? ratioKept(image.pixelSize(), width, height) : gdi::Rect{0, 0, width, height};
  gdi::Surface canvas(width, height, gdi::AlphaMode::kOpaque);
  gdi::fill(canvas, {0, 0, canvas.Width(), canvas.Height()}, tk::pixelOf(background));
  image.Render(canvas, drawn.x, drawn.y, drawn.width, drawn.height, 0, image.Height(),
               image.Width(), -image.Height());
  return gdi::Picture::fromSurface(std::move(canvas), twipsPerPixel);
}

}  // namespace

Module1::Module1(PictureServices& services, std::function<uint32_t()> gridBackColor)
    : services_(services), gridBackColor_(std::move(gridBackColor)) {}

void Module1::ShowPictureGdi(const GdiSource& PicFile, tk::PictureBox& Box, bool Native) {
  int32_t width = -1;
  int32_t height = -1;
  if (!Native) {
    const tk::Screen& screen = Box.runtime().screen();
    width = rounded(Box.ScaleWidth() / screen.TwipsPerPixelX);
    height = rounded(Box.ScaleHeight() / screen.TwipsPerPixelY);
  }
  Box.setPicture(LoadGdiPicture(PicFile, width, height, 0xFFFFFF, false));
}

gdi::Picture Module1::LoadGdiPicture(const GdiSource& PicFile, int32_t& Width, int32_t& Height,
                                     uint32_t /*BackColor*/, bool RetainRatio) {
  PictureOrigin origin;
  std::string failure = "Error loading picture";
  if (std::holds_alternative<std::monostate>(PicFile)) return {};
  if (const auto* path = std::get_if<std::string>(&PicFile)) {
    origin.path = *path;
    failure += " " + *path;
  } else if (const auto* array = std::get_if<ByteArray>(&PicFile)) {
    if (array->bytes.empty()) fail(kErrorLoading, failure);
    origin.bytes = StdPictureEx::MakeStream(array->bytes);
  } else {
    fail(kErrorParameter, "Passed invalid parameter as PicFile");
  }
  const auto info = origin.bytes ? codecs::probe(*origin.bytes) : probeFile(origin.path);
  if (!info || info->width <= 0 || info->height <= 0) fail(kErrorLoading, failure);
  if (Width == -1 || Height == -1) {
    Width = info->width;
    Height = info->height;
  }
  // Transparent parts take the grid's colour, whatever the caller passed.
  const uint32_t background = gridBackColor_();
  gdi::Picture picture;
  if (RetainRatio || Width <= 0 || Height <= 0) {
    // Nothing in the program keeps the ratio, and a bitmap without pixels has nothing to decode
    // later: both are drawn at once.
    const gdi::Picture image = makeLazyPicture(services_, origin, *info, background);
    if (image) {
      picture =
          drawnAtOnce(image, Width, Height, RetainRatio, background, services_.twipsPerPixel());
    }
  } else {
    // The bitmap the drawing would give, decoded only when it is first drawn.
    picture = makeLazyPicture(services_, origin, *info, background, gdi::Size{Width, Height});
  }
  if (!picture) fail(kErrorLoading, failure);
  return picture;
}

}  // namespace vellumry
