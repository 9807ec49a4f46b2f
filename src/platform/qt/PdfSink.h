// Takes a document's bytes as they are made, on their way into a file, and remembers a write that failed.
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

  // Writes what is still held. False where this or an earlier write has failed; the file's error says why.
  bool Flush();

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  // Takes everything: what composes the document has no way to stop.
  qint64 writeData(const char* bytes, qint64 count) override;

 private:
  QFileDevice& file_;
  QByteArray held_;
  bool failed_ = false;
};

// Raises DiskFull or PathAccess, as the file's error is, with that as the reason in "`what`: No space left on device".
[[noreturn]] void RaiseWriteError(const QFileDevice& file, const QString& what);

}  // namespace pixorra
