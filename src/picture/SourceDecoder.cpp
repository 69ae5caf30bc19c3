#include "picture/SourceDecoder.h"

#include "platform/os/FileSystem.h"

namespace vellumry {

namespace {

constexpr size_t kHeaderPrefix = 64u << 10;

bool looksLikeJpeg(const std::vector<uint8_t>& bytes) {
  return bytes.size() >= 3 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

}  // namespace

SourceDecoder::SourceDecoder(std::string path, const codecs::ImageInfo& info)
    : path_(std::move(path)), info_(info) {}

SourceDecoder::SourceDecoder(std::shared_ptr<const std::vector<uint8_t>> bytes,
                             const codecs::ImageInfo& info)
    : bytes_(std::move(bytes)), info_(info) {}

gdi::Size SourceDecoder::nativeSizeFor(gdi::Size wanted) const {
  return codecs::nativeSizeFor(info_, wanted);
}

std::optional<gdi::Surface> SourceDecoder::decode(gdi::Size native) const {
  const auto bytes = sharedOrRead(bytes_, path_);
  if (!bytes) return std::nullopt;
  auto decoded = codecs::decode(*bytes, native.width, native.height);
  if (!decoded) return std::nullopt;
  return std::move(decoded->surface);
}

std::shared_ptr<const std::vector<uint8_t>> sharedOrRead(
    std::shared_ptr<const std::vector<uint8_t>> shared, const std::string& path) {
  if (shared) return shared;
  auto read = os::readWholeFile(path);
  if (!read) return nullptr;
  return std::make_shared<const std::vector<uint8_t>>(std::move(*read));
}

codecs::Expected<codecs::ImageInfo> probeFile(const std::string& path) {
  auto head = os::readFileStart(path, kHeaderPrefix);
  if (!head) return codecs::Error::kTruncated;
  if (head->size() == kHeaderPrefix && looksLikeJpeg(*head)) {
    if (auto info = codecs::probe(*head)) return info;
  }
  if (head->size() == kHeaderPrefix) head = os::readWholeFile(path);
  if (!head) return codecs::Error::kTruncated;
  return codecs::probe(*head);
}

}  // namespace vellumry
