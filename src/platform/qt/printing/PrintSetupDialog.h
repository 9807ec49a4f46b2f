// The toolkit's print setup dialog, with the printer of PDF files in its list.
#pragma once

#include <QPageSize>
#include <QPrinter>
#include <memory>

class QWidget;

namespace pixorra {

class QtBackend;

struct PrinterChoice {
  bool Pdf = false;
  QPageSize PdfPaper;
  std::unique_ptr<QPrinter> Queue;  // begins as what is chosen now, and is changed
};

// False when cancelled; the choice is of no use then.
bool AskForPrinter(QtBackend& backend, PrinterChoice& choice);
// The paper alone, by the toolkit's page setup dialog. False when cancelled; nothing is changed then.
bool AskForPaper(QtBackend& backend, QPrinter& printer, QWidget* parent);
bool AskForPdfPaper(QtBackend& backend, QPageSize& paper, QWidget* parent);

}  // namespace pixorra
