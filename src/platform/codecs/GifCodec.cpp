#include "platform/codecs/GifCodec.h"

#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>

#include "platform/codecs/Limits.h"
#include "platform/gdi/ByteReader.h"

namespace vellumry::codecs {

namespace {

struct Input {
  std::span<const uint8_t> bytes;
  size_t position = 0;
};

int readFromMemory(GifFileType* gif, GifByteType* out, int length) {
  auto* in = static_cast<Input*>(gif->UserData);
  if (length <= 0) return 0;
  const size_t n = std::min<size_t>(static_cast<size_t>(length), in->bytes.size() - in->position);
  std::memcpy(out, in->bytes.data() + in->position, n);
  in->position += n;
  return static_cast<int>(n);
}

struct GifCloser {
  void operator()(GifFileType* gif) const {
    int error = 0;
    DGifCloseFile(gif, &error);
  }
};
using GifHandle = std::unique_ptr<GifFileType, GifCloser>;

bool isGif(std::span<const uint8_t> bytes) {
  return bytes.size() >= 6 && std::memcmp(bytes.data(), "GIF", 3) == 0;
}

// Skips the sub-blocks starting at `at`; the offset behind the terminator, or nothing.
std::optional<uint64_t> SkipSubBlocks(const gdi::ByteReader& in, uint64_t at) {
  while (true) {
    const auto length = in.u8(at);
    if (!length) return std::nullopt;
    at += 1 + *length;
    if (*length == 0) return at;
  }
}

// Reads frames up to `frame` with giflib, leaving the reader positioned on that frame's pixels.
// The frame's graphic control block is written to `control`.
Expected<GifHandle> openAtFrame(Input& input, int frame, GraphicsControlBlock& control) {
  int error = 0;
  GifHandle gif(DGifOpen(&input, readFromMemory, &error));
  if (!gif) return error == D_GIF_ERR_NOT_GIF_FILE ? Error::kUnknownFormat : Error::kTruncated;
  control = {DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
  for (int seen = 0;;) {
    GifRecordType type;
    if (DGifGetRecordType(gif.get(), &type) == GIF_ERROR) return Error::kTruncated;
    if (type == TERMINATE_RECORD_TYPE) return Error::kOutOfRange;
    if (type == EXTENSION_RECORD_TYPE) {
      int code = 0;
      GifByteType* block = nullptr;
      if (DGifGetExtension(gif.get(), &code, &block) == GIF_ERROR) return Error::kTruncated;
      if (code == GRAPHICS_EXT_FUNC_CODE && block && block[0] >= 4) {
        DGifExtensionToGCB(block[0], block + 1, &control);
      }
      while (block) {
        if (DGifGetExtensionNext(gif.get(), &block) == GIF_ERROR) return Error::kTruncated;
      }
      continue;
    }
    if (type != IMAGE_DESC_RECORD_TYPE) return Error::kCorrupt;
    if (DGifGetImageDesc(gif.get()) == GIF_ERROR) return Error::kTruncated;
    if (seen++ == frame) return gif;
    int codeSize = 0;
    GifByteType* block = nullptr;
    if (DGifGetCode(gif.get(), &codeSize, &block) == GIF_ERROR) return Error::kTruncated;
    while (block) {
      if (DGifGetCodeNext(gif.get(), &block) == GIF_ERROR) return Error::kTruncated;
    }
    control = {DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
  }
}

// Reads the positioned frame's rows into `out.indices`, de-interlacing. Rows the data doesn't
// reach are filled with the transparent index (or 0) when truncation is tolerated. Nothing on
// success.
std::optional<Error> readRows(GifFileType* gif, GifFrameIndices& out, const Leniency& leniency) {
  const GifImageDesc& desc = gif->Image;
  out.left = desc.Left;
  out.top = desc.Top;
  out.width = desc.Width;
  out.height = desc.Height;
  out.interlaced = desc.Interlace;
  if (!fitsPixelBudget(out.width, out.height)) {
    return out.width <= 0 || out.height <= 0 ? Error::kCorrupt : Error::kTooLarge;
  }
  const ColorMapObject* map = desc.ColorMap ? desc.ColorMap : gif->SColorMap;
  if (!map || map->ColorCount <= 0) return Error::kCorrupt;
  for (int i = 0; i < map->ColorCount; ++i) {
    const GifColorType c = map->Colors[i];
    out.colors.push_back(gdi::argb(255, c.Red, c.Green, c.Blue));
  }
  const uint8_t fill = out.transparentIndex >= 0 ? static_cast<uint8_t>(out.transparentIndex) : 0;
  out.indices.assign(static_cast<size_t>(out.width) * out.height, fill);
  std::vector<int> order;
  if (out.interlaced) {
    constexpr int kStart[] = {0, 4, 2, 1};
    constexpr int kStep[] = {8, 8, 4, 2};
    for (int pass = 0; pass < 4; ++pass) {
      for (int y = kStart[pass]; y < out.height; y += kStep[pass]) order.push_back(y);
    }
  } else {
    for (int y = 0; y < out.height; ++y) order.push_back(y);
  }
  for (const int y : order) {
    GifPixelType* row = out.indices.data() + static_cast<size_t>(y) * out.width;
    if (DGifGetLine(gif, row, out.width) == GIF_ERROR) {
      if (!leniency.gifTruncatedFrame) return Error::kTruncated;
      std::fill_n(row, out.width, fill);  // the failed row may be half written
      break;
    }
  }
  return std::nullopt;
}

Expected<GifFrameIndices> readFrame(Input& input, int frame, const Leniency& leniency,
                                    GifHandle* keep) {
  GraphicsControlBlock control{};
  auto gif = openAtFrame(input, frame, control);
  if (!gif) return gif.error();
  GifFrameIndices out;
  out.transparentIndex = control.TransparentColor;
  out.delayCentiseconds = control.DelayTime;
  out.disposal = std::clamp(control.DisposalMode, 0, 3);
  if (const auto error = readRows(gif->get(), out, leniency)) return *error;
  if (out.transparentIndex >= static_cast<int>(out.colors.size())) out.transparentIndex = -1;
  if (keep) *keep = std::move(*gif);
  return out;
}

}  // namespace

Expected<ImageInfo> probeGif(std::span<const uint8_t> bytes) {
  if (!isGif(bytes)) return Error::kUnknownFormat;
  const gdi::ByteReader in(bytes);
  const auto width = in.le16(6);
  const auto height = in.le16(8);
  const auto flags = in.u8(10);
  if (!width || !height || !flags) return Error::kTruncated;
  ImageInfo info;
  info.format = Format::kGif;
  info.width = *width;
  info.height = *height;
  info.bitsPerPixel = (*flags & 7) + 1;
  info.frameCount = 0;
  uint64_t at = 13 + ((*flags & 0x80) ? 3u << ((*flags & 7) + 1) : 0);
  while (const auto block = in.u8(at)) {
    if (*block == 0x3B) break;
    if (*block == 0x21) {
      const auto label = in.u8(at + 1);
      const auto gceFlags = in.u8(at + 3);
      if (label == 0xF9 && gceFlags && (*gceFlags & 1)) info.hasAlpha = true;
      const auto next = SkipSubBlocks(in, at + 2);
      if (!next) break;
      at = *next;
    } else if (*block == 0x2C) {
      const auto frameWidth = in.le16(at + 5);
      const auto frameHeight = in.le16(at + 7);
      const auto frameFlags = in.u8(at + 9);
      if (!frameFlags) break;
      if (info.frameCount == 0) {  // the canvas that decodeGif makes
        info.width = std::max<int>(info.width, *frameWidth);
        info.height = std::max<int>(info.height, *frameHeight);
      }
      ++info.frameCount;
      at += 10 + ((*frameFlags & 0x80) ? 3u << ((*frameFlags & 7) + 1) : 0);
      const auto next = SkipSubBlocks(in, at + 1);
      if (!next) break;
      at = *next;
    } else {
      break;
    }
  }
  if (info.width == 0 || info.height == 0) return Error::kCorrupt;
  return info;
}

Expected<Decoded> decodeGif(std::span<const uint8_t> bytes, const Leniency& leniency) {
  if (!isGif(bytes)) return Error::kUnknownFormat;
  Input input{bytes};
  GifHandle gif;
  auto frame = readFrame(input, 0, leniency, &gif);
  if (!frame) return frame.error();
  const GifFrameIndices& f = *frame;
  // A frame larger than the logical screen grows the canvas to the frame's size; one placed
  // partly outside is clipped. Its offsets never grow the canvas, so a few bytes can't ask for a
  // huge one.
  const int canvasWidth = std::max<int>(gif->SWidth, f.width);
  const int canvasHeight = std::max<int>(gif->SHeight, f.height);
  if (!fitsPixelBudget(canvasWidth, canvasHeight)) return Error::kTooLarge;
  Decoded out;
  out.info.format = Format::kGif;
  out.info.width = canvasWidth;
  out.info.height = canvasHeight;
  out.info.bitsPerPixel = 8;
  out.info.hasAlpha = true;
  out.surface = gdi::Surface(out.info.width, out.info.height, gdi::AlphaMode::kStraight);
  const gdi::Rect visible =
      gdi::clip({f.left, f.top, f.width, f.height}, canvasWidth, canvasHeight);
  for (int y = visible.y; y < visible.y + visible.height; ++y) {
    const uint8_t* in = f.indices.data() + static_cast<size_t>(y - f.top) * f.width;
    uint32_t* px = out.surface.Row(y);
    for (int x = visible.x; x < visible.x + visible.width; ++x) {
      // Indices beyond the colour table draw nothing, like the transparent one.
      const uint8_t index = in[x - f.left];
      if (index != f.transparentIndex && index < f.colors.size()) px[x] = f.colors[index];
    }
  }
  return out;
}

Expected<GifFrameIndices> decodeGifFrameIndices(std::span<const uint8_t> bytes, int frame,
                                                const Leniency& leniency) {
  if (!isGif(bytes)) return Error::kUnknownFormat;
  if (frame < 0) return Error::kOutOfRange;
  Input input{bytes};
  return readFrame(input, frame, leniency, nullptr);
}

Expected<gdi::IndexedSurface> decodeGifIndexed(std::span<const uint8_t> bytes,
                                               const Leniency& leniency) {
  auto frame = decodeGifFrameIndices(bytes, 0, leniency);
  if (!frame) return frame.error();
  gdi::IndexedSurface out(frame->width, frame->height);
  for (int y = 0; y < frame->height; ++y) {
    std::memcpy(out.Row(y), frame->indices.data() + static_cast<size_t>(y) * frame->width,
                frame->width);
  }
  gdi::IndexedSurface::ColorTable table{};
  std::copy_n(frame->colors.begin(), std::min(frame->colors.size(), table.size()), table.begin());
  out.setColors(table);
  return out;
}

}  // namespace vellumry::codecs
