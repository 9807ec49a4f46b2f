#include "printing/ProofSheets.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "base/ShownNames.h"
#include "pictures/PaintPhoto.h"
#include "pictures/PictureLoader.h"
#include "pictures/Scratch.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/OneLine.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "platform/services/Printing.h"
#include "printing/PageLines.h"
#include "printing/PrintJob.h"
#include "printing/PrintProofForm.h"
#include "printing/PrintUnits.h"
#include "printing/ProofSums.h"
#include "utility/ConfirmForm.h"
#include "utility/RunPrintJob.h"
#include "window/CoreState.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"

namespace pixorra {

namespace {

constexpr const char* FailureTitle = "Can't Print Proof Sheets";
constexpr double MostPixels = 16e6;  // of a photo as it is rendered

// Twips.
constexpr int HeadHeight = 600;  // above the grid
constexpr int FootHeight = 100;
constexpr int CellMargin = 600;
constexpr int CaptionDrop = 110;  // below the picture
constexpr int TextMargin = 400;
constexpr int PageHeaderTop = 150;
constexpr int CompanyRise = 300;

// The same shape, of no more pixels than are rendered.
PixelSize Limited(PixelSize size) {
  const double scale = std::min(1.0, std::sqrt(MostPixels / (static_cast<double>(size.Width) * size.Height)));
  return {std::max(1, static_cast<int>(size.Width * scale)), std::max(1, static_cast<int>(size.Height * scale))};
}

class ProofSheets {
 public:
  ProofSheets(MainForm& main, BatchSource source, ProofChoice choice)
      : main_(main),
        printer_(main.host.printing.Printer()),
        source_(source),
        across_(choice.Size),
        page_(choice.Page) {}

  // What kept the sheets from being printed, if anything did: whoever asked for them is to be told.
  std::optional<RuntimeError> Run();

 private:
  void TakePhotos();
  void MeasureFirstPhoto();
  void DividePage();
  void PrintSheets();
  void PrintHeader();
  void PrintCells();
  void PrintCell(int row, int column);
  Picture RenderPhoto(const std::string& path);
  PixelSize RenderSize() const;
  bool IsWanted() const { return page_ == 0 || page_ == sheet_; }
  std::string Progress() const;

  MainForm& main_;
  PrintSurface& printer_;
  const BatchSource source_;
  const int across_;  // photos across and down
  const int page_;    // the one that is asked for; 0 for all
  // The list is taken down at the start: while the sheets are printed, the window may come to show another folder.
  std::string folder_;
  std::vector<ListedPhoto> photos_;
  std::optional<PixelSize> first_;  // the size of the first photo
  double pageWidth_ = 0;            // twips, as the next three
  double pageHeight_ = 0;
  int cellWidth_ = 0;
  int cellHeight_ = 0;
  int sheet_ = 1;
  int photo_ = 0;  // how many have been come to
};

void ProofSheets::TakePhotos() {
  const FileListBox& list = PhotoList(main_, source_);
  folder_ = list.Path();
  for (int i = 0; i < list.ListCount(); ++i) photos_.push_back(PhotoAt(main_, source_, i));
}

// No photo of the job is rendered finer than the first one is. Where that cannot be loaded there is no such limit.
void ProofSheets::MeasureFirstPhoto() {
  if (photos_.empty()) return;
  const Scratch<PictureBox> measured(main_.pictures.TempPic, NextScratchIndex(main_.pictures));
  measured->SetAutoSize(true);
  const auto noSizes = [](int, int) { return std::vector<PixelSize>(); };
  if (LoadPictureToPaint(main_, photos_.front().Path, *measured, noSizes))
    first_ = {measured->ScaleWidth(), measured->ScaleHeight()};
}

std::optional<RuntimeError> ProofSheets::Run() {
  main_.Window.SetMousePointer(pointer::Hourglass);
  const AtExit done([this] {
    if (main_.host.toolkit.Ended()) return;
    ErrorsIgnored([this] { ConfirmForm::Of(main_).Window.Unload(); });
    main_.Window.SetMousePointer(pointer::Default);
    ErrorsIgnored([this] { printer_.SetOrientation(Portrait); });
  });
  main_.core.PrintAborted = false;
  try {
    TakePhotos();
    MeasureFirstPhoto();
    DividePage();
    PrintSheets();
    if (main_.host.toolkit.Ended()) {
      printer_.KillDoc();
    } else {
      printer_.EndDoc();
    }
  } catch (const RuntimeError& failure) {
    ErrorsIgnored([this] { printer_.KillDoc(); });
    return failure;
  } catch (const std::bad_alloc&) {
    ErrorsIgnored([this] { printer_.KillDoc(); });
    return RuntimeError(error::OutOfMemory);
  }
  return {};
}

void ProofSheets::DividePage() {
  pageWidth_ = printer_.ScaleWidth();
  pageHeight_ = printer_.ScaleHeight();
  cellHeight_ = CLng((pageHeight_ - FootHeight - HeadHeight) / across_);
  cellWidth_ = ProofCellWidth(cellHeight_);
}

// Deliberate: a new page after the last sheet too.
void ProofSheets::PrintSheets() {
  const int count = static_cast<int>(photos_.size());
  for (; photo_ < count && !IsPrintingStopped(main_); ++sheet_) {
    if (IsWanted()) PrintHeader();
    PrintCells();
    if (IsWanted() && !main_.host.toolkit.Ended()) printer_.NewPage();
  }
}

void ProofSheets::PrintHeader() {
  const auto printAtRight = [this](const std::string& text, double top) {
    printer_.SetCurrentX(pageWidth_ - printer_.TextWidth(text) - TextMargin);
    printer_.SetCurrentY(top);
    printer_.Print(text);
  };
  printer_.SetForeColor(0);
  printer_.SetFontName(PageFont);
  printer_.SetFontSize(14);
  printer_.SetFontBold(true);
  printer_.SetCurrentX(TextMargin);
  printer_.SetCurrentY(PageHeaderTop);
  printer_.Print(OneLine(main_.host.files.ShownPath(folder_)));
  // Deliberate: the number has the blank of a sign ahead of it.
  printAtRight(Str(sheet_) + " of " + TrimmedStr(ProofPages(static_cast<int>(photos_.size()), across_)) + " pages",
               PageHeaderTop);
  printer_.SetFontBold(false);
  printer_.SetFontSize(8);
  printAtRight(CompanyLine(main_), pageHeight_ - CompanyRise);
  printer_.SetFontSize(14 - across_);
}

void ProofSheets::PrintCells() {
  for (int row = 0; row < across_; ++row) {
    for (int column = 0; column < across_; ++column) {
      ++photo_;
      if (!IsWanted()) continue;
      if (photo_ > static_cast<int>(photos_.size()) || IsPrintingStopped(main_)) return;
      PrintCell(row, column);
    }
  }
}

void ProofSheets::PrintCell(int row, int column) {
  const ListedPhoto& photo = photos_[static_cast<std::size_t>(photo_) - 1];
  const int x = column * cellWidth_ + CellMargin;
  const int y = row * cellHeight_ + HeadHeight;
  main_.host.toolkit.DoEvents();
  if (main_.host.toolkit.Ended()) return;
  ConfirmForm::Of(main_).ConfirmPrint(Progress());
  // What goes wrong with one photo leaves its cell empty, and the others are printed all the same.
  ErrorsIgnored([&] {
    const Picture picture = RenderPhoto(photo.Path);
    if (picture.IsNothing()) return;
    printer_.PaintPicture(picture, x, y, cellWidth_ - CellMargin, cellHeight_ - CellMargin, 0, 0,
                          picture.Width() * TwipsPerPixel, picture.Height() * TwipsPerPixel);
  });
  ErrorsIgnored([&] {
    const std::string caption = OneLine(ShownFileName(main_.host.files, photo.Path));
    printer_.SetCurrentX((cellWidth_ - printer_.TextWidth(caption) - CellMargin) / 2 + x);
    printer_.SetCurrentY(y + cellHeight_ - CellMargin + CaptionDrop);
    printer_.Print(caption);
  });
}

std::string ProofSheets::Progress() const {
  const std::string number = "Now Printing .. " + TrimmedStr(photo_);
  return page_ != 0 ? number : number + "/" + TrimmedStr(static_cast<double>(photos_.size()));
}

// Nothing for a photo that cannot be shown.
Picture ProofSheets::RenderPhoto(const std::string& path) {
  const Scratch<ImageBox> cell(main_.pictures.TempImage, NextScratchIndex(main_.pictures));
  const PixelSize size = RenderSize();
  cell->SetWidth(size.Width);
  cell->SetHeight(size.Height);
  const bool painted = PaintImage(main_, path, *cell, PaperColour, PhotoDecode::Reduced).ok;
  return painted ? cell->GetPicture() : Picture();
}

PixelSize ProofSheets::RenderSize() const {
  PixelSize size{1600, 1200};
  switch (across_) {
    case 2:
      size = {2200, 1650};
      break;
    case 4:
      size = {1200, 900};
      break;
    case 5:
      size = {800, 600};
      break;
    case 6:
      size = {600, 450};
      break;
    default:
      break;
  }
  // Deliberate: the first photo's shape as well, so that an upright one that is smaller than this widens all photos.
  const bool isFiner = first_ && (size.Width > first_->Width || size.Height > first_->Height);
  return isFiner ? Limited(*first_) : size;
}

ProofChoice AskForProofs(MainForm& main, BatchSource source) {
  PrintProofForm form(main);
  form.Window.Load();
  return form.GetProofSize(source);
}

void TellFailure(MainForm& main, const RuntimeError& failure) {
  main.host.dialogs.MsgBox("The proof sheets could not be printed.\r\n" + failure.Description(), BoxIcon::Exclamation,
                           BoxButtons::Ok, FailureTitle);
}

}  // namespace

void PrintProofSheets(MainForm& main, BatchSource source) {
  RunPrintJob(main, [&main, source] {
    const ProofChoice choice = AskForProofs(main, source);
    if (choice.Size == 0 || main.host.toolkit.Ended()) return;
    const std::string folder = PhotoList(main, source).Path();
    main.host.printing.Printer().SetDocumentName("Proof sheets of " + ShownFolderName(main.host.files, folder));
    if (!BeginDocument(main)) return;
    const std::optional<RuntimeError> failure = ProofSheets(main, source, choice).Run();
    if (failure) TellFailure(main, *failure);
  });
}

void PrintProofOpenFolderMenuItem_Click(MainForm& main) {
  if (HasOpenFolder(main, FailureTitle)) PrintProofSheets(main, BatchSource::OpenFolder);
}

}  // namespace pixorra
