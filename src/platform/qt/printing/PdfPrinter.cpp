#include "platform/qt/printing/PdfPrinter.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <langinfo.h>

#include "platform/qt/BoxGuard.h"
#include "platform/qt/Convert.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/ToolkitLanguage.h"
#include "platform/qt/printing/PaperCodes.h"
#include "platform/qt/printing/PdfFile.h"
#include "platform/qt/printing/PrintBoxes.h"
#include "platform/runtime/Errors.h"

namespace pixorra {

namespace {

// A file has no edge that cannot be printed on; it gets that of a common printer.
constexpr double FileMargin = 18;  // points
constexpr double MarginPart = 8;   // of a small paper no more than this part of its width is margin at a side
constexpr int DotsPerInch = 300;
// Of a file, in bytes. While it is written over, the new one has a name that is longer by 7.
constexpr int LongestName = 255 - 7;

bool UsesLetterPaper() {
  constexpr std::intptr_t LetterWidth = 216;  // millimetres
  return reinterpret_cast<std::intptr_t>(nl_langinfo(_NL_PAPER_WIDTH)) == LetterWidth;
}

QString FirstFolder() {
  for (const auto place : {QStandardPaths::DocumentsLocation, QStandardPaths::PicturesLocation}) {
    const QString folder = QStandardPaths::writableLocation(place);
    if (QFileInfo(folder).isDir()) return folder;
  }
  return QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
}

// No file's name: a slash is of a path, a quotation mark parts names in the dialog, and the rest cannot be read there.
QChar InFileName(QChar each) {
  if (each == QLatin1Char('/')) return QLatin1Char('-');
  if (each == QLatin1Char('"')) return QLatin1Char('\'');
  return each.category() == QChar::Other_Control ? QLatin1Char(' ') : each;
}

// A name for a document, which no file of the folder has.
QString ProposedFile(const QString& folder, const std::string& documentName) {
  QString stem = ToQString(documentName);
  std::transform(stem.cbegin(), stem.cend(), stem.begin(), InFileName);
  stem = stem.trimmed();
  const QString suffix = QFileInfo(stem).suffix().toLower();
  if (QStringList{"jpg", "jpeg", "bmp", "gif"}.contains(suffix)) stem.chop(suffix.size() + 1);
  // A file that is hidden, or a person's home.
  while (stem.startsWith(QLatin1Char('.')) || stem.startsWith(QLatin1Char('~'))) stem.remove(0, 1);
  constexpr int LongestStem = 60;
  stem.truncate(stem.size() > LongestStem && stem[LongestStem - 1].isHighSurrogate() ? LongestStem - 1 : LongestStem);
  stem = stem.trimmed();
  if (stem.isEmpty()) stem = QStringLiteral("Pixorra");
  const QString start = folder + QLatin1Char('/') + stem;
  QString path = start + QStringLiteral(".pdf");
  for (int i = 2; QFileInfo::exists(path); ++i) {
    path = start + QStringLiteral(" (") + QString::number(i) + QStringLiteral(").pdf");
  }
  return path;
}

// Empty on cancel.
QString AskForFile(QtBackend& backend, const QString& proposed) {
  const ToolkitLanguage language;
  auto* dialog = new QFileDialog(backend.WindowForBoxes(), QString::fromLatin1(PdfPrinter::PrinterName));
  OwnedBox owned(dialog);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setNameFilter(QStringLiteral("PDF (*.pdf)"));
  // A name without the suffix gets it after a question of the dialog's own, which would have been about another file.
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setDirectory(QFileInfo(proposed).path());
  dialog->selectFile(QFileInfo(proposed).fileName());
  if (!owned.Run(backend) || dialog->selectedFiles().isEmpty()) return {};
  QString path = dialog->selectedFiles().constFirst();
  if (!path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) path += QStringLiteral(".pdf");
  return path;
}

}  // namespace

PdfPrinter::PdfPrinter(QtBackend& backend)
    : backend_(backend), size_(UsesLetterPaper() ? QPageSize::Letter : QPageSize::A4) {}

PrintPaper PdfPrinter::Paper() {
  const QSize size = size_.sizePoints();
  const double across = std::min(size.width(), size.height());
  const double margin = std::min(FileMargin, across / MarginPart);
  return {QSizeF(across, std::max(size.width(), size.height())), margin, margin, PaperCodeOf(size_), DotsPerInch};
}

std::unique_ptr<PrintJob> PdfPrinter::Begin(const std::string& documentName) {
  if (fixed_.isEmpty()) return AskAndBegin(documentName);
  auto file = std::make_unique<PdfFile>(fixed_, true);
  if (!file->Open()) throw RuntimeError(error::Printer);
  return file;
}

std::unique_ptr<PrintJob> PdfPrinter::AskAndBegin(const std::string& documentName) {
  QString proposed = ProposedFile(QFileInfo(folder_).isDir() ? folder_ : FirstFolder(), documentName);
  while (true) {
    const QString path = AskForFile(backend_, proposed);
    if (path.isEmpty()) throw RuntimeError(error::Printer);
    proposed = path;
    const QFileInfo there(path);
    const bool exists = there.exists() || there.isSymLink();
    const QString name = there.fileName();
    if (QFile::encodeName(name).size() > LongestName) {
      TellOfPrinting(backend_, QStringLiteral("The name of the PDF file is too long."));
      continue;
    }
    if (exists &&
        !AskAboutPrinting(backend_, QStringLiteral("There is a file \"%1\" already.\nReplace it?").arg(name))) {
      continue;
    }
    auto file = std::make_unique<PdfFile>(path, exists);
    if (file->Open()) {
      folder_ = QFileInfo(path).path();
      return file;
    }
    TellOfPrinting(backend_,
                   QStringLiteral("The PDF file \"%1\" cannot be written there:\n%2").arg(name, file->Error()));
  }
}

}  // namespace pixorra
