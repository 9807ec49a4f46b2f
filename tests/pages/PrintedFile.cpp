#include "tests/pages/PrintedFile.h"

#include <QColor>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdlib>
#include <gtest/gtest.h>

namespace pixorra {

namespace {

// JPEG pictures have not quite the colours that they were made of.
constexpr int Tolerance = 40;

bool IsNear(QRgb pixel, const QColor& colour) {
  return std::abs(qRed(pixel) - colour.red()) + std::abs(qGreen(pixel) - colour.green()) +
             std::abs(qBlue(pixel) - colour.blue()) <=
         Tolerance;
}

}  // namespace

bool PrintedFile::CanBeRead() {
  return !QStandardPaths::findExecutable("pdftoppm").isEmpty() &&
         !QStandardPaths::findExecutable("pdftotext").isEmpty();
}

PrintedFile::PrintedFile(const QString& path) : path_(path) {
  const QString told = QString::fromUtf8(Run("pdfinfo", {path_}));
  const auto pages = QRegularExpression("Pages:\\s+(\\d+)").match(told);
  if (!pages.hasMatch()) ADD_FAILURE() << "no document in " << path.toStdString();
  pageCount_ = pages.captured(1).toInt();
}

QByteArray PrintedFile::Run(const char* tool, const QStringList& arguments) const {
  QProcess process;
  process.start(tool, arguments);
  if (!process.waitForFinished() || process.exitCode() != 0)
    ADD_FAILURE() << tool << ": " << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

QSizeF PrintedFile::SizeOf(int page) const {
  const QString number = QString::number(page);
  const QString told = QString::fromUtf8(Run("pdfinfo", {"-f", number, "-l", number, path_}));
  const auto size = QRegularExpression("Page +\\d+ size:\\s+([0-9.]+) x ([0-9.]+)").match(told);
  const auto turned = QRegularExpression("Page +\\d+ rot:\\s+(\\d+)").match(told);
  const QSizeF held(size.captured(1).toDouble(), size.captured(2).toDouble());
  return turned.captured(1).toInt() % 180 == 0 ? held : held.transposed();
}

std::vector<PrintedWord> PrintedFile::WordsOf(int page) const {
  const QString number = QString::number(page);
  const QString told = QString::fromUtf8(Run("pdftotext", {"-bbox", "-f", number, "-l", number, path_, "-"}));
  static const QRegularExpression Word(
      "<word xMin=\"([-0-9.]+)\" yMin=\"([-0-9.]+)\" xMax=\"([-0-9.]+)\" yMax=\"([-0-9.]+)\">([^<]*)</word>");
  std::vector<PrintedWord> words;
  auto matches = Word.globalMatch(told);
  while (matches.hasNext()) {
    const auto match = matches.next();
    const auto at = [&](int group) { return match.captured(group).toDouble(); };
    words.push_back({match.captured(5).toStdString(), QRectF(QPointF(at(1), at(2)), QPointF(at(3), at(4)))});
  }
  return words;
}

QImage PrintedFile::Rendered(int page) const {
  const QTemporaryDir folder;
  const QString number = QString::number(page);
  Run("pdftoppm",
      {"-r", QString::number(72 * Scale), "-f", number, "-l", number, "-singlefile", path_, folder.filePath("page")});
  return QImage(folder.filePath("page.ppm")).convertToFormat(QImage::Format_RGB32);
}

QRectF PlaceOf(const std::vector<PrintedWord>& words, const std::string& first, const std::string& last) {
  QRectF place;
  for (const PrintedWord& word : words) {
    if (place.isNull() && word.Text != first) continue;
    if (!place.isNull() && std::abs(word.At.top() - place.top()) > 3) continue;
    place = place.united(word.At);
    if (word.Text == last) return place;
  }
  return last.empty() ? place : QRectF();
}

QRectF ExtentOf(const QImage& page, QPointF from, const QColor& colour) {
  const QPoint start = (from * PrintedFile::Scale).toPoint();
  const auto reach = [&](QPoint step) {
    QPoint at = start;
    while (page.rect().contains(at) && IsNear(page.pixel(at), colour)) at += step;
    return at;
  };
  // An edge within a pixel makes that pixel a mix of both: half a pixel is near enough.
  const QPoint right = reach({1, 0}), left = reach({-1, 0}), down = reach({0, 1}), up = reach({0, -1});
  return QRectF(QPointF(left.x() + 1, up.y() + 1) / PrintedFile::Scale,
                QPointF(right.x(), down.y()) / PrintedFile::Scale);
}

}  // namespace pixorra
