#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace vellumry::gdi {

// Bounds-checked reads of little- and big-endian numbers at an offset; nothing when the value
// doesn't lie wholly inside `bytes`.
class ByteReader {
 public:
  explicit ByteReader(std::span<const uint8_t> bytes) : bytes_(bytes) {}

  size_t size() const { return bytes_.size(); }
  bool has(uint64_t offset, uint64_t length) const {
    return offset <= bytes_.size() && length <= bytes_.size() - offset;
  }
  std::optional<uint8_t> u8(uint64_t at) const {
    if (!has(at, 1)) return std::nullopt;
    return bytes_[at];
  }
  std::optional<uint16_t> le16(uint64_t at) const {
    if (!has(at, 2)) return std::nullopt;
    return static_cast<uint16_t>(bytes_[at] | bytes_[at + 1] << 8);
  }
  std::optional<uint32_t> le32(uint64_t at) const {
    if (!has(at, 4)) return std::nullopt;
    return uint32_t{bytes_[at]} | uint32_t{bytes_[at + 1]} << 8 | uint32_t{bytes_[at + 2]} << 16 |
           uint32_t{bytes_[at + 3]} << 24;
  }
  std::optional<uint16_t> be16(uint64_t at) const {
    if (!has(at, 2)) return std::nullopt;
    return static_cast<uint16_t>(bytes_[at] << 8 | bytes_[at + 1]);
  }
  std::optional<uint32_t> be32(uint64_t at) const {
    if (!has(at, 4)) return std::nullopt;
    return uint32_t{bytes_[at]} << 24 | uint32_t{bytes_[at + 1]} << 16 |
           uint32_t{bytes_[at + 2]} << 8 | uint32_t{bytes_[at + 3]};
  }
  // The `length` bytes at `at`, or an empty span when they aren't all there.
  std::span<const uint8_t> slice(uint64_t at, uint64_t length) const {
    if (!has(at, length)) return {};
    return bytes_.subspan(at, length);
  }

 private:
  std::span<const uint8_t> bytes_;
};

}  // namespace vellumry::gdi
