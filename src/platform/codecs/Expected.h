#pragma once

#include <utility>
#include <variant>

namespace vellumry::codecs {

enum class Error {
  kUnknownFormat,  // not a format these decoders know
  kUnsupported,    // a known format, but a variant not decoded here (12-bit JPEG, metafiles)
  kTruncated,      // the data ends before what its headers promise
  kCorrupt,        // inconsistent or invalid data
  kTooLarge,       // the header asks for more pixels than the budget allows
  kOutOfRange,     // a frame, page or entry number that the file doesn't have
};

const char* errorName(Error error);

// A value or the reason there is none.
template <typename T>
class Expected {
 public:
  Expected(T value) : data_(std::move(value)) {}
  Expected(Error error) : data_(error) {}

  bool ok() const { return data_.index() == 0; }
  explicit operator bool() const { return ok(); }
  T& value() { return std::get<0>(data_); }
  const T& value() const { return std::get<0>(data_); }
  T* operator->() { return &value(); }
  const T* operator->() const { return &value(); }
  T& operator*() { return value(); }
  const T& operator*() const { return value(); }
  // The reason, when !ok(); asked of a value that is there, it throws std::bad_variant_access
  // rather than make up a reason.
  Error error() const { return std::get<1>(data_); }

 private:
  std::variant<T, Error> data_;
};

}  // namespace vellumry::codecs
