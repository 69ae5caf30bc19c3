#include "platform/gdi/PixelCache.h"

#include <climits>

namespace vellumry::gdi {

PixelCache::PixelCache(size_t budgetBytes) : budget_(budgetBytes) {}

uint64_t PixelCache::newOwner() {
  std::lock_guard lock(mutex_);
  return nextOwner_++;
}

std::shared_ptr<const Surface> PixelCache::find(uint64_t owner, Size size) {
  std::lock_guard lock(mutex_);
  const auto it = entries_.find({owner, size.width, size.height});
  if (it == entries_.end()) return nullptr;
  ages_.splice(ages_.begin(), ages_, it->second.age);
  return it->second.pixels;
}

void PixelCache::insert(uint64_t owner, Size size, std::shared_ptr<const Surface> pixels) {
  if (!pixels || pixels->byteSize() > budget_) return;
  std::lock_guard lock(mutex_);
  const Key key{owner, size.width, size.height};
  if (auto it = entries_.find(key); it != entries_.end()) drop(it);
  while (used_ + pixels->byteSize() > budget_ && !ages_.empty()) {
    drop(entries_.find(ages_.back()));
  }
  used_ += pixels->byteSize();
  ages_.push_front(key);
  entries_.emplace(key, Entry{std::move(pixels), ages_.begin()});
}

void PixelCache::forget(uint64_t owner) {
  std::lock_guard lock(mutex_);
  auto it = entries_.lower_bound({owner, INT_MIN, INT_MIN});
  while (it != entries_.end() && it->first.owner == owner) drop(it++);
}

size_t PixelCache::bytesInUse() const {
  std::lock_guard lock(mutex_);
  return used_;
}

void PixelCache::drop(std::map<Key, Entry>::iterator it) {
  used_ -= it->second.pixels->byteSize();
  ages_.erase(it->second.age);
  entries_.erase(it);
}

}  // namespace vellumry::gdi
