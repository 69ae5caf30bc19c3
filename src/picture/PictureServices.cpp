#include "picture/PictureServices.h"

#include "picture/StdPictureEx.h"
#include "picture/ThumbnailCache.h"
#include "platform/os/ThumbnailStore.h"

namespace vellumry {

PictureServices::PictureServices(double twipsPerPixel, size_t cacheBudgetBytes, unsigned workers)
    : twipsPerPixel_(twipsPerPixel),
      cache_(std::make_shared<gdi::PixelCache>(cacheBudgetBytes)),
      thumbnails_(std::make_shared<ThumbnailCache>(os::thumbnailRoot())) {
  if (workers == 0) workers = std::max(1u, std::thread::hardware_concurrency());
  for (unsigned i = 0; i < workers; ++i) workers_.emplace_back([this] { work(); });
}

PictureServices::~PictureServices() {
  {
    std::lock_guard lock(mutex_);
    stopping_ = true;
    jobs_.clear();
  }
  wake_.notify_all();
  workers_.clear();  // joins
}

void PictureServices::prefetch(const gdi::Picture& picture, gdi::Size pixels) {
  auto lazy = picture.lazy();
  if (!lazy || pixels.width <= 0 || pixels.height <= 0) return;
  {
    std::lock_guard lock(mutex_);
    jobs_.push_back({lazy, pixels});
  }
  wake_.notify_one();
}

void PictureServices::drain() {
  std::unique_lock lock(mutex_);
  idle_.wait(lock, [this] { return jobs_.empty() && running_ == 0; });
  lock.unlock();
  thumbnails_->drain();
}

StdPictureEx& PictureServices::stdPictureEx() {
  if (!stdPictureEx_) stdPictureEx_ = std::make_unique<StdPictureEx>(*this);
  return *stdPictureEx_;
}

void PictureServices::post(Call call) {
  if (poster_) {
    poster_(std::move(call));
  } else {
    call();
  }
}

void PictureServices::work() {
  std::unique_lock lock(mutex_);
  while (true) {
    wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
    if (stopping_) return;
    Job job = std::move(jobs_.front());
    jobs_.pop_front();
    ++running_;
    lock.unlock();
    // The pixels are dropped here, on the worker, only when their picture is already gone; the
    // picture object itself never is.
    if (auto pixels = job.pixels.lock()) pixels->pixelsFor(job.size);
    lock.lock();
    --running_;
    if (jobs_.empty() && running_ == 0) idle_.notify_all();
  }
}

}  // namespace vellumry
