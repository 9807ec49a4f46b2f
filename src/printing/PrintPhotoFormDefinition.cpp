// The controls of PrintPhotoForm as they are before they are arranged for a printer's paper.
#include "base/Definition.h"
#include "printing/PrintPhotoForm.h"
#include "printing/PrintUnits.h"

namespace pixorra {

namespace {

// Twips.
constexpr int PageLeft = 120;
constexpr int PageWidth = 3615;
constexpr int LabelHeight = 225;
constexpr int OptionTop = 3285;
constexpr int OptionWidth = 825;

// Pixels: the column at the right of the page, all of it above the slider's lower end, as the page may be so narrow
// that the options are below it.
constexpr int ColumnWidth = 232;
constexpr int FrameTop = 6;
constexpr int FrameHeight = 46;
constexpr int FrameMargin = 10;
constexpr int SetupTop = 60;
constexpr int ButtonHeight = 28;
constexpr int HeaderTop = 96;
constexpr int HeaderHeight = 22;
constexpr int PrintTop = 130;
constexpr int PrintInset = 18;  // at each side
constexpr int CancelTop = 172;
constexpr int ClientHeight = 244;

}  // namespace

void PrintPhotoForm::Define() {
  Window.SetCaption("Print Photo Form");
  PaperTypeLabel.SetCaption("Page Layout - Landscape only");
  PaperTypeLabel.SetShrinks(true);
  PreviewPicture1.SetBackColor(PaperColour);
  PreviewPicture1.SetAccessibleName("The photo on the page");
  DpiLabel.SetToolTipText("Resolution: Dots per Inch");
  DpiLabel.SetAlignment(Alignment::Right);
  ZoomFactorBar.SetSlider(true);
  ZoomFactorBar.SetMin(10);
  ZoomFactorBar.SetMax(150);
  ZoomFactorBar.SetSmallChange(10);
  ZoomFactorBar.SetLargeChange(25);
  ZoomFactorBar.SetAccessibleName("Zoom");
  Label1.SetCaption("Adjust Zoom to fit Page");
  const struct {
    OptionButton& Option;
    const char* Caption;
    const char* ToolTip;
  } options[] = {{ZoomOption6x4, "6x4\"", "6\" wide"},
                 {ZoomOption7x5, "7x5\"", "7\" wide"},
                 {ZoomOption10x8, "10x8\"", "10\" wide"},
                 {ZoomOptionOther, "Other", "Adjustable on slider bar"}};
  for (const auto& [option, caption, tip] : options) {
    option.SetCaption(caption);
    option.SetToolTipText(tip);
  }
  Frame1.SetCaption("Current Printer");
  PrinterNameLabel.SetShortensInMiddle(true);
  PrinterSetupButton.SetCaption("Printer &Setup");
  PrintHeaderCheckbox.SetCaption("Print photo info and border outline");
  PrintButton.SetCaption("&Print Now");
  PrintButton.SetBold(true);
  PrintButton.SetDefault(true);
  CancelButton.SetCaption("&Cancel");
  CancelButton.SetCancel(true);
  SamplePicSmall.SetVisible(false);
  PicSample.SetVisible(false);
}

void PrintPhotoForm::PlaceControls() {
  Place(PaperTypeLabel, PageLeft, 0, 2775, LabelHeight);
  Place(PreviewPicture1, PageLeft, 225, PageWidth, 2535);
  Place(DpiLabel, 0, 0, 825, LabelHeight);
  Place(ZoomFactorBar, PageLeft, 2760, PageWidth, 255);
  Place(Label1, 1200, 3045, 2400, LabelHeight);
  int left = 240;
  for (OptionButton* option : {&ZoomOption6x4, &ZoomOption7x5, &ZoomOption10x8, &ZoomOptionOther}) {
    Place(*option, left, OptionTop, OptionWidth, 300);
    left += 840;
  }
  Frame1.Move(0, FrameTop, ColumnWidth, FrameHeight);
  PrinterNameLabel.Move(FrameMargin, 22, ColumnWidth - 2 * FrameMargin, 16);
  PrinterSetupButton.Move(0, SetupTop, ColumnWidth, ButtonHeight);
  PrintHeaderCheckbox.Move(0, HeaderTop, ColumnWidth - 5, HeaderHeight);
  PrintButton.Move(0, PrintTop, ColumnWidth - 2 * PrintInset, ButtonHeight + 4);
  CancelButton.Move(0, CancelTop, ColumnWidth, ButtonHeight);
  Window.SetClientSize(Window.ScaleWidth(), ClientHeight);
}

}  // namespace pixorra
