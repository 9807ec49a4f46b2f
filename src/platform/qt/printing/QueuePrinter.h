// A printer of the print system, with what was chosen for it in the toolkit's dialogs.
#pragma once

#include <QPrinter>
#include <memory>

#include "platform/qt/printing/CupsServer.h"
#include "platform/qt/printing/PrintDestination.h"

namespace pixorra {

class QueuePrinter final : public PrintDestination {
 public:
  // Raises Printer with the reason where the print system does not answer, or has no such printer any more.
  static std::unique_ptr<QueuePrinter> Of(const std::string& name, const CupsPatience& patience);
  // With what was chosen in a dialog.
  QueuePrinter(std::unique_ptr<QPrinter> chosen, const CupsPatience& patience);

  std::string Name() override { return name_; }
  std::string DriverName() override { return state_.Model; }
  PrintPaper Paper() override;
  // A printer that has gone, is stopped, or takes no documents raises DeviceIO with the reason.
  std::unique_ptr<PrintJob> Begin(const std::string& documentName) override;

  // Holds what the toolkit's dialogs begin with. It is upright whatever they turn it to.
  const QPrinter& Chosen() const { return *chosen_; }

 private:
  std::string name_;
  std::unique_ptr<QPrinter> chosen_;
  CupsPatience patience_;
  QueueState state_;  // when it was made
};

// A device for a dialog to change, with the same printer and choices. Raises as QueuePrinter::Of.
std::unique_ptr<QPrinter> CopyOf(const QPrinter& printer, const CupsPatience& patience);
// The choices as the print system's options. The page's turning is none of them: pages have their own shape.
PrintOptions OptionsOf(const QPrinter& printer);

}  // namespace pixorra
