#include "platform/qt/printing/PrintSetupDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <algorithm>
#include <cups/cups.h>
#include <string>

#include "platform/qt/BoxGuard.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/ToolkitLanguage.h"
#include "platform/qt/printing/PdfPrinter.h"
#include "platform/qt/printing/PrintBoxes.h"

namespace pixorra {

namespace {

// What a line of the dialog says of the printer, which says something else while the PDF printer is chosen.
void Swap(QLabel* label, const QString& ofPdf, bool pdf) {
  if (label == nullptr) return;
  const char* const kept = "pixorraKept";
  if (pdf && !label->property(kept).isValid()) {
    label->setProperty(kept, label->text());
    label->setText(ofPdf);
  } else if (!pdf && label->property(kept).isValid()) {
    label->setText(label->property(kept).toString());
    label->setProperty(kept, QVariant());
  }
}

void ShowAsChosen(QPrintDialog& dialog, QPushButton* theirs, QPushButton* ours, bool pdf) {
  if (theirs != nullptr) theirs->setVisible(!pdf);
  if (ours != nullptr) ours->setVisible(pdf);
  // Copies, sides and colours are matters of paper.
  if (auto* const options = dialog.findChild<QTabWidget*>()) options->setEnabled(!pdf);
  Swap(dialog.findChild<QLabel*>(QStringLiteral("location")), QString(), pdf);
  Swap(dialog.findChild<QLabel*>(QStringLiteral("type")), QStringLiteral("PDF file"), pdf);
}

// Hides the framed part of a dialog that this control is in.
void HidePartOf(const QWidget& dialog, const char* control) {
  auto* part = dialog.findChild<QWidget*>(QLatin1String(control));
  while (part != nullptr && qobject_cast<QGroupBox*>(part) == nullptr) part = part->parentWidget();
  if (part != nullptr) part->hide();
}

// The picture of the sheet takes the room of what was beside and below it.
void GiveRoomToPictureOf(const QWidget& dialog) {
  constexpr QSize Least(120, 150);
  auto* const picture = dialog.findChild<QWidget*>(QStringLiteral("preview"));
  if (picture == nullptr) return;
  picture->setMinimumSize(Least);
  picture->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

// Pages have their own orientation, and no margins but the printer's.
void OfferPaperOnly(QWidget& dialog) {
  HidePartOf(dialog, "portrait");
  HidePartOf(dialog, "topMargin");
  GiveRoomToPictureOf(dialog);
  dialog.adjustSize();
}

// The setup dialog's own dialog, about one printer, is made when it is asked for.
class PropertiesTrimmer final : public QObject {
 public:
  explicit PropertiesTrimmer(QPrintDialog& dialog) : QObject(&dialog), dialog_(dialog) {
    QCoreApplication::instance()->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Show) return false;
    auto* const shown = qobject_cast<QDialog*>(watched);
    if (shown != nullptr && dialog_.findChildren<QDialog*>().contains(shown)) OfferPaperOnly(*shown);
    return false;
  }

 private:
  QPrintDialog& dialog_;
};

// For its lifetime the toolkit does not say that a device for files has no paper to set up: that it has.
class QuietAboutFiles {
 public:
  QuietAboutFiles() : before_(qInstallMessageHandler(PassOn)) { others_ = before_; }
  ~QuietAboutFiles() { qInstallMessageHandler(before_); }
  QuietAboutFiles(const QuietAboutFiles&) = delete;
  QuietAboutFiles& operator=(const QuietAboutFiles&) = delete;

 private:
  static void PassOn(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(QStringLiteral("QPageSetupDialog:"))) return;
    if (others_ != nullptr) others_(type, context, message);
  }

  static inline QtMessageHandler others_ = nullptr;
  QtMessageHandler before_;
};

// A button in the place of the dialog's own.
QPushButton* TwinOf(QPushButton* theirs) {
  auto* const grid = theirs != nullptr ? qobject_cast<QGridLayout*>(theirs->parentWidget()->layout()) : nullptr;
  if (grid == nullptr || grid->indexOf(theirs) < 0) return nullptr;
  int row = 0;
  int column = 0;
  int rows = 0;
  int columns = 0;
  grid->getItemPosition(grid->indexOf(theirs), &row, &column, &rows, &columns);
  auto* const twin = new QPushButton(theirs->text(), theirs->parentWidget());
  grid->addWidget(twin, row, column, rows, columns);
  QWidget::setTabOrder(theirs, twin);
  return twin;
}

// The toolkit's list takes no printer but the print system's: a list of our own is shown in its place, and passes on to
// it what is chosen.
void OfferPdf(QPrintDialog& dialog, QtBackend& backend, PrinterChoice& choice) {
  auto* const theirs = dialog.findChild<QComboBox*>(QStringLiteral("printers"));
  if (theirs == nullptr || theirs->parentWidget()->layout() == nullptr) return;
  auto* const list = new QComboBox(theirs->parentWidget());
  list->setObjectName(QStringLiteral("allPrinters"));
  for (int i = 0; i < theirs->count(); ++i) list->addItem(theirs->itemIcon(i), theirs->itemText(i));
  const int pdf = list->count() + 1;
  list->insertSeparator(list->count());
  list->addItem(QString::fromLatin1(PdfPrinter::PrinterName));
  list->setCurrentIndex(choice.Pdf ? pdf : theirs->currentIndex());
  list->setSizePolicy(theirs->sizePolicy());
  delete theirs->parentWidget()->layout()->replaceWidget(theirs, list);
  theirs->hide();
  QWidget::setTabOrder(theirs, list);
  for (QLabel* const label : dialog.findChildren<QLabel*>()) {
    if (label->buddy() == theirs) label->setBuddy(list);
  }
  auto* const properties = dialog.findChild<QPushButton*>(QStringLiteral("properties"));
  QPushButton* const paper = TwinOf(properties);
  if (paper != nullptr) {
    QObject::connect(paper, &QPushButton::clicked, &dialog,
                     [&backend, &choice, &dialog] { AskForPdfPaper(backend, choice.PdfPaper, &dialog); });
  }
  QObject::connect(list, &QComboBox::currentIndexChanged, &dialog, [=, &dialog, &choice](int index) {
    choice.Pdf = index == pdf;
    ShowAsChosen(dialog, properties, paper, choice.Pdf);
    if (!choice.Pdf) theirs->setCurrentIndex(index);
  });
  ShowAsChosen(dialog, properties, paper, choice.Pdf);
  list->setFocus();
}

// For its lifetime the toolkit finds no print server, and finds that out at once.
class NoServer {
 public:
  NoServer() : server_(cupsServer()) {
    if (server_.front() != '/') server_ += ":" + std::to_string(ippPort());
    cupsSetServer("/nonexistent/cups.sock");
  }
  ~NoServer() { cupsSetServer(server_.c_str()); }
  NoServer(const NoServer&) = delete;
  NoServer& operator=(const NoServer&) = delete;

 private:
  std::string server_;
};

// Any device of the toolkit's asks for the printers first, and waits minutes for a server that hangs.
std::unique_ptr<QPrinter> MakePdfDevice() {
  const NoServer none;
  auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
  device->setOutputFormat(QPrinter::PdfFormat);
  device->setOutputFileName(QDir::tempPath() + QStringLiteral("/unwritten.pdf"));
  return device;
}

// It chooses a printer, and prints nothing: which pages are printed is asked elsewhere.
void MakeSetupOf(QPrintDialog& dialog) {
  // The dialog shows it when it shows itself.
  QTimer::singleShot(0, &dialog, [&dialog] { HidePartOf(dialog, "printAll"); });
  auto* const buttons = dialog.findChild<QDialogButtonBox*>();
  QPushButton* const accept = buttons != nullptr ? buttons->button(QDialogButtonBox::Ok) : nullptr;
  if (accept != nullptr) accept->setText(QCoreApplication::translate("QPlatformTheme", "OK"));
}

}  // namespace

bool AskForPrinter(QtBackend& backend, PrinterChoice& choice) {
  const ToolkitLanguage language;
  const QString before = choice.Queue->printerName();
  const QPageSize paper = choice.Queue->pageLayout().pageSize();
  auto* const dialog = new QPrintDialog(choice.Queue.get(), backend.WindowForBoxes());
  OwnedBox owned(dialog);
  dialog->setOptions(QAbstractPrintDialog::PrintCollateCopies | QAbstractPrintDialog::PrintShowPageSize);
  dialog->setWindowTitle(QCoreApplication::translate("QPrintWidget", "Printer"));
  OfferPdf(*dialog, backend, choice);
  MakeSetupOf(*dialog);
  new PropertiesTrimmer(*dialog);
  if (!owned.Run(backend)) return false;
  // The dialog gives the printer its usual paper unless its own properties were accepted.
  const auto inside = dialog->findChildren<QDialog*>();
  const bool chosePaper = std::any_of(inside.begin(), inside.end(),
                                      [](const QDialog* each) { return each->result() == QDialog::Accepted; });
  if (!chosePaper && choice.Queue->printerName() == before) choice.Queue->setPageSize(paper);
  return true;
}

bool AskForPaper(QtBackend& backend, QPrinter& printer, QWidget* parent) {
  const ToolkitLanguage language;
  auto* const dialog = [&] {
    const QuietAboutFiles quiet;
    return new QPageSetupDialog(&printer, parent);
  }();
  OwnedBox owned(dialog);
  OfferPaperOnly(*dialog);
  return owned.Run(backend);
}

bool AskForPdfPaper(QtBackend& backend, QPageSize& paper, QWidget* parent) {
  // Holds what is chosen; nothing is written.
  const std::unique_ptr<QPrinter> device = MakePdfDevice();
  device->setPageSize(paper);
  while (AskForPaper(backend, *device, parent)) {
    const QPageSize chosen = device->pageLayout().pageSize();
    const QSize size = chosen.sizePoints();
    constexpr int Least = 72;  // points; an inch
    if (std::min(size.width(), size.height()) >= Least) {
      paper = chosen;
      return true;
    }
    TellOfPrinting(backend, QStringLiteral("The paper is too small to print on: it needs an inch each way."));
  }
  return false;
}

}  // namespace pixorra
