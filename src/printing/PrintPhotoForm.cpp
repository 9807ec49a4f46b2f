#include "printing/PrintPhotoForm.h"

#include <algorithm>
#include <cmath>

#include "base/Dialog.h"
#include "base/ShownNames.h"
#include "pictures/PictureLoader.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Printing.h"
#include "printing/PageLines.h"
#include "printing/PrintUnits.h"
#include "printing/PrinterSetup.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

constexpr int PageTop = 15;    // pixels
constexpr int FirstZoom = 78;  // percent
// Pixels of the page: a photo that is nearer to its edges leaves no room for the lines of text.
constexpr int LeastLeft = 5;
constexpr int LeastTop = 8;
constexpr int InfoAbove = 5;  // from the photo's top to that of the line above it
constexpr int CompanyBelow = 2;
constexpr double LineSize = 2;  // points
constexpr int SampleWidth = 300;
constexpr int MostSampleHeight = 600;  // finer than any photo is shown on the page

constexpr const char* CannotBatchPrint = "Can't Batch Print";

}  // namespace

PrintPhotoForm::PrintPhotoForm(MainForm& main) : Window(main.host.toolkit, "PrintPhotoForm"), main_(main) {
  Define();
  PlaceControls();
  ConnectEvents();
}

void PrintPhotoForm::ConnectEvents() {
  Connect(Window.On().Load, [this](Control&) { PreparePrinter(main_.host); });
  Connect(ZoomFactorBar.On().Change, [this](Control&) { ZoomChanged(); });
  Connect(ZoomFactorBar.On().Scroll, [this](Control&) { ZoomChanged(); });
  Connect(ZoomOption6x4.On().Click, [this](Control&) { ZoomOption_Click(ZoomOption6x4, 6); });
  Connect(ZoomOption7x5.On().Click, [this](Control&) { ZoomOption_Click(ZoomOption7x5, 7); });
  Connect(ZoomOption10x8.On().Click, [this](Control&) { ZoomOption_Click(ZoomOption10x8, 10); });
  Connect(PrintHeaderCheckbox.On().Click, [this](Control&) { PaintPageLayout(Zoom()); });
  Connect(PrinterSetupButton.On().Click, [this](Control&) { PrinterSetupButton_Click(); });
  Connect(PrintButton.On().Click, [this](Control&) {
    main_.core.PrintZoom = Zoom();
    Window.Hide();
  });
  Connect(CancelButton.On().Click, [this](Control&) {
    main_.core.PrintZoom = 0;
    Window.Hide();
  });
}

// --- what it is shown for --------------------------------------------------------------------------------------------

void PrintPhotoForm::Refuse(const std::string& why, const std::string& title) {
  main_.host.dialogs.MsgBox(why, BoxIcon::Exclamation, BoxButtons::Ok, title);
  Window.Unload();
}

void PrintPhotoForm::GetZoom_Selected() {
  SamplePhotoPath = SelectedPhoto(main_.preview);
  if (SamplePhotoPath.empty()) {
    Refuse("No Photo Selected", "Can't Print Photo");
    return;
  }
  ShowFor("Print Selected Photo - " + ShownFileName(main_.host.files, SamplePhotoPath));
}

void PrintPhotoForm::GetZoom_Batch(BatchSource source) {
  const bool strip = source == BatchSource::FilmStrip;
  const int count = LoadedCount(main_, source);
  if (count == 0 || (!strip && main_.desk.OpenFolderIndex == 0)) {
    Refuse(strip ? "No photos in Film Strip" : "No Open Folder", CannotBatchPrint);
    return;
  }
  SamplePhotoPath.clear();
  for (int slot = 1; slot <= count && SamplePhotoPath.empty(); ++slot)
    SamplePhotoPath = LoadedPhoto(main_, source, slot);
  if (SamplePhotoPath.empty()) {
    Refuse("Unable to find a sample photo", CannotBatchPrint);
    return;
  }
  PrintButton.SetCaption("Print All " + std::to_string(PhotoList(main_, source).ListCount()) + " pics");
  ShowFor(std::string("Batch Print ") + (strip ? "[Film-Strip]" : "[Open-Folder]") + " - " +
          LocationCaption(main_, source));
}

void PrintPhotoForm::ShowFor(const std::string& caption) {
  Window.SetCaption(caption);
  main_.core.PrintZoom = 0;
  PrinterNameLabel.SetCaption(main_.host.printing.CurrentPrinterName());
  // A message of the loader lets events run: the form may be unloaded, or the program at its end.
  if (!LoadPictureFile(main_, SamplePhotoPath, PicSample, false) || main_.host.toolkit.Ended()) {
    Window.Unload();
    return;
  }
  MakeSmallSample();
  SampleInfo = InfoLine(main_, PicSample.Width(), PicSample.Height(), SamplePhotoPath);
  PrintHeaderCheckbox.SetValue(main_.core.PrintPhotoInfo ? 1 : 0);
  ArrangePageLayout();
  ZoomFactorBar.SetValue(FirstZoom);
  ZoomFactorBar.SetFocus();
  ShowDialog(Window, main_.Window);
  main_.core.PrintPhotoInfo = PrintHeaderCheckbox.Value() == 1;
}

// In the screen's own pixels, so that the preview is as sharp as the screen. A thin photo is changed in shape here: on
// the page it is stretched to its place, which has the photo's own shape.
void PrintPhotoForm::MakeSmallSample() {
  const double fineness = main_.host.toolkit.Fineness();
  const double width = SampleWidth * fineness;
  const double height = std::clamp(width * PicSample.Height() / PicSample.Width(), 1.0, MostSampleHeight * fineness);
  SamplePicSmall.Move(0, 0, width, height);
  SamplePicSmall.PaintPicture(PicSample.GetPicture(), 0, 0, SamplePicSmall.Width(), SamplePicSmall.Height());
  SamplePicSmall.SetPicture(SamplePicSmall.Image());
}

// --- the page --------------------------------------------------------------------------------------------------------

void PrintPhotoForm::ArrangePageLayout() {
  PageLongSideInches = ArrangePage({.Window = Window,
                                    .PaperTypeLabel = PaperTypeLabel,
                                    .Page = PreviewPicture1,
                                    .DpiLabel = DpiLabel,
                                    .SizeBar = ZoomFactorBar,
                                    .PrinterFrame = Frame1,
                                    .PrinterSetupButton = PrinterSetupButton,
                                    .PrintButton = PrintButton,
                                    .CancelButton = CancelButton,
                                    .PageTop = PageTop},
                                   main_.host.printing.Printer());
  PrintHeaderCheckbox.SetLeft(CancelButton.Left() + 5);
  PaintPageLayout(Zoom());
}

void PrintPhotoForm::PaintPageLayout(float zoom) {
  const auto ratio = static_cast<float>(static_cast<double>(PicSample.Width()) / PicSample.Height());
  PreviewPicture1.Cls();
  const PageRect photo = PlaceOnPage(static_cast<float>(PreviewPicture1.ScaleWidth()),
                                     static_cast<float>(PreviewPicture1.ScaleHeight()), zoom, ratio);
  if (photo.X < LeastLeft || photo.Y < LeastTop) {
    PrintHeaderCheckbox.SetValue(0);
    PrintHeaderCheckbox.SetEnabled(false);
  } else {
    PrintHeaderCheckbox.SetEnabled(true);
  }
  PreviewPicture1.PaintPicture(SamplePicSmall.GetPicture(), photo.X, photo.Y, photo.W, photo.H);
  if (PrintHeaderCheckbox.Value() == 1) PaintInfo(photo);
  ShowResolution(photo);
}

void PrintPhotoForm::PaintInfo(const PageRect& photo) {
  PictureBox& page = PreviewPicture1;
  page.Box(photo.X, photo.Y, photo.X + photo.W, photo.Y + photo.H, 0, false);
  page.SetFont({PageFont, LineSize, false});
  const auto printCentred = [&page](const std::string& line, double top) {
    page.PrintAt((page.ScaleWidth() - page.TextWidth(line)) / 2, top, line);
  };
  printCentred(SampleInfo, photo.Y - InfoAbove);
  printCentred(CompanyLine(main_), photo.Y + photo.H + CompanyBelow);
}

// What the photo has in each inch of its printed width.
void PrintPhotoForm::ShowResolution(const PageRect& photo) {
  const double inches = static_cast<double>(photo.W) / PreviewPicture1.ScaleWidth() * PageLongSideInches;
  DpiLabel.SetCaption(inches > 0 ? TrimmedStr(std::floor(PicSample.Width() / inches)) + " dpi" : "");
}

// --- its controls ----------------------------------------------------------------------------------------------------

float PrintPhotoForm::Zoom() const {
  return static_cast<float>(ZoomFactorBar.Value() / 100.0);
}

void PrintPhotoForm::ZoomChanged() {
  PaintPageLayout(Zoom());
  ZoomOptionOther.SetValue(true);
}

void PrintPhotoForm::ZoomOption_Click(OptionButton& option, int inches) {
  const double percent = std::floor(inches / static_cast<double>(PageLongSideInches) * 100);
  // A width that the slider does not reach leaves it where it is.
  ErrorsIgnored([&] { ZoomFactorBar.SetValue(percent); });
  // The slider's change has just chosen the other option.
  option.SetValue(true);
}

void PrintPhotoForm::PrinterSetupButton_Click() {
  PrinterSetupMenuItem_Click(main_);
  if (!Window.IsLoaded() || main_.host.toolkit.Ended()) return;
  ArrangePageLayout();
  PrinterNameLabel.SetCaption(main_.host.printing.CurrentPrinterName());
}

// --- asking ----------------------------------------------------------------------------------------------------------

namespace {

template <typename GetZoom>
void Ask(MainForm& main, const GetZoom& getZoom) {
  PrintPhotoForm form(main);
  const AtExit done([&form] { form.Window.Unload(); });
  form.Window.Load();
  // The load lets events run.
  if (!main.host.toolkit.Ended()) getZoom(form);
}

}  // namespace

void AskZoomOfSelected(MainForm& main) {
  Ask(main, [](PrintPhotoForm& form) { form.GetZoom_Selected(); });
}

void AskZoomOfBatch(MainForm& main, BatchSource source) {
  Ask(main, [source](PrintPhotoForm& form) { form.GetZoom_Batch(source); });
}

}  // namespace pixorra
