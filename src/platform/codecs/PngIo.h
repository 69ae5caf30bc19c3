#pragma once
// What the PNG reader and writer share: libpng reading from and writing to memory, with errors
// as jumps.

#include <png.h>

#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

namespace vellumry::codecs::pngio {

struct Input {
  std::span<const uint8_t> bytes;
  size_t position = 0;
};

inline void readFromMemory(png_structp png, png_bytep out, size_t length) {
  auto* input = static_cast<Input*>(png_get_io_ptr(png));
  if (length > input->bytes.size() - input->position) png_error(png, "truncated");
  std::memcpy(out, input->bytes.data() + input->position, length);
  input->position += length;
}

// Collects what libpng writes, in memory.
inline void writeToMemory(png_structp png, png_bytep data, size_t length) {
  auto* out = static_cast<std::vector<uint8_t>*>(png_get_io_ptr(png));
  out->insert(out->end(), data, data + length);
}
inline void flushNothing(png_structp) {}

inline void onError(png_structp png, png_const_charp) { png_longjmp(png, 1); }
inline void onWarning(png_structp, png_const_charp) {}

// libpng's reading or writing structure and its info, made and destroyed together.
template <bool kWriting>
class Handle {
 public:
  Handle() {
    png_ = kWriting ? png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, onWarning)
                    : png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, onWarning);
    if (png_) info_ = png_create_info_struct(png_);
  }
  ~Handle() {
    if constexpr (kWriting)
      png_destroy_write_struct(&png_, info_ ? &info_ : nullptr);
    else
      png_destroy_read_struct(&png_, info_ ? &info_ : nullptr, nullptr);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  bool ok() const { return png_ && info_; }
  png_structp png() { return png_; }
  png_infop info() { return info_; }

 private:
  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
};
using Reader = Handle<false>;
using Writer = Handle<true>;

}  // namespace vellumry::codecs::pngio
