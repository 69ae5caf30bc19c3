#pragma once
// What the picture roads share within one program: the screen's unit, the pixel cache, the
// workers that decode thumbnails ahead, and the one StdPictureEx.

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/gdi/Picture.h"
#include "platform/gdi/PixelCache.h"

namespace vellumry {

class StdPictureEx;
class ThumbnailCache;

// Owned by the Program, one per program. Everything but prefetch's decoding runs on the caller's
// thread.
class PictureServices {
 public:
  explicit PictureServices(double twipsPerPixel, size_t cacheBudgetBytes = 192u << 20,
                           unsigned workers = 0 /* 0: the machine's cores */);
  ~PictureServices();  // stops the workers; decodes under way finish first
  PictureServices(const PictureServices&) = delete;
  PictureServices& operator=(const PictureServices&) = delete;

  double twipsPerPixel() const { return twipsPerPixel_; }
  std::shared_ptr<gdi::PixelCache> cache() const { return cache_; }

  // Decodes `picture`'s pixels for drawing at `pixels` (its fitted size on screen) on a worker
  // thread, into the cache, so that a later draw at that size finds them. Never blocks; a
  // picture without lazy pixels is ignored, and so is one whose last reference goes before a
  // worker gets to it.
  void prefetch(const gdi::Picture& picture, gdi::Size pixels);
  // Waits until every prefetch queued so far has finished, and the thumbnail entries they
  // wrote (tests, benchmarks).
  void drain();
  // The desktop's shared thumbnail cache, off until the grid turns it on.
  ThumbnailCache& thumbnails() { return *thumbnails_; }
  // The one shared StdPictureEx, made on first use.
  StdPictureEx& stdPictureEx();

  using Call = std::function<void()>;
  // How `post` defers a call to after the current event: the program's event loop.
  void setPoster(std::function<void(Call)> poster) { poster_ = std::move(poster); }
  // Runs `call` after the current event, or at once when no poster was set.
  void post(Call call);

 private:
  struct Job {
    std::weak_ptr<gdi::LazyPixels> pixels;
    gdi::Size size;
  };
  void work();

  const double twipsPerPixel_;
  std::shared_ptr<gdi::PixelCache> cache_;
  std::function<void(Call)> poster_;
  std::unique_ptr<StdPictureEx> stdPictureEx_;
  std::shared_ptr<ThumbnailCache> thumbnails_;

  std::mutex mutex_;
  std::condition_variable wake_;  // a job came, or the end
  std::condition_variable idle_;  // a job finished
  std::deque<Job> jobs_;
  size_t running_ = 0;
  bool stopping_ = false;
  std::vector<std::jthread> workers_;  // last, so they stop before the rest goes
};

}  // namespace vellumry
