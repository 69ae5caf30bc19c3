#pragma once
// Files made at run time in a folder of their own, and a form holding a picture box.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/gdi/Surface.h"
#include "platform/toolkit/Form.h"
#include "platform/toolkit/FormSlot.h"
#include "platform/toolkit/HeadlessHost.h"
#include "platform/toolkit/PictureControls.h"
#include "platform/toolkit/Runtime.h"

namespace vellumry::testsupport {

// A fresh temporary folder, removed with its files at the end.
class TempFolder {
 public:
  // Writes `bytes` to `name` in the folder and gives its path.
  std::string Write(const std::string& name, const std::vector<uint8_t>& bytes) const;
  std::string Path(const std::string& name) const {
    return dir_.filePath(QString::fromStdString(name)).toStdString();
  }

 private:
  QTemporaryDir dir_;
};

// Writes at `path` an RGB TIFF of one page per colour, page n a width x height field of
// `colors[n]` (0xAARRGGBB).
void WriteTiff(const std::string& path, int width, int height, const std::vector<uint32_t>& colors);
// A width x height surface of one colour (with its alpha when `mode` is kStraight).
gdi::Surface Filled(int width, int height, uint32_t argb,
                    gdi::AlphaMode mode = gdi::AlphaMode::kStraight);

class BoxForm : public tk::Form {
 public:
  explicit BoxForm(tk::Runtime& rt) : Form(rt, "BoxForm") {}
  tk::PictureBox Picture1{this, "Picture1"};
};

// A form with a picture box on the virtual clock, at 15 twips a pixel.
struct BoxProgram {
  BoxProgram()
      : runtime(tk::Screen{}, host, tk::EventLoop::Clock::Virtual),
        form(runtime, [this] { return std::make_unique<BoxForm>(runtime); }) {}
  tk::HeadlessHost host;
  tk::Runtime runtime;
  tk::FormSlot<BoxForm> form;
};

}  // namespace vellumry::testsupport
