// The desktop's printers.
#pragma once

#include <QPrinter>
#include <QString>
#include <memory>

#include "platform/qt/QtPrintSurface.h"
#include "platform/services/Printing.h"

namespace pixorra {

class QtBackend;

class QtPrinting final : public Printing {
 public:
  explicit QtPrinting(QtBackend& backend) : backend_(backend) {}

  std::vector<std::string> PrinterNames() override;
  void SetCurrentPrinter(const std::string& name) override;
  void SetTrackDefault(bool track) override;
  std::string CurrentPrinterName() override;
  PrintSurface& Printer() override;
  bool IsReady(const std::string& name) override;
  bool ShowPrintSetup() override;
  bool ShowPrintDialog() override;
  bool ShowProperties(const std::string& name) override;

  // From now on documents become a PDF file of the host, on A4 paper.
  void PrintToFile(const std::string& hostPath);

 private:
  QPrinter& Device();
  bool ToFile() const;
  void FollowDefault();
  void UseWholePaper();
  bool RunPrintDialog();

  QtBackend& backend_;
  std::unique_ptr<QPrinter> device_;
  std::unique_ptr<QtPrintSurface> surface_;
  QString followed_;  // the system's default printer when it was last looked at
  bool track_ = true;
};

}  // namespace pixorra
