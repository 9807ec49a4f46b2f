#include "platform/qt/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include "platform/qt/Convert.h"

namespace pixorra {

bool QtClipboard::HasBitmap() {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr && data->hasImage();
}

Picture QtClipboard::GetBitmap() {
  return ToPicture(QGuiApplication::clipboard()->image());
}

void QtClipboard::Clear() {
  QGuiApplication::clipboard()->clear();
}

void QtClipboard::SetBitmap(const Picture& picture) {
  if (picture.IsNothing()) return;
  // A copy: the clipboard keeps it for longer than anybody here keeps the picture.
  QGuiApplication::clipboard()->setImage(SharedImage(picture.Pixels()).convertToFormat(QImage::Format_RGB32));
}

}  // namespace pixorra
