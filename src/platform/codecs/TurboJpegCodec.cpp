#include "platform/codecs/TurboJpegCodec.h"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <optional>

#include "platform/codecs/JpegReader.h"
#include "platform/codecs/JpegWriter.h"
#include "platform/runtime/Errors.h"
#include "platform/services/FileBytes.h"

namespace pixorra {
namespace {

struct ReadMode {
  bool fromFile = false;
  int denominator = 0;  // 0 for the header alone
};

std::optional<ReadMode> ReadModeOf(int mode) {
  switch (mode) {
    case ijl::FileReadParams:
      return ReadMode{true, 0};
    case ijl::BufferReadParams:
      return ReadMode{false, 0};
    case ijl::FileReadWhole:
      return ReadMode{true, 1};
    case ijl::BufferReadWhole:
      return ReadMode{false, 1};
    case ijl::FileReadHalf:
      return ReadMode{true, 2};
    case ijl::BufferReadHalf:
      return ReadMode{false, 2};
    case ijl::FileReadQuarter:
      return ReadMode{true, 4};
    case ijl::BufferReadQuarter:
      return ReadMode{false, 4};
    case ijl::FileReadEighth:
      return ReadMode{true, 8};
    case ijl::BufferReadEighth:
      return ReadMode{false, 8};
    default:
      return std::nullopt;
  }
}

// The rows of a described surface from the top downwards, wherever the top is in memory.
struct SurfaceRows {
  std::uint8_t* top = nullptr;
  std::ptrdiff_t step = 0;
};

std::optional<SurfaceRows> RowsOf(const JPEG_CORE_PROPERTIES& record) {
  if (record.DIBBytes == nullptr || record.DIBWidth < 1 || record.DIBHeight == 0 || record.DIBPadBytes < 0) return {};
  if (record.DIBChannels != 3 && record.DIBChannels != 4) return {};
  const std::ptrdiff_t step = std::ptrdiff_t{record.DIBWidth} * record.DIBChannels + record.DIBPadBytes;
  const std::ptrdiff_t height = std::abs(std::ptrdiff_t{record.DIBHeight});
  if (record.DIBHeight > 0) return SurfaceRows{record.DIBBytes, step};
  return SurfaceRows{record.DIBBytes + (height - 1) * step, -step};
}

int ColourOf(int channels, int otherwise) {
  switch (channels) {
    case 1:
      return ijl::Grey;
    case 3:
      return ijl::YCbCr;
    case 4:
      return ijl::YCbCrAFpx;
    default:
      return otherwise;
  }
}

int ReadPixels(JpegReader& reader, const JPEG_CORE_PROPERTIES& record, int denominator) {
  const std::optional<SurfaceRows> rows = RowsOf(record);
  if (!rows) return jpeg::BadRecord;
  if (const int status = reader.Reduce(denominator); status != jpeg::Ok) return status;
  const std::int64_t height = std::abs(std::int64_t{record.DIBHeight});
  if (reader.ReducedWidth() != record.DIBWidth || reader.ReducedHeight() != height) return jpeg::Mismatch;
  if (record.DIBChannels == 4 && reader.Channels() != 4) return jpeg::Mismatch;
  return reader.Read(rows->top, rows->step, record.DIBChannels);
}

int ReadFrom(std::span<const std::uint8_t> bytes, JPEG_CORE_PROPERTIES& record, int denominator) {
  JpegReader reader(bytes);
  if (const int status = reader.Open(); status != jpeg::Ok) return status;
  if (denominator != 0) return ReadPixels(reader, record, denominator);
  record.JPGWidth = reader.Width();
  record.JPGHeight = reader.Height();
  // Inks come as colours, so that such a picture goes where any other does.
  record.JPGChannels = reader.Channels() == 4 ? 3 : reader.Channels();
  record.JPGColor = ColourOf(record.JPGChannels, record.JPGColor);
  return jpeg::Ok;
}

// The rows have the surface's size.
void CopyRows(const ReducedRows& from, const SurfaceRows& to) {
  const std::ptrdiff_t length = std::ptrdiff_t{from.width} * 3;
  for (std::ptrdiff_t y = 0; y < from.height; ++y)
    std::copy_n(from.bytes.data() + y * length, length, to.top + y * to.step);
}

int StatusOfError(int number, int otherwise) {
  return number == error::OutOfMemory ? jpeg::OutOfMemory : otherwise;
}

}  // namespace

int TurboJpegCodec::ijlInit(JPEG_CORE_PROPERTIES& record) {
  record = {};
  return jpeg::Ok;
}

int TurboJpegCodec::ijlFree(JPEG_CORE_PROPERTIES&) {
  return jpeg::Ok;
}

int TurboJpegCodec::ijlRead(JPEG_CORE_PROPERTIES& record, int mode) {
  const std::optional<ReadMode> wanted = ReadModeOf(mode);
  if (!wanted) return jpeg::BadRecord;
  if (!wanted->fromFile) {
    if (record.JPGBytes == nullptr || record.JPGSizeBytes < 0) return jpeg::BadRecord;
    return ReadBlock(record, wanted->denominator);
  }
  FileBytes file;
  if (const int number = ErrorsIgnored([&] { file.Read(files_, record.JPGFile); })) {
    return StatusOfError(number, jpeg::BadFile);
  }
  return ReadFrom(file.Bytes(), record, wanted->denominator);
}

int TurboJpegCodec::ReadBlock(JPEG_CORE_PROPERTIES& record, int denominator) {
  const std::span<const std::uint8_t> bytes(record.JPGBytes, static_cast<std::size_t>(record.JPGSizeBytes));
  const std::optional<SurfaceRows> rows = RowsOf(record);
  if (ahead_ != nullptr && denominator != 0 && rows && record.DIBChannels == 3) {
    // The block may be a file that is at hand, which goes when what was made of it is taken: only what fits is.
    const PixelSize size{record.DIBWidth, static_cast<int>(std::abs(std::int64_t{record.DIBHeight}))};
    if (const ReducedRows* const kept = ahead_->Take(bytes, denominator, size)) {
      CopyRows(*kept, *rows);
      return jpeg::Ok;
    }
  }
  return ReadFrom(bytes, record, denominator);
}

int TurboJpegCodec::ijlWrite(JPEG_CORE_PROPERTIES& record, int mode) {
  if (mode != ijl::FileWriteWhole && mode != ijl::BufferWriteWhole) return jpeg::BadRecord;
  const std::optional<SurfaceRows> rows = RowsOf(record);
  if (!rows) return jpeg::BadRecord;
  if (record.DIBChannels != 3) return jpeg::Unsupported;
  const auto height = static_cast<int>(std::abs(std::int64_t{record.DIBHeight}));
  if (record.JPGWidth != record.DIBWidth || record.JPGHeight != height) return jpeg::Mismatch;

  if (ahead_ != nullptr && mode == ijl::BufferWriteWhole) {
    const std::span<const std::uint8_t> made =
        ahead_->Encoded(rows->top, rows->step, record.DIBWidth, height, record.jquality);
    record.JPGWritten.assign(made.begin(), made.end());
    if (!made.empty()) return jpeg::Ok;
  }
  // The file is not made until there is something to put in it.
  JpegBytes encoded;
  const int status = WriteJpeg(rows->top, rows->step, record.DIBWidth, height, record.jquality, encoded);
  if (status != jpeg::Ok) return status;
  const std::span<const std::uint8_t> bytes = encoded.Bytes();
  const int number = ErrorsIgnored([&] {
    if (mode == ijl::BufferWriteWhole) return record.JPGWritten.assign(bytes.begin(), bytes.end());
    files_.Open(record.JPGFile, OpenMode::Replace)->WriteAt(0, bytes.data(), bytes.size());
  });
  return number == error::None ? jpeg::Ok : StatusOfError(number, jpeg::CannotWrite);
}

std::span<const std::uint8_t> TurboJpegCodec::AtHand(File& file) {
  return ahead_ != nullptr ? ahead_->AtHand(file) : std::span<const std::uint8_t>();
}

std::string TurboJpegCodec::ijlErrorStr(int status) {
  return JpegStatusText(status);
}

}  // namespace pixorra
