// Where documents go: what the page is composed for, and what takes the document then.
#pragma once

#include <QIODevice>
#include <QSizeF>
#include <memory>
#include <string>

namespace pixorra {

// The paper upright, in points. What cannot be printed on is the same at both ends of a direction, and turns with the
// page.
struct PrintPaper {
  QSizeF Size{595, 842};
  double SideMargin = 0;  // at the long edges
  double EndMargin = 0;   // at the short edges
  int Code = 9;
  int DotsPerInch = 300;  // of the device
};

// A document on its way. One that is not submitted leaves nothing.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  // Takes the document's PDF.
  virtual QIODevice& Device() = 0;
  // Raises as Submit does where a write has failed: what is composed from then on is lost.
  virtual void RaiseIfFailed() = 0;
  // Raises as PrintSurface::EndDoc does.
  virtual void Submit() = 0;
};

class PrintDestination {
 public:
  virtual ~PrintDestination() = default;
  virtual std::string Name() = 0;
  virtual std::string DriverName() = 0;
  virtual PrintPaper Paper() = 0;
  // Raises as the first drawing of a document does. Events may run meanwhile.
  virtual std::unique_ptr<PrintJob> Begin(const std::string& documentName) = 0;
};

}  // namespace pixorra
