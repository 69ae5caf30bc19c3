#include "gif/GifFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <limits>
#include <span>

namespace vellumry {

namespace {

// Raised by a read past the end of the file. It only serves to leave the nested reads: the walk
// keeps what it had.
struct EndOfFile {};

// Reads at a 1-based file position, as the walk counts.
class Reader {
 public:
  explicit Reader(std::span<const uint8_t> file) : file_(file) {}

  int64_t position() const { return at_ + 1; }
  void seek(int64_t position) { at_ = position - 1; }

  uint8_t ReadByte() {
    if (at_ >= Size()) pastTheEnd();
    return file_[at_++];
  }
  uint16_t ReadWord() {
    if (at_ + 1 >= Size()) pastTheEnd();
    const uint16_t word = static_cast<uint16_t>(file_[at_] | file_[at_ + 1] << 8);
    at_ += 2;
    return word;
  }
  // The next n bytes; n zeros, with the position unmoved, when the file ends before them.
  std::vector<uint8_t> ReadBytes(int n) {
    std::vector<uint8_t> bytes(n);
    if (at_ + n > Size()) return bytes;
    std::copy_n(file_.data() + at_, n, bytes.data());
    at_ += n;
    return bytes;
  }
  // 2^bits RGB triples into the first entries of `row`; the rest keep what they held.
  void ReadPalette(ColorRow& row, int bits) {
    const int n = 1 << bits;
    if (at_ + 3 * n > Size()) pastTheEnd();
    for (int i = 0; i < n; ++i, at_ += 3) {
      row[i] = uint32_t{file_[at_]} << 16 | uint32_t{file_[at_ + 1]} << 8 | file_[at_ + 2];
    }
  }
  void SkipSubBlocks() {
    for (uint8_t size = ReadByte(); size != 0; size = ReadByte()) at_ += size;
  }

 private:
  int64_t Size() const { return static_cast<int64_t>(file_.size()); }
  [[noreturn]] static void pastTheEnd() { throw EndOfFile{}; }

  std::span<const uint8_t> file_;
  int64_t at_ = 0;  // 0-based; may lie past the end after a skip
};

ColorRow& PaletteRow(GifFile& gif, int32_t row) {
  if (gif.m_Palettes.size() <= static_cast<size_t>(row)) gif.m_Palettes.resize(row + 1);
  return gif.m_Palettes[row];
}

bool isLooping(std::vector<uint8_t> identifier) {
  for (uint8_t& c : identifier) c = static_cast<uint8_t>(std::toupper(c));
  constexpr std::string_view kLooping = "NETSCAPE2.0";
  return std::string_view(reinterpret_cast<const char*>(identifier.data()), identifier.size()) ==
         kLooping;
}

void readApplication(Reader& in, GifFile& gif) {
  const uint8_t n = in.ReadByte();
  if (isLooping(in.ReadBytes(n))) {
    if (in.ReadByte() == 3) {
      in.ReadByte();
      gif.m_LoopCount = in.ReadWord();
    } else {
      in.seek(in.position() - 1);  // another layout: skipped as plain sub-blocks
    }
  }
  in.SkipSubBlocks();
}

// A new record each time, so only the last graphic control before an image counts.
void readGraphicControl(Reader& in, GifFile& gif, GifFrame& pending) {
  pending = {};
  pending.StripX = static_cast<int32_t>(in.position() - 2);
  in.ReadByte();  // block size, trusted to be 4
  const uint8_t flags = in.ReadByte();
  // Two of the three disposal bits: 4 to 7 fold down to 0 to 3.
  pending.Disposal = (flags >> 2) & 3;
  if (pending.Disposal == 3) gif.m_HasRestore = 1;
  pending.Delay = in.ReadWord() * 10;
  pending.HasTrans = flags & 1;
  if (pending.HasTrans) {
    pending.TransIndex = in.ReadByte();
  } else {
    in.seek(pending.StripX + 7);
  }
  in.SkipSubBlocks();
}

// False for an image with no colour table to draw it in: the whole file is refused then.
bool readImage(Reader& in, GifFile& gif, GifFrame& pending, bool hasGlobalTable) {
  const int32_t separator = static_cast<int32_t>(in.position() - 1);
  if (pending.StripX == 0) pending.StripX = separator;
  pending.Left = in.ReadWord();
  pending.Top = in.ReadWord();
  pending.Width = in.ReadWord();
  pending.Height = in.ReadWord();
  const uint8_t flags = in.ReadByte();
  if (flags & 0x80) {
    pending.PaletteRow = gif.m_PalTop + 1;
    in.ReadPalette(PaletteRow(gif, pending.PaletteRow), (flags & 7) + 1);
    gif.m_PalTop = pending.PaletteRow;
  } else if (!hasGlobalTable) {
    return false;
  }
  in.ReadByte();  // LZW minimum code size: the decoder's business
  in.SkipSubBlocks();
  // The length runs from the separator, so even an image whose data is only the code size and
  // the terminator stays a frame.
  const int32_t length = static_cast<int32_t>(in.position() - separator);
  if (length >= 3) {
    gif.m_Frames.push_back(pending);
    gif.m_Spans.push_back({length, separator});
    gif.m_Width = std::max(gif.m_Width, pending.Left + pending.Width);
    gif.m_Height = std::max(gif.m_Height, pending.Top + pending.Height);
  }
  pending = {};
  return true;
}

bool hasSignature(std::span<const uint8_t> file) {
  std::string signature(file.begin(), file.begin() + 6);
  for (char& c : signature) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return signature == "gif89a" || signature == "gif87a";
}

// The walk over the blocks; false when the file must be refused whole.
bool walk(std::span<const uint8_t> file, GifFile& gif) {
  if (!hasSignature(file)) return false;
  Reader in(file);
  // The logical screen's size and aspect are never read: the frames make the canvas.
  in.seek(11);
  const uint8_t packed = in.ReadByte();
  gif.m_BkgIndex = in.ReadByte();
  in.seek(14);
  try {
    const bool hasGlobalTable = packed & 0x80;
    if (hasGlobalTable) in.ReadPalette(PaletteRow(gif, 0), (packed & 7) + 1);
    GifFrame pending;
    while (true) {
      const uint8_t block = in.ReadByte();
      if (block == 0) continue;
      if (block == 0x21) {
        const uint8_t label = in.ReadByte();
        if (label == 0xFF) {
          readApplication(in, gif);
        } else if (label == 0xF9) {
          readGraphicControl(in, gif, pending);
        } else {
          in.SkipSubBlocks();
        }
      } else if (block == 0x2C) {
        if (!readImage(in, gif, pending, hasGlobalTable)) return false;
      } else {
        break;  // the trailer, or a byte where no block can begin
      }
    }
  } catch (const EndOfFile&) {
  }
  return true;
}

}  // namespace

int32_t ReadGifFile(std::vector<uint8_t> fileData, GifFile& gif) {
  gif = {};
  // Positions are 32-bit, so a file beyond that is as unusable as one too short for a header.
  if (fileData.size() < 20 || fileData.size() > std::numeric_limits<int32_t>::max()) return 0;
  gif.m_FileData = std::move(fileData);
  if (!walk(gif.m_FileData, gif) || gif.m_Frames.empty()) gif = {};
  return static_cast<int32_t>(gif.m_Frames.size());
}

int32_t ReadGifFile(const std::string& gifFileName, GifFile& gif) {
  gif = {};
  std::error_code error;
  const auto size = std::filesystem::file_size(gifFileName, error);
  if (error || size < 20 || size > std::numeric_limits<int32_t>::max()) return 0;
  std::ifstream file(gifFileName, std::ios::binary);
  std::vector<uint8_t> bytes(size);
  if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size))) {
    return 0;
  }
  return ReadGifFile(std::move(bytes), gif);
}

}  // namespace vellumry
