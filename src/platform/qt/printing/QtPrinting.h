// The desktop's printers, and the one that makes PDF files.
#pragma once

#include <functional>
#include <memory>

#include "platform/qt/printing/KnownQueues.h"
#include "platform/qt/printing/PdfPrinter.h"
#include "platform/qt/printing/QtPrintSurface.h"
#include "platform/services/Printing.h"

class QPrinter;

namespace pixorra {

class QtBackend;
class QueuePrinter;

class QtPrinting final : public Printing {
 public:
  explicit QtPrinting(QtBackend& backend, const CupsPatience& patience = {});
  ~QtPrinting() override;
  QtPrinting(const QtPrinting&) = delete;
  QtPrinting& operator=(const QtPrinting&) = delete;

  std::vector<std::string> PrinterNames() override;
  void SetCurrentPrinter(const std::string& name) override;
  void WhenDefaultIsKnown(std::function<void(const std::string& name)> tell) override;
  void SetTrackDefault(bool track) override;
  void HoldPrinter(bool hold) override;
  std::string CurrentPrinterName() override;
  PrintSurface& Printer() override;
  bool IsReady(const std::string& name) override;
  bool ShowPrintSetup() override;
  bool ShowPrintDialog() override { return ShowPrintSetup(); }
  bool ShowProperties(const std::string& name) override;

  // From now on documents become a PDF file of the host, on A4 paper.
  void PrintToFile(const std::string& hostPath);

 private:
  // What is followed at first; then, only a default that the system has is.
  std::string FirstToFollow();
  void FollowDefault();
  void UsePdf();
  std::unique_ptr<QPrinter> QueueToSetUp();
  bool AskForPdfPaper();
  void UseQueue(std::unique_ptr<QueuePrinter> queue);

  QtBackend& backend_;
  CupsPatience patience_;
  KnownQueues queues_{patience_};
  PdfPrinter pdf_;
  std::unique_ptr<QueuePrinter> queue_;  // the last one that was used
  QtPrintSurface surface_{pdf_};
  std::function<void(const std::string&)> tell_;
  std::string followed_;  // the system's last default printer, or the first to follow; empty before
  bool track_ = true;
  bool toFile_ = false;
  bool held_ = false;
  bool usedSinceHeld_ = false;
};

}  // namespace pixorra
