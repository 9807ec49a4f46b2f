// The page that a document is composed on, by the desktop's print system. All coordinates are twips from the top left
// of the printable area.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPrinter>
#include <functional>
#include <memory>
#include <string>

#include "platform/services/Printing.h"

namespace pixorra {

class QtPrintSurface final : public PrintSurface {
 public:
  // `canPrint` tells whether there is a printer, or a file, to print to.
  QtPrintSurface(QPrinter& printer, std::function<bool()> canPrint);
  // What has been composed and not ended is not printed.
  ~QtPrintSurface() override;
  QtPrintSurface(const QtPrintSurface&) = delete;
  QtPrintSurface& operator=(const QtPrintSurface&) = delete;

  bool IsComposing() const { return painter_ != nullptr; }

  void SetScaleMode(int) override {}  // twips are the one mode
  void SetOrientation(int orientation) override;
  double ScaleWidth() override;
  double ScaleHeight() override;
  double SheetWidth() override;
  double SheetHeight() override;
  double TwipsPerPixelX() override;
  std::string DeviceName() override;
  std::string DriverName() override;
  int PaperSize() override;
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
  void NewPage() override;
  void EndDoc() override;

 private:
  QPainter& Page();
  void PreparePage();

  QPrinter& printer_;
  std::function<bool()> canPrint_;
  std::unique_ptr<QPainter> painter_;
  QFont font_;
  double x_ = 0;
  double y_ = 0;
  Colour foreColor_ = 0;
  int drawWidth_ = 1;
  int fillStyle_ = 1;
  bool pageEnded_ = false;
};

}  // namespace pixorra
