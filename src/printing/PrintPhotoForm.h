// The dialog before photos are printed: a page drawn to scale with one photo on it, and how large the photo is to be.
// What it leaves is the zoom and whether the info is printed, in CoreState.
#pragma once

#include <string>

#include "platform/controls/Buttons.h"
#include "platform/controls/Container.h"
#include "platform/controls/Form.h"
#include "platform/controls/ImageBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/PictureBox.h"
#include "platform/controls/ScrollBar.h"
#include "printing/BatchSource.h"
#include "printing/PageLayout.h"
#include "printing/PageSums.h"

namespace pixorra {

struct MainForm;

class PrintPhotoForm {
 public:
  explicit PrintPhotoForm(MainForm& main);

  // For a form that is loaded. Shows it for the selected photo and returns when it has been answered: CoreState's
  // PrintZoom is then 0 for cancelled. Deliberate: where there is no photo to show, PrintZoom stays what it was.
  void GetZoom_Selected();
  // The same for all photos of the film strip or of the open folder.
  void GetZoom_Batch(BatchSource source);

  Form Window;
  // In the order in which Tab reaches them.
  Label PaperTypeLabel{Window, "PaperTypeLabel"};
  Label DpiLabel{Window, "DpiLabel"};
  PictureBox PreviewPicture1{Window, "PreviewPicture1"};
  ScrollBar ZoomFactorBar{Window, "ZoomFactorBar", Orientation::Horizontal};
  Label Label1{Window, "Label1"};
  OptionButton ZoomOption6x4{Window, "ZoomOption6x4"};
  OptionButton ZoomOption7x5{Window, "ZoomOption7x5"};
  OptionButton ZoomOption10x8{Window, "ZoomOption10x8"};
  OptionButton ZoomOptionOther{Window, "ZoomOptionOther"};
  Frame Frame1{Window, "Frame1"};
  Label PrinterNameLabel{Frame1, "PrinterNameLabel"};
  CommandButton PrinterSetupButton{Window, "PrinterSetupButton"};
  CheckBox PrintHeaderCheckbox{Window, "PrintHeaderCheckbox"};
  CommandButton PrintButton{Window, "PrintButton"};
  CommandButton CancelButton{Window, "CancelButton"};
  PictureBox SamplePicSmall{Window, "SamplePicSmall"};  // the photo, reduced
  ImageBox PicSample{Window, "PicSample"};              // the photo at its own size

  std::string SamplePhotoPath;   // full path of the photo that is shown
  std::string SampleInfo;        // the line above it
  float PageLongSideInches = 0;  // the long side of what the printer can print on

 private:
  void Define();
  void PlaceControls();
  void ConnectEvents();
  void ShowFor(const std::string& caption);
  void MakeSmallSample();
  void ArrangePageLayout();
  void PaintPageLayout(float zoom);
  void PaintInfo(const PageRect& photo);
  void ShowResolution(const PageRect& photo);
  void ZoomChanged();
  void ZoomOption_Click(OptionButton& option, int inches);
  void PrinterSetupButton_Click();
  float Zoom() const;
  void Refuse(const std::string& why, const std::string& title);

  MainForm& main_;
};

// Shows a form of its own for the selected photo, or for a batch.
void AskZoomOfSelected(MainForm& main);
void AskZoomOfBatch(MainForm& main, BatchSource source);

}  // namespace pixorra
