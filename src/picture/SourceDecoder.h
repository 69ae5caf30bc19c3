#pragma once
// The decoder behind a lazy picture: where its bytes come from each time it decodes.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/codecs/Codecs.h"
#include "platform/gdi/PixelSource.h"

namespace vellumry {

// Decodes the first image (frame, page) of a file or of bytes it shares, at the native sizes of
// its format. A file is read again at each decode, so a picture of a file keeps none of its bytes
// in memory between decodes. A file that changed or went away since decodes to nothing or to
// whatever it now holds.
class SourceDecoder : public gdi::ScaledDecoder {
 public:
  SourceDecoder(std::string path, const codecs::ImageInfo& info);
  SourceDecoder(std::shared_ptr<const std::vector<uint8_t>> bytes, const codecs::ImageInfo& info);

  gdi::Size naturalSize() const override { return {info_.width, info_.height}; }
  bool hasAlpha() const override { return info_.hasAlpha; }
  gdi::Size nativeSizeFor(gdi::Size wanted) const override;
  std::optional<gdi::Surface> decode(gdi::Size native) const override;

 private:
  std::string path_;
  std::shared_ptr<const std::vector<uint8_t>> bytes_;
  codecs::ImageInfo info_;
};

// `shared` when there are shared bytes, else the file at `path` read now; null when it can't
// be read.
std::shared_ptr<const std::vector<uint8_t>> sharedOrRead(
    std::shared_ptr<const std::vector<uint8_t>> shared, const std::string& path);

// The header of a file's picture. Reads only the first 64 KiB of a larger JPEG (its header lies
// there); other formats, whose probes count frames or pages, are read whole.
codecs::Expected<codecs::ImageInfo> probeFile(const std::string& path);

}  // namespace vellumry
