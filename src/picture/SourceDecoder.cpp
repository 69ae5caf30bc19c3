#include "picture/SourceDecoder.h"

#include <fstream>

namespace vellumry {

namespace {

constexpr size_t kHeaderPrefix = 64u << 10;

bool LooksLikeJpeg(const std::vector<uint8_t>& bytes) {
  return bytes.size() >= 3 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

// Up to `limit` bytes from the start of the file (all of it when limit is 0).
std::optional<std::vector<uint8_t>> ReadFile(const std::string& path, size_t limit) {
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  if (!in) return std::nullopt;
  const std::streamoff size = in.tellg();
  if (size < 0) return std::nullopt;
  size_t count = static_cast<size_t>(size);
  if (limit != 0 && count > limit) count = limit;
  std::vector<uint8_t> bytes(count);
  in.seekg(0);
  if (!in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count))) {
    return std::nullopt;
  }
  return bytes;
}

}  // namespace

SourceDecoder::SourceDecoder(std::string path, const codecs::ImageInfo& info)
    : path_(std::move(path)), info_(info) {}

SourceDecoder::SourceDecoder(std::shared_ptr<const std::vector<uint8_t>> bytes,
                             const codecs::ImageInfo& info)
    : bytes_(std::move(bytes)), info_(info) {}

gdi::Size SourceDecoder::NativeSizeFor(gdi::Size wanted) const {
  return codecs::NativeSizeFor(info_, wanted);
}

std::optional<gdi::Surface> SourceDecoder::Decode(gdi::Size native) const {
  std::optional<std::vector<uint8_t>> read;
  if (!bytes_) read = ReadWholeFile(path_);
  const std::vector<uint8_t>* bytes = bytes_ ? bytes_.get() : read ? &*read : nullptr;
  if (!bytes) return std::nullopt;
  auto decoded = codecs::Decode(*bytes, native.width, native.height);
  if (!decoded) return std::nullopt;
  return std::move(decoded->surface);
}

std::optional<std::vector<uint8_t>> ReadWholeFile(const std::string& path) {
  return ReadFile(path, 0);
}

codecs::Expected<codecs::ImageInfo> ProbeFile(const std::string& path) {
  auto head = ReadFile(path, kHeaderPrefix);
  if (!head) return codecs::Error::kTruncated;
  if (head->size() == kHeaderPrefix && LooksLikeJpeg(*head)) {
    if (auto info = codecs::Probe(*head)) return info;
  }
  if (head->size() == kHeaderPrefix) head = ReadWholeFile(path);
  if (!head) return codecs::Error::kTruncated;
  return codecs::Probe(*head);
}

}  // namespace vellumry
