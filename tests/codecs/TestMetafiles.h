#pragma once
// Metafiles made at run time: a bare WMF or an EMF of the given records.

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace vellumry::codecs::testing {

inline void put16(std::vector<uint8_t>& out, uint32_t value) {
  out.push_back(static_cast<uint8_t>(value));
  out.push_back(static_cast<uint8_t>(value >> 8));
}
inline void put32(std::vector<uint8_t>& out, uint32_t value) {
  put16(out, value & 0xFFFF);
  put16(out, value >> 16);
}

struct WmfRecord {
  uint16_t function;
  std::vector<uint16_t> words;
};

// A bare WMF: its header, the records and the end record.
inline std::vector<uint8_t> wmf(uint16_t objects, std::initializer_list<WmfRecord> records) {
  std::vector<uint8_t> out;
  for (const uint32_t word : {1u, 9u, 0x300u, 0u, 0u, uint32_t{objects}, 0u, 0u, 0u})
    put16(out, word);
  for (const WmfRecord& record : records) {
    put32(out, 3 + static_cast<uint32_t>(record.words.size()));
    put16(out, record.function);
    for (const uint16_t word : record.words) put16(out, word);
  }
  for (const uint16_t word : {3, 0, 0}) put16(out, word);
  return out;
}

inline WmfRecord windowExtent(uint16_t x, uint16_t y) { return {0x020C, {y, x}}; }
inline WmfRecord solidBrush(uint32_t color) {
  return {0x02FC, {0, static_cast<uint16_t>(color), static_cast<uint16_t>(color >> 16), 0}};
}
inline WmfRecord select(uint16_t index) { return {0x012D, {index}}; }
inline WmfRecord nullPen() { return {0x02FA, {5, 0, 0, 0, 0}}; }
inline WmfRecord Rectangle(uint16_t left, uint16_t top, uint16_t right, uint16_t bottom) {
  return {0x041B, {bottom, right, top, left}};
}

struct EmfRecord {
  uint32_t type;
  std::vector<uint32_t> values;
};

// An EMF whose reference device has 10 pixels a millimetre and whose frame is `side` pixels
// square, so that device pixels are output pixels at that size.
inline std::vector<uint8_t> emf(uint32_t side, std::initializer_list<EmfRecord> records) {
  std::vector<uint8_t> out;
  for (const uint32_t value :
       {1u,       88u, 0u, 0u, side - 1, side - 1, 0u, 0u,    side * 10, side * 10, 0x464D4520u,
        0x10000u, 0u,  0u, 8u, 0u,       0u,       0u, 1000u, 1000u,     100u,      100u}) {
    put32(out, value);
  }
  for (const EmfRecord& record : records) {
    put32(out, record.type);
    put32(out, 8 + 4 * static_cast<uint32_t>(record.values.size()));
    for (const uint32_t value : record.values) put32(out, value);
  }
  for (const uint32_t value : {14u, 20u, 0u, 16u, 20u}) put32(out, value);
  return out;
}

inline EmfRecord emfBrush(uint32_t index, uint32_t color) { return {39, {index, 0, color, 0}}; }
inline EmfRecord emfSelect(uint32_t index) { return {37, {index}}; }
inline EmfRecord emfRectangle(int32_t left, int32_t top, int32_t right, int32_t bottom) {
  return {43,
          {static_cast<uint32_t>(left), static_cast<uint32_t>(top), static_cast<uint32_t>(right),
           static_cast<uint32_t>(bottom)}};
}
inline const EmfRecord kEmfNullPen = emfSelect(0x80000008);
inline uint32_t bits(float value) { return std::bit_cast<uint32_t>(value); }

// The EMF with the size of its last record before the end record set to `size`.
inline std::vector<uint8_t> lastRecordSized(std::vector<uint8_t> emf, uint32_t size) {
  const size_t at = emf.size() - 20 - 24 + 4;  // the end record is 20 bytes, a rectangle 24
  for (int i = 0; i < 4; ++i) emf[at + i] = static_cast<uint8_t>(size >> (8 * i));
  return emf;
}

}  // namespace vellumry::codecs::testing
