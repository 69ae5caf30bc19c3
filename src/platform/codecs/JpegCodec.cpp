#include "platform/codecs/JpegCodec.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstring>

#include "platform/codecs/Limits.h"
#include "platform/codecs/Orientation.h"

// jpeglib.h needs size_t and FILE declared first.
#include <jerror.h>
#include <jpeglib.h>

namespace vellumry::codecs {

namespace {

struct ErrorManager {
  jpeg_error_mgr base;
  std::jmp_buf jump;
  bool refuseWarnings = false;
  Error error = Error::kCorrupt;
};

[[noreturn]] void onError(j_common_ptr cinfo) {
  auto* mgr = reinterpret_cast<ErrorManager*>(cinfo->err);
  std::longjmp(mgr->jump, 1);
}

void onMessage(j_common_ptr cinfo, int level) {
  auto* mgr = reinterpret_cast<ErrorManager*>(cinfo->err);
  if (level >= 0) return;  // trace messages
  if (cinfo->err->msg_code == JWRN_JPEG_EOF) mgr->error = Error::kTruncated;
  if (mgr->refuseWarnings) std::longjmp(mgr->jump, 1);
}

constexpr int kExifMarker = JPEG_APP0 + 1;

// A decompressor whose errors jump back to the caller instead of ending the process. The memory
// manager is capped so that a header can't make libjpeg allocate more than the pixel budget.
class Decompressor {
 public:
  explicit Decompressor(bool refuseWarnings) {
    cinfo_.err = jpeg_std_error(&errors_.base);
    errors_.base.error_exit = onError;
    errors_.base.emit_message = onMessage;
    errors_.refuseWarnings = refuseWarnings;
  }
  ~Decompressor() {
    if (created_) jpeg_destroy_decompress(&cinfo_);
  }
  jpeg_decompress_struct& info() { return cinfo_; }
  ErrorManager& errors() { return errors_; }
  void create(std::span<const uint8_t> bytes) {
    jpeg_create_decompress(&cinfo_);
    created_ = true;
    cinfo_.mem->max_memory_to_use = static_cast<long>(kMaxPixelBytes);
    jpeg_mem_src(&cinfo_, bytes.data(), static_cast<unsigned long>(bytes.size()));
    jpeg_save_markers(&cinfo_, kExifMarker, 0xFFFF);
  }

 private:
  jpeg_decompress_struct cinfo_{};
  ErrorManager errors_{};
  bool created_ = false;
};

bool isJpeg(std::span<const uint8_t> bytes) {
  return bytes.size() >= 3 && bytes[0] == 0xFF && bytes[1] == 0xD8 && bytes[2] == 0xFF;
}

// The orientation of the first APP1 segment that holds EXIF, else 1.
int orientationOf(const jpeg_decompress_struct& cinfo) {
  static constexpr char kExifHeader[] = "Exif\0";  // six bytes with the closing zero
  for (jpeg_saved_marker_ptr m = cinfo.marker_list; m; m = m->next) {
    if (m->marker != kExifMarker || m->data_length < sizeof kExifHeader ||
        std::memcmp(m->data, kExifHeader, sizeof kExifHeader) != 0) {
      continue;
    }
    return exifOrientation(
        std::span<const uint8_t>(m->data, m->data_length).subspan(sizeof kExifHeader));
  }
  return 1;
}

// The size is that of the upright picture.
ImageInfo infoOf(const jpeg_decompress_struct& cinfo) {
  ImageInfo info;
  info.format = Format::kJpeg;
  const bool swap = swapsSides(orientationOf(cinfo));
  info.width = static_cast<int>(swap ? cinfo.image_height : cinfo.image_width);
  info.height = static_cast<int>(swap ? cinfo.image_width : cinfo.image_height);
  info.bitsPerPixel = cinfo.num_components * 8;
  return info;
}

uint8_t mul255(int a, int b) { return static_cast<uint8_t>((a * b + 127) / 255); }

// libjpeg hands CMYK out as stored; Adobe's files store every channel inverted.
uint32_t cmykToArgb(const JSAMPLE* p, bool adobeInverted) {
  int c = p[0], m = p[1], y = p[2], k = p[3];
  if (!adobeInverted) {
    c = 255 - c;
    m = 255 - m;
    y = 255 - y;
    k = 255 - k;
  }
  return gdi::argb(255, mul255(c, k), mul255(m, k), mul255(y, k));
}

}  // namespace

Expected<ImageInfo> probeJpeg(std::span<const uint8_t> bytes) {
  if (!isJpeg(bytes)) return Error::kUnknownFormat;
  Decompressor d(false);
  if (setjmp(d.errors().jump)) return d.errors().error;
  d.create(bytes);
  if (jpeg_read_header(&d.info(), TRUE) != JPEG_HEADER_OK) return Error::kTruncated;
  return infoOf(d.info());
}

std::vector<gdi::Size> jpegNativeSizes(int width, int height) {
  std::vector<gdi::Size> sizes;
  for (int64_t n = 1; n <= 8; ++n) {
    sizes.push_back(
        {static_cast<int>((width * n + 7) / 8), static_cast<int>((height * n + 7) / 8)});
  }
  return sizes;
}

namespace {

// The decode proper. Kept apart from the objects it fills, which live in the caller, so that a
// jump back out of libjpeg leaves no local of this frame half-modified and in use.
bool runDecode(Decompressor& d, std::span<const uint8_t> bytes, int eighths, Decoded& out,
               std::vector<JSAMPLE>& row, int& orientation) {
  jpeg_decompress_struct& cinfo = d.info();
  if (setjmp(d.errors().jump)) return false;
  d.create(bytes);
  if (jpeg_read_header(&cinfo, TRUE) != JPEG_HEADER_OK) {
    d.errors().error = Error::kTruncated;
    return false;
  }
  out.info = infoOf(cinfo);
  // Read now: finishing the decode frees the saved markers.
  orientation = orientationOf(cinfo);
  if (!fitsPixelBudget(cinfo.image_width, cinfo.image_height)) {
    d.errors().error = Error::kTooLarge;
    return false;
  }
  const bool cmyk = cinfo.jpeg_color_space == JCS_CMYK || cinfo.jpeg_color_space == JCS_YCCK;
  cinfo.out_color_space = cmyk ? JCS_CMYK : JCS_EXT_BGRA;
  cinfo.scale_num = static_cast<unsigned>(std::clamp(eighths, 1, 8));
  cinfo.scale_denom = 8;
  cinfo.dct_method = JDCT_ISLOW;
  jpeg_start_decompress(&cinfo);

  out.surface = gdi::Surface(static_cast<int>(cinfo.output_width),
                             static_cast<int>(cinfo.output_height), gdi::AlphaMode::kOpaque);
  row.resize(static_cast<size_t>(cinfo.output_width) * cinfo.output_components);
  while (cinfo.output_scanline < cinfo.output_height) {
    const int y = static_cast<int>(cinfo.output_scanline);
    JSAMPROW target = cmyk ? row.data() : reinterpret_cast<JSAMPROW>(out.surface.Row(y));
    if (jpeg_read_scanlines(&cinfo, &target, 1) != 1) {
      d.errors().error = Error::kTruncated;
      return false;
    }
    if (cmyk) {
      uint32_t* px = out.surface.Row(y);
      for (JDIMENSION x = 0; x < cinfo.output_width; ++x) {
        px[x] = cmykToArgb(&row[x * 4], cinfo.saw_Adobe_marker);
      }
    }
  }
  jpeg_finish_decompress(&cinfo);
  return true;
}

}  // namespace

Expected<Decoded> decodeJpeg(std::span<const uint8_t> bytes, int eighths,
                             const Leniency& leniency) {
  if (!isJpeg(bytes)) return Error::kUnknownFormat;
  Decompressor d(!leniency.jpegDataWarnings);
  Decoded out;
  std::vector<JSAMPLE> row;
  int orientation = 1;
  if (!runDecode(d, bytes, eighths, out, row, orientation)) return d.errors().error;
  // Turned after scaling, so that a photo on its side costs no full-size copy.
  turnUpright(out.surface, orientation);
  return out;
}

}  // namespace vellumry::codecs
