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

void PdfFile::Submit() {
  const QString name = QFileInfo(file_.fileName()).fileName();
  if (!replaces_ && QFile::exists(file_.fileName())) {
    throw RuntimeError(
        error::FileExists,
        ToUtf8(QStringLiteral("The PDF file was not written, as there is a file \"%1\" by now").arg(name)));
  }
  if (!sink_.Flush() || !file_.commit()) {
    RaiseWriteError(file_, QStringLiteral("The PDF file \"%1\" could not be written").arg(name));
  }
}

}  // namespace pixorra
