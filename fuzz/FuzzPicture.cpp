// A file as the program takes it: probed, loaded as the grid loads a cell (by the engine and by
// the plain loader), and drawn at a cell's size and at its own, upright, as the viewer draws it;
// so that the decoders are fuzzed together, as the program uses them.
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "fuzz/FuzzFonts.h"
#include "fuzz/FuzzTargets.h"
#include "picture/PictureServices.h"
#include "picture/PlainLoader.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/Codecs.h"
#include "platform/toolkit/Error.h"

namespace vellumry::fuzz {

namespace {

// The name a folder would give the file: its extension by what the bytes are.
std::string extensionOf(std::span<const uint8_t> bytes) {
  const auto info = codecs::probe(bytes);
  if (!info) return ".jpg";
  switch (info->format) {
    case codecs::Format::kPng: return ".png";
    case codecs::Format::kTiff: return ".tif";
    case codecs::Format::kGif: return ".gif";
    case codecs::Format::kBmp: return ".bmp";
    case codecs::Format::kIco: return ".ico";
    case codecs::Format::kCur: return ".cur";
    case codecs::Format::kWmf: return ".wmf";
    case codecs::Format::kEmf: return ".emf";
    default: return ".jpg";
  }
}

void drawn(const gdi::Picture& picture) {
  if (!picture) return;
  picture.Pixels({96, 72});
  picture.Pixels();
}

}  // namespace

int fuzzPicture(const uint8_t* data, size_t size) {
  ensureFontDatabase();
  static PictureServices services(15, 16u << 20, 1);
  const std::span<const uint8_t> bytes(data, size);
  const std::string path = (std::filesystem::temp_directory_path() /
                            ("vellumry-fuzz-" + std::to_string(::getpid()) + extensionOf(bytes)))
                               .string();
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  // A file either loader refuses costs its cell, as in the grid.
  try {
    drawn(services.stdPictureEx().LoadPicture(path));
  } catch (const tk::Error&) {
  }
  try {
    drawn(LoadPicture(services, path));
  } catch (const tk::Error&) {
  }
  ::unlink(path.c_str());
  return 0;
}

}  // namespace vellumry::fuzz
