#pragma once
// The controls that show a Picture: the image and the picture box.

#include "platform/gdi/Picture.h"
#include "platform/toolkit/BasicControls.h"

namespace vellumry::tk {

// Twips of a picture's natural size on this screen: whole pixels, as the toolkit sizes controls.
double pictureTwipsX(const gdi::Picture& p, double twipsPerPixelX);
double pictureTwipsY(const gdi::Picture& p, double twipsPerPixelY);

// With Stretch off the image takes the size of a picture it is given (0 by 0 for none); with
// Stretch on it draws the picture at its own size.
class Image : public Control {
 public:
  Image(Form* form, std::string name) : Control(form, std::move(name), Kind::Image) {}
  const gdi::Picture& Picture() const { return picture_; }
  void setPicture(const gdi::Picture& p);
  bool Stretch() const { return stretch_; }
  void setStretch(bool v);
  const std::vector<Property>& properties() const override;

 private:
  gdi::Picture picture_;
  bool stretch_ = false;
};

// A box that holds a picture at its natural size, top left, over its BackColor. With AutoSize
// on it takes the size of its picture. Image is what stands painted on it.
class PictureBox : public Control {
 public:
  PictureBox(Form* form, std::string name) : Control(form, std::move(name), Kind::PictureBox) {}
  const gdi::Picture& Picture() const { return picture_; }
  void setPicture(const gdi::Picture& p);
  bool AutoSize() const { return autoSize_; }
  void setAutoSize(bool v);
  bool AutoRedraw() const { return autoRedraw_; }
  void setAutoRedraw(bool v) { autoRedraw_ = v; }
  int ScaleMode() const { return scaleMode_; }
  void setScaleMode(int v) { scaleMode_ = v; }
  double innerUnitX() const override;
  double innerUnitY() const override;
  // The inner size, inside the border (two pixels a side when there is one), in twips, or in
  // pixels when ScaleMode is 3.
  double ScaleWidth() const;
  double ScaleHeight() const;
  uint32_t BackColor() const { return backColor_; }
  void setBackColor(uint32_t v);
  int BorderStyle() const { return borderStyle_; }
  void setBorderStyle(int v);
  // The pointer over the box: 0 default, 1 arrow, 5 four arrows, 7 north-south, 9 west-east.
  int MousePointer() const { return mousePointer_; }
  void setMousePointer(int v);
  // What stands painted on the box, as a bitmap picture of the box's size in pixels. When that is
  // exactly the box's opaque bitmap at its natural size, the same picture.
  gdi::Picture Image() const;
  bool focusable() const override { return true; }
  const std::vector<Property>& properties() const override;

 private:
  void fitToPicture();
  double inner(double outer, double twipsPerPixel) const;
  gdi::Picture picture_;
  bool autoSize_ = false, autoRedraw_ = false;
  int scaleMode_ = 1, borderStyle_ = 1, mousePointer_ = 0;
  uint32_t backColor_ = kSystemFace;
};

// 0x00BBGGRR (system colours as a mid grey) as an opaque pixel.
uint32_t pixelOf(uint32_t color);

}  // namespace vellumry::tk
