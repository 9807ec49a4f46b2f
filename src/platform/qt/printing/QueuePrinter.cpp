#include "platform/qt/printing/QueuePrinter.h"

#include <QCoreApplication>
#include <QDir>
#include <QPrintEngine>
#include <QPrinterInfo>
#include <QTemporaryFile>
#include <algorithm>
#include <utility>

#include "platform/qt/Convert.h"
#include "platform/qt/printing/PaperCodes.h"
#include "platform/qt/printing/PdfSink.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

constexpr int UsualDots = 600;  // of a printer that does not say
// Whatever a printer says, half of a paper's width and of its height is printed on.
constexpr double LeastOfMargin = 4;
constexpr int LeastDots = 72;
constexpr int MostDots = 2400;
// Where the toolkit's dialogs keep options that the printer alone knows, names and values in turn.
constexpr auto PrintersOwnOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

// A job's title is one line, and the print system takes no more than 255 bytes.
std::string TitleOf(const std::string& documentName) {
  QString name = ToQString(documentName);
  std::replace_if(
      name.begin(), name.end(), [](QChar each) { return each.category() == QChar::Other_Control; }, QLatin1Char(' '));
  std::string title = ToUtf8(name);
  constexpr std::size_t LongestTitle = 255;
  if (title.size() <= LongestTitle) return title;
  std::size_t count = LongestTitle;
  while (count > 0 && (static_cast<unsigned char>(title[count]) & 0xC0U) == 0x80U) --count;
  title.resize(count);
  return title;
}

// While a document is on its way: what a person does waits until it is there.
void KeepWindowsAlive() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

// A document that is composed in a file without a name, and sent at its end.
class QueueJob final : public PrintJob {
 public:
  QueueJob(std::string queue, std::string title, PrintOptions options, const CupsPatience& patience)
      : queue_(std::move(queue)), title_(std::move(title)), options_(std::move(options)), patience_(patience) {
    // A long document does not belong into memory, which is where the other folder often is.
    file_.setFileTemplate(QStringLiteral("/var/tmp/pixorra-XXXXXX"));
    if (file_.open()) return;
    file_.setFileTemplate(QDir::tempPath() + QStringLiteral("/pixorra-XXXXXX"));
    if (!file_.open()) RaiseWriteError(file_, QStringLiteral("The document could not be begun"));
  }

  QIODevice& Device() override { return sink_; }
  void RaiseIfFailed() override { sink_.RaiseIfFailed(Failure()); }

  void Submit() override {
    sink_.Flush();
    RaiseIfFailed();
    if (!file_.flush()) RaiseWriteError(file_, Failure());
    file_.seek(0);
    const auto server = CupsServer::Reach(patience_);
    if (server == nullptr) throw RuntimeError(error::Printer, "The print system does not answer");
    const std::string reason = ReasonAgainst(queue_, server->StateOf(queue_));
    if (!reason.empty()) throw RuntimeError(error::Printer, reason);
    server->Submit(queue_, title_, options_, file_, KeepWindowsAlive);
  }

 private:
  static QString Failure() { return QStringLiteral("The document could not be composed"); }

  std::string queue_;
  std::string title_;
  PrintOptions options_;
  CupsPatience patience_;
  QTemporaryFile file_;
  PdfSink sink_{file_};
};

// Raises as QueuePrinter::Of. A print system that hangs is not asked by the toolkit, which would wait minutes for it.
std::unique_ptr<QPrinter> DeviceOf(const QString& name, const CupsPatience& patience) {
  QueueState state;
  state.Answers = CupsServer::Reach(patience) != nullptr;
  const QPrinterInfo printer = state.Answers ? QPrinterInfo::printerInfo(name) : QPrinterInfo();
  // The toolkit makes a device without a name for a printer that is not there.
  if (printer.isNull()) throw RuntimeError(error::Printer, ReasonAgainst(ToUtf8(name), state));
  auto device = std::make_unique<QPrinter>(printer, QPrinter::HighResolution);
  // By itself it has the country's paper, wherever the printer knows that.
  if (const QPageSize usual = printer.defaultPageSize(); usual.isValid()) device->setPageSize(usual);
  return device;
}

// Whatever a dialog has made of it; a request that the printer's margins do not allow drops the whole layout.
void SetUpright(QPrinter& printer) {
  printer.setPageOrientation(QPageLayout::Portrait);
  if (printer.pageLayout().orientation() == QPageLayout::Portrait) return;
  QPageLayout layout = printer.pageLayout();
  layout.setOrientation(QPageLayout::Portrait);
  layout.setMargins(layout.minimumMargins());
  printer.setPageLayout(layout);
}

std::string SidesOf(const QPrinter& printer) {
  switch (printer.duplex()) {
    case QPrinter::DuplexLongSide:
      return "two-sided-long-edge";
    case QPrinter::DuplexShortSide:
    case QPrinter::DuplexAuto:  // pages are wide
      return "two-sided-short-edge";
    default:
      return "one-sided";
  }
}

}  // namespace

std::unique_ptr<QueuePrinter> QueuePrinter::Of(const std::string& name, const CupsPatience& patience) {
  return std::make_unique<QueuePrinter>(DeviceOf(ToQString(name), patience), patience);
}

QueuePrinter::QueuePrinter(std::unique_ptr<QPrinter> chosen, const CupsPatience& patience)
    : name_(ToUtf8(chosen->printerName())), chosen_(std::move(chosen)), patience_(patience) {
  SetUpright(*chosen_);
  if (const auto server = CupsServer::Reach(patience_)) state_ = server->StateOf(name_);
}

PrintPaper QueuePrinter::Paper() {
  const QPageLayout layout = chosen_->pageLayout();
  const QSizeF size = layout.fullRect(QPageLayout::Point).size().toSize();
  const QMarginsF least = layout.minimumMargins();
  const auto margin = [](double first, double second, double length) {
    return std::min(std::max(first, second), length / LeastOfMargin);
  };
  double across = margin(least.left(), least.right(), size.width());
  double down = margin(least.top(), least.bottom(), size.height());
  if (size.width() > size.height()) std::swap(across, down);
  const int dots = std::clamp(state_.DotsPerInch > 0 ? state_.DotsPerInch : UsualDots, LeastDots, MostDots);
  return {QSizeF(std::min(size.width(), size.height()), std::max(size.width(), size.height())), across, down,
          PaperCodeOf(layout.pageSize()), dots};
}

std::unique_ptr<PrintJob> QueuePrinter::Begin(const std::string& documentName) {
  const auto server = CupsServer::Reach(patience_);
  if (server == nullptr) throw RuntimeError(error::DeviceIO, "The print system does not answer");
  const std::string reason = ReasonAgainst(name_, server->StateOf(name_));
  if (!reason.empty()) throw RuntimeError(error::DeviceIO, reason);
  return std::make_unique<QueueJob>(name_, TitleOf(documentName), OptionsOf(*chosen_), patience_);
}

std::unique_ptr<QPrinter> CopyOf(const QPrinter& printer, const CupsPatience& patience) {
  auto copy = DeviceOf(printer.printerName(), patience);
  copy->setPageSize(printer.pageLayout().pageSize());
  copy->setCopyCount(printer.copyCount());
  copy->setCollateCopies(printer.collateCopies());
  copy->setPageOrder(printer.pageOrder());
  copy->setColorMode(printer.colorMode());
  copy->setDuplex(printer.duplex());
  copy->printEngine()->setProperty(PrintersOwnOptions, printer.printEngine()->property(PrintersOwnOptions));
  return copy;
}

PrintOptions OptionsOf(const QPrinter& printer) {
  PrintOptions options;
  const QStringList own = printer.printEngine()->property(PrintersOwnOptions).toStringList();
  for (qsizetype i = 0; i + 1 < own.size(); i += 2) {
    if (own[i] == QStringLiteral("landscape") || own[i] == QStringLiteral("orientation-requested")) continue;
    options.emplace_back(ToUtf8(own[i]), ToUtf8(own[i + 1]));
  }
  options.emplace_back("media", ToUtf8(printer.pageLayout().pageSize().key()));
  options.emplace_back("print-scaling", "none");
  options.emplace_back("sides", SidesOf(printer));
  if (printer.copyCount() > 1) {
    options.emplace_back("copies", std::to_string(printer.copyCount()));
    options.emplace_back("multiple-document-handling", printer.collateCopies()
                                                           ? "separate-documents-collated-copies"
                                                           : "separate-documents-uncollated-copies");
  }
  if (printer.pageOrder() == QPrinter::LastPageFirst) options.emplace_back("outputorder", "reverse");
  if (printer.colorMode() == QPrinter::GrayScale) options.emplace_back("print-color-mode", "monochrome");
  return options;
}

}  // namespace pixorra
