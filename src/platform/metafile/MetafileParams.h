#pragma once

#include <bit>
#include <cstdint>
#include <span>

#include "platform/gdi/ByteReader.h"

namespace vellumry::metafile {

// The parameters of one metafile record. Reads past the record's end give 0, so a short record
// draws with zeros instead of reading its neighbour's bytes.
class Params {
 public:
  explicit Params(std::span<const uint8_t> bytes) : in_(bytes) {}

  size_t size() const { return in_.size(); }
  bool has(uint64_t at, uint64_t length) const { return in_.has(at, length); }
  int16_t s16(uint64_t at) const { return static_cast<int16_t>(in_.le16(at).value_or(0)); }
  uint16_t u16(uint64_t at) const { return in_.le16(at).value_or(0); }
  int32_t s32(uint64_t at) const { return static_cast<int32_t>(in_.le32(at).value_or(0)); }
  uint32_t u32(uint64_t at) const { return in_.le32(at).value_or(0); }
  uint8_t u8(uint64_t at) const { return in_.u8(at).value_or(0); }
  float f32(uint64_t at) const { return std::bit_cast<float>(u32(at)); }
  std::span<const uint8_t> slice(uint64_t at, uint64_t length) const {
    return in_.slice(at, length);
  }
  const gdi::ByteReader& reader() const { return in_; }

 private:
  gdi::ByteReader in_;
};

}  // namespace vellumry::metafile
