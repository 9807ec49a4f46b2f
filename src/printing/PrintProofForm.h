// The dialog ahead of proof sheets: how many photos go across a page, and which page is printed, with that page drawn
// to scale.
#pragma once

#include <string>

#include "platform/controls/Buttons.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/Lists.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "platform/controls/Timer.h"
#include "printing/BatchSource.h"

namespace pixorra {

struct MainForm;

struct ProofChoice {
  int Page = 0;  // 0: all of them
  int Size = 0;  // photos across and down, 2 to 6; 0: cancelled
};

class PrintProofForm {
 public:
  explicit PrintProofForm(MainForm& main);

  // For a form that has been loaded: asks, and unloads it. Not shown where the source has no photo, or its first one
  // cannot be loaded: that is the same as cancelled. Raises Printer where the printer cannot be asked.
  ProofChoice GetProofSize(BatchSource source);

  Form Window;
  // In the order of the Tab key.
  Label PaperTypeLabel{Window, "PaperTypeLabel"};
  PictureBox PagePreview{Window, "PagePreview"};
  Label DpiLabel{Window, "DpiLabel"};
  ScrollBar ProofSizeBar{Window, "ProofSizeBar", Orientation::Horizontal};
  Label Label1{Window, "Label1"};
  Frame Frame1{Window, "Frame1"};
  Label PrinterNameLabel{Frame1, "PrinterNameLabel"};
  CommandButton PrinterSetupButton{Window, "PrinterSetupButton"};
  Label PageLabel{Window, "PageLabel"};
  ComboBox PagesBox{Window, "PagesBox"};
  CommandButton PrintButton{Window, "PrintButton"};
  CommandButton CancelButton{Window, "CancelButton"};
  ImageBox PicSample{Window, "PicSample"};  // hidden; the source's first photo, for its size alone
  Timer Timer1{Window, "Timer1", 500};

 private:
  void Define();
  void PlaceControls();
  void ConnectControls();
  void Close(int size);
  void SetUpPrinter();
  void ShowPrinterName();
  void ArrangeProofLayout();
  void FillPagesBox();
  void RepaintPage();
  void PaintProofPreview();
  void PaintHeader();
  void PaintCells(int cellWidth, int cellHeight);
  void PaintCell(const Picture& thumbnail, const std::string& caption, const Rect& at);
  void ShowResolution(int cellWidth);

  MainForm& main_;
  BatchSource source_ = BatchSource::FilmStrip;
  float PageLongSideInches = 0;  // of the printable area
  int ProofSizeChosen = 0;       // 0 until PrintButton is used
  bool ProofPainting = false;    // a tick of the timer paints nothing then
};

}  // namespace pixorra
