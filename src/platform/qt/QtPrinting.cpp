#include "platform/qt/QtPrinting.h"

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinterInfo>

#include "platform/qt/BoxGuard.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtBackend.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// A file has no edge that cannot be printed on; it gets that of a common printer.
constexpr double FileMargin = 18;  // points

}  // namespace

// Looking for printers takes a while: it is put off until printing is first spoken of.
QPrinter& QtPrinting::Device() {
  if (device_ == nullptr) {
    device_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    followed_ = QPrinterInfo::defaultPrinterName();
    UseWholePaper();
    surface_ = std::make_unique<QtPrintSurface>(
        *device_, [this] { return ToFile() || !QPrinterInfo::printerInfo(device_->printerName()).isNull(); });
  }
  return *device_;
}

bool QtPrinting::ToFile() const {
  return device_->outputFormat() == QPrinter::PdfFormat && !device_->outputFileName().isEmpty();
}

// Lengths count from where the printer can begin to print.
void QtPrinting::UseWholePaper() {
  const double margin = ToFile() ? FileMargin : 0;
  device_->setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Point);
}

// A printer chosen here stays until the system's default becomes another one.
void QtPrinting::FollowDefault() {
  Device();
  if (!track_ || surface_->IsComposing()) return;
  const QString present = QPrinterInfo::defaultPrinterName();
  if (present == followed_) return;
  followed_ = present;
  device_->setPrinterName(present);
  UseWholePaper();
}

std::vector<std::string> QtPrinting::PrinterNames() {
  std::vector<std::string> names;
  for (const QString& name : QPrinterInfo::availablePrinterNames()) names.push_back(ToUtf8(name));
  return names;
}

void QtPrinting::SetCurrentPrinter(const std::string& name) {
  if (QPrinterInfo::printerInfo(ToQString(name)).isNull()) throw RuntimeError(error::Printer);
  Device().setOutputFileName(QString());
  device_->setOutputFormat(QPrinter::NativeFormat);
  device_->setPrinterName(ToQString(name));
  UseWholePaper();
}

void QtPrinting::SetTrackDefault(bool track) {
  if (track && !track_) followed_ = QPrinterInfo::defaultPrinterName();
  track_ = track;
}

std::string QtPrinting::CurrentPrinterName() {
  FollowDefault();
  return surface_->DeviceName();
}

PrintSurface& QtPrinting::Printer() {
  FollowDefault();
  return *surface_;
}

bool QtPrinting::IsReady(const std::string& name) {
  const QPrinterInfo printer = QPrinterInfo::printerInfo(ToQString(name));
  return !printer.isNull() && printer.state() != QPrinter::Error;
}

bool QtPrinting::RunPrintDialog() {
  OwnedBox owned(new QPrintDialog(&Device(), backend_.WindowForBoxes()));
  if (!owned.Run(backend_)) return false;
  UseWholePaper();
  return true;
}

bool QtPrinting::ShowPrintSetup() {
  return RunPrintDialog();
}

bool QtPrinting::ShowPrintDialog() {
  return RunPrintDialog();
}

bool QtPrinting::ShowProperties(const std::string& name) {
  if (!IsReady(name)) return false;
  SetCurrentPrinter(name);
  OwnedBox owned(new QPageSetupDialog(&Device(), backend_.WindowForBoxes()));
  if (!owned.Run(backend_)) return false;
  UseWholePaper();
  return true;
}

void QtPrinting::PrintToFile(const std::string& hostPath) {
  Device().setOutputFormat(QPrinter::PdfFormat);
  device_->setOutputFileName(ToQString(hostPath));
  device_->setPageSize(QPageSize(QPageSize::A4));
  UseWholePaper();
}

}  // namespace pixorra
