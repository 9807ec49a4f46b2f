// A document that becomes a file of the host, whole or not at all.
#pragma once

#include <QSaveFile>
#include <QString>
#include <memory>

#include "platform/qt/printing/PdfSink.h"
#include "platform/qt/printing/PrintDestination.h"

namespace pixorra {

class PdfFile final : public PrintJob {
 public:
  // `replaces`: a file of that name may be written over. Without it Submit raises FileExists where there is one by
  // then.
  PdfFile(const QString& path, bool replaces);
  ~PdfFile() override;
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;

  // Is written beside its name until it is submitted. False where that cannot be; Error says why.
  bool Open();
  QString Error() const { return file_.errorString(); }

  QIODevice& Device() override { return sink_; }
  void RaiseIfFailed() override { sink_.RaiseIfFailed(Failure()); }
  void Submit() override;

 private:
  QString Name() const;
  QString Failure() const;
  // Takes the file's name unless anything has it by now. 0, or the host's error.
  int TakeFreeName();

  QSaveFile file_;
  PdfSink sink_{file_};
  bool replaces_;
};

}  // namespace pixorra
