// The pages of a managed multi-page picture.
#include "picture/PictureServices.h"
#include "picture/StdPictureEx.h"
#include "platform/codecs/TiffCodec.h"
#include "platform/gdi/LockBits.h"

namespace vellumry {

int32_t StdPictureEx::SubImageCount(const gdi::Picture& picture) {
  return static_cast<int32_t>(subImageCountOf(Record(FindRecord(picture)).Flags));
}

int32_t StdPictureEx::SubImageIndex(const gdi::Picture& picture) {
  return static_cast<int32_t>(subImageOf(Record(FindRecord(picture)).Flags));
}

gdi::Picture StdPictureEx::SubImage(const gdi::Picture& picture, int32_t Index) {
  if (!picture) return {};
  if (picture.Handle() == 0 || Index < 1) return picture;
  const int32_t row = FindRecord(picture);
  if (row < 0) return picture;
  PictureRecord& record = records_[static_cast<size_t>(row) + 1];
  const uint32_t count = subImageCountOf(record.Flags);
  if (count < 2 || static_cast<uint32_t>(Index) > count) return picture;
  const int32_t kind = kindOf(record.Flags);
  record.Flags = flagsOf(kind, static_cast<uint32_t>(Index), count);
  if (kind == kKindTiff) {
    if (gdi::Picture page = SelectTiffPage(picture, row)) return page;
  }
  return picture;
}

gdi::Picture StdPictureEx::SelectTiffPage(const gdi::Picture&, int32_t row) {
  PictureRecord& record = records_[static_cast<size_t>(row) + 1];
  if (!record.SourceBytes) return {};
  const int page = static_cast<int>(subImageOf(record.Flags)) - 1;
  auto decoded = codecs::decodeTiff(*record.SourceBytes, page, {});
  if (!decoded) return {};
  gdi::Picture picture =
      gdi::Picture::fromSurface(gdi::convertAlpha(decoded->surface, gdi::AlphaMode::kPremultiplied),
                                services_.twipsPerPixel());
  // The new picture takes the row over; the old one finds none when it goes.
  record.PictureKey = picture.Handle();
  record.DispatchKey = picture.Handle();
  manage(picture);
  return picture;
}

}  // namespace vellumry
