#include "platform/qt/printing/PdfSink.h"

#include <QCoreApplication>
#include <limits>
#include <unistd.h>

#include "platform/qt/Convert.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr qsizetype Held = 65536;  // bytes; a page is thousands of small pieces
constexpr qint64 Longest = std::numeric_limits<qint32>::max();

int NumberOf(const QFileDevice& file) {
  return file.error() == QFileDevice::ResourceError ? error::DiskFull : error::PathAccess;
}

[[noreturn]] void Raise(int number, const QString& what, const QString& reason) {
  throw RuntimeError(number, ToUtf8(what + QStringLiteral(": ") + reason));
}

}  // namespace

PdfSink::PdfSink(QFileDevice& file) : file_(file), error_(error::None) {
  held_.reserve(2 * Held);
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool PdfSink::Flush() {
  // A disk that fills up takes a part without an error, and gives its reason with the next write.
  for (qsizetype done = 0; error_ == error::None && done < held_.size();) {
    const qint64 written = file_.write(held_.constData() + done, held_.size() - done);
    if (written <= 0) Fail(NumberOf(file_), file_.errorString());
    done += written;
  }
  held_.resize(0);
  return error_ == error::None;
}

void PdfSink::Fail(int number, const QString& reason) {
  error_ = number;
  reason_ = reason;
  // The file's own way to do that would write what it still holds, which has no room. Without it the file goes a
  // little later.
  [[maybe_unused]] const int emptied = ftruncate(file_.handle(), 0);
}

void PdfSink::RaiseIfFailed(const QString& what) const {
  if (error_ != error::None) Raise(error_, what, reason_);
}

qint64 PdfSink::writeData(const char* bytes, qint64 count) {
  if (error_ != error::None) return count;
  count_ += count;
  if (count_ > Longest) {
    Fail(error::Printer, QStringLiteral("It is too long. Print fewer photos at once"));
    return count;
  }
  held_.append(bytes, count);
  if (held_.size() >= Held) Flush();
  return count;
}

void RaiseWriteError(const QFileDevice& file, const QString& what) {
  // The toolkit does not know every reason.
  const QString reason = file.errorString();
  if (reason == QCoreApplication::translate("QIODevice", "Unknown error")) {
    throw RuntimeError(NumberOf(file), ToUtf8(what));
  }
  Raise(NumberOf(file), what, reason);
}

}  // namespace pixorra
