#include "platform/codecs/EnoughPixels.h"

#include <algorithm>
#include <cstddef>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/LargePages.h"
#include "platform/codecs/PictureKind.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

// Bytes in memory as a file whose reading ends with a failure when it is told to.
class StoppableBytes final : public File {
 public:
  StoppableBytes(std::span<const std::uint8_t> bytes, const std::atomic<bool>& stop) : bytes_(bytes), stop_(stop) {}
  std::int64_t Length() override { return static_cast<std::int64_t>(bytes_.size()); }
  FileStamp Stamp() override { return {}; }
  std::size_t ReadAt(std::int64_t offset, void* into, std::size_t count) override {
    if (stop_) throw RuntimeError(error::DeviceIO);
    const auto at = std::min(static_cast<std::size_t>(offset), bytes_.size());
    const std::size_t length = std::min(count, bytes_.size() - at);
    std::copy_n(bytes_.data() + at, length, static_cast<std::uint8_t*>(into));
    return length;
  }
  void WriteAt(std::int64_t, const void*, std::size_t) override { throw RuntimeError(error::PathAccess); }
  void Flush() override {}
  void Empty() override { throw RuntimeError(error::PathAccess); }

 private:
  std::span<const std::uint8_t> bytes_;
  const std::atomic<bool>& stop_;
};

// Whole, as these kinds cannot be decoded at a reduction.
DecodedPhoto DecodeOther(std::span<const std::uint8_t> bytes, std::int64_t mostMemory, const std::atomic<bool>& stop) {
  constexpr int MostBytesPerPixel = 4;
  DecodedPhoto decoded;
  StoppableBytes file(bytes, stop);
  const int failure = ErrorsIgnored([&] {
    ByteReader in(file);
    decoded.Pixels = DecodeBmpOrGif(in, mostMemory / MostBytesPerPixel);
    if (decoded.Pixels.IsEmpty()) throw RuntimeError(error::BadPicture);
  });
  if (stop) return {};
  if (failure != error::None) throw RuntimeError(failure);
  decoded.Photo = {decoded.Pixels.Width(), decoded.Pixels.Height()};
  return decoded;
}

void Succeed(int status) {
  if (status != jpeg::Ok) throw RuntimeError(status == jpeg::OutOfMemory ? error::OutOfMemory : error::BadPicture);
}

// The reader is left at the coarsest reduction that still has the pixels of `wanted`.
void ReduceTo(JpegReader& reader, PixelSize wanted) {
  for (const int denominator : {8, 4, 2, 1}) {
    Succeed(reader.Reduce(denominator));
    if (reader.ReducedWidth() >= wanted.Width && reader.ReducedHeight() >= wanted.Height) return;
  }
}

}  // namespace

DecodedPhoto DecodeEnough(std::span<const std::uint8_t> file, const std::function<PixelSize(PixelSize photo)>& wanted,
                          std::int64_t mostMemory, const std::atomic<bool>& stop, std::optional<int> orientation) {
  if (!IsJpeg(file)) return DecodeOther(file, mostMemory, stop);
  DecodedPhoto decoded;
  JpegReader reader(file);
  Succeed(reader.Open());
  if (orientation) reader.SetOrientation(*orientation);
  reader.StopOn(stop);
  decoded.Photo = {reader.Width(), reader.Height()};
  ReduceTo(reader, wanted(decoded.Photo));
  const std::int64_t rows = (std::int64_t{reader.ReducedWidth()} * 3 + 3) * reader.ReducedHeight();
  if (rows + reader.WorkingMemory() > mostMemory) throw RuntimeError(error::OutOfMemory);
  // What is missing after damage is black.
  Bitmap pixels = Bitmap::Cleared(reader.ReducedWidth(), reader.ReducedHeight(), PixelFormat::Bgr24);
  UseLargePages(pixels);
  const int status = reader.Read(pixels.Row(0), static_cast<std::ptrdiff_t>(pixels.Stride()), 3);
  if (stop) return decoded;
  Succeed(status);
  decoded.Pixels = std::move(pixels);
  return decoded;
}

}  // namespace pixorra
