#include "platform/codecs/EnoughPixels.h"

#include <cstddef>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/LargePages.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

bool IsJpeg(std::span<const std::uint8_t> file) {
  return file.size() >= 2 && file[0] == 0xFF && file[1] == 0xD8;
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
  DecodedPhoto decoded;
  if (!IsJpeg(file)) {
    decoded.Pixels = DecodePicture(file);
    if (decoded.Pixels.IsEmpty()) throw RuntimeError(error::BadPicture);
    decoded.Photo = {decoded.Pixels.Width(), decoded.Pixels.Height()};
    if (stop) decoded.Pixels = {};
    return decoded;
  }
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
