// The JPEG codec: one record describes both sides of a transfer, and a mode says what is read or written.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace pixorra {

// Fields that a reader or writer may leave as Init set them are not listed.
struct JPEG_CORE_PROPERTIES {
  // The surface: rows `DIBWidth` pixels long, each followed by `DIBPadBytes` bytes. With a negative height the rows are
  // bottom-up in memory.
  std::uint8_t* DIBBytes = nullptr;
  std::int32_t DIBWidth = 0;
  std::int32_t DIBHeight = 0;
  std::int32_t DIBPadBytes = 0;
  std::int32_t DIBChannels = 3;
  std::int32_t DIBColor = 2;
  // The file, or the block of memory that holds one.
  std::string JPGFile;
  const std::uint8_t* JPGBytes = nullptr;
  std::int32_t JPGSizeBytes = 0;
  std::vector<std::uint8_t> JPGWritten;  // the file that was written into memory
  std::int32_t JPGWidth = 0;
  std::int32_t JPGHeight = 0;
  std::int32_t JPGChannels = 3;
  std::int32_t JPGColor = 3;
  std::int32_t JPGSubsampling = 1;
  std::int32_t jquality = 75;
};

namespace ijl {
inline constexpr int Ok = 0;
// Colours.
inline constexpr int Bgr = 2;
inline constexpr int YCbCr = 3;
inline constexpr int Grey = 4;
inline constexpr int RgbaFpx = 5;
inline constexpr int YCbCrAFpx = 6;
// Modes. Reductions write an image of (size + n - 1) / n, the integer part, in each direction.
inline constexpr int FileReadParams = 0;
inline constexpr int BufferReadParams = 1;
inline constexpr int FileReadWhole = 2;
inline constexpr int BufferReadWhole = 3;
inline constexpr int FileWriteWhole = 8;
inline constexpr int BufferWriteWhole = 9;
inline constexpr int FileReadHalf = 14;
inline constexpr int BufferReadHalf = 15;
inline constexpr int FileReadQuarter = 16;
inline constexpr int BufferReadQuarter = 17;
inline constexpr int FileReadEighth = 18;
inline constexpr int BufferReadEighth = 19;
}  // namespace ijl

class File;

class JpegCodec {
 public:
  virtual ~JpegCodec() = default;
  // Each returns a status, 0 for success, and raises nothing. ijlFree is called once for each ijlInit that succeeded.
  virtual int ijlInit(JPEG_CORE_PROPERTIES& record) = 0;
  virtual int ijlFree(JPEG_CORE_PROPERTIES& record) = 0;
  virtual int ijlRead(JPEG_CORE_PROPERTIES& record, int mode) = 0;
  virtual int ijlWrite(JPEG_CORE_PROPERTIES& record, int mode) = 0;
  // The bytes of the file, where they have been read ahead and the file still holds the same to the last; else nothing.
  // They live until pixels are next read. Raises nothing.
  virtual std::span<const std::uint8_t> AtHand(File& file) {
    static_cast<void>(file);
    return {};
  }
  // A short text for a status.
  virtual std::string ijlErrorStr(int status) = 0;
};

}  // namespace pixorra
