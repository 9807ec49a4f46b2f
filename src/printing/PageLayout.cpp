#include "printing/PageLayout.h"

#include <algorithm>
#include <cmath>

#include "base/Host.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Printing.h"
#include "printing/PaperNames.h"
#include "printing/PrintUnits.h"

namespace pixorra {

namespace {

// Pixels, from the page's right edge.
constexpr int ColumnStep = 10;
constexpr int PrintButtonStep = 28;
constexpr int DpiStep = 3;
constexpr int RightMargin = 15;  // of the window, its frame included
constexpr int MostWindowWidth = 790;
constexpr int PageHeight = 169;  // where the window is not too wide with it

}  // namespace

void PreparePrinter(Host& host) {
  ErrorsIgnored([&] {
    PrintSurface& printer = host.printing.Printer();
    ErrorsIgnored([&] { printer.EndDoc(); });
    printer.SetOrientation(Portrait);
  });
  host.toolkit.DoEvents();
}

float ArrangePage(const PageControls& c, PrintSurface& printer) {
  printer.SetScaleMode(ScaleInTwips);
  const auto longSide = static_cast<float>(printer.ScaleHeight() / TwipsPerInch);
  const int paper = printer.PaperSize();
  c.PaperTypeLabel.SetCaption(ShortPaperName(paper) + " paper - Landscape Only");
  c.PaperTypeLabel.SetToolTipText(LongPaperName(paper));
  const double shape = printer.SheetHeight() / CLng(printer.SheetWidth());
  const int mostWidth = MostWindowWidth - RightMargin - c.PrinterFrame.Width() - ColumnStep - c.Page.Left();
  const double width = std::min<double>(PageHeight * shape, mostWidth);
  const double height = std::max(1.0, std::round(width / shape));
  // In the middle of its room between the paper's name and the slider.
  c.Page.Move(c.Page.Left(), c.PageTop + std::floor((PageHeight - height) / 2), width, height);
  c.SizeBar.SetWidth(c.Page.Width());
  const int edge = c.Page.Left() + c.Page.Width();
  c.PrinterFrame.SetLeft(edge + ColumnStep);
  c.PrinterSetupButton.SetLeft(edge + ColumnStep);
  c.PrintButton.SetLeft(edge + PrintButtonStep);
  c.CancelButton.SetLeft(edge + ColumnStep);
  c.DpiLabel.SetLeft(edge - c.DpiLabel.Width() - DpiStep);
  // A long name of the paper ends where the resolution begins.
  c.PaperTypeLabel.SetWidth(std::max(1, c.DpiLabel.Left() - c.PaperTypeLabel.Left()));
  c.Window.SetTwipsWidth(static_cast<double>(c.PrinterFrame.Left() + c.PrinterFrame.Width() + RightMargin) *
                         TwipsPerPixel);
  return longSide;
}

}  // namespace pixorra
