#include "platform/qt/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>
#include <QMimeData>

#include "platform/qt/Convert.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// A picture of so many mebibytes is decoded, as large as a Bitmap can be; by itself the toolkit below takes far less.
constexpr int MostMebibytes = 2048;

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
  if (image.isNull() || !image.hasAlphaChannel()) return ToPicture(image);
  return Picture(ToAlphaBitmap(image));
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
