#include "platform/codecs/MetafileProbe.h"

#include "platform/codecs/ByteReader.h"

namespace vellumry::codecs {

namespace {
constexpr uint32_t kEmfHeaderRecord = 1;
constexpr uint32_t kEmfSignature = 0x464D4520;  // " EMF"
constexpr uint32_t kPlaceableKey = 0x9AC6CDD7;
}  // namespace

Expected<ImageInfo> ProbeMetafile(std::span<const uint8_t> bytes) {
  const ByteReader in(bytes);
  ImageInfo info;
  if (in.Le32(0) == kEmfHeaderRecord && in.Le32(40) == kEmfSignature) {
    const auto left = in.Le32(8), top = in.Le32(12), right = in.Le32(16), bottom = in.Le32(20);
    info.format = Format::kEmf;
    const int64_t w = int64_t{static_cast<int32_t>(*right)} - static_cast<int32_t>(*left) + 1;
    const int64_t h = int64_t{static_cast<int32_t>(*bottom)} - static_cast<int32_t>(*top) + 1;
    info.width = w > 0 && w < (1 << 30) ? static_cast<int>(w) : 0;
    info.height = h > 0 && h < (1 << 30) ? static_cast<int>(h) : 0;
    return info;
  }
  if (in.Le32(0) == kPlaceableKey) {
    const auto left = in.Le16(6), top = in.Le16(8), right = in.Le16(10), bottom = in.Le16(12);
    const auto inch = in.Le16(14);
    if (!inch) return Error::kTruncated;
    info.format = Format::kWmf;
    if (*inch > 0) {
      const int w = static_cast<int16_t>(*right) - static_cast<int16_t>(*left);
      const int h = static_cast<int16_t>(*bottom) - static_cast<int16_t>(*top);
      info.width = w > 0 ? w * 96 / *inch : 0;
      info.height = h > 0 ? h * 96 / *inch : 0;
    }
    return info;
  }
  const auto type = in.Le16(0), headerWords = in.Le16(2), version = in.Le16(4);
  if ((type == 1 || type == 2) && headerWords == 9 && (version == 0x100 || version == 0x300)) {
    info.format = Format::kWmf;
    return info;
  }
  return Error::kUnknownFormat;
}

}  // namespace vellumry::codecs
