#include "platform/toolkit/PictureControls.h"

#include "platform/gdi/Blit.h"
#include "platform/gdi/Units.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/PropertyList.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::tk {

double pictureTwipsX(const gdi::Picture& p, double twipsPerPixelX) {
  return p ? gdi::himetricToPixels(p.Width(), twipsPerPixelX) * twipsPerPixelX : 0;
}

double pictureTwipsY(const gdi::Picture& p, double twipsPerPixelY) {
  return p ? gdi::himetricToPixels(p.Height(), twipsPerPixelY) * twipsPerPixelY : 0;
}

uint32_t pixelOf(uint32_t color) {
  if (color & 0x80000000u) return gdi::argb(255, 0xC0, 0xC0, 0xC0);
  return gdi::argb(255, color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

namespace {
Value pictureHandle(const gdi::Picture& p) { return static_cast<double>(p.Handle()); }
}  // namespace

void Image::setPicture(const gdi::Picture& p) {
  picture_ = p;
  if (!stretch_) {  // an empty picture leaves the image 0 by 0
    const Screen& s = runtime().screen();
    setWidth(pictureTwipsX(p, s.TwipsPerPixelX));
    setHeight(pictureTwipsY(p, s.TwipsPerPixelY));
  }
  changed(prop::Picture);
}

void Image::setStretch(bool v) { assign(stretch_, v, prop::Stretch); }

const std::vector<Property>& Image::properties() const {
  static const auto props =
      extend(Control::properties(),
             {
                 accessor<Image, &Image::Stretch, &Image::setStretch>(prop::Stretch),
                 Property{prop::Picture,
                          [](const Control& c) {
                            return pictureHandle(static_cast<const Image&>(c).Picture());
                          },
                          nullptr},
             });
  return props;
}

void PictureBox::fitToPicture() {
  if (!autoSize_ || !picture_) return;
  const Screen& s = runtime().screen();
  // A box that is already as many whole pixels as its picture keeps its length in twips, so
  // that giving a box its own Image leaves it as it stands.
  const auto fit = [&](double length, double twips, double twipsPerPixel) {
    return roundHalfEven(length / twipsPerPixel) == twips / twipsPerPixel ? length : twips;
  };
  setWidthTwips(fit(widthTwips(), pictureTwipsX(picture_, s.TwipsPerPixelX), s.TwipsPerPixelX));
  setHeightTwips(
      fit(heightTwips(), pictureTwipsY(picture_, s.TwipsPerPixelY), s.TwipsPerPixelY));
}

void PictureBox::setPicture(const gdi::Picture& p) {
  picture_ = p;
  fitToPicture();
  changed(prop::Picture);
}

void PictureBox::setAutoSize(bool v) {
  if (v == autoSize_) return;
  autoSize_ = v;
  fitToPicture();
}

void PictureBox::setBackColor(uint32_t v) { assign(backColor_, v, prop::BackColor); }

void PictureBox::setBorderStyle(int v) { assign(borderStyle_, v, prop::BorderStyle); }

void PictureBox::setMousePointer(int v) { assign(mousePointer_, v, prop::MousePointer); }

double PictureBox::inner(double outer, double twipsPerPixel) const {
  constexpr int kBorderPixels = 2;
  const double twips =
      std::max(0.0, outer - (borderStyle_ != 0 ? 2 * kBorderPixels * twipsPerPixel : 0));
  return scaleMode_ == 3 ? twips / twipsPerPixel : twips;
}

double PictureBox::ScaleWidth() const {
  return inner(widthTwips(), runtime().screen().TwipsPerPixelX);
}
double PictureBox::ScaleHeight() const {
  return inner(heightTwips(), runtime().screen().TwipsPerPixelY);
}

double PictureBox::innerUnitX() const {
  return scaleMode_ == 3 ? runtime().screen().TwipsPerPixelX : 1;
}
double PictureBox::innerUnitY() const {
  return scaleMode_ == 3 ? runtime().screen().TwipsPerPixelY : 1;
}

gdi::Picture PictureBox::Image() const {
  const Screen& s = runtime().screen();
  int w = static_cast<int>(roundHalfEven(widthTwips() / s.TwipsPerPixelX));
  int h = static_cast<int>(roundHalfEven(heightTwips() / s.TwipsPerPixelY));
  // A box that is exactly its opaque bitmap shows nothing else: hand out the picture itself
  // rather than a full-size copy of its pixels.
  if (autoSize_ && picture_ && picture_.Type() == gdi::PictureType::kBitmap &&
      !(picture_.Attributes() & gdi::kPictureTransparent) &&
      picture_.pixelSize() == gdi::Size{w, h}) {
    return picture_;
  }
  gdi::Surface canvas(std::max(w, 1), std::max(h, 1), gdi::AlphaMode::kOpaque);
  gdi::fill(canvas, {0, 0, canvas.Width(), canvas.Height()}, pixelOf(backColor_));
  if (picture_) {
    gdi::Size size = picture_.pixelSize();
    picture_.Render(canvas, 0, 0, size.width, size.height, 0, picture_.Height(), picture_.Width(),
                    -picture_.Height());
  }
  return gdi::Picture::fromSurface(std::move(canvas), s.TwipsPerPixelX);
}

const std::vector<Property>& PictureBox::properties() const {
  static const auto props = extend(
      Control::properties(),
      {
          accessor<PictureBox, &PictureBox::AutoSize, &PictureBox::setAutoSize>(prop::AutoSize),
          accessor<PictureBox, &PictureBox::AutoRedraw, &PictureBox::setAutoRedraw>(
              prop::AutoRedraw),
          accessor<PictureBox, &PictureBox::ScaleMode, &PictureBox::setScaleMode>(prop::ScaleMode),
          accessor<PictureBox, &PictureBox::ScaleWidth>(prop::ScaleWidth),
          accessor<PictureBox, &PictureBox::ScaleHeight>(prop::ScaleHeight),
          accessor<PictureBox, &PictureBox::BackColor, &PictureBox::setBackColor>(prop::BackColor),
          accessor<PictureBox, &PictureBox::BorderStyle, &PictureBox::setBorderStyle>(
              prop::BorderStyle),
          accessor<PictureBox, &PictureBox::MousePointer, &PictureBox::setMousePointer>(
              prop::MousePointer),
          Property{prop::Picture,
                   [](const Control& c) {
                     return pictureHandle(static_cast<const PictureBox&>(c).Picture());
                   },
                   nullptr},
      });
  return props;
}

}  // namespace vellumry::tk
