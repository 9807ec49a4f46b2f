#include "platform/codecs/FrameDecoder.h"

#include <cstddef>
#include <cstdint>
#include <new>

#include "platform/codecs/BmpDecoder.h"
#include "platform/codecs/ByteReader.h"
#include "platform/codecs/EnoughPixels.h"
#include "platform/codecs/GifDecoder.h"
#include "platform/codecs/PictureKind.h"
#include "platform/codecs/StoppableFile.h"
#include "platform/pixels/Framing.h"
#include "platform/runtime/Errors.h"
#include "platform/services/FileBytes.h"

namespace pixorra {

namespace {

// Of one decode, in bytes: a progressive photo of 100 megapixels takes six a pixel beside its rows.
constexpr std::int64_t MostFrameMemory = std::int64_t{1024} * 1024 * 1024;

Bitmap DecodeJpegFrame(File& file, PixelSize screen, const std::atomic<bool>& stop) {
  if (file.Length() > MostFrameMemory) throw RuntimeError(error::OutOfMemory);
  FileBytes bytes;
  bytes.Read(file);
  const auto framed = [screen](PixelSize photo) { return FramedSize(photo, screen); };
  const std::int64_t room = MostFrameMemory - static_cast<std::int64_t>(bytes.Size());
  const DecodedPhoto decoded = DecodeEnough(bytes.Bytes(), framed, room, stop);
  if (decoded.Pixels.IsEmpty()) return {};
  return FrameOf(decoded.Pixels, framed(decoded.Photo), screen);
}

// Of the kinds that are read part by part and cannot be decoded at a reduction.
Bitmap DecodeWhole(PictureKind kind, ByteReader& in) {
  constexpr std::int64_t MostFramePixels = MostFrameMemory / 4;
  if (kind == PictureKind::Bmp) return DecodeBmp(in, MostFramePixels);
  if (kind == PictureKind::Gif) return DecodeGif(in, MostFramePixels);
  throw RuntimeError(error::BadPicture);
}

Bitmap DecodeUnlessStopped(File& file, PixelSize screen, const std::atomic<bool>& stop) {
  ByteReader in(file);
  const PictureKind kind = KindOf(in);
  if (kind == PictureKind::Jpeg) return DecodeJpegFrame(file, screen, stop);
  const Bitmap pixels = DecodeWhole(kind, in);
  if (pixels.IsEmpty()) throw RuntimeError(error::BadPicture);
  if (stop) return {};
  return FrameOf(pixels, FramedSize({pixels.Width(), pixels.Height()}, screen), screen);
}

}  // namespace

Bitmap DecodeFrame(File& file, PixelSize screen, const std::atomic<bool>& stop) {
  StoppableFile stoppable(file, stop);
  try {
    return DecodeUnlessStopped(stoppable, screen, stop);
  } catch (const std::bad_alloc&) {
    throw RuntimeError(error::OutOfMemory);
  } catch (const RuntimeError& e) {
    if (stop) return {};
    if (e.Number() == error::Overflow) throw RuntimeError(error::OutOfMemory);
    throw;
  }
}

}  // namespace pixorra
