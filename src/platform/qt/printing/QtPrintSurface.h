// The page that a document is composed on. All coordinates are twips from the top left of the printable area. Each page
// is made as a PDF page of its own shape, never turned, on its way to a destination.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPdfWriter>
#include <memory>
#include <string>

#include "platform/qt/printing/PrintDestination.h"
#include "platform/services/Printing.h"

namespace pixorra {

class QtPrintSurface final : public PrintSurface {
 public:
  explicit QtPrintSurface(PrintDestination& destination);
  // Drops what is being composed.
  ~QtPrintSurface() override;
  QtPrintSurface(const QtPrintSurface&) = delete;
  QtPrintSurface& operator=(const QtPrintSurface&) = delete;

  // Of the documents that begin from here on.
  void SetDestination(PrintDestination& destination) { destination_ = &destination; }
  bool IsComposing() const { return document_ != nullptr; }

  void SetScaleMode(int) override {}  // twips are the one mode
  void SetOrientation(int orientation) override;
  double ScaleWidth() override;
  double ScaleHeight() override;
  double SheetWidth() override;
  double SheetHeight() override;
  double TwipsPerPixelX() override;
  std::string DeviceName() override { return destination_->Name(); }
  std::string DriverName() override { return destination_->DriverName(); }
  int PaperSize() override { return Paper().Code; }
  void SetFontName(const std::string& name) override;
  void SetFontSize(double points) override;
  void SetFontBold(bool bold) override;
  double TextWidth(const std::string& text) override;
  double TextHeight(const std::string& text) override;
  void SetCurrentX(double x) override { x_ = x; }
  void SetCurrentY(double y) override { y_ = y; }
  void Print(const std::string& text) override;
  void SetForeColor(Colour colour) override { foreColor_ = colour; }
  void SetDrawWidth(int devicePixels) override { drawWidth_ = devicePixels; }
  void SetFillStyle(int style) override { fillStyle_ = style; }
  void Box(double x1, double y1, double x2, double y2, Colour colour) override;
  void PaintPicture(const Picture& picture, double x, double y, double width, double height, double sourceX,
                    double sourceY, double sourceWidth, double sourceHeight) override;
  void SetDocumentName(const std::string& name) override { documentName_ = name; }
  void NewPage() override;
  void EndDoc() override;
  void KillDoc() override { TakeDocument(); }

 private:
  // What is being composed, on paper that stays the same to its end.
  struct Document {
    Document(std::unique_ptr<PrintJob> to, const PrintPaper& on);
    std::unique_ptr<PrintJob> Job;
    PrintPaper Paper;
    QPdfWriter Writer;
    QPainter Painter;
    bool PageEnded = false;
    bool HasInk = false;  // more than blanks has been drawn, or a page was ended
  };
  // The figures of a page are those of its layout.
  struct Lengths {
    double Width;
    double Height;
  };

  PrintPaper Paper() { return document_ ? document_->Paper : destination_->Paper(); }
  Lengths Sheet();
  Lengths Printable();
  QPainter& Page();
  void PreparePage();
  void UpdateFont();
  // The document, composed to its end; null where there is none. The next place is the top left.
  std::unique_ptr<Document> TakeDocument();

  PrintDestination* destination_;
  std::unique_ptr<Document> document_;
  std::string documentName_ = "Pixorra";
  QFont font_;
  std::string fontName_;
  double fontSize_;
  bool bold_ = false;
  int orientation_ = 1;
  double x_ = 0;
  double y_ = 0;
  Colour foreColor_ = 0;
  int drawWidth_ = 1;
  int fillStyle_ = 1;
};

}  // namespace pixorra
