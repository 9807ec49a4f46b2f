#include "platform/codecs/TwinDecoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <vector>

#include "platform/codecs/EnoughPixels.h"
#include "platform/codecs/ExifData.h"
#include "platform/codecs/JpegReader.h"
#include "platform/codecs/Orientation.h"
#include "platform/codecs/PictureKind.h"
#include "platform/pixels/DotScreen.h"
#include "platform/pixels/Fit.h"
#include "platform/pixels/Stretch.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"

namespace pixorra {

namespace {

using Bytes = std::span<const std::uint8_t>;

// Of one decode, in bytes.
constexpr std::int64_t MostTwinMemory = std::int64_t{256} * 1024 * 1024;
// Where a camera's own small picture is, in bytes from the start.
constexpr std::int64_t HeadBytes = 128 * 1024;

// Thumbnails are first composed at ten times their size, so that the last reduction is a plain one. Wider pictures,
// such as the one in the preview pane, are not: their canvas would be a hundred megabytes.
constexpr int Factor = 10;
constexpr int WidestThumbnail = 160;

// A photo is decoded with so many times the pixels to a side that its twin has: one that is made of just as many, or of
// a few more, has lost the finest of it.
constexpr int Spare = 2;

PixelSize SizeOf(const Bitmap& bitmap) {
  return {bitmap.Width(), bitmap.Height()};
}

// The size in which the photo itself is painted in a picture of `size`.
PixelSize PaintedSize(PixelSize photo, PixelSize size) {
  const FittedRect fitted = Fit(size.Width, size.Height, photo.Width, photo.Height);
  return {CLng(fitted.Width), CLng(fitted.Height)};
}

// A photo fitted to a size, on a canvas of another size that shows the same.
Bitmap Compose(const Bitmap& photo, PixelSize fitted, PixelSize canvasSize) {
  Bitmap canvas(canvasSize.Width, canvasSize.Height, PixelFormat::Bgr24);
  canvas.Fill(ButtonFace);
  const FittedRect at = Fit(fitted.Width, fitted.Height, photo.Width(), photo.Height());
  const double across = static_cast<double>(canvasSize.Width) / fitted.Width;
  const double down = static_cast<double>(canvasSize.Height) / fitted.Height;
  Stretch(photo, canvas, CLng(at.X * across), CLng(at.Y * down), CLng(at.Width * across), CLng(at.Height * down));
  return canvas;
}

// As the thumbnail was composed, but for the last step.
Bitmap ComposeTwin(const Bitmap& photo, const Bitmap& thumbnail, PixelSize size) {
  const PixelSize large{thumbnail.Width() * Factor, thumbnail.Height() * Factor};
  if (thumbnail.Width() > WidestThumbnail) return Compose(photo, large, size);
  Bitmap twin(size.Width, size.Height, PixelFormat::Bgr24);
  Stretch(Compose(photo, large, large), twin, 0, 0, size.Width, size.Height);
  return twin;
}

// A part of a thumbnail, this many pixels to its side, and the sums of its pixels' colours.
constexpr int PartSide = 10;
using Sums = std::array<std::int64_t, 3>;

Sums SumsOf(const Bitmap& bitmap, int left, int top, bool dotsAlone) {
  Sums sums{};
  for (int y = top; y < std::min(top + PartSide, bitmap.Height()); ++y) {
    for (int x = left; x < std::min(left + PartSide, bitmap.Width()); ++x) {
      if (dotsAlone && (x % 2 == 0 || y % 2 == 0)) continue;
      const std::uint8_t* pixel = bitmap.Row(y) + x * bitmap.BytesPerPixel();
      for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += pixel[i];
    }
  }
  return sums;
}

// Finer than a part they may differ, and some parts may too: the thumbnail of a small photo was made of very few
// pixels, and by way of a small JPEG file.
bool LooksTheSame(const Bitmap& twin, const Bitmap& thumbnail, bool shaded) {
  constexpr int Apart = 28;  // of 255, on average
  constexpr int FarApart = 96;
  constexpr int OneIn = 10;  // parts may be apart, and none far
  Bitmap small(thumbnail.Width(), thumbnail.Height(), PixelFormat::Bgr24);
  Stretch(twin, small, 0, 0, small.Width(), small.Height());
  const std::int64_t pixels = PartSide * PartSide / (shaded ? 4 : 1);
  int sums = 0;
  int apart = 0;
  for (int top = 0; top < small.Height(); top += PartSide) {
    for (int left = 0; left < small.Width(); left += PartSide) {
      const Sums is = SumsOf(small, left, top, shaded);
      const Sums was = SumsOf(thumbnail, left, top, shaded);
      for (std::size_t i = 0; i < is.size(); ++i, ++sums) {
        const std::int64_t difference = std::abs(is[i] - was[i]) / pixels;
        if (difference > FarApart) return false;
        if (difference > Apart) ++apart;
      }
    }
  }
  return apart * OneIn <= sums;
}

bool IsOfShape(PixelSize small, PixelSize photo) {
  const double height = static_cast<double>(small.Width) * photo.Height / photo.Width;
  return std::abs(height - small.Height) <= 1;
}

// What the camera left in a file of this length; empty where there is none, or none with the pixels for `size`.
Bitmap EmbeddedPicture(Bytes head, std::int64_t length, PixelSize size, const std::atomic<bool>& stop) {
  const Bytes small = ExifData(head).Thumbnail();
  JpegReader whole(head, static_cast<std::size_t>(length));
  if (!IsJpeg(small) || whole.Open() != jpeg::Ok) return {};
  const PixelSize photo{whole.Width(), whole.Height()};
  const PixelSize needed = PaintedSize(photo, size);
  const auto allPixels = [](PixelSize own) { return own; };
  DecodedPhoto decoded = DecodeEnough(small, allPixels, MostTwinMemory, stop, OrientationOf(head));
  const bool serves =
      decoded.Photo.Width >= needed.Width && decoded.Photo.Height >= needed.Height && IsOfShape(decoded.Photo, photo);
  return serves ? std::move(decoded.Pixels) : Bitmap();
}

}  // namespace

Bitmap DecodeTwin(File& photo, const Bitmap& thumbnail, PixelSize size, const std::atomic<bool>& stop) {
  const std::int64_t length = photo.Length();
  const bool shaded = IsDotScreened(thumbnail);
  const auto twinOf = [&](const Bitmap& pixels) {
    if (pixels.IsEmpty()) return Bitmap();
    Bitmap twin = ComposeTwin(pixels, thumbnail, size);
    if (!LooksTheSame(twin, thumbnail, shaded)) return Bitmap();
    if (shaded) DotScreenAs(twin, SizeOf(thumbnail));
    return twin;
  };
  if (length > HeadBytes) {
    std::vector<std::uint8_t> head(HeadBytes);
    head.resize(photo.ReadAt(0, head.data(), head.size()));
    Bitmap twin;
    ErrorsIgnored([&] { twin = twinOf(EmbeddedPicture(head, length, size, stop)); });
    if (!twin.IsEmpty() || stop) return twin;
  }
  const auto needed = [size](PixelSize own) {
    const PixelSize painted = PaintedSize(own, size);
    return PixelSize{painted.Width * Spare, painted.Height * Spare};
  };
  return twinOf(DecodeEnough(photo, needed, MostTwinMemory, stop).Pixels);
}

}  // namespace pixorra
