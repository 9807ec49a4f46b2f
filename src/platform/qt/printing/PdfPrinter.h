// The printer that makes PDF files.
#pragma once

#include <QPageSize>
#include <QString>
#include <optional>

#include "platform/qt/printing/PrintDestination.h"

namespace pixorra {

class QtBackend;

class PdfPrinter final : public PrintDestination {
 public:
  static constexpr const char* PrinterName = "Save as PDF";

  // Its paper is the one of the host's country.
  explicit PdfPrinter(QtBackend& backend);

  std::string Name() override { return PrinterName; }
  std::string DriverName() override { return "PDF file"; }
  PrintPaper Paper() override;
  // Asks for the file, unless it is fixed. One that is there is asked about once more.
  std::unique_ptr<PrintJob> Begin(const std::string& documentName) override;

  const QPageSize& PageSize() const { return size_; }
  void SetPageSize(const QPageSize& size) { size_ = size; }
  // From now on documents become this file of the host, which is written over.
  void FixFile(const QString& path) { fixed_ = path; }

 private:
  std::unique_ptr<PrintJob> AskAndBegin(const std::string& documentName);

  QtBackend& backend_;
  QPageSize size_;
  QString fixed_;
  QString folder_;  // of the last file
};

}  // namespace pixorra
