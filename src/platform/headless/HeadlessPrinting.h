// Printers that keep what is printed: each page as the list of what was drawn on it. The standard printer has letter
// paper with an edge of a quarter inch that it cannot print on, and 600 dots to the inch.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/headless/PrintDialogScript.h"
#include "platform/runtime/Errors.h"
#include "platform/services/Printing.h"

namespace pixorra {

struct PrintedItem {
  enum class Kind { Text, Box, Picture };
  Kind What = Kind::Text;
  // Twips. A text has no width and height here; a box reaches from (X, Y) over Width and Height.
  double X = 0;
  double Y = 0;
  double Width = 0;
  double Height = 0;
  std::string Text;
  std::string FontName = "Arial";
  double FontSize = 8.25;  // points
  bool Bold = false;
  Colour InColour = 0;
  int DrawWidth = 1;
  int FillStyle = 1;
  Picture Painted;
  // The part of the picture, in its own twips.
  double SourceX = 0;
  double SourceY = 0;
  double SourceWidth = 0;
  double SourceHeight = 0;
};

struct PrintedPage {
  int Orientation = 1;
  std::vector<PrintedItem> Items;
  // The texts alone, in their order.
  std::vector<std::string> Texts() const;
};

struct PrintedDocument {
  std::string Printer;
  std::string Name;      // its title
  std::string FileName;  // of a printer that makes files
  std::vector<PrintedPage> Pages;
};

struct HeadlessPrinter {
  std::string Name;
  std::string Driver = "Headless";
  int PaperSize = 1;
  double SheetWidth = 12240;  // twips, portrait
  double SheetHeight = 15840;
  double Edge = 360;  // twips at each side that are not printed on
  double TwipsPerPixel = 2.4;
  bool Ready = true;
  bool Broken = false;  // the first print raises Printer
  // The first print raises DeviceIO with this reason.
  std::string Refusal{};
  // EndDoc raises it, None for nothing; the document is dropped.
  int EndError = error::None;
  std::string EndReason{};
  bool AsksForFile = false;  // with the first print of a document
};

class HeadlessPrinting : public Printing, public PrintDialogScript, private PrintSurface {
 public:
  using PrintDialogScript::PrintDialogScript;

  std::vector<std::string> PrinterNames() override;
  void SetCurrentPrinter(const std::string& name) override;
  void WhenDefaultIsKnown(std::function<void(const std::string& name)> tell) override { tell(DefaultName()); }
  void SetTrackDefault(bool track) override;
  void HoldPrinter(bool hold) override;
  std::string CurrentPrinterName() override;
  PrintSurface& Printer() override { return *this; }
  bool IsReady(const std::string& name) override;
  bool ShowPrintSetup() override { return AnswerPrintSetup(); }
  bool ShowPrintDialog() override { return AnswerPrintDialog(); }
  bool ShowProperties(const std::string& name) override;

  // To set up by a test; the first is the system's default.
  std::vector<HeadlessPrinter> Printers{HeadlessPrinter{.Name = "Headless Printer"}};

  // Documents that have been ended, and the one that is being composed.
  const std::vector<PrintedDocument>& Documents() const { return documents_; }
  const std::optional<PrintedDocument>& OpenDocument() const { return open_; }
  int Orientation() const { return orientation_; }
  int ScaleMode() const { return scaleMode_; }
  bool TracksDefault() const { return tracksDefault_; }

 private:
  void SetScaleMode(int mode) override { scaleMode_ = mode; }
  void SetOrientation(int orientation) override { orientation_ = orientation; }
  double ScaleWidth() override;
  double ScaleHeight() override;
  double SheetWidth() override;
  double SheetHeight() override;
  double TwipsPerPixelX() override { return Current().TwipsPerPixel; }
  std::string DeviceName() override { return CurrentPrinterName(); }
  std::string DriverName() override { return Current().Driver; }
  int PaperSize() override { return Current().PaperSize; }
  void SetFontName(const std::string& name) override { state_.FontName = name; }
  void SetFontSize(double points) override { state_.FontSize = points; }
  void SetFontBold(bool bold) override { state_.Bold = bold; }
  double TextWidth(const std::string& text) override;
  double TextHeight(const std::string& text) override;
  void SetCurrentX(double x) override { state_.X = x; }
  void SetCurrentY(double y) override { state_.Y = y; }
  void Print(const std::string& text) override;
  void SetForeColor(Colour colour) override { state_.InColour = colour; }
  void SetDrawWidth(int devicePixels) override { state_.DrawWidth = devicePixels; }
  void SetFillStyle(int style) override { state_.FillStyle = style; }
  void Box(double x1, double y1, double x2, double y2, Colour colour) override;
  void PaintPicture(const Picture& picture, double x, double y, double width, double height, double sourceX,
                    double sourceY, double sourceWidth, double sourceHeight) override;
  void SetDocumentName(const std::string& name) override { documentName_ = name; }
  void NewPage() override;
  void EndDoc() override;
  void KillDoc() override { TakeOpen(); }

  std::string DefaultName() const { return Printers.empty() ? std::string() : Printers.front().Name; }
  // The document that was being composed; the next place is the top left.
  PrintedDocument TakeOpen();
  const HeadlessPrinter* Find(const std::string& name) const;
  const HeadlessPrinter& Current() const;
  // The page that is drawn on; starts a document. Raises Printer where there is no printer, it is broken,
  // or its file was not named, and DeviceIO where it refuses.
  PrintedPage& Page();

  std::string current_;  // empty: the default
  std::string held_;     // what the default was when it was held; empty while it is not
  PrintedItem state_;    // what the next drawing takes over
  std::string documentName_ = "Pixorra";
  int orientation_ = 1;
  int scaleMode_ = 1;
  bool tracksDefault_ = true;
  std::vector<PrintedDocument> documents_;
  std::optional<PrintedDocument> open_;
};

}  // namespace pixorra
