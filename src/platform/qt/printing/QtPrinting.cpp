#include "platform/qt/printing/QtPrinting.h"

#include <QPrinter>
#include <utility>

#include "platform/qt/Convert.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/printing/PrintBoxes.h"
#include "platform/qt/printing/PrintSetupDialog.h"
#include "platform/qt/printing/QueuePrinter.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

QtPrinting::QtPrinting(QtBackend& backend, const CupsPatience& patience)
    : backend_(backend), patience_(patience), pdf_(backend) {}

QtPrinting::~QtPrinting() = default;

std::string QtPrinting::FirstToFollow() {
  const std::string queue = queues_.DefaultOrFirst();
  return queue.empty() ? std::string(PdfPrinter::PrinterName) : queue;
}

void QtPrinting::UsePdf() {
  surface_.SetDestination(pdf_);
}

void QtPrinting::UseQueue(std::unique_ptr<QueuePrinter> queue) {
  surface_.SetDestination(*queue);
  queue_ = std::move(queue);
}

// Looking for printers takes a while: it is put off until printing is first spoken of. A printer chosen here stays
// until the system's default becomes another one; a system without a default changes nothing.
void QtPrinting::FollowDefault() {
  if (toFile_ || surface_.IsComposing() || (!track_ && !followed_.empty())) return;
  if (held_ && std::exchange(usedSinceHeld_, true)) return;
  const std::string present = followed_.empty() ? FirstToFollow() : queues_.Default();
  if (present.empty() || present == followed_) return;
  if (present == PdfPrinter::PrinterName) {
    UsePdf();
  } else {
    if (!queues_.Answered() || ErrorsIgnored([&] { UseQueue(QueuePrinter::Of(present, patience_)); }) != error::None)
      return;
  }
  followed_ = present;
  if (const auto tell = std::exchange(tell_, nullptr)) tell(present);
}

std::vector<std::string> QtPrinting::PrinterNames() {
  FollowDefault();
  std::vector<std::string> names;
  for (const CupsQueue& queue : queues_.Look()) names.push_back(queue.Name);
  names.emplace_back(PdfPrinter::PrinterName);
  return names;
}

void QtPrinting::SetCurrentPrinter(const std::string& name) {
  FollowDefault();
  if (name == PdfPrinter::PrinterName) return UsePdf();
  if (!queues_.Has(name)) throw RuntimeError(error::Printer);
  if (queue_ != nullptr && queue_->Name() == name) return surface_.SetDestination(*queue_);
  UseQueue(QueuePrinter::Of(name, patience_));
}

void QtPrinting::WhenDefaultIsKnown(std::function<void(const std::string& name)> tell) {
  if (!followed_.empty()) return tell(followed_);
  tell_ = std::move(tell);
}

void QtPrinting::SetTrackDefault(bool track) {
  if (track && !track_ && !followed_.empty()) {
    if (const std::string present = queues_.Default(); !present.empty()) followed_ = present;
  }
  track_ = track;
}

void QtPrinting::HoldPrinter(bool hold) {
  held_ = hold;
  usedSinceHeld_ = false;
}

std::string QtPrinting::CurrentPrinterName() {
  FollowDefault();
  return surface_.DeviceName();
}

PrintSurface& QtPrinting::Printer() {
  FollowDefault();
  return surface_;
}

bool QtPrinting::IsReady(const std::string& name) {
  if (name == PdfPrinter::PrinterName) return true;
  if (!queues_.Has(name)) return false;
  const auto server = CupsServer::Reach(patience_);
  return server != nullptr && ReasonAgainst(name, server->StateOf(name)).empty();
}

bool QtPrinting::AskForPdfPaper() {
  QPageSize paper = pdf_.PageSize();
  if (!pixorra::AskForPdfPaper(backend_, paper, backend_.WindowForBoxes())) return false;
  pdf_.SetPageSize(paper);
  return true;
}

// What a dialog changes of the queue that was used last, or else of the first one. Raises as QueuePrinter::Of.
std::unique_ptr<QPrinter> QtPrinting::QueueToSetUp() {
  if (queue_ == nullptr || !queues_.Has(queue_->Name())) {
    auto other = QueuePrinter::Of(queues_.DefaultOrFirst(), patience_);
    if (surface_.DeviceName() != PdfPrinter::PrinterName) surface_.SetDestination(*other);
    queue_ = std::move(other);
  }
  return CopyOf(queue_->Chosen(), patience_);
}

bool QtPrinting::ShowPrintSetup() {
  FollowDefault();
  std::unique_ptr<QPrinter> queue;
  std::string reason;
  if (!queues_.Look().empty()) {
    reason = "The print system does not answer";
    try {
      if (queues_.Answered()) queue = QueueToSetUp();
    } catch (const RuntimeError& failure) {
      reason = failure.Description();
    }
  }
  if (queue == nullptr) {
    if (!reason.empty())
      TellOfPrinting(backend_, ToQString(reason) + QStringLiteral(".\nChoose the paper for PDF files instead."));
    if (!AskForPdfPaper()) return false;
    UsePdf();
    return true;
  }
  PrinterChoice choice{surface_.DeviceName() == PdfPrinter::PrinterName, pdf_.PageSize(), std::move(queue)};
  if (!AskForPrinter(backend_, choice)) return false;
  pdf_.SetPageSize(choice.PdfPaper);
  if (choice.Pdf) {
    UsePdf();
  } else {
    UseQueue(std::make_unique<QueuePrinter>(std::move(choice.Queue), patience_));
  }
  return true;
}

bool QtPrinting::ShowProperties(const std::string& name) {
  if (!IsReady(name)) return false;
  SetCurrentPrinter(name);
  if (name == PdfPrinter::PrinterName) return AskForPdfPaper();
  auto chosen = CopyOf(queue_->Chosen(), patience_);
  if (!AskForPaper(backend_, *chosen, backend_.WindowForBoxes())) return false;
  UseQueue(std::make_unique<QueuePrinter>(std::move(chosen), patience_));
  return true;
}

void QtPrinting::PrintToFile(const std::string& hostPath) {
  toFile_ = true;
  followed_ = PdfPrinter::PrinterName;
  pdf_.FixFile(ToQString(hostPath));
  pdf_.SetPageSize(QPageSize(QPageSize::A4));
  UsePdf();
}

}  // namespace pixorra
