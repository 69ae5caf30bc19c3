#include "picture/Module1.h"

#include <cmath>

#include "picture/LazyPicture.h"
#include "picture/PictureServices.h"
#include "picture/SourceDecoder.h"
#include "platform/gdi/Blit.h"
#include "platform/toolkit/Error.h"
#include "platform/toolkit/Numbers.h"

namespace vellumry {

namespace {

constexpr int kErrorLoading = 999;
constexpr int kErrorParameter = 998;
constexpr const char* kSource = "GDI+ Module";

[[noreturn]] void Fail(int number, const std::string& description) {
  throw tk::Error(number, kSource, description);
}

// The image scaled to keep its proportions and centred in a width x height bitmap over
// `background`. Nothing in the program asks for this, so it is made at once rather than lazily.
gdi::Picture RatioKept(const gdi::Picture& image, int32_t width, int32_t height,
                       uint32_t background, double twipsPerPixel) {
  const gdi::Size own = image.PixelSize();
  const double src = static_cast<double>(own.width) / own.height;
  const double dst = static_cast<double>(width) / height;
  const double drawnW = dst < src ? width : height * src;
  const double drawnH = dst < src ? width / src : height;
  const int w = static_cast<int>(tk::roundHalfEven(drawnW));
  const int h = static_cast<int>(tk::roundHalfEven(drawnH));
  const int left = static_cast<int>(tk::roundHalfEven((width - drawnW) / 2));
  const int top = static_cast<int>(tk::roundHalfEven((height - drawnH) / 2));
  gdi::Surface canvas(width, height, gdi::AlphaMode::kOpaque);
  gdi::Fill(canvas, {0, 0, width, height}, tk::pixelOf(background));
  image.Render(canvas, left, top, w, h, 0, image.Height(), image.Width(), -image.Height());
  return gdi::Picture::FromSurface(std::move(canvas), twipsPerPixel);
}

}  // namespace

Module1::Module1(PictureServices& services, std::function<uint32_t()> gridBackColor)
    : services_(services), gridBackColor_(std::move(gridBackColor)) {}

void Module1::ShowPictureGdi(const GdiSource& PicFile, tk::PictureBox& Box, bool Native) {
  int32_t width = -1;
  int32_t height = -1;
  if (!Native) {
    const double twips = services_.twipsPerPixel();
    width = static_cast<int32_t>(tk::roundHalfEven(Box.Width() / twips));
    height = static_cast<int32_t>(tk::roundHalfEven(Box.Height() / twips));
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
    if (array->bytes.empty()) Fail(kErrorLoading, failure);
    origin.bytes = StdPictureEx::MakeStream(array->bytes);
  } else {
    Fail(kErrorParameter, "Passed invalid parameter as PicFile");
  }
  const auto info = origin.bytes ? codecs::Probe(*origin.bytes) : ProbeFile(origin.path);
  if (!info || info->width <= 0 || info->height <= 0) Fail(kErrorLoading, failure);
  if (Width == -1 || Height == -1) {
    Width = info->width;
    Height = info->height;
  }
  if (Width <= 0 || Height <= 0) return {};
  // Transparent parts take the grid's colour, whatever the caller passed.
  const uint32_t background = gridBackColor_();
  gdi::Picture picture;
  if (RetainRatio) {
    const gdi::Picture image = MakeLazyPicture(services_, origin, *info, background);
    if (image) {
      picture = RatioKept(image, Width, Height, background, services_.twipsPerPixel());
    }
  } else {
    picture = MakeLazyPicture(services_, origin, *info, background, gdi::Size{Width, Height});
  }
  if (!picture) Fail(kErrorLoading, failure);
  return picture;
}

}  // namespace vellumry
