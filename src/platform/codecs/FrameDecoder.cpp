#include "platform/codecs/FrameDecoder.h"

#include <cstddef>

#include "platform/codecs/CodecPictures.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/LargePages.h"
#include "platform/pixels/Framing.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// Of one decode, in bytes: a progressive photo of 100 megapixels takes six a pixel beside its rows.
constexpr std::int64_t MostMemory = std::int64_t{1024} * 1024 * 1024;

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

Bitmap DecodeJpegFrame(std::span<const std::uint8_t> file, PixelSize screen, const std::atomic<bool>& stop) {
  JpegReader reader(file);
  Succeed(reader.Open());
  reader.StopOn(stop);
  const PixelSize framed = FramedSize({reader.Width(), reader.Height()}, screen);
  ReduceTo(reader, framed);
  const std::int64_t rows = (std::int64_t{reader.ReducedWidth()} * 3 + 3) * reader.ReducedHeight();
  if (rows + reader.WorkingMemory() > MostMemory) throw RuntimeError(error::OutOfMemory);
  // What is missing after damage is black.
  Bitmap pixels = Bitmap::Cleared(reader.ReducedWidth(), reader.ReducedHeight(), PixelFormat::Bgr24);
  UseLargePages(pixels);
  const int status = reader.Read(pixels.Row(0), static_cast<std::ptrdiff_t>(pixels.Stride()), 3);
  if (stop) return {};
  Succeed(status);
  return FrameOf(pixels, framed, screen);
}

}  // namespace

Bitmap DecodeFrame(std::span<const std::uint8_t> file, PixelSize screen, const std::atomic<bool>& stop) {
  if (IsJpeg(file)) return DecodeJpegFrame(file, screen, stop);
  const Bitmap pixels = DecodePicture(file);
  if (pixels.IsEmpty()) throw RuntimeError(error::BadPicture);
  if (stop) return {};
  return FrameOf(pixels, FramedSize({pixels.Width(), pixels.Height()}, screen), screen);
}

}  // namespace pixorra
