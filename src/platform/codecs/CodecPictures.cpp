#include "platform/codecs/CodecPictures.h"

#include <algorithm>
#include <memory>
#include <new>

#include "platform/codecs/BmpDecoder.h"
#include "platform/codecs/ByteReader.h"
#include "platform/codecs/DecodeAhead.h"
#include "platform/codecs/GifDecoder.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/LargePages.h"
#include "platform/codecs/PictureKind.h"
#include "platform/codecs/SizeBound.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "platform/services/FileBytes.h"

namespace pixorra {
namespace {

[[noreturn]] void Raise(int jpegStatus) {
  throw RuntimeError(jpegStatus == jpeg::OutOfMemory ? error::OutOfMemory : error::BadPicture);
}

// Of a reader that has been opened.
Bitmap ReadJpeg(JpegReader& reader, int denominator) {
  if (const int status = reader.Reduce(denominator); status != jpeg::Ok) Raise(status);
  // What is missing after damage is black.
  Bitmap bitmap = Bitmap::Cleared(reader.ReducedWidth(), reader.ReducedHeight(), PixelFormat::Bgr24);
  UseLargePages(bitmap);
  const int status = reader.Read(bitmap.Row(0), static_cast<std::ptrdiff_t>(bitmap.Stride()), 3);
  if (status != jpeg::Ok) Raise(status);
  return bitmap;
}

Bitmap DecodeJpeg(std::span<const std::uint8_t> file) {
  JpegReader reader(file);
  if (const int status = reader.Open(); status != jpeg::Ok) Raise(status);
  return ReadJpeg(reader, 1);
}

// The strongest reduction that the JPEG library makes which is in no direction smaller than one of these sizes.
int DenominatorFor(PixelSize whole, const std::vector<PixelSize>& sizes) {
  for (const int denominator : {8, 4, 2}) {
    const auto reduced = [=](int length) { return (length + denominator - 1) / denominator; };
    const bool enough = std::ranges::all_of(sizes, [&](PixelSize size) {
      return reduced(whole.Width) >= size.Width && reduced(whole.Height) >= size.Height;
    });
    if (enough) return denominator;
  }
  return 1;
}

// `whole` returns all bytes of a JPEG file, as these are decoded from memory.
template <typename Whole>
Bitmap Decode(ByteReader& in, std::int64_t mostPixels, const Whole& whole) {
  switch (KindOf(in)) {
    case PictureKind::Bmp:
      return DecodeBmp(in, mostPixels);
    case PictureKind::Gif:
      return DecodeGif(in, mostPixels);
    case PictureKind::Jpeg:
      return DecodeJpeg(whole());
    case PictureKind::None:
      break;
  }
  throw RuntimeError(error::BadPicture);
}

// A size beyond what a bitmap or a block of memory can have is a lack of memory to whoever wants to see the picture.
template <typename Work>
auto WithMemoryErrors(const Work& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    throw RuntimeError(error::OutOfMemory);
  } catch (const RuntimeError& e) {
    if (e.Number() == error::Overflow) throw RuntimeError(error::OutOfMemory);
    throw;
  }
}

Picture LoadNow(File& file) {
  return WithMemoryErrors([&] {
    ByteReader in(file);
    FileBytes bytes;
    return Picture(Decode(in, MostPixels, [&] {
      bytes.Read(file);
      return bytes.Bytes();
    }));
  });
}

// Of a JPEG file. Its bytes are kept, to be decoded whole should that be asked for.
Picture LoadReduced(File& file, const Pictures::PaintedSizes& sizes) {
  const auto kept = std::make_shared<FileBytes>();
  kept->Read(file);
  JpegReader reader(kept->Bytes());
  if (const int status = reader.Open(); status != jpeg::Ok) Raise(status);
  const PixelSize whole{reader.Width(), reader.Height()};
  const std::vector<PixelSize> wanted = sizes(whole.Width, whole.Height);
  const int denominator = DenominatorFor(whole, wanted);
  const Bitmap decoded = ReadJpeg(reader, denominator);
  std::vector<Bitmap> reductions;
  for (const PixelSize size : wanted) {
    reductions.emplace_back(size.Width, size.Height, PixelFormat::Bgr24);
    Stretch(decoded, reductions.back(), 0, 0, size.Width, size.Height);
  }
  return {whole.Width, whole.Height, std::move(reductions), [kept] { return DecodePicture(kept->Bytes()); }};
}

void Put(std::vector<std::uint8_t>& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) out.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

void PutBmpHeader(std::vector<std::uint8_t>& out, const Bitmap& bitmap, std::uint32_t pixelBytes) {
  constexpr std::uint32_t HeaderBytes = 54;
  Put(out, 'B' | 'M' << 8, 2);
  Put(out, HeaderBytes + pixelBytes, 4);
  Put(out, 0, 4);
  Put(out, HeaderBytes, 4);
  Put(out, 40, 4);
  Put(out, static_cast<std::uint32_t>(bitmap.Width()), 4);
  Put(out, static_cast<std::uint32_t>(bitmap.Height()), 4);
  Put(out, 1, 2);   // planes
  Put(out, 24, 2);  // bits a pixel
  Put(out, 0, 4);   // not compressed
  Put(out, pixelBytes, 4);
  Put(out, 0, 4);  // resolution across and down
  Put(out, 0, 4);
  Put(out, 0, 4);  // palette entries, used and important
  Put(out, 0, 4);
}

void PutOverWhite(const std::uint8_t* from, std::uint8_t* to, int width) {
  for (int x = 0; x < width; ++x, from += 4, to += 3) {
    for (int c = 0; c < 3; ++c) to[c] = static_cast<std::uint8_t>(std::min(255, from[c] + 255 - from[3]));
  }
}

std::size_t BmpRowBytes(const Bitmap& bitmap) {
  return (static_cast<std::size_t>(bitmap.Width()) * 3 + 3) / 4 * 4;
}

// Passes a bitmap file on, part by part.
template <typename Sink>
void ForEachBmpPart(const Bitmap& bitmap, const Sink& sink) {
  // Small enough to stay in the processor's cache between its making and its writing.
  constexpr std::size_t PartBytes = std::size_t{256} * 1024;
  const std::size_t used = static_cast<std::size_t>(bitmap.Width()) * 3;
  const std::size_t rowBytes = BmpRowBytes(bitmap);
  const std::size_t pixelBytes = rowBytes * static_cast<std::size_t>(bitmap.Height());
  std::vector<std::uint8_t> part;
  part.reserve(std::min(PartBytes, pixelBytes) + 54 + rowBytes);
  PutBmpHeader(part, bitmap, static_cast<std::uint32_t>(pixelBytes));
  for (int y = bitmap.Height() - 1; y >= 0; --y) {
    const std::uint8_t* row = bitmap.Row(y);
    if (bitmap.Format() == PixelFormat::Bgr24) {
      part.insert(part.end(), row, row + used);
    } else {
      part.resize(part.size() + used);
      PutOverWhite(row, part.data() + part.size() - used, bitmap.Width());
    }
    part.resize(part.size() + rowBytes - used);
    if (part.size() < PartBytes && y > 0) continue;
    sink(part);
    part.clear();
  }
}

}  // namespace

Bitmap DecodePicture(std::span<const std::uint8_t> file) {
  return WithMemoryErrors([&] {
    ByteReader in(file);
    return Decode(in, MostPixels, [&] { return file; });
  });
}

Bitmap DecodeBmpOrGif(ByteReader& in, std::int64_t mostPixels) {
  return WithMemoryErrors([&] {
    return Decode(in, mostPixels, []() -> std::span<const std::uint8_t> { throw RuntimeError(error::BadPicture); });
  });
}

std::vector<std::uint8_t> EncodeBmp(const Bitmap& bitmap) {
  std::vector<std::uint8_t> file;
  file.reserve(54 + BmpRowBytes(bitmap) * static_cast<std::size_t>(bitmap.Height()));
  ForEachBmpPart(bitmap,
                 [&](const std::vector<std::uint8_t>& part) { file.insert(file.end(), part.begin(), part.end()); });
  return file;
}

Picture CodecPictures::Load(const std::string& path) {
  return Load(*files_.Open(path, OpenMode::Read));
}

Picture CodecPictures::Load(File& file) {
  if (ahead_ == nullptr || !ahead_->Whole().IsExpecting()) return LoadNow(file);
  const FileStamp stamp = file.Stamp();
  Picture picture = ahead_->Whole().Take(stamp);
  if (!picture.IsNothing()) return picture;
  picture = LoadNow(file);
  ahead_->Whole().Keep(stamp, picture);
  return picture;
}

Picture CodecPictures::LoadToPaint(File& file, const PaintedSizes& sizes) {
  const PictureKind kind = WithMemoryErrors([&] {
    ByteReader in(file);
    return KindOf(in);
  });
  if (kind != PictureKind::Jpeg) return Load(file);
  return WithMemoryErrors([&] { return LoadReduced(file, sizes); });
}

Picture CodecPictures::FromBytes(std::span<const std::uint8_t> file) {
  if (ahead_ != nullptr) {
    if (Picture made = ahead_->Decoded(file); !made.IsNothing()) return made;
  }
  return Picture(DecodePicture(file));
}

std::vector<std::uint8_t> CodecPictures::BitmapFile(const Picture& picture) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPropertyValue);
  return EncodeBmp(picture.Pixels());
}

void CodecPictures::Save(const Picture& picture, const std::string& path) {
  if (picture.IsNothing()) throw RuntimeError(error::BadPropertyValue);
  const Bitmap& pixels = picture.Pixels();  // which may have to be drawn first
  const std::unique_ptr<File> file = files_.Open(path, OpenMode::Replace);
  std::int64_t at = 0;
  ForEachBmpPart(pixels, [&](const std::vector<std::uint8_t>& part) {
    file->WriteAt(at, part.data(), part.size());
    at += static_cast<std::int64_t>(part.size());
  });
}

Picture CodecPictures::SaveAndLoad(const Picture& picture, const std::string& path) {
  Save(picture, path);
  // A file keeps neither a drawing's name nor transparency.
  const bool asItIs = picture.Pixels().Format() == PixelFormat::Bgr24 && picture.ArtName().empty();
  return asItIs ? picture : FromBytes(BitmapFile(picture));
}

}  // namespace pixorra
