#include "printing/PrintPhotos.h"

#include <functional>
#include <string>

#include "base/ShownNames.h"
#include "pictures/PictureLoader.h"
#include "pictures/Scratch.h"
#include "platform/controls/FileListBox.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/AtExit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Printing.h"
#include "printing/PageLines.h"
#include "printing/PageSums.h"
#include "printing/PrintJob.h"
#include "printing/PrintPhotoForm.h"
#include "printing/PrintUnits.h"
#include "utility/ConfirmForm.h"
#include "utility/RunPrintJob.h"
#include "window/CoreState.h"
#include "window/MainForm.h"
#include "window/PreviewState.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

namespace {

constexpr double Gap = 110;      // twips, between the photo and each line of text; also the outline's width
constexpr double InfoSize = 12;  // points
constexpr double CompanySize = 8;
constexpr Colour Black = 0;

// The elements that the photos of one job are loaded into, one after the other: memory has one of them at a time.
class JobElements {
 public:
  explicit JobElements(PicturesState& pictures)
      : index_(NextScratchIndex(pictures)), photo_(pictures.TempPic, index_), image_(pictures.TempImage, index_) {
    photo_->SetAutoSize(true);
    // What a page shows where its photo cannot be loaded, and none was before it.
    photo_->SetBackColor(PaperColour);
    photo_->Move(0, 0, ThumbnailWidth, ThumbnailHeight);
  }
  PictureBox& Photo() const { return *photo_; }

 private:
  int index_;
  Scratch<PictureBox> photo_;
  Scratch<ImageBox> image_;
};

void PrintCentred(PrintSurface& printer, double size, const std::string& line,
                  const std::function<double(double height)>& top) {
  printer.SetFontName(PageFont);
  printer.SetFontSize(size);
  printer.SetFontBold(false);
  printer.SetCurrentX((printer.ScaleWidth() - printer.TextWidth(line)) / 2);
  printer.SetCurrentY(top(printer.TextHeight(line)));
  printer.Print(line);
}

void PrintInfo(MainForm& main, PrintSurface& printer, const PageRect& place, const PictureBox& photo,
               const std::string& path) {
  printer.SetForeColor(Black);
  printer.SetDrawWidth(CInt(Gap / printer.TwipsPerPixelX()));
  printer.SetFillStyle(HollowFill);
  printer.Box(place.X, place.Y, place.X + place.W, place.Y + place.H, Black);
  PrintCentred(printer, InfoSize, InfoLine(main, photo.Width(), photo.Height(), path),
               [&](double height) { return place.Y - Gap - height; });
  PrintCentred(printer, CompanySize, CompanyLine(main), [&](double) { return place.Y + place.H + Gap; });
}

// One page, without its end. Raises what the printer raises, and Overflow for a photo that has no shape.
void ComposePage(MainForm& main, PictureBox& photo, const std::string& path) {
  PrintSurface& printer = main.host.printing.Printer();
  const auto ratio = static_cast<float>(static_cast<double>(photo.Width()) / photo.Height());
  PageRect place = PlaceOnPage(static_cast<float>(printer.ScaleWidth()), static_cast<float>(printer.ScaleHeight()),
                               main.core.PrintZoom, ratio);
  const PageRect part =
      CutAtPageEdges(place, CLng(photo.Width() * TwipsPerPixel), CLng(photo.Height() * TwipsPerPixel));
  // Ahead of the picture, which covers the inner half of the outline.
  if (main.core.PrintPhotoInfo) PrintInfo(main, printer, place, photo, path);
  printer.PaintPicture(photo.Image(), place.X, place.Y, place.W, place.H, part.X, part.Y, part.W, part.H);
}

void UnloadNotice(MainForm& main) {
  ErrorsIgnored([&] { ConfirmForm::Of(main).Window.Unload(); });
}

// Composes the document and ends it. Deliberate: after an error the document is not ended, the pointer stays and the
// printer keeps its orientation; the next dialog sets that right.
void RunJob(MainForm& main, const std::function<void(PictureBox& photo)>& compose) {
  {
    const JobElements elements(main.pictures);
    main.Window.SetMousePointer(pointer::Hourglass);
    const auto tell = [&main](const RuntimeError& failure) {
      main.host.dialogs.MsgBox(Str(failure.Number()) + "  " + failure.Description(), BoxIcon::None, BoxButtons::Ok, "");
    };
    try {
      compose(elements.Photo());
      PrintSurface& printer = main.host.printing.Printer();
      if (main.host.toolkit.Ended()) printer.KillDoc();
      printer.EndDoc();
      main.Window.SetMousePointer(pointer::Default);
      printer.SetOrientation(Portrait);
    } catch (const RuntimeError& failure) {
      tell(failure);
    } catch (const std::bad_alloc&) {
      tell(RuntimeError(error::OutOfMemory));
    }
  }
  UnloadNotice(main);
}

// False: cancelled.
bool Asked(MainForm& main, const std::function<void()>& askZoom) {
  {
    const AtExit done([&main] { main.Window.SetMousePointer(pointer::Default); });
    main.Window.SetMousePointer(pointer::Hourglass);
    askZoom();
  }
  return main.core.PrintZoom != 0 && !main.host.toolkit.Ended();
}

bool BeginNamed(MainForm& main, const std::string& name) {
  main.host.printing.Printer().SetDocumentName(name.empty() ? ApplicationTitle : name);
  return BeginDocument(main);
}

void PrintSelected(MainForm& main) {
  if (!Asked(main, [&main] { AskZoomOfSelected(main); })) return;
  if (!BeginNamed(main, ShownFileName(main.host.files, SelectedPhoto(main.preview)))) return;
  ConfirmForm::Of(main).ConfirmPrint("Printing Photo");
  RunJob(main, [&main](PictureBox& photo) {
    const std::string path = SelectedPhoto(main.preview);
    LoadPictureFile(main, path, photo, false);
    ComposePage(main, photo, path);
  });
}

void PrintBatch(MainForm& main, BatchSource source) {
  if (!Asked(main, [&main, source] { AskZoomOfBatch(main, source); })) return;
  if (!BeginNamed(main, ShownFolderName(main.host.files, PhotoList(main, source).Path()))) return;
  const int count = PhotoList(main, source).ListCount();
  main.core.PrintAborted = false;
  RunJob(main, [&main, source, count](PictureBox& photo) {
    for (int i = 0; i < count && !IsPrintingStopped(main); ++i) {
      main.host.toolkit.DoEvents();
      if (main.host.toolkit.Ended()) return;
      ConfirmForm::Of(main).ConfirmPrint("Now Printing .. " + std::to_string(i + 1) + "/" + std::to_string(count));
      // Deliberate: the list as it is now. Where photos have left it meanwhile, the last ones have no name.
      const std::string path = PhotoAt(main, source, i).Path;
      LoadPictureFile(main, path, photo, false);
      ComposePage(main, photo, path);
      main.host.printing.Printer().NewPage();
    }
  });
}

}  // namespace

void PrintSelectedPhoto(MainForm& main) {
  RunPrintJob(main, [&main] { PrintSelected(main); });
}

void PrintPhotoBatch(MainForm& main, BatchSource source) {
  RunPrintJob(main, [&main, source] { PrintBatch(main, source); });
}

void BatchPrintOpenFolderMenuItem_Click(MainForm& main) {
  if (HasOpenFolder(main, "Can't Batch Print Individual Photos")) PrintPhotoBatch(main, BatchSource::OpenFolder);
}

}  // namespace pixorra
