#include "platform/qt/PdfSink.h"

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr qsizetype Held = 65536;  // bytes; a page is thousands of small pieces

}  // namespace

PdfSink::PdfSink(QFileDevice& file) : file_(file) {
  held_.reserve(2 * Held);
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool PdfSink::Flush() {
  // A disk that fills up takes a part without an error, and gives its reason with the next write.
  for (qsizetype done = 0; !failed_ && done < held_.size();) {
    const qint64 written = file_.write(held_.constData() + done, held_.size() - done);
    failed_ = written <= 0;
    done += written;
  }
  held_.resize(0);
  return !failed_;
}

qint64 PdfSink::writeData(const char* bytes, qint64 count) {
  if (!failed_) held_.append(bytes, count);
  if (held_.size() >= Held) Flush();
  return count;
}

void RaiseWriteError(const QFileDevice& file, const QString& what) {
  const bool full = file.error() == QFileDevice::ResourceError;
  const QString reason = what + QStringLiteral(": ") + file.errorString();
  throw RuntimeError(full ? error::DiskFull : error::PathAccess, ToUtf8(reason));
}

}  // namespace pixorra
