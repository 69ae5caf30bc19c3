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
  // by content; a picture source comes back as itself. IconSize, ColorDepth, Width and Height
  // choose among the images of an icon file; KeepOriginalFormat keeps the source bytes.
  gdi::Picture LoadPicture(const PictureSource& Source, int32_t IconSize = -1,
                           int32_t ColorDepth = 0, int32_t Width = 0, int32_t Height = 0,
                           bool KeepOriginalFormat = false, int32_t ConvertTo = 0);
  // The kind (PictureKind) of `picture`: from its row when managed, else its own Type, with JPEG
  // and GIF told apart for a picture that keeps its source bytes.
  int32_t PictureType(const gdi::Picture& picture);
  // Bytes of `Height` rows of `Width` pixels, each row padded to 32 bits (0 Height: one row).
  static int32_t RowBytes(int32_t BitsPerPixel, int32_t Width, int32_t Height);

  static Arguments NormaliseArguments(int32_t IconSize, int32_t ColorDepth, int32_t Width,
                                      int32_t Height, bool KeepOriginalFormat, int32_t ConvertTo);
  // The row of `picture`, searched from the last row down; -1 when none or empty.
  int32_t FindRecord(const gdi::Picture& picture) const;
  // Row `row` (from 0); row -1 is the all-zero row.
  const PictureRecord& Record(int32_t row) const;
  int32_t RecordCount() const { return recordCount_; }
  // A stream over a copy of `data`.
  static Stream MakeStream(std::span<const uint8_t> data);

 private:
  class Keeper;

  gdi::Picture LoadFromFile(const std::string& path, Arguments& args, PictureRecord& record);
  // `path` names the file the bytes came from, or is empty; a picture of a file it names reads
  // the file again when it decodes, unless the bytes are kept.
  gdi::Picture LoadFromBytes(const Stream& stream, const std::string& path, Arguments& args,
                             PictureRecord& record);
  // The platform's loader: BMP, JPEG, GIF, icons and cursors (metafiles once they draw).
  gdi::Picture PictureFromStream(const Stream& stream, const std::string& path,
                                 bool KeepOriginalFormat);
  // The full decoders' road: PNG, TIFF, GIF, JPEG, BMP, with the kind and sub-images in Flags.
  gdi::Picture LoadThroughGdiPlus(const Stream& stream, const std::string& path,
                                  bool KeepOriginalFormat, PictureRecord& record);
  void AddRecord(const PictureRecord& record);
  void RemoveRecord(uint32_t pictureKey);

  PictureServices& services_;
  std::shared_ptr<Keeper> keeper_;
  int32_t recordCount_ = 0;
  std::vector<PictureRecord> records_;  // records_[0] is row -1
};

}  // namespace vellumry
