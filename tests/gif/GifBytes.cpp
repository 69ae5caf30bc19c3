#include "gif/GifBytes.h"

#include <gif_lib.h>

namespace vellumry::testing {

namespace {

void Word(std::vector<uint8_t>& out, int value) {
  out.push_back(static_cast<uint8_t>(value));
  out.push_back(static_cast<uint8_t>(value >> 8));
}

int Append(GifFileType* gif, const GifByteType* data, int length) {
  auto* out = static_cast<std::vector<uint8_t>*>(gif->UserData);
  out->insert(out->end(), data, data + length);
  return length;
}

}  // namespace

GifBytes GifBytes::Screen(int width, int height, int bits, const std::string& signature,
                          uint8_t background) {
  GifBytes gif;
  gif.bytes.assign(signature.begin(), signature.end());
  Word(gif.bytes, width);
  Word(gif.bytes, height);
  gif.bytes.push_back(bits > 0 ? static_cast<uint8_t>(0x80 | (bits - 1)) : 0);
  gif.bytes.push_back(background);
  gif.bytes.push_back(0);
  for (int i = 0; bits > 0 && i < (1 << bits); ++i) {
    gif.bytes.insert(gif.bytes.end(), {static_cast<uint8_t>(i), static_cast<uint8_t>(2 * i),
                                       static_cast<uint8_t>(3 * i)});
  }
  return gif;
}

GifBytes& GifBytes::Control(uint8_t flags, uint16_t delay, uint8_t transIndex) {
  bytes.insert(bytes.end(), {0x21, 0xF9, 4, flags});
  Word(bytes, delay);
  bytes.insert(bytes.end(), {transIndex, 0});
  return *this;
}

GifBytes& GifBytes::Application(const std::string& identifier,
                                const std::vector<uint8_t>& subBlock) {
  bytes.insert(bytes.end(), {0x21, 0xFF, static_cast<uint8_t>(identifier.size())});
  bytes.insert(bytes.end(), identifier.begin(), identifier.end());
  bytes.push_back(static_cast<uint8_t>(subBlock.size()));
  bytes.insert(bytes.end(), subBlock.begin(), subBlock.end());
  bytes.push_back(0);
  return *this;
}

GifBytes& GifBytes::Comment(const std::string& text) {
  bytes.insert(bytes.end(), {0x21, 0xFE, static_cast<uint8_t>(text.size())});
  bytes.insert(bytes.end(), text.begin(), text.end());
  bytes.push_back(0);
  return *this;
}

GifBytes& GifBytes::Image(int left, int top, int width, int height, int localBits,
                          const std::vector<uint8_t>& data, bool interlaced) {
  bytes.push_back(0x2C);
  for (const int value : {left, top, width, height}) Word(bytes, value);
  uint8_t flags = interlaced ? 0x40 : 0;
  if (localBits > 0) flags |= static_cast<uint8_t>(0x80 | (localBits - 1));
  bytes.push_back(flags);
  for (int i = 0; localBits > 0 && i < (1 << localBits); ++i) {
    bytes.insert(bytes.end(), {static_cast<uint8_t>(255 - i), 0, static_cast<uint8_t>(i)});
  }
  bytes.insert(bytes.end(), data.begin(), data.end());
  return *this;
}

GifBytes& GifBytes::Byte(uint8_t byte) {
  bytes.push_back(byte);
  return *this;
}

std::vector<uint8_t> OnePixelData() { return {2, 2, 0x44, 0x01, 0}; }

std::vector<uint8_t> EncodedData(int width, int height, const std::vector<uint8_t>& indices,
                                 bool interlaced) {
  std::vector<uint8_t> out;
  int error = 0;
  GifFileType* gif = EGifOpen(&out, Append, &error);
  ColorMapObject* map = GifMakeMapObject(256, nullptr);
  EGifPutScreenDesc(gif, width, height, 8, 0, map);
  EGifPutImageDesc(gif, 0, 0, width, height, interlaced, nullptr);
  std::vector<int> rows;
  if (interlaced) {
    for (const auto& [start, step] : {std::pair{0, 8}, {4, 8}, {2, 4}, {1, 2}}) {
      for (int y = start; y < height; y += step) rows.push_back(y);
    }
  } else {
    for (int y = 0; y < height; ++y) rows.push_back(y);
  }
  for (const int y : rows) {
    EGifPutLine(gif, const_cast<GifPixelType*>(indices.data() + y * width), width);
  }
  EGifCloseFile(gif, &error);
  GifFreeMapObject(map);
  // Behind the screen, its 256-entry table and the image descriptor; before the trailer.
  return {out.begin() + 13 + 768 + 10, out.end() - 1};
}

const std::vector<uint8_t> kSampleRows[3] = {
    {10, 11, 12, 13, 14, 15}, {0, 0, 1, 0, 0, 1, 1, 1}, {7, 200, 7, 255}};

GifBytes SampleAnimation() {
  return GifBytes::Screen(2, 2, 8)
      .Image(0, 0, 3, 2, 0, EncodedData(3, 2, kSampleRows[0]))
      .Image(0, 0, 2, 4, 1, EncodedData(2, 4, kSampleRows[1], true), true)
      .Control(1, 0, 7)
      .Image(5, 5, 4, 1, 0, EncodedData(4, 1, kSampleRows[2]))
      .Trailer();
}

}  // namespace vellumry::testing
