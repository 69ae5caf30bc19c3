#include "codecs/TestImages.h"

#include <gif_lib.h>

#include <QBuffer>
#include <QImage>
#include <cstdio>
#include <cstdlib>
// jpeglib.h needs size_t and FILE declared first.
#include <jpeglib.h>

#include "platform/codecs/Encoders.h"

namespace vellumry::codecs::testing {

gdi::Surface gradient(int width, int height) {
  gdi::Surface s(width, height, gdi::AlphaMode::kOpaque);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      s.setPixel(x, y,
                 gdi::argb(255, static_cast<uint8_t>(x * 255 / std::max(1, width - 1)),
                           static_cast<uint8_t>(y * 255 / std::max(1, height - 1)), 64));
    }
  }
  return s;
}

std::vector<uint8_t> makeJpeg(int width, int height) {
  return makeJpeg(gradient(width, height), 90);
}

std::vector<uint8_t> makeJpeg(const gdi::Surface& pixels, int quality) {
  jpeg_compress_struct cinfo{};
  jpeg_error_mgr errors{};
  cinfo.err = jpeg_std_error(&errors);
  jpeg_create_compress(&cinfo);
  unsigned char* buffer = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&cinfo, &buffer, &size);
  cinfo.image_width = static_cast<JDIMENSION>(pixels.Width());
  cinfo.image_height = static_cast<JDIMENSION>(pixels.Height());
  cinfo.input_components = 4;
  cinfo.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&cinfo);
  jpeg_set_quality(&cinfo, quality, TRUE);
  jpeg_start_compress(&cinfo, TRUE);
  while (cinfo.next_scanline < cinfo.image_height) {
    auto* row = reinterpret_cast<JSAMPROW>(
        const_cast<uint32_t*>(pixels.Row(static_cast<int>(cinfo.next_scanline))));
    jpeg_write_scanlines(&cinfo, &row, 1);
  }
  jpeg_finish_compress(&cinfo);
  jpeg_destroy_compress(&cinfo);
  std::vector<uint8_t> out(buffer, buffer + size);
  std::free(buffer);
  return out;
}

std::vector<uint8_t> makePng(const gdi::Surface& pixels) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  pixels.view().save(&buffer, "PNG");
  return {bytes.begin(), bytes.end()};
}

namespace {
int append(GifFileType* gif, const GifByteType* data, int length) {
  auto* out = static_cast<std::vector<uint8_t>*>(gif->UserData);
  out->insert(out->end(), data, data + length);
  return length;
}
}  // namespace

std::vector<uint8_t> makeAnimatedGif(int width, int height, const std::vector<GifFrameSpec>& frames,
                                     int loopCount) {
  std::vector<uint8_t> out;
  int error = 0;
  GifFileType* gif = EGifOpen(&out, append, &error);
  GifColorType colors[4] = {{0, 0, 0}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
  ColorMapObject* map = GifMakeMapObject(4, colors);
  EGifSetGifVersion(gif, true);
  EGifPutScreenDesc(gif, width, height, 2, 0, map);
  if (loopCount >= 0) {
    EGifPutExtensionLeader(gif, APPLICATION_EXT_FUNC_CODE);
    EGifPutExtensionBlock(gif, 11, "NETSCAPE2.0");
    const GifByteType loop[3] = {1, static_cast<GifByteType>(loopCount & 0xFF),
                                 static_cast<GifByteType>(loopCount >> 8)};
    EGifPutExtensionBlock(gif, 3, loop);
    EGifPutExtensionTrailer(gif);
  }
  for (const GifFrameSpec& f : frames) {
    GraphicsControlBlock gcb{f.disposal, false, f.delay, f.transparent};
    GifByteType ext[4];
    const size_t length = EGifGCBToExtension(&gcb, ext);
    EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(length), ext);
    EGifPutImageDesc(gif, f.left, f.top, f.width, f.height, false, nullptr);
    for (int y = 0; y < f.height; ++y)
      EGifPutLine(gif, const_cast<GifPixelType*>(f.indices.data() + y * f.width), f.width);
  }
  EGifCloseFile(gif, &error);
  GifFreeMapObject(map);
  return out;
}

std::vector<uint8_t> makeGif(int width, int height, const std::vector<uint8_t>& indices,
                             int transparent) {
  return makeAnimatedGif(width, height, {{0, 0, width, height, indices, 0, 0, transparent}}, -1);
}

std::vector<uint8_t> iconImageBytes(int size, uint32_t argb) {
  gdi::IconImage icon;
  const bool alpha = (argb >> 24) != 0xFF;
  icon.colour =
      gdi::Surface(size, size, alpha ? gdi::AlphaMode::kStraight : gdi::AlphaMode::kOpaque);
  for (uint32_t& p : icon.colour.Pixels()) p = argb;
  icon.andMask.assign(static_cast<size_t>(size) * size, 0);
  icon.andMask[0] = 1;
  const std::vector<uint8_t> file = codecs::encodeIco(icon);
  return {file.begin() + 22, file.end()};  // behind the header and the one directory row
}

std::vector<uint8_t> iconFile(uint16_t type, const std::vector<IconFileImage>& images) {
  std::vector<uint8_t> file;
  const auto put16 = [&file](uint32_t v) { codecs::putLe16(file, v); };
  const auto put32 = [&file](uint32_t v) { codecs::putLe32(file, v); };
  put16(0);
  put16(type);
  put16(static_cast<uint32_t>(images.size()));
  uint32_t offset = static_cast<uint32_t>(6 + 16 * images.size());
  for (const IconFileImage& image : images) {
    put32(0);  // width, height and colour bytes
    put16(image.hotspotX);
    put16(image.hotspotY);
    put32(static_cast<uint32_t>(image.bytes.size()));
    put32(offset);
    offset += static_cast<uint32_t>(image.bytes.size());
  }
  for (const IconFileImage& image : images) {
    file.insert(file.end(), image.bytes.begin(), image.bytes.end());
  }
  return file;
}

}  // namespace vellumry::codecs::testing
