#include "printing/PrintProofForm.h"

#include <cmath>

#include "base/Definition.h"
#include "base/Dialog.h"
#include "pictures/PictureLoader.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/OneLine.h"
#include "platform/runtime/Text.h"
#include "platform/services/Files.h"
#include "platform/services/Printing.h"
#include "printing/PageLayout.h"
#include "printing/PageLines.h"
#include "printing/PrintUnits.h"
#include "printing/PrinterSetup.h"
#include "printing/ProofSums.h"
#include "window/DesktopState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr const char* DesignCaption = " Print Proof Sheet";

// Twips.
constexpr int PageLeft = 120;
constexpr int PageWidth = 3615;
constexpr int LabelHeight = 225;

constexpr int PageTop = 16;  // pixels

// Pixels: the column at the right of the page.
constexpr int ColumnWidth = 180;
constexpr int FrameTop = 6;
constexpr int FrameHeight = 46;
constexpr int FrameMargin = 10;
constexpr int SetupTop = 60;
constexpr int ButtonHeight = 28;
constexpr int PagesTop = 98;
constexpr int PageLabelWidth = 41;
constexpr int PageLabelStep = 5;  // ahead of the column
constexpr int PrintTop = 138;
constexpr int PrintInset = 18;  // at each side
constexpr int CancelTop = 184;
constexpr int ClientHeight = 228;

// Of the page's own drawing.
constexpr int TextTop = 2;
constexpr int TextMargin = 5;
constexpr int CellMargin = 10;
constexpr int CaptionRise = 8;

struct ShownSlots {
  const ControlArray<ImageBox>& Thumbnails;
  const ControlArray<Label>& Names;
  int Count = 0;

  // The next one after this one that holds a photo: those of photos that have gone are passed over. 0: there is none.
  // Raises NoSuchElement for one that is not there yet.
  int After(int slot) const {
    while (++slot <= Count) {
      if (!Thumbnails(slot).Tag().empty()) return slot;
    }
    return 0;
  }
};

ShownSlots SlotsOf(const MainForm& main, BatchSource source) {
  const int count = LoadedCount(main, source);
  if (source == BatchSource::FilmStrip) return {main.strip.SrcThumbnail, main.strip.SrcThumbName, count};
  return {main.desk.DestThumbnail, main.desk.DestThumbName, count};
}

}  // namespace

PrintProofForm::PrintProofForm(MainForm& main) : Window(main.host.toolkit, "PrintProofForm"), main_(main) {
  Define();
  PlaceControls();
  ConnectControls();
}

void PrintProofForm::Define() {
  Window.SetCaption(DesignCaption);
  PaperTypeLabel.SetCaption("Page Layout - Landscape only");
  PaperTypeLabel.SetShrinks(true);
  PagePreview.SetBackColor(PaperColour);
  PagePreview.SetAccessibleName("The photos on the page");
  DpiLabel.SetToolTipText("Resolution: Dots per Inch");
  DpiLabel.SetAlignment(Alignment::Right);
  ProofSizeBar.SetSlider(true);
  ProofSizeBar.SetMax(6);
  ProofSizeBar.SetMin(2);
  ProofSizeBar.SetLargeChange(2);
  ProofSizeBar.SetAccessibleName("Photos across the page");
  Label1.SetCaption("Adjust Proof Size");
  PageLabel.SetCaption("Page:");
  PageLabel.SetAlignment(Alignment::Center);
  PagesBox.SetAccessibleName("Page");
  Frame1.SetCaption("Current Printer");
  PrinterNameLabel.SetShortensInMiddle(true);
  PrinterSetupButton.SetCaption("Printer &Setup");
  PrintButton.SetCaption("&Print Now");
  PrintButton.SetBold(true);
  PrintButton.SetDefault(true);
  CancelButton.SetCaption("&Cancel");
  CancelButton.SetCancel(true);
  PicSample.SetVisible(false);
  Timer1.SetEnabled(false);
}

void PrintProofForm::PlaceControls() {
  Place(PaperTypeLabel, PageLeft, 0, 2415, LabelHeight);
  Place(PagePreview, PageLeft, PageTop * TwipsPerPixel, PageWidth, 2535);
  Place(DpiLabel, 0, 0, 825, LabelHeight);
  Place(ProofSizeBar, PageLeft, 2760, PageWidth, 255);
  Place(Label1, 960, 3045, 2400, LabelHeight);
  Frame1.Move(0, FrameTop, ColumnWidth, FrameHeight);
  PrinterNameLabel.Move(FrameMargin, 22, ColumnWidth - 2 * FrameMargin, 16);
  PrinterSetupButton.Move(0, SetupTop, ColumnWidth, ButtonHeight);
  PageLabel.Move(0, PagesTop + 5, PageLabelWidth, 16);
  PagesBox.Move(0, PagesTop, ColumnWidth + PageLabelStep - PageLabelWidth, 26);
  PrintButton.Move(0, PrintTop, ColumnWidth - 2 * PrintInset, ButtonHeight + 4);
  CancelButton.Move(0, CancelTop, ColumnWidth, ButtonHeight);
  Window.SetClientSize(Window.ScaleWidth(), ClientHeight);
}

void PrintProofForm::ConnectControls() {
  Connect(Window.On().Load, [this](Control&) {
    ProofPainting = false;
    PreparePrinter(main_.host);
  });
  Connect(Timer1.On().Timer, [this](Control&) {
    if (!ProofPainting) RepaintPage();
  });
  Connect(PagesBox.On().Click, [this](Control&) { RepaintPage(); });
  const auto resize = [this](Control&) {
    FillPagesBox();
    RepaintPage();
  };
  Connect(ProofSizeBar.On().Change, resize);
  Connect(ProofSizeBar.On().Scroll, resize);
  Connect(PrintButton.On().Click, [this](Control&) { Close(ProofSizeBar.Value()); });
  Connect(CancelButton.On().Click, [this](Control&) { Close(0); });
  Connect(PrinterSetupButton.On().Click, [this](Control&) { SetUpPrinter(); });
}

void PrintProofForm::Close(int size) {
  Window.Hide();
  ProofSizeChosen = size;
}

void PrintProofForm::SetUpPrinter() {
  const Watch<Form> alive(Window);
  PrinterSetupMenuItem_Click(main_);
  if (!alive || !Window.IsLoaded()) return;
  ArrangeProofLayout();
  ShowPrinterName();
}

void PrintProofForm::ShowPrinterName() {
  const std::string name = main_.host.printing.Printer().DeviceName();
  PrinterNameLabel.SetCaption(name);
  PrinterNameLabel.SetToolTipText(name);
}

ProofChoice PrintProofForm::GetProofSize(BatchSource source) {
  const AtExit unloaded([this] { Window.Unload(); });
  main_.host.printing.Printer().EndDoc();
  ProofSizeChosen = 0;
  source_ = source;
  Window.SetCaption(DesignCaption +
                    std::string(source == BatchSource::FilmStrip ? " [Film-Strip] - " : " [Open-Folder] - ") +
                    LocationCaption(main_, source));
  ShowPrinterName();
  const auto noSizes = [](int, int) { return std::vector<PixelSize>(); };
  if (LoadPictureToPaint(main_, PhotoAt(main_, source, 0).Path, PicSample, noSizes)) {
    ArrangeProofLayout();
    FillPagesBox();
    RepaintPage();
    ProofSizeBar.SetFocus();
    ShowDialog(Window, main_.Window);
  }
  const int chosen = PagesBox.ListIndex();
  return {chosen >= 0 ? PagesBox.ItemData(chosen) : 0, ProofSizeChosen};
}

void PrintProofForm::ArrangeProofLayout() {
  PageLongSideInches = ArrangePage({Window, PaperTypeLabel, PagePreview, DpiLabel, ProofSizeBar, Frame1,
                                    PrinterSetupButton, PrintButton, CancelButton, PageTop},
                                   main_.host.printing.Printer());
  PageLabel.SetLeft(PrintButton.Left() - 23);
  PagesBox.SetLeft(PageLabel.Left() + PageLabel.Width());
  RepaintPage();
}

void PrintProofForm::FillPagesBox() {
  const int pages = ProofPages(PhotoList(main_, source_).ListCount(), ProofSizeBar.Value());
  PagesBox.Clear();
  PagesBox.AddItem("All [" + TrimmedStr(pages) + "]");
  for (int page = 1; page <= pages; ++page) {
    PagesBox.AddItem(TrimmedStr(page));
    PagesBox.SetItemData(page, page);
  }
  PagesBox.Refresh();
  PagesBox.SetListIndex(0);
}

// What was drawn before is cleared: letters drawn upon themselves again and again would grow darker.
void PrintProofForm::RepaintPage() {
  PagePreview.Cls();
  PaintProofPreview();
}

void PrintProofForm::PaintProofPreview() {
  ProofPainting = true;
  const int cellHeight = CLng((PagePreview.ScaleHeight() - 13) / static_cast<double>(ProofSizeBar.Value()));
  const int cellWidth = ProofCellWidth(cellHeight);
  PaintHeader();
  // A slot that is not there yet, as the thumbnails are still being loaded, ends the grid. It is tried again with each
  // tick of the timer.
  ErrorsIgnored([&] { PaintCells(cellWidth, cellHeight); });
  // Deliberate: never switched off again while the form is open.
  Timer1.SetEnabled(true);
  ProofPainting = false;
  ShowResolution(cellWidth);
}

void PrintProofForm::PaintHeader() {
  const int right = PagePreview.ScaleWidth() - TextMargin;
  PagePreview.SetForeColor(0);
  PagePreview.SetFont({PageFont, 4, true});
  PagePreview.PrintAt(TextMargin, TextTop, OneLine(main_.host.files.ShownPath(PhotoList(main_, source_).Path())));
  // Deliberate: the entry "All" counts among the pages here, as the position in the list is what is shown.
  const std::string page = TrimmedStr(PagesBox.ListIndex()) + " of " + TrimmedStr(PagesBox.ListCount()) + " pages";
  PagePreview.PrintAt(right - PagePreview.TextWidth(page), TextTop, page);
  PagePreview.SetFont({PageFont, 2, false});
  const std::string company = CompanyLine(main_);
  PagePreview.PrintAt(right - PagePreview.TextWidth(company), PagePreview.ScaleHeight() - TextMargin, company);
}

// Raises NoSuchElement for a slot that is not there yet.
void PrintProofForm::PaintCells(int cellWidth, int cellHeight) {
  const int across = ProofSizeBar.Value();
  PagePreview.SetFont({PageFont, (10 - across) / 2.0, false});
  const ShownSlots slots = SlotsOf(main_, source_);
  int slot = slots.After(0);
  const int passed = PagesBox.ListIndex() >= 1 ? across * across * (PagesBox.ListIndex() - 1) : 0;
  for (int photo = 0; photo < passed && slot != 0; ++photo) slot = slots.After(slot);
  for (int row = 0; row < across; ++row) {
    for (int column = 0; column < across; ++column) {
      const Picture thumbnail = slot != 0 ? slots.Thumbnails(slot).GetPicture() : Picture();
      const std::string caption = slot != 0 ? OneLine(slots.Names(slot).Caption()) : " ";
      PaintCell(thumbnail, caption,
                {column * cellWidth + CellMargin, row * cellHeight + CellMargin, cellWidth, cellHeight});
      if (slot != 0) slot = slots.After(slot);
    }
  }
}

// Nothing: the cell is blank.
void PrintProofForm::PaintCell(const Picture& thumbnail, const std::string& caption, const Rect& at) {
  if (thumbnail.IsNothing()) {
    PagePreview.Box(at.Left - 5, at.Top - 5, at.Right(), at.Bottom(), PaperColour, true);
  } else {
    PagePreview.PaintPicture(thumbnail, at.Left, at.Top, at.Width - CellMargin, at.Height - CellMargin);
  }
  const double left = (at.Width - PagePreview.TextWidth(caption) - CellMargin) / 2 + at.Left;
  PagePreview.PrintAt(left, at.Bottom() - CaptionRise, caption);
}

// What a photo as large as the first one gets, printed across a whole cell.
void PrintProofForm::ShowResolution(int cellWidth) {
  const double inches = cellWidth / static_cast<double>(PagePreview.ScaleWidth()) * PageLongSideInches;
  DpiLabel.SetCaption(inches > 0 ? TrimmedStr(std::floor(PicSample.Width() / inches)) + " dpi" : "");
}

}  // namespace pixorra
