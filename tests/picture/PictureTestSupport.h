#pragma once
// Files made at run time in a folder of their own, and an engine to load them with.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"
#include "platform/gdi/Surface.h"
#include "platform/toolkit/Error.h"

namespace vellumry::testsupport {

// A fresh temporary folder, removed with its files at the end.
class TempFolder {
 public:
  // Writes `bytes` to `name` in the folder and gives its path.
  std::string write(const std::string& name, const std::vector<uint8_t>& bytes) const;
  std::string Path(const std::string& name) const {
    return dir_.filePath(QString::fromStdString(name)).toStdString();
  }

 private:
  QTemporaryDir dir_;
};

// Writes at `path` an RGB TIFF of one page per colour, page n a width x height field of
// `colors[n]` (0xAARRGGBB).
void writeTiff(const std::string& path, int width, int height, const std::vector<uint32_t>& colors);
// A width x height surface of one colour (with its alpha when `mode` is kStraight).
gdi::Surface filled(int width, int height, uint32_t argb,
                    gdi::AlphaMode mode = gdi::AlphaMode::kStraight);
// `target` with the whole of `picture` drawn over the whole of it.
gdi::Surface drawn(const gdi::Picture& picture, gdi::Surface target);
// Whether red, green and blue of `a` and `b` each lie within `tolerance`.
::testing::AssertionResult near(uint32_t a, uint32_t b, int tolerance);

// The error `call` raises, or nothing.
template <typename Call>
std::optional<tk::Error> errorOf(Call&& call) {
  try {
    call();
  } catch (const tk::Error& error) {
    return error;
  }
  return std::nullopt;
}

// The picture class of a program at 15 twips a pixel, and a folder for its files.
class EngineTest : public ::testing::Test {
 protected:
  PictureServices services{15, 16u << 20, 1};
  StdPictureEx& ex = services.stdPictureEx();
  TempFolder folder;
};

}  // namespace vellumry::testsupport
