#pragma once
// Interface shared with the player: a GIF file's frame records and their reader. Keep stable.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vellumry {

// One frame's geometry and timing as its image descriptor and graphic control give them.
struct GifFrame {
  int32_t Left = 0;
  int32_t Top = 0;
  int32_t Width = 0;
  int32_t Height = 0;
  int32_t Delay = 0;       // milliseconds: the file's hundredths x 10; 0 stays 0
  int32_t PaletteRow = 0;  // row of GifFile::m_Palettes; 0 is the global table
  // While reading: the 1-based file position of the frame's first block (its graphic control
  // extension if it has one, else the image separator). After BuildStrip: its X in the strip.
  int32_t StripX = 0;
  uint8_t TransIndex = 0;  // valid when HasTrans is 1
  uint8_t HasTrans = 0;    // 1 or 0
  uint8_t Disposal = 0;    // 0 to 3
};

// Where a frame's image lies in the file.
struct FrameSpan {
  int32_t Length = 0;  // from the separator to behind the terminator of the frame's data
  int32_t Offset = 0;  // 1-based file position of the image separator byte
};

// 256 colour-table entries, each 0x00RRGGBB; entries the file doesn't fill are 0.
using ColorRow = std::array<uint32_t, 256>;

// What ReadGifFile fills. Frames are counted from 1: frame n is m_Frames[n - 1] and its span
// m_Spans[n - 1].
struct GifFile {
  std::vector<GifFrame> m_Frames;
  std::vector<FrameSpan> m_Spans;
  // Row 0 the global table (all 0 when the file has none), rows 1 and up the local tables in
  // file order.
  std::vector<ColorRow> m_Palettes;
  // After reading: the highest row used. BuildStrip turns it into the row loaded in the strip's
  // table, -1 for none (the identity table or a mask).
  int32_t m_PalTop = 0;
  // The canvas: the bounding box of all frames from (0, 0), not the screen the file declares.
  int32_t m_Width = 0;
  int32_t m_Height = 0;
  int32_t m_LoopCount = 0;   // from the looping application extension; 0 means without end
  uint8_t m_HasRestore = 0;  // 1 if any frame has Disposal 3
  uint8_t m_BkgIndex = 0;    // background colour index of the logical screen
  // The file's bytes, held for BuildStrip to read the frames from; empty them once it has run.
  std::vector<uint8_t> m_FileData;
};

// Walks the file's blocks and fills `gif` anew with a record a frame and every colour table;
// never decodes image data. Gives the number of frames kept, 0 (with `gif` empty) for a missing
// file, one under 20 bytes, a wrong signature, or an image without any colour table. A file
// that breaks off, or a byte where no block can begin, keeps the frames before it.
int32_t ReadGifFile(const std::string& gifFileName, GifFile& gif);
// The same on a file's bytes.
int32_t ReadGifFile(std::vector<uint8_t> fileData, GifFile& gif);

}  // namespace vellumry
