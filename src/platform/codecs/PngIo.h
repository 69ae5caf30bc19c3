#pragma once
// What the PNG readers share: libpng reading from memory, with errors as jumps.

#include <png.h>

#include <cstdint>
#include <cstring>
#include <span>

namespace vellumry::codecs::pngio {

struct Input {
  std::span<const uint8_t> bytes;
  size_t position = 0;
};

inline void ReadFromMemory(png_structp png, png_bytep out, size_t length) {
  auto* input = static_cast<Input*>(png_get_io_ptr(png));
  if (length > input->bytes.size() - input->position) png_error(png, "truncated");
  std::memcpy(out, input->bytes.data() + input->position, length);
  input->position += length;
}

inline void OnError(png_structp png, png_const_charp) { png_longjmp(png, 1); }
inline void OnWarning(png_structp, png_const_charp) {}

class Reader {
 public:
  Reader() {
    png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, OnError, OnWarning);
    if (png_) info_ = png_create_info_struct(png_);
  }
  ~Reader() { png_destroy_read_struct(&png_, info_ ? &info_ : nullptr, nullptr); }
  bool ok() const { return png_ && info_; }
  png_structp png() { return png_; }
  png_infop info() { return info_; }

 private:
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};

}  // namespace vellumry::codecs::pngio
