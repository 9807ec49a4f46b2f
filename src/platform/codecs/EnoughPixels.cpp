#include "platform/codecs/EnoughPixels.h"

#include <cstddef>
#include <utility>

#include "platform/codecs/ByteReader.h"
#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/LargePages.h"
#include "platform/codecs/PictureKind.h"
#include "platform/codecs/StoppableFile.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// Whole, as these kinds cannot be decoded at a reduction.
DecodedPhoto DecodeOther(File& file, std::int64_t mostMemory, const std::atomic<bool>& stop) {
  constexpr int MostBytesPerPixel = 4;
  DecodedPhoto decoded;
  StoppableFile stoppable(file, stop);
  const int failure = ErrorsIgnored([&] {
    ByteReader in(stoppable);
    decoded.Pixels = DecodeBmpOrGif(in, mostMemory / MostBytesPerPixel);
    if (decoded.Pixels.IsEmpty()) throw RuntimeError(error::BadPicture);
  });
  if (stop) return {};
  if (failure != error::None) throw RuntimeError(failure);
  decoded.Photo = {decoded.Pixels.Width(), decoded.Pixels.Height()};
  return decoded;
}

void Succeed(int status) {
  if (status == jpeg::Ok) return;
  if (status == jpeg::OutOfMemory) throw RuntimeError(error::OutOfMemory);
  throw RuntimeError(status == jpeg::BadFile ? error::DeviceIO : error::BadPicture);
}

// The reader is left at the coarsest reduction that still has the pixels of `wanted`.
void ReduceTo(JpegReader& reader, PixelSize wanted) {
  for (const int denominator : {8, 4, 2, 1}) {
    Succeed(reader.Reduce(denominator));
    if (reader.ReducedWidth() >= wanted.Width && reader.ReducedHeight() >= wanted.Height) return;
  }
}

DecodedPhoto DecodeJpeg(JpegReader& reader, const WantedSize& wanted, std::int64_t mostMemory,
                        const std::atomic<bool>& stop, std::optional<int> orientation) {
  DecodedPhoto decoded;
  reader.StopOn(stop);
  const int opened = reader.Open();
  if (stop) return decoded;
  Succeed(opened);
  if (orientation) reader.SetOrientation(*orientation);
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

}  // namespace

DecodedPhoto DecodeEnough(File& file, const WantedSize& wanted, std::int64_t mostMemory,
                          const std::atomic<bool>& stop) {
  if (!IsJpeg(file)) return DecodeOther(file, mostMemory, stop);
  JpegReader reader(file);
  return DecodeJpeg(reader, wanted, mostMemory, stop, std::nullopt);
}

DecodedPhoto DecodeEnough(std::span<const std::uint8_t> jpeg, const WantedSize& wanted, std::int64_t mostMemory,
                          const std::atomic<bool>& stop, std::optional<int> orientation) {
  JpegReader reader(jpeg);
  return DecodeJpeg(reader, wanted, mostMemory, stop, orientation);
}

}  // namespace pixorra
