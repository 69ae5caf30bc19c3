#pragma once
// A file's decoder that first looks in the shared thumbnail cache.

#include <memory>
#include <string>

#include "platform/gdi/PixelSource.h"

namespace vellumry {

class ThumbnailCache;

// Serves the sizes a grid cell draws (a reduction of the picture no larger than the cells) from
// a valid cache entry, and on a miss decodes `inner` at the entry's size and has the entry
// written. Every other size, and so anything the viewer draws, comes from `inner` as before. A
// file that our failure entry marks as undecodable isn't decoded again.
class ThumbnailDecoder : public gdi::ScaledDecoder {
 public:
  ThumbnailDecoder(std::unique_ptr<gdi::ScaledDecoder> inner, std::shared_ptr<ThumbnailCache> cache,
                   std::string path, std::string uri);

  gdi::Size naturalSize() const override { return inner_->naturalSize(); }
  bool hasAlpha() const override { return inner_->hasAlpha(); }
  gdi::Size nativeSizeFor(gdi::Size wanted) const override;
  std::optional<gdi::Surface> decode(gdi::Size native) const override;

 private:
  // The entry size that serves `wanted`, 0 when the file serves it.
  int boxFor(gdi::Size wanted) const;
  std::optional<gdi::Surface> decodeForEntry(int box) const;

  std::unique_ptr<gdi::ScaledDecoder> inner_;
  std::shared_ptr<ThumbnailCache> cache_;
  std::string path_, uri_;
};

}  // namespace vellumry
