#include "platform/qt/printing/PdfFile.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

bool IsUnknownToDisk(int hostError) {
  return hostError == EINVAL || hostError == ENOSYS || hostError == EOPNOTSUPP;
}

// Waits until the disk has the file: some disks find only then that they are full. 0, or the host's error.
int Sync(int file) {
  if (fdatasync(file) == 0 || IsUnknownToDisk(errno)) return 0;
  return errno;
}

[[noreturn]] void RaiseHostError(int hostError, const QString& what) {
  const bool full = hostError == ENOSPC || hostError == EDQUOT || hostError == EFBIG;
  throw RuntimeError(full ? error::DiskFull : error::PathAccess,
                     ToUtf8(what + QStringLiteral(": ") + qt_error_string(hostError)));
}

}  // namespace

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
  // QSaveFile itself ignores the failure of what it writes last, and takes the name all the same. A disk that fills up
  // takes a part without a reason, and gives that when the rest is written.
  sink_.Flush();
  RaiseIfFailed();
  if (!file_.flush() && !file_.flush()) RaiseWriteError(file_, Failure());
  if (const int failure = Sync(file_.handle()); failure != 0) RaiseHostError(failure, Failure());
  if (replaces_) {
    if (!file_.commit()) RaiseWriteError(file_, Failure());
    return;
  }
  const int failure = TakeFreeName();
  if (failure == EEXIST) {
    throw RuntimeError(error::FileExists, ToUtf8(QStringLiteral("The PDF file was not written, as there is a file \"") +
                                                 Name() + QStringLiteral("\" by now")));
  }
  if (failure != 0) RaiseHostError(failure, Failure());
}

int PdfFile::TakeFreeName() {
  const QByteArray to = QFile::encodeName(file_.fileName());
  const QByteArray self = "/proc/self/fd/" + QByteArray::number(file_.handle());
  // Until now the file has no name, or one that goes with file_, as its disk allows.
  if (linkat(AT_FDCWD, self.constData(), AT_FDCWD, to.constData(), AT_SYMLINK_FOLLOW) == 0) return 0;
  if (errno == EEXIST) return errno;
  const QByteArray from = QFile::encodeName(QFile::symLinkTarget(QString::fromLatin1(self)));
  if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return 0;
  if (errno == EEXIST) return errno;
  // The name is claimed by an empty file, which only this document replaces.
  const int claim = ::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (claim < 0) return errno;
  close(claim);
  if (file_.commit()) return 0;
  unlink(to.constData());
  return EIO;
}

}  // namespace pixorra
