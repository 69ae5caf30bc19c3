#pragma once

// Small files that claim enormous pictures or endless work, made here rather than downloaded:
// a decoder must refuse each of them or decode it at a bounded cost.
#include <cstdint>
#include <string>
#include <vector>

namespace vellumry::codecs::testing {

struct PictureBomb {
  std::string name;  // a file name with the format's extension
  std::vector<uint8_t> bytes;
};

std::vector<PictureBomb> pictureBombs();

// The largest picture the budget allows, a grey PNG of 16384 x 16383 whose data is 256 MiB of
// zeros: legal, but a decoder that holds it whole needs 1 GiB. Slow to make, so kept apart.
PictureBomb largestPng();

}  // namespace vellumry::codecs::testing
