// What the two dialogs that are shown before printing have in common: the page drawn to scale at the left, and what is
// arranged at its right edge.
#pragma once

namespace pixorra {

class CommandButton;
class Form;
class Frame;
class Label;
class PictureBox;
class PrintSurface;
class ScrollBar;
struct Host;

struct PageControls {
  Form& Window;
  Label& PaperTypeLabel;
  PictureBox& Page;
  Label& DpiLabel;
  ScrollBar& SizeBar;
  Frame& PrinterFrame;
  CommandButton& PrinterSetupButton;
  CommandButton& PrintButton;
  CommandButton& CancelButton;
  int PageTop = 0;  // pixels; of a page that is as high as there is room
};

// For a dialog that is loaded: ends the printer's document, turns its paper upright and lets events run. Errors are
// ignored.
void PreparePrinter(Host& host);
// Gives the page the proportions of the printer's sheet, turned, and moves the controls to its right edge; sizes the
// window. The page is as high as there is room, and lower for a sheet so long that the window were too wide for a
// screen of 800 by 600 pixels. Returns the long side of the printable area, inches. Raises Printer where the printer
// cannot be asked.
float ArrangePage(const PageControls& controls, PrintSurface& printer);

}  // namespace pixorra
