#pragma once
// The picture class: a picture from a file, a block of bytes or another picture, chosen by
// content, with a table of the pictures it manages.

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "picture/PictureRecord.h"
#include "platform/gdi/Picture.h"

namespace vellumry {

class PictureServices;

// A byte array as the toolkit passes it: its bytes, lower bound and number of dimensions.
struct ByteArray {
  std::vector<uint8_t> bytes;
  int32_t lowerBound = 0;
  int dimensions = 1;
};

using PictureSource = std::variant<std::monostate, std::string, ByteArray, gdi::Picture>;

// Where SavePicture writes: a file name, a byte array that receives the bytes, or a picture
// variable that receives a new picture. A number (or nothing) is none of these.
using SaveDestination = std::variant<std::monostate, std::string, ByteArray, gdi::Picture, int32_t>;

// A seekable block of bytes held in memory, shared by those that read it.
using Stream = std::shared_ptr<const std::vector<uint8_t>>;

class StdPictureEx {
 public:
  // LoadPicture's arguments after normalising.
  struct Arguments {
    int32_t IconSize = -1;
    int32_t ColorDepth = 0;
    int32_t Width = 0;
    int32_t Height = 0;
    bool KeepOriginalFormat = false;
    int32_t ConvertTo = 0;
    bool KeepForIcon = false;  // KeepOriginalFormat as asked, remembered for ConvertTo 3
  };

  explicit StdPictureEx(PictureServices& services);
  ~StdPictureEx();
  StdPictureEx(const StdPictureEx&) = delete;
  StdPictureEx& operator=(const StdPictureEx&) = delete;

  // A picture of `Source`, or an empty one: failures are never raised. A file or bytes are read
  // by content; a picture source gives a copy owned here, or itself when none can be made.
  // IconSize, ColorDepth, Width and Height choose among the images of an icon file;
  // KeepOriginalFormat keeps the source bytes; ConvertTo 1 makes a bitmap, 3 an icon.
  gdi::Picture LoadPicture(const PictureSource& Source, int32_t IconSize = -1,
                           int32_t ColorDepth = 0, int32_t Width = 0, int32_t Height = 0,
                           bool KeepOriginalFormat = false, int32_t ConvertTo = 0);
  // Writes `Picture` as a BMP made by drawing it (AsBitmap, or a plain bitmap not kept in source
  // form): 24 bits over BackColor (0x00BBGGRR; negative: a system colour), or 32 bits with alpha
  // when KeepAlpha is -1 and the picture is managed. Else a picture variable gets a copy through
  // LoadPicture, and the rest the bytes the picture was read from. An empty picture does nothing.
  // Raises tk::Error with the source "SavePicture": 17 for a destination of no known kind, 7 when
  // the bitmap can't be made, 5 when there are no source bytes, and a failed file's error.
  void SavePicture(const gdi::Picture& Picture, SaveDestination& Destination, bool AsBitmap = false,
                   int32_t KeepAlpha = 0, int32_t BackColor = 0);
  // Sub-images of a managed multi-page picture: their count and the current one (from 1); 0 for
  // a picture without a row. An icon has none: one image was chosen.
  int32_t SubImageCount(const gdi::Picture& picture);
  int32_t SubImageIndex(const gdi::Picture& picture);
  // Page `Index` of a multi-page TIFF kept in source form, as a new picture that takes the row
  // over; any other picture, or an index out of range, gives `picture` itself.
  gdi::Picture SubImage(const gdi::Picture& picture, int32_t Index);
  // Whether `picture` is managed: it has a row and draws through this class.
  bool IsManaged(const gdi::Picture& picture) const;
  // Makes `picture` plain again and drops its row.
  void UnManage(const gdi::Picture& picture);
  // The kind (PictureKind) of `picture`: from its row when managed, else its own Type, with JPEG
  // and GIF told apart for a picture that keeps its source bytes.
  int32_t PictureType(const gdi::Picture& picture);
  // Bytes of `Height` rows of `Width` pixels, each row padded to 32 bits (0 Height: one row).
  static int32_t RowBytes(int32_t BitsPerPixel, int32_t Width, int32_t Height);

  static Arguments normaliseArguments(int32_t IconSize, int32_t ColorDepth, int32_t Width,
                                      int32_t Height, bool KeepOriginalFormat, int32_t ConvertTo);
  // The row of `picture`, searched from the last row down; -1 when none or empty.
  int32_t FindRecord(const gdi::Picture& picture) const;
  // Row `row` (from 0); row -1 is the all-zero row.
  const PictureRecord& Record(int32_t row) const;
  int32_t RecordCount() const { return recordCount_; }
  // A stream over a copy of `data`.
  static Stream MakeStream(std::span<const uint8_t> data);
  // The icon size an IconSize request stands for, into Width and Height (0: the image's own).
  static void ResolveIconSize(int32_t IconSize, int32_t& Width, int32_t& Height, int imageCount);
  // An icon or cursor file: the image chosen for the size and depth asked, as an icon picture.
  // Flags 3 for a 32-bit image or with KeepOriginalFormat, which keeps a file of that one image
  // in SourceBytes. Nothing when the file is refused.
  gdi::Picture LoadIconData(std::span<const uint8_t> Data, int32_t& Width, int32_t& Height,
                            int32_t& IconSize, int32_t& ColorDepth, bool KeepOriginalFormat,
                            PictureRecord& Record);

 private:
  class Keeper;

  // A "BM" file through a DIB section: 32-bit pixels whose fourth byte proves to be alpha give a
  // managed picture (Flags 1) with premultiplied pixels. Nothing when the section can't be made.
  gdi::Picture loadFromDib(const Stream& stream, const std::string& path, PictureRecord& record);
  // A copy of `picture` owned here: its source bytes read again, or its pixels or icon copied and
  // examined. Nothing when no copy could be made (the record is then cleared).
  gdi::Picture LoadFromPicture(const gdi::Picture& picture, Arguments& args, PictureRecord& record);
  // A transparent bitmap of 8 bits or less, copied over a colour it lacks: that colour's pixels
  // become 0, the rest opaque.
  gdi::Picture copyMasked(const gdi::Picture& picture, PictureRecord& record);
  // A bitmap picture over `pixels`, managed (Flags 1) when their fourth byte proves to be alpha.
  gdi::Picture ExamineBitmap(gdi::Surface pixels, PictureRecord& record);
  // `picture` as a bitmap: an icon's colour with its alpha or mask, a metafile's drawing; a
  // bitmap stays itself.
  gdi::Picture ConvertToBitmap(const gdi::Picture& picture, PictureRecord& record);
  // A metafile drawn into a bitmap of its own size. With transparency, what it painted stays
  // and the rest is clear (managed, Flags 1); without, it lies on black. The metafile itself
  // when it can't be drawn.
  gdi::Picture RenderToDib(const gdi::Picture& picture, PictureRecord& record);
  // `picture` as an icon of one image made from a bitmap's pixels; an icon stays itself.
  gdi::Picture ConvertToIcon(const gdi::Picture& picture, PictureRecord& record,
                             const Arguments& args);
  // The page the row's current sub-image names, drawn into a new picture that takes the row.
  gdi::Picture SelectTiffPage(const gdi::Picture& picture, int32_t row);
  // Bytes that `picture` was read from: its own kept bytes or its row's; null when none.
  Stream sourceBytesOf(const gdi::Picture& picture);
  gdi::Picture LoadFromFile(const std::string& path, Arguments& args, PictureRecord& record);
  // `path` names the file the bytes came from, or is empty; a picture of a file it names reads
  // the file again when it decodes, unless the bytes are kept.
  gdi::Picture LoadFromBytes(const Stream& stream, const std::string& path, Arguments& args,
                             PictureRecord& record);
  // The platform's loader: BMP, JPEG, GIF, icons, cursors and metafiles.
  gdi::Picture PictureFromStream(const Stream& stream, const std::string& path,
                                 bool KeepOriginalFormat);
  // The full decoders' road: PNG, TIFF, GIF, JPEG, BMP, with the kind and sub-images in Flags.
  gdi::Picture LoadThroughGdiPlus(const Stream& stream, const std::string& path,
                                  bool KeepOriginalFormat, PictureRecord& record);
  void AddRecord(const PictureRecord& record);
  // Drops the row whose keys are `key`; the last row takes its place.
  void RemoveRecord(uint32_t key);

  // Whether `picture` draws and reports its release through this class.
  bool drawsHere(const gdi::Picture& picture) const;
  // Lets `picture` draw and report its release through this class; its row exists already.
  void manage(gdi::Picture& picture);

  PictureServices& services_;
  std::shared_ptr<Keeper> keeper_;
  int32_t recordCount_ = 0;
  std::vector<PictureRecord> records_;  // records_[0] is row -1
};

}  // namespace vellumry
