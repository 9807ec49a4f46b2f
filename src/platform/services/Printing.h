// Printers, and the surface that a document is composed on.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/pixels/Picture.h"

namespace pixorra {

// The current printer. Lengths are twips (1440 to the inch) in scale mode 1, from the top left of the printable area.
// Any of the drawing operations starts a document. They raise `Printer` where the person was asked for the file of a
// document and cancelled, and `DeviceIO` with a reason for a person where the printer takes no documents now.
class PrintSurface {
 public:
  virtual ~PrintSurface() = default;
  virtual void SetScaleMode(int mode) = 0;
  virtual void SetOrientation(int orientation) = 0;  // 1 portrait, 2 landscape
  virtual double ScaleWidth() = 0;
  virtual double ScaleHeight() = 0;
  virtual double SheetWidth() = 0;
  virtual double SheetHeight() = 0;
  virtual double TwipsPerPixelX() = 0;  // of the printer
  virtual std::string DeviceName() = 0;
  virtual std::string DriverName() = 0;
  virtual int PaperSize() = 0;  // a paper code: 1 Letter, 9 A4, ...
  virtual void SetFontName(const std::string& name) = 0;
  virtual void SetFontSize(double points) = 0;
  virtual void SetFontBold(bool bold) = 0;
  // Of the longest line, and of all lines: each line end (CR LF, LF or CR) makes one more.
  virtual double TextWidth(const std::string& text) = 0;
  virtual double TextHeight(const std::string& text) = 0;
  virtual void SetCurrentX(double x) = 0;
  virtual void SetCurrentY(double y) = 0;
  // The top left of its first line is the current place; further lines begin at the left edge, and so does the next
  // print, below them.
  virtual void Print(const std::string& text) = 0;
  virtual void SetForeColor(Colour colour) = 0;
  virtual void SetDrawWidth(int devicePixels) = 0;
  virtual void SetFillStyle(int style) = 0;  // 0 filled with the line's colour, 1 transparent
  // Half of the line's width lies outside the rectangle.
  virtual void Box(double x1, double y1, double x2, double y2, Colour colour) = 0;
  // Part of a picture, in the picture's twips at 15 to a pixel, stretched into a rectangle.
  virtual void PaintPicture(const Picture& picture, double x, double y, double width, double height, double sourceX,
                            double sourceY, double sourceWidth, double sourceHeight) = 0;
  // The title of the documents that begin from here on. A list of jobs shows it, and a file is named by it at first.
  virtual void SetDocumentName(const std::string& name) = 0;
  // Ends the page, also one that nothing was drawn on. The next place is the top left; fonts and colours stay.
  virtual void NewPage() = 0;
  // Hands the document over; before that nothing of it is printed, and no file is there. A last page without a drawing
  // does not come out, nor a document of blanks alone. One that cannot be handed over is dropped, and the error has a
  // reason for a person: `Printer` where it is refused or too long, `DiskFull`, `PathAccess` or `FileExists` of a file.
  // NewPage and PaintPicture raise it once a write has failed. While it is on its way events run, but for what a person
  // does. Nothing happens without a document.
  virtual void EndDoc() = 0;
  // Drops the document that is being composed, as the program's end does. Nothing happens without one.
  virtual void KillDoc() = 0;
};

class Printing {
 public:
  virtual ~Printing() = default;
  // One of them makes PDF files where the host can; it asks for the file with the first drawing of each document.
  virtual std::vector<std::string> PrinterNames() = 0;
  // Raises Printer where there is no such printer.
  virtual void SetCurrentPrinter(const std::string& name) = 0;
  // Looking for printers takes up to seconds, and is put off until printing is first spoken of. Calls `tell` with the
  // name of the system's default printer as soon as that is known; at once where it is.
  virtual void WhenDefaultIsKnown(std::function<void(const std::string& name)> tell) = 0;
  // True: the current printer is the system's default from now on. False: it stays what it is.
  virtual void SetTrackDefault(bool track) = 0;
  // True: from its next use on the current printer stays what it is whatever the system's default becomes, unless
  // another one is chosen here. False ends that. Calls do not nest.
  virtual void HoldPrinter(bool hold) = 0;
  // Empty where the host has no printer.
  virtual std::string CurrentPrinterName() = 0;
  virtual PrintSurface& Printer() = 0;
  // Can the printer be reached now?
  virtual bool IsReady(const std::string& name) = 0;
  // The system's own dialogs; false when cancelled.
  virtual bool ShowPrintSetup() = 0;
  virtual bool ShowPrintDialog() = 0;
  virtual bool ShowProperties(const std::string& name) = 0;
};

}  // namespace pixorra
