#include "picture/ThumbnailDecoder.h"

#include <algorithm>
#include <cmath>

#include "picture/ThumbnailCache.h"
#include "platform/gdi/Blit.h"
#include "platform/os/ThumbnailStore.h"

namespace vellumry {

namespace {

// `natural` shrunk to fit a `box` square, never enlarged.
gdi::Size FitInside(gdi::Size natural, int box) {
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

int ThumbnailDecoder::BoxFor(gdi::Size wanted) const {
  const gdi::Size natural = NaturalSize();
  const bool reduced =
      wanted.width <= natural.width && wanted.height <= natural.height && !(wanted == natural);
  return reduced ? cache_->BoxFor(wanted) : 0;
}

gdi::Size ThumbnailDecoder::NativeSizeFor(gdi::Size wanted) const {
  // A size the cache serves is decoded as asked, from whichever source has it.
  return BoxFor(wanted) ? wanted : inner_->NativeSizeFor(wanted);
}

std::optional<gdi::Surface> ThumbnailDecoder::Decode(gdi::Size native) const {
  const int box = BoxFor(native);
  if (!box) return inner_->Decode(native);
  const auto stamp = os::StampOf(path_);
  if (!stamp) return inner_->Decode(inner_->NativeSizeFor(native));
  const ThumbnailKey key{uri_, stamp->mtime, stamp->size};
  if (auto entry = cache_->Find(key, native)) return entry;
  if (cache_->Failed(key)) return std::nullopt;
  auto pixels = DecodeForEntry(box);
  if (!pixels) {
    cache_->StoreFailure(key);
    return std::nullopt;
  }
  cache_->Store(key, box, *pixels, NaturalSize());
  return pixels;
}

std::optional<gdi::Surface> ThumbnailDecoder::DecodeForEntry(int box) const {
  const gdi::Size size = FitInside(NaturalSize(), box);
  auto decoded = inner_->Decode(inner_->NativeSizeFor(size));
  if (!decoded || decoded->Empty()) return std::nullopt;
  if (decoded->Dimensions() == size) return decoded;
  gdi::Surface entry(size.width, size.height, decoded->Alpha());
  gdi::StretchHalftone(entry, {0, 0, size.width, size.height}, *decoded,
                       {0, 0, decoded->Width(), decoded->Height()});
  return entry;
}

}  // namespace vellumry
