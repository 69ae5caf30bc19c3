#include "picture/ThumbnailDecoder.h"

#include <algorithm>
#include <cmath>

#include "picture/ThumbnailCache.h"
#include "platform/gdi/Blit.h"
#include "platform/os/ThumbnailStore.h"

namespace vellumry {

namespace {

// `natural` shrunk to fit a `box` square, never enlarged.
gdi::Size fitInside(gdi::Size natural, int box) {
  const double scale = std::min(
      {1.0, static_cast<double>(box) / natural.width, static_cast<double>(box) / natural.height});
  return {std::max(1, static_cast<int>(std::lround(natural.width * scale))),
          std::max(1, static_cast<int>(std::lround(natural.height * scale)))};
}

}  // namespace

ThumbnailDecoder::ThumbnailDecoder(std::unique_ptr<gdi::ScaledDecoder> inner,
                                   std::shared_ptr<ThumbnailCache> cache, std::string path,
                                   std::string uri)
    : inner_(std::move(inner)),
      cache_(std::move(cache)),
      path_(std::move(path)),
      uri_(std::move(uri)) {}

int ThumbnailDecoder::boxFor(gdi::Size wanted) const {
  const gdi::Size natural = naturalSize();
  const bool reduced =
      wanted.width <= natural.width && wanted.height <= natural.height && !(wanted == natural);
  return reduced ? cache_->boxFor(wanted) : 0;
}

gdi::Size ThumbnailDecoder::nativeSizeFor(gdi::Size wanted) const {
  // A size the cache serves is decoded as asked, from whichever source has it.
  return boxFor(wanted) ? wanted : inner_->nativeSizeFor(wanted);
}

std::optional<gdi::Surface> ThumbnailDecoder::decode(gdi::Size native) const {
  const int box = boxFor(native);
  if (!box) return inner_->decode(native);
  const auto stamp = os::stampOf(path_);
  if (!stamp) return inner_->decode(inner_->nativeSizeFor(native));
  const ThumbnailKey key{uri_, stamp->mtime, stamp->size};
  if (auto entry = cache_->find(key, native)) return entry;
  if (cache_->failed(key)) return std::nullopt;
  auto pixels = decodeForEntry(box);
  if (!pixels) {
    cache_->storeFailure(key);
    return std::nullopt;
  }
  cache_->store(key, box, *pixels, naturalSize());
  return pixels;
}

std::optional<gdi::Surface> ThumbnailDecoder::decodeForEntry(int box) const {
  const gdi::Size size = fitInside(naturalSize(), box);
  auto decoded = inner_->decode(inner_->nativeSizeFor(size));
  if (!decoded || decoded->empty()) return std::nullopt;
  if (decoded->dimensions() == size) return decoded;
  gdi::Surface entry(size.width, size.height, decoded->alpha());
  gdi::stretchHalftone(entry, {0, 0, size.width, size.height}, *decoded,
                       {0, 0, decoded->Width(), decoded->Height()});
  return entry;
}

}  // namespace vellumry
