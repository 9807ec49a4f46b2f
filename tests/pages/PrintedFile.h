// A PDF file that was printed, read back: its pages as they are seen, and the words on them with their places.
#pragma once

#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <string>
#include <vector>

namespace pixorra {

struct PrintedWord {
  std::string Text;
  // Points, from the sheet's top left. From the left edge of its first letter to where the letter after its last one
  // would begin, and from the highest to the lowest point that a letter of its font may have.
  QRectF At;
};

class PrintedFile {
 public:
  // Pixels to a point of what is rendered.
  static constexpr double Scale = 2;

  // The tools are here that read such files.
  static bool CanBeRead();
  // Fails the test where the file cannot be read.
  explicit PrintedFile(const QString& path);

  int PageCount() const { return pageCount_; }
  // The sheet's size in points, as it is to be held.
  QSizeF SizeOf(int page) const;
  std::vector<PrintedWord> WordsOf(int page) const;
  QImage Rendered(int page) const;

 private:
  QByteArray Run(const char* tool, const QStringList& arguments) const;

  QString path_;
  int pageCount_ = 0;
};

// Of the words from the first one to the last one on a line; an empty last one is that of the line. Null where there
// are no such words.
QRectF PlaceOf(const std::vector<PrintedWord>& words, const std::string& first, const std::string& last);

// The extent, in points, of what has nearly this colour in a page that was rendered, on the way from a point (in
// points) straight left, right, up and down.
QRectF ExtentOf(const QImage& page, QPointF from, const QColor& colour);

}  // namespace pixorra
