#include "picture/ThumbnailCache.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "picture/ThumbnailDecoder.h"
#include "platform/codecs/Codecs.h"
#include "platform/codecs/Encoders.h"
#include "platform/os/FileSystem.h"
#include "platform/os/ThumbnailStore.h"

namespace vellumry {

namespace {

struct SizeFolder {
  const char* name;
  int box;
};
constexpr std::array<SizeFolder, 4> kSizeFolders{
    {{"normal", 128}, {"large", 256}, {"x-large", 512}, {"xx-large", 1024}}};
constexpr const char* kFailFolder = "fail/vellumry-" VELLUMRY_VERSION;

constexpr const char* kUri = "Thumb::URI";
constexpr const char* kMTime = "Thumb::MTime";
constexpr const char* kSize = "Thumb::Size";
constexpr const char* kWidth = "Thumb::Image::Width";
constexpr const char* kHeight = "Thumb::Image::Height";

template <typename Number>
std::optional<Number> parseNumber(const codecs::PngTextKeys& keys, const char* key) {
  const auto found = keys.find(key);
  if (found == keys.end()) return std::nullopt;
  const std::string& text = found->second;
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

// An entry belongs to the file only when it names the same URI and modification time, and the
// same length where it gives one; anything else is stale or another file's.
bool matches(const codecs::PngTextKeys& keys, const ThumbnailKey& key) {
  const auto uri = keys.find(kUri);
  if (uri == keys.end() || uri->second != key.uri) return false;
  if (parseNumber<int64_t>(keys, kMTime) != key.mtime) return false;
  return !keys.contains(kSize) || parseNumber<uint64_t>(keys, kSize) == key.size;
}

std::optional<codecs::PngTextKeys> readMatching(const std::string& path, const ThumbnailKey& key,
                                                std::vector<uint8_t>& bytes) {
  auto read = os::readWholeFile(path);
  if (!read) return std::nullopt;
  bytes = std::move(*read);
  auto keys = codecs::readPngText(bytes);
  if (!keys || !matches(*keys, key)) return std::nullopt;
  return std::move(*keys);
}

codecs::PngTextKeys keysOf(const ThumbnailKey& key) {
  return {{kUri, key.uri}, {kMTime, std::to_string(key.mtime)}, {kSize, std::to_string(key.size)}};
}

void writeEntry(const std::string& folder, const std::string& name,
                const std::vector<uint8_t>& png) {
  if (png.empty() || !os::makePrivateFolder(folder)) return;
  os::writePrivateFileAtomically(folder + "/" + name,
                                 {reinterpret_cast<const char*>(png.data()), png.size()});
}

}  // namespace

ThumbnailCache::ThumbnailCache(std::string root)
    : root_(std::move(root)), writer_([this] { work(); }) {}

ThumbnailCache::~ThumbnailCache() {
  drain();
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  wake_.notify_all();
}

void ThumbnailCache::configure(bool enabled, int cellPixels) {
  enabled_ = enabled;
  cellPixels_ = cellPixels;
}

std::unique_ptr<gdi::ScaledDecoder> ThumbnailCache::wrap(std::unique_ptr<gdi::ScaledDecoder> inner,
                                                         const std::string& path) {
  if (!enabled_ || cellPixels_ <= 0) return inner;
  std::string uri = os::fileUri(path);
  // Pictures of the cache itself would give entries of entries.
  const std::string own = os::fileUri(root_) + "/";
  if (uri.starts_with(own)) return inner;
  return std::make_unique<ThumbnailDecoder>(std::move(inner), shared_from_this(), path,
                                            std::move(uri));
}

int ThumbnailCache::boxFor(gdi::Size wanted) const {
  const int side = std::max(wanted.width, wanted.height);
  if (!enabled_ || side <= 0 || side > cellPixels_) return 0;
  for (const SizeFolder& folder : kSizeFolders) {
    if (side <= folder.box) return folder.box;
  }
  return 0;
}

std::optional<gdi::Surface> ThumbnailCache::find(const ThumbnailKey& key, gdi::Size wanted) const {
  const std::string name = os::thumbnailName(key.uri);
  const int box = boxFor(wanted);
  std::vector<uint8_t> bytes;
  for (const SizeFolder& folder : kSizeFolders) {
    if (box == 0 || folder.box < box) continue;
    if (!readMatching(root_ + "/" + folder.name + "/" + name, key, bytes)) continue;
    auto decoded = codecs::decode(bytes);
    if (!decoded || decoded->info.format != codecs::Format::kPng) continue;
    // A pixel short of the wanted size, from rounding, still covers it.
    if (decoded->surface.Width() + 1 >= wanted.width &&
        decoded->surface.Height() + 1 >= wanted.height) {
      return std::move(decoded->surface);
    }
  }
  return std::nullopt;
}

bool ThumbnailCache::failed(const ThumbnailKey& key) const {
  std::vector<uint8_t> bytes;
  return readMatching(root_ + "/" + kFailFolder + "/" + os::thumbnailName(key.uri), key, bytes)
      .has_value();
}

void ThumbnailCache::store(const ThumbnailKey& key, int box, gdi::Surface pixels,
                           gdi::Size natural) {
  const auto folder = std::find_if(kSizeFolders.begin(), kSizeFolders.end(),
                                   [box](const SizeFolder& f) { return f.box == box; });
  if (folder == kSizeFolders.end()) return;
  queue([key, pixels = std::move(pixels), natural, folder = root_ + "/" + folder->name] {
    codecs::PngTextKeys keys = keysOf(key);
    keys[kWidth] = std::to_string(natural.width);
    keys[kHeight] = std::to_string(natural.height);
    writeEntry(folder, os::thumbnailName(key.uri), codecs::encodePng(pixels, keys));
  });
}

void ThumbnailCache::storeFailure(const ThumbnailKey& key) {
  queue([this, key] {
    writeEntry(root_ + "/" + kFailFolder, os::thumbnailName(key.uri),
               codecs::encodePng(gdi::Surface(1, 1, gdi::AlphaMode::kStraight), keysOf(key)));
  });
}

void ThumbnailCache::drain() {
  std::unique_lock lock(mutex_);
  idle_.wait(lock, [this] { return writes_.empty() && !writing_; });
}

void ThumbnailCache::queue(std::function<void()> write) {
  {
    std::lock_guard lock(mutex_);
    writes_.push_back(std::move(write));
  }
  wake_.notify_one();
}

void ThumbnailCache::work() {
  std::unique_lock lock(mutex_);
  while (true) {
    wake_.wait(lock, [this] { return stopping_ || !writes_.empty(); });
    if (writes_.empty()) return;  // stopping, with nothing left
    auto write = std::move(writes_.front());
    writes_.pop_front();
    writing_ = true;
    lock.unlock();
    write();
    lock.lock();
    writing_ = false;
    if (writes_.empty()) idle_.notify_all();
  }
}

}  // namespace vellumry
