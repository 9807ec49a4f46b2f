#include "platform/qt/printing/PagePicture.h"

#include <QBuffer>
#include <QImageWriter>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/pixels/Stretch.h"
#include "platform/qt/printing/PageUnits.h"

namespace pixorra {

namespace {

constexpr Colour White = 0x00FFFFFF;
constexpr int DrawingColours = 256;
// What takes more exactly, as a photo in black and white does, is held as a photo.
constexpr qsizetype DrawingBytes = 500'000;
// What the page's writer makes of a photo.
constexpr int PageQuality = 94;
constexpr double MostBytes = 1.9e6;   // of one photo
constexpr double AimedBytes = 1.7e6;  // of one that was over that
// The hardest of noise, each of red, green and blue there or not, takes 1.33 bytes for a pixel.
constexpr qint64 SureToFit = 1'400'000;  // pixels

// Figures that were twips once are whole pixels but for their last digits.
QRect WholePixels(const QRectF& part) {
  constexpr double Slack = 0.01;
  return QRectF(part.adjusted(Slack, Slack, -Slack, -Slack)).toAlignedRect();
}

Bitmap Copy(const Bitmap& source, const QRect& part) {
  Bitmap copy(part.width(), part.height(), source.Format());
  const int bytes = source.BytesPerPixel();
  for (int y = 0; y < part.height(); ++y) {
    const std::uint8_t* from = source.Row(part.top() + y) + static_cast<std::ptrdiff_t>(bytes) * part.left();
    std::copy_n(from, static_cast<std::ptrdiff_t>(bytes) * part.width(), copy.Row(y));
  }
  return copy;
}

// On white.
QImage Reduced(const Picture& picture, const QRect& part, const QSize& size) {
  auto pixels = std::make_unique<Bitmap>(size.width(), size.height(), PixelFormat::Bgra32);
  pixels->Fill(White);
  if (part == QRect(0, 0, picture.Width(), picture.Height())) {
    Stretch(picture, *pixels, 0, 0, size.width(), size.height());
  } else {
    Stretch(Copy(picture.Pixels(), part), *pixels, 0, 0, size.width(), size.height());
  }
  Bitmap* const held = pixels.release();
  return QImage(
      held->Row(0), size.width(), size.height(), static_cast<qsizetype>(held->Stride()), QImage::Format_RGB32,
      [](void* bitmap) { delete static_cast<Bitmap*>(bitmap); }, held);
}

// Counts colours up to one more than a drawing has.
class ColourCounter {
 public:
  // `colour` is opaque, and so is not 0.
  void Add(QRgb colour) {
    constexpr QRgb Spread = 2654435769U;  // 2 to the 32nd by the golden ratio
    std::size_t place = (colour * Spread) >> (32 - Bits);
    while (found_[place] != 0 && found_[place] != colour) place = (place + 1) % found_.size();
    if (found_[place] != 0) return;
    found_[place] = colour;
    ++count_;
  }
  bool AreMany() const { return count_ > DrawingColours; }

 private:
  static constexpr int Bits = 10;
  std::array<QRgb, 1 << Bits> found_{};
  int count_ = 0;
};

bool HasManyColours(const QImage& image) {
  ColourCounter colours;
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (x > 0 && row[x] == row[x - 1]) continue;
      colours.Add(row[x] | 0xFF000000U);
      if (colours.AreMany()) return true;
    }
  }
  return false;
}

bool IsLargeExactly(const QImage& image) {
  constexpr int Strip = 64;  // rows
  qsizetype bytes = 0;
  for (int y = 0; y < image.height() && bytes <= DrawingBytes; y += Strip) {
    const QImage rows =
        image.copy(0, y, image.width(), std::min(Strip, image.height() - y)).convertToFormat(QImage::Format_RGB888);
    bytes += qCompress(rows.constBits(), rows.sizeInBytes()).size();
  }
  return bytes > DrawingBytes;
}

qint64 BytesOnPage(const QImage& image) {
  QBuffer buffer;
  QImageWriter writer(&buffer, "jpeg");
  writer.setQuality(PageQuality);
  writer.write(image);
  return buffer.size();
}

QSize Times(const QSize& size, double factor) {
  return {std::max(1, static_cast<int>(size.width() * factor)), std::max(1, static_cast<int>(size.height() * factor))};
}

}  // namespace

PagePicture MakePagePicture(const Picture& picture, const QRectF& place, const QRectF& part, double dotsPerInch) {
  const QRect whole(0, 0, picture.Width(), picture.Height());
  const QRectF inside = part.intersected(QRectF(whole));
  PagePicture made;
  if (inside.isEmpty() || place.isEmpty()) return made;
  const QRect cut = WholePixels(inside).intersected(whole);
  if (cut.isEmpty()) return made;
  const double right = place.width() / part.width();  // twips to a pixel
  const double down = place.height() / part.height();
  const auto placed = [&](const QRectF& pixels) {
    return QRectF(place.x() + (pixels.x() - part.x()) * right, place.y() + (pixels.y() - part.y()) * down,
                  pixels.width() * right, pixels.height() * down);
  };
  made.Place = placed(QRectF(cut));
  made.Shown = placed(inside);
  const auto dots = [&](double twips) {
    return std::max(1.0, std::ceil(twips * dotsPerInch / PageTwipsPerInch - 0.01));
  };
  QSize size(static_cast<int>(std::min<double>(cut.width(), dots(made.Place.width()))),
             static_cast<int>(std::min<double>(cut.height(), dots(made.Place.height()))));
  made.Image = Reduced(picture, cut, size);
  made.IsPhoto = HasManyColours(made.Image) || IsLargeExactly(made.Image);
  constexpr int Tries = 4;
  for (int i = 0; i < Tries && made.IsPhoto && qint64{size.width()} * size.height() > SureToFit; ++i) {
    const auto bytes = static_cast<double>(BytesOnPage(made.Image));
    if (bytes <= MostBytes) break;
    size = Times(size, std::sqrt(AimedBytes / bytes));
    made.Image = {};
    made.Image = Reduced(picture, cut, size);
  }
  return made;
}

}  // namespace pixorra
