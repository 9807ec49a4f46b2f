#include "platform/qt/QtClipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>
#include <algorithm>
#include <cstdint>

#include "platform/qt/Convert.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// Larger pictures than the largest cameras make are not taken in: with its copies on the way such a one would take all
// memory that there is.
constexpr std::int64_t MostPixels = 300'000'000;
// The toolkit's own limit, which is far less unless it is set. It counts eight bytes for a pixel of 16 bits a colour.
constexpr int MostMebibytes = static_cast<int>(MostPixels * 8 / (1024 * 1024)) + 1;

bool IsTooLarge(QSize size) {
  return size.isValid() && std::int64_t{size.width()} * size.height() > MostPixels;
}

// What the offered files say of their size; that of the largest.
bool IsTooLargeOffered(const QMimeData& data) {
  const QStringList formats = data.formats();
  return std::any_of(formats.begin(), formats.end(), [&data](const QString& format) {
    if (!format.startsWith(QLatin1String("image/"))) return false;
    QByteArray bytes = data.data(format);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return IsTooLarge(QImageReader(&buffer).size());
  });
}

// A copy: the clipboard keeps it for longer than anybody here keeps the picture. A painter would cut off what lies
// beyond 32,767 pixels.
QImage OnWhite(const Bitmap& pixels) {
  QImage flat = SharedImage(pixels).convertToFormat(
      pixels.Format() == PixelFormat::Bgra32 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  if (pixels.Format() != PixelFormat::Bgra32) return flat;
  flat.detach();
  for (int y = 0; y < flat.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(flat.scanLine(y));
    for (int x = 0; x < flat.width(); ++x) {
      const auto white = static_cast<QRgb>(255 - qAlpha(row[x]));
      row[x] += white * 0x01010101U;
    }
  }
  flat.reinterpretAsFormat(QImage::Format_RGB32);
  return flat;
}

}  // namespace

bool QtClipboard::HasBitmap() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasImage();
}

Picture QtClipboard::GetBitmap() {
  const int before = QImageReader::allocationLimit();
  QImageReader::setAllocationLimit(MostMebibytes);
  const AtExit restored([before] { QImageReader::setAllocationLimit(before); });
  const QImage image = QGuiApplication::clipboard()->image();
  if (image.isNull()) {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (data != nullptr && IsTooLargeOffered(*data)) throw RuntimeError(error::Overflow);
    return {};
  }
  if (IsTooLarge(image.size())) throw RuntimeError(error::Overflow);
  return image.hasAlphaChannel() ? Picture(ToAlphaBitmap(image)) : ToPicture(image);
}

void QtClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetBitmap(const Picture& picture) {
  if (picture.IsNothing()) return;
  const QImage flat = OnWhite(picture.Pixels());
  if (flat.isNull()) throw RuntimeError(error::OutOfMemory);
  QGuiApplication::clipboard()->setImage(flat);
}

}  // namespace pixorra
