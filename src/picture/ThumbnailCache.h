#pragma once
// The desktop's shared thumbnail cache as the grid uses it: entries other programs wrote are
// read, and ours are written for them, on a writer thread of the cache's own.

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/gdi/PixelSource.h"

namespace vellumry {

// A picture file as an entry names it: its URI, modification time (seconds) and length.
struct ThumbnailKey {
  std::string uri;
  int64_t mtime = 0;
  uint64_t size = 0;
};

class ThumbnailCache : public std::enable_shared_from_this<ThumbnailCache> {
 public:
  // Made shared, since the decoders it wraps keep it. Entries live under `root` (normal/, large/,
  // x-large/, xx-large/, fail/vellumry-VERSION/).
  explicit ThumbnailCache(std::string root);
  ~ThumbnailCache();  // writes what is queued first
  ThumbnailCache(const ThumbnailCache&) = delete;
  ThumbnailCache& operator=(const ThumbnailCache&) = delete;

  // Whether pictures made from now on use the cache, and the longest side in pixels that the
  // grid's cells draw: only pictures drawn at most that large are served from entries, so a
  // viewer, which draws larger, never shows a thumbnail. Off, or 0 pixels: nothing is touched.
  void configure(bool enabled, int cellPixels);

  // `inner`, the decoder of the file `path`, as it is to be used: wrapped so that it reads and
  // writes entries while the cache is on, unchanged when it is off or `path` lies in the cache.
  std::unique_ptr<gdi::ScaledDecoder> wrap(std::unique_ptr<gdi::ScaledDecoder> inner,
                                           const std::string& path);

  // The side of the smallest entry size that covers `wanted` (128, 256, 512 or 1024), or 0 when
  // `wanted` is larger than entries are or than the cells draw.
  int boxFor(gdi::Size wanted) const;
  // The pixels of the smallest valid entry for `key` that covers `wanted`; nothing when none.
  std::optional<gdi::Surface> find(const ThumbnailKey& key, gdi::Size wanted) const;
  // Whether our failure entry says that this very file couldn't be decoded.
  bool failed(const ThumbnailKey& key) const;
  // Queue the writing of `pixels` as `key`'s entry of size `box` (a picture of `natural` size),
  // or of a failure entry. A folder or file that can't be written is left alone.
  void store(const ThumbnailKey& key, int box, gdi::Surface pixels, gdi::Size natural);
  void storeFailure(const ThumbnailKey& key);
  // Waits until every queued write has been done (tests, benchmarks).
  void drain();

 private:
  void queue(std::function<void()> write);
  void work();

  const std::string root_;
  std::atomic<bool> enabled_{false};
  std::atomic<int> cellPixels_{0};

  std::mutex mutex_;
  std::condition_variable wake_, idle_;
  std::deque<std::function<void()>> writes_;
  bool writing_ = false, stopping_ = false;
  std::jthread writer_;  // last, so it stops before the rest goes
};

}  // namespace vellumry
