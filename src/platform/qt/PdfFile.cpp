#include "platform/qt/PdfFile.h"

#include <QFile>
#include <QFileInfo>

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

PdfFile::PdfFile(const QString& path, bool replaces) : file_(path), replaces_(replaces) {}

PdfFile::~PdfFile() {
  file_.cancelWriting();
}

bool PdfFile::Open() {
  return file_.open(QIODevice::WriteOnly);
}

QString PdfFile::Name() const {
  return QFileInfo(file_.fileName()).fileName();
}

QString PdfFile::Failure() const {
  return QStringLiteral("The PDF file \"") + Name() + QStringLiteral("\" could not be written");
}

void PdfFile::Submit() {
  if (!replaces_ && QFile::exists(file_.fileName())) {
    throw RuntimeError(
        error::FileExists,
        ToUtf8(QStringLiteral("The PDF file was not written, as there is a file \"%1\" by now").arg(Name())));
  }
  sink_.Flush();
  RaiseIfFailed();
  if (!file_.commit()) RaiseWriteError(file_, Failure());
}

}  // namespace pixorra
