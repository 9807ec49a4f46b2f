// Takes a document's bytes as they are made, on their way into a file, and remembers a write that failed. A document of
// 2 gigabytes fails too: its format's places have 32 bits where it is made.
#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QIODevice>

namespace pixorra {

class PdfSink final : public QIODevice {
 public:
  // The file is open for writing and outlives the sink.
  explicit PdfSink(QFileDevice& file);
  ~PdfSink() override = default;
  PdfSink(const PdfSink&) = delete;
  PdfSink& operator=(const PdfSink&) = delete;

  // Writes what is still held. False where this or an earlier write has failed.
  bool Flush();
  // Raises DiskFull or PathAccess where a write has failed, and Printer for a document that is too long, with the
  // reason in "`what`: No space left on device". The file is empty then: the disk has its room back.
  void RaiseIfFailed(const QString& what) const;

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  // Takes everything: what composes the document has no way to stop.
  qint64 writeData(const char* bytes, qint64 count) override;

 private:
  void Fail(int number, const QString& reason);

  QFileDevice& file_;
  QByteArray held_;
  qint64 count_ = 0;  // bytes that were taken
  int error_;         // of the first write that failed
  QString reason_;
};

// Raises DiskFull or PathAccess, as the file's error is, with that as the reason.
[[noreturn]] void RaiseWriteError(const QFileDevice& file, const QString& what);

}  // namespace pixorra
