#pragma once

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <mutex>

#include "platform/gdi/Surface.h"

namespace vellumry::gdi {

// Decoded pixels of many pictures, kept within a memory budget and dropped least recently used
// first. Entries are keyed by an owner (one per picture source, from newOwner) and a pixel size.
// Safe to use from several threads. Surfaces handed out stay valid after eviction, since the
// cache only drops its own reference.
class PixelCache {
 public:
  explicit PixelCache(size_t budgetBytes);
  PixelCache(const PixelCache&) = delete;
  PixelCache& operator=(const PixelCache&) = delete;

  uint64_t newOwner();

  // The cached pixels of `owner` at `size`, or null.
  std::shared_ptr<const Surface> find(uint64_t owner, Size size);
  // Stores `pixels`, evicting older entries to stay within the budget. Pixels larger than the
  // whole budget are not kept.
  void insert(uint64_t owner, Size size, std::shared_ptr<const Surface> pixels);
  // Drops every entry of `owner`.
  void forget(uint64_t owner);

  size_t bytesInUse() const;
  size_t budget() const { return budget_; }

 private:
  struct Key {
    uint64_t owner;
    int width;
    int height;
    auto operator<=>(const Key&) const = default;
  };
  struct Entry {
    std::shared_ptr<const Surface> pixels;
    std::list<Key>::iterator age;
  };

  void drop(std::map<Key, Entry>::iterator it);

  const size_t budget_;
  mutable std::mutex mutex_;
  uint64_t nextOwner_ = 1;
  size_t used_ = 0;
  std::map<Key, Entry> entries_;
  std::list<Key> ages_;  // most recently used first
};

}  // namespace vellumry::gdi
