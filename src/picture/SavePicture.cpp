// The way back from a picture to bytes: a BMP made by drawing it, or the bytes it was read from.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/Encoders.h"
#include "platform/codecs/Limits.h"
#include "platform/gdi/Blit.h"
#include "platform/gdi/Units.h"
#include "platform/toolkit/Error.h"
#include "platform/toolkit/PictureControls.h"

namespace vellumry {

namespace {

constexpr const char* kSource = "SavePicture";
constexpr int kErrorDestination = 17;
constexpr int kErrorNoBitmap = 7;
constexpr int kErrorNoSource = 5;

[[noreturn]] void raise(int number, const std::string& description) {
  throw tk::Error(number, kSource, description);
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

// Writes all of `bytes`; a short write raises the system's error.
void writeAll(std::FILE* file, const std::vector<uint8_t>& bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size() || std::fflush(file) != 0) {
    const int error = errno;
    raise(error, std::strerror(error));
  }
}

}  // namespace

Stream StdPictureEx::sourceBytesOf(const gdi::Picture& picture) {
  if (const std::vector<uint8_t>* original = picture.originalBytes()) {
    return std::make_shared<const std::vector<uint8_t>>(*original);
  }
  return Record(FindRecord(picture)).SourceBytes;
}

void StdPictureEx::SavePicture(const gdi::Picture& Picture, SaveDestination& Destination,
                               bool AsBitmap, int32_t KeepAlpha, int32_t BackColor) {
  if (!Picture || Picture.Handle() == 0) return;
  const auto* path = std::get_if<std::string>(&Destination);
  auto* array = std::get_if<ByteArray>(&Destination);
  auto* variable = std::get_if<gdi::Picture>(&Destination);
  if (!path && !array && !variable) raise(kErrorDestination, "Type mismatch");
  if (path && path->empty()) return;
  // A file is made first and stays behind with what was written, whatever fails later.
  File file(nullptr, &std::fclose);
  if (path) {
    file.reset(std::fopen(path->c_str(), "wb"));
    if (!file) {
      const int error = errno;
      raise(error, std::strerror(error));
    }
  }
  std::vector<uint8_t> bytes;
  const int32_t kind = PictureType(Picture);
  const bool kept = Picture.KeepOriginalFormat();
  if (AsBitmap || (kind == kKindBitmap && !kept)) {
    const bool alpha =
        FindRecord(Picture) >= 0 && KeepAlpha == -1 && Picture.Type() == gdi::PictureType::kBitmap;
    const double twips = services_.twipsPerPixel();
    const int width = gdi::himetricToPixels(Picture.Width(), twips);
    const int height = gdi::himetricToPixels(Picture.Height(), twips);
    if (!codecs::fitsPixelBudget(width, height)) raise(kErrorNoBitmap, "Out of memory");
    // 32 bits start transparent and take the picture's alpha; 24 bits show it over BackColor.
    gdi::Surface section(width, height,
                         alpha ? gdi::AlphaMode::kPremultiplied : gdi::AlphaMode::kOpaque);
    if (!alpha) {
      gdi::fill(section, {0, 0, width, height}, tk::pixelOf(static_cast<uint32_t>(BackColor)));
    }
    Picture.Render(section, 0, 0, width, height, 0, Picture.Height() - 1, Picture.Width(),
                   -Picture.Height());
    if (variable) {
      *variable = gdi::Picture::fromSurface(std::move(section), twips);
      return;
    }
    bytes = codecs::encodeBmp(section);
  } else if (variable) {
    *variable = LoadPicture(Picture);
    return;
  } else {
    const Stream source = sourceBytesOf(Picture);
    if (!source || source->empty()) raise(kErrorNoSource, "Invalid procedure call or argument");
    bytes = *source;
  }
  if (file) {
    writeAll(file.get(), bytes);
  } else {
    array->bytes = std::move(bytes);
    array->lowerBound = 0;
    array->dimensions = 1;
  }
}

}  // namespace vellumry
