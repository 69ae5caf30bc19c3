#include "platform/gdi/PixelSource.h"

namespace vellumry::gdi {

namespace {
// Enough for one screen-sized picture and a few scaled copies of it.
constexpr size_t kOwnCacheBudget = 64u << 20;
}  // namespace

LazyPixels::LazyPixels(std::unique_ptr<ScaledDecoder> decoder, std::shared_ptr<PixelCache> cache)
    : decoder_(std::move(decoder)),
      cache_(cache ? std::move(cache) : std::make_shared<PixelCache>(kOwnCacheBudget)),
      owner_(cache_->newOwner()) {}

LazyPixels::~LazyPixels() { cache_->forget(owner_); }

std::shared_ptr<const Surface> LazyPixels::pixelsFor(Size wanted) {
  if (failed_) return nullptr;
  const Size native = decoder_->nativeSizeFor(wanted);
  if (auto hit = cache_->find(owner_, native)) return hit;
  // One decode at a time per picture, so that two threads asking at once decode it once.
  std::lock_guard lock(decodeMutex_);
  if (auto hit = cache_->find(owner_, native)) return hit;
  std::optional<Surface> decoded = decoder_->decode(native);
  if (!decoded) {
    failed_ = true;
    return nullptr;
  }
  auto pixels = std::make_shared<const Surface>(std::move(*decoded));
  cache_->insert(owner_, native, pixels);
  return pixels;
}

}  // namespace vellumry::gdi
