#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

#include "platform/gdi/PixelCache.h"
#include "platform/gdi/Surface.h"

namespace vellumry::gdi {

// Decodes one picture's pixels at sizes its format can produce directly. Implementations must be
// safe to call from several threads at once (the bytes they read don't change).
class ScaledDecoder {
 public:
  virtual ~ScaledDecoder() = default;
  // Full size in pixels, known without decoding.
  virtual Size naturalSize() const = 0;
  // Whether the pixels carry alpha, known without decoding.
  virtual bool hasAlpha() const = 0;
  // The smallest size the decoder produces directly that covers `wanted` in both directions, or
  // the natural size when none is smaller. A 0 in `wanted` means the natural size.
  virtual Size nativeSizeFor(Size wanted) const = 0;
  // Pixels at `native` (a value nativeSizeFor gave), or nothing when the data can't be decoded.
  virtual std::optional<Surface> decode(Size native) const = 0;
};

// A picture's pixels, decoded on first need at the size they are drawn and kept in a PixelCache.
// Thread-safe: pictures may be decoded ahead on worker threads.
class LazyPixels {
 public:
  // `cache` may be shared by many sources; null gives this source a small cache of its own.
  LazyPixels(std::unique_ptr<ScaledDecoder> decoder, std::shared_ptr<PixelCache> cache);
  ~LazyPixels();
  LazyPixels(const LazyPixels&) = delete;
  LazyPixels& operator=(const LazyPixels&) = delete;

  Size naturalSize() const { return decoder_->naturalSize(); }
  bool hasAlpha() const { return decoder_->hasAlpha(); }

  // Pixels covering at least `wanted` (0 x 0: full size), possibly larger; null when decoding
  // failed, which is remembered so that a bad file is decoded only once.
  std::shared_ptr<const Surface> pixelsFor(Size wanted);

 private:
  std::unique_ptr<ScaledDecoder> decoder_;
  std::shared_ptr<PixelCache> cache_;
  uint64_t owner_;
  std::mutex decodeMutex_;
  std::atomic<bool> failed_{false};
};

}  // namespace vellumry::gdi
