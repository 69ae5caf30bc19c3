#pragma once
// The viewers' program-wide state: what stands on the screen, the slideshow's interval and the
// GIF buttons' setting, the GIF window's size. Minimising and restoring set what stands on the
// screen too, and the settings' interval and GIF buttons come in when the grid applies the
// settings or the settings window saves them.

#include <cstdint>
#include <string>

namespace vellumry {

namespace tk {
class FieldTable;
}
class Form3;

class ViewerState {
 public:
  // What ViewerUp tells: nothing, the viewer, or the viewer with the GIF window over it.
  static constexpr uint8_t kGrid = 0, kViewer = 2, kGifViewer = 3;

  uint8_t ViewerUp() const { return ViewerUp_; }
  int32_t lSlideMs() const { return lSlideMs_; }
  const std::string& sAniGif() const { return sAniGif_; }
  bool bBigPlay() const { return bBigPlay_; }

  void setViewerUp(uint8_t up) { ViewerUp_ = up; }
  void setSlideMs(int32_t ms) { lSlideMs_ = ms; }
  void setAniGif(std::string flag) { sAniGif_ = std::move(flag); }

  void addFields(tk::FieldTable& fields);

 private:
  friend class Form3;

  uint8_t ViewerUp_ = kGrid;
  int32_t lSlideMs_ = 0;
  std::string sAniGif_;
  bool bBigPlay_ = false;
};

}  // namespace vellumry
