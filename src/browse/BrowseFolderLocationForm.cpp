// The browser's window: where its controls lie, how it opens and closes, and the list of a folder's photos.
#include "browse/BrowseFolderLocationForm.h"

#include <algorithm>

#include "base/Definition.h"
#include "base/Routines.h"
#include "base/ShownNames.h"
#include "browse/TreePlaces.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Format.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "platform/services/Places.h"
#include "preview/FullSizePreview.h"
#include "window/CoreState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/ModelessForms.h"
#include "window/PreviewState.h"
#include "window/ThumbnailGeometry.h"

namespace pixorra {

namespace {

constexpr const char* Running = "RUNNING";
constexpr const char* NoPattern = "$";  // matches nothing

// Pixels.
constexpr int Margin = 12;
constexpr int FirstWidth = 680;
constexpr int FirstHeight = 460;
constexpr int LeastWidth = 560;
constexpr int LeastHeight = 300;
constexpr int LineHeight = 18;
constexpr int BoxHeight = 26;
constexpr int ButtonHeight = 28;
constexpr int ButtonWidth = 96;
constexpr int WideButtonWidth = 148;
constexpr int SizeColumn = 72;

}  // namespace

void ShowBrowser(MainForm& main, BrowseMode mode) {
  auto& browser = main.modeless.Get<BrowseFolderLocationForm>(main);
  if (browser.IsRunning()) {
    main.host.dialogs.Beep();
    return;
  }
  switch (mode) {
    case BrowseMode::Camera:
      browser.DisplayDialogCamera();
      break;
    case BrowseMode::FilmStrip:
      browser.DisplayDialogSrc();
      break;
    case BrowseMode::Show:
      browser.DisplayDialogDest();
      break;
  }
}

void ShowBrowserAt(MainForm& main, const std::string& folder) {
  auto& browser = main.modeless.Get<BrowseFolderLocationForm>(main);
  if (browser.IsRunning()) browser.Window.Unload();
  browser.DisplayDialogSrc(folder);
}

BrowseFolderLocationForm::BrowseFolderLocationForm(MainForm& main)
    : main_(main),
      Window(main.host.toolkit, "BrowseFolderLocationForm"),
      File1(Window, "File1", main.host.files),
      DirTree(main.host, PicDirTree),
      glance_(main, File1, PicPreview, PreviewName) {
  Window.SetSizable(true);
  Window.SetClientSize(FirstWidth, FirstHeight);
  PreviousList.SetEditable(true);
  PreviousList.SetAccessibleName("Folder");
  FileNamesHeader.SetCaption("Picture Files");
  PicCount.SetAlignment(Alignment::Right);
  MyFiles.SetColumns({{0, Alignment::Left}, {SizeColumn, Alignment::Right}});
  MyFiles.SetAccessibleName("Picture Files");
  PicPreview.SetToolTipText("Right-Click to display Full-Size (Space in the list)");
  Connect(PicPreview.On().SpokenName, [this](const Control&) {
    if (MyFiles.ListIndex() < 0) return std::string("No picture is selected");
    return std::string(glance_.IsAwaited() ? "The selected picture is being loaded" : "The selected picture");
  });
  PreviewName.SetShortensInMiddle(true);
  CreateButton.SetCaption("Create &New Folder");
  SelectButton.SetDefault(true);
  CancelButton.SetCaption("Cancel");
  CancelButton.SetCancel(true);
  HelpButton.SetCaption("&Help");
  ArrangeControls();
  ConnectButtons();
  ConnectLists();
}

void BrowseFolderLocationForm::ConnectButtons() {
  Connect(Window.On().Resize, [this](Control&) { ArrangeControls(); });
  Connect(Window.On().QueryUnload, [this](Control&) { Closed(); });
  Connect(CreateButton.On().Click, [this](Control&) { CreateButton_Click(); });
  Connect(SelectButton.On().Click, [this](Control&) { SelectButton_Click(); });
  Connect(CancelButton.On().Click, [this](Control&) { Close(); });
  Connect(HelpButton.On().Click, [this](Control&) { HelpButton_Click(); });
}

void BrowseFolderLocationForm::ConnectLists() {
  Connect(Timer1.On().Timer, [this](Control&) {
    Timer1.SetEnabled(false);
    DirTree.MyDirTree_SetPath(startPath_);
  });
  DirTree.MyDirTree_SelectedPathChanged = [this](const std::string& path) { SelectedPathChanged(path); };
  Connect(File1.On().PathChange, [this](Control&) { File1_PathChange(); });
  Connect(MyFiles.On().Click, [this](Control&) { MyFiles_Click(); });
  Connect(MyFiles.On().KeyDown, [this](Control&, int& code, int shift) {
    if (code != key::Space || shift != shift::None) return;
    code = 0;
    PicPreview_MouseDown(button::Right);
  });
  Connect(PicPreview.On().MouseDown, [this](Control&, const MouseArgs& mouse) { PicPreview_MouseDown(mouse.Button); });
  Connect(PreviousList.On().Click, [this](Control&) {
    const auto chosen = static_cast<std::size_t>(PreviousList.ListIndex());
    if (chosen < previous_.size()) GoTo(previous_[chosen]);
  });
  Connect(PreviousList.On().KeyDown, [this](Control&, int& code, int) {
    if (code != key::Return) return;
    code = 0;
    GoTo(ProgramPathOf(PreviousList.Text()));
  });
}

// The tree has one half of the width and the list the other; both take what is left of the height.
void BrowseFolderLocationForm::ArrangeControls() {
  const int width = std::max(LeastWidth, Window.ScaleWidth());
  const int height = std::max(LeastHeight, Window.ScaleHeight());
  const int half = (width - 3 * Margin) / 2;
  const int right = 2 * Margin + half;
  const int top = 2 * Margin + BoxHeight;
  const int buttons = height - Margin - ButtonHeight;
  PreviousList.Move(Margin, Margin, width - 2 * Margin, BoxHeight);
  PicDirTree.Move(Margin, top, half, buttons - Margin - top);
  DirTree.FitToHost();
  FileNamesHeader.Move(right, top, half / 2, LineHeight);
  PicCount.Move(right + half / 2, top, half - half / 2, LineHeight);
  const int glance = buttons - Margin - ThumbnailHeight;
  const int list = top + LineHeight + 4;
  MyFiles.Move(right, list, half, glance - Margin - list);
  PicPreview.Move(right, glance);
  PreviewName.Move(right + ThumbnailWidth + Margin, glance, half - ThumbnailWidth - Margin, LineHeight);
  CreateButton.Move(Margin, buttons, WideButtonWidth, ButtonHeight);
  HelpButton.Move(width - Margin - ButtonWidth, buttons, ButtonWidth, ButtonHeight);
  CancelButton.Move(HelpButton.Left() - Margin - ButtonWidth, buttons, ButtonWidth, ButtonHeight);
  SelectButton.Move(CancelButton.Left() - Margin - WideButtonWidth, buttons, WideButtonWidth, ButtonHeight);
}

// --- opening and closing ---------------------------------------------------------------------------------------------

void BrowseFolderLocationForm::DisplayDialogCamera() {
  Open(BrowseMode::Camera, " Set Camera Location", "Set Camera Location");
}

void BrowseFolderLocationForm::DisplayDialogSrc(const std::string& at) {
  Open(BrowseMode::FilmStrip, " Select a Film Strip", "Select Film Strip", at);
}

void BrowseFolderLocationForm::DisplayDialogDest() {
  Open(BrowseMode::Show, "Show a Folder", "Show Folder");
}

bool BrowseFolderLocationForm::IsRunning() const {
  return Window.Tag() == Running;
}

void BrowseFolderLocationForm::Open(BrowseMode mode, const char* caption, const char* selectCaption,
                                    const std::string& at) {
  Window.SetTag(Running);
  main_.preview.bPreviewNoButtons = true;
  Window.SetCaption(caption);
  SelectButton.SetCaption(selectCaption);
  CreateButton.SetVisible(mode == BrowseMode::Show);
  // The size of the last time is kept, and the place where the user left it.
  if (!std::exchange(placed_, true)) Window.CentreOn(&main_.Window);
  MyFiles.Clear();
  PicCount.SetCaption("Empty");
  ShowLogo();
  // Until the start path has answered, the program's own folder is the choice: it is surely there.
  const std::string own = main_.host.places.ProgramFolder();
  File1.SetListing(OrElse(own, [&] { return main_.host.files.FolderPath(own); }), main_.core.PicturePattern, {});
  startPath_ = at.empty() ? StartPath() : at;
  FillPreviousList();
  Window.ShowOwned(&main_.Window);
  ReadFolder(startPath_);
  Timer1.SetEnabled(true);
  DirTree.MyDirTree_Create();
}

// Deliberate: before the first film strip the list's path is the root of the drive, where nobody has photos. The
// browser opens at the folder last used, or at home.
std::string BrowseFolderLocationForm::StartPath() const {
  const std::string path = main_.strip.SrcFileList.Path();
  if (!main_.strip.NoFilmStrip || !IsRootPath(path)) return path;
  const ComboBox& previous = main_.strip.PreviousList;
  if (previous.ListCount() > 0) return previous.List(0);
  const std::string home = main_.host.places.HomeFolder();
  return home.empty() ? path : home;
}

void BrowseFolderLocationForm::FillPreviousList() {
  PreviousList.Clear();
  previous_.clear();
  for (int i = 0; i < main_.strip.PreviousList.ListCount(); ++i) {
    previous_.push_back(main_.strip.PreviousList.List(i));
    PreviousList.AddItem(main_.host.files.ShownPath(previous_.back()));
  }
  PreviousList.SetText(main_.host.files.ShownPath(startPath_));
}

void BrowseFolderLocationForm::Close() {
  Window.Unload();
}

void BrowseFolderLocationForm::Closed() {
  Window.SetTag("");
  Timer1.SetEnabled(false);
  DirTree.MyDirTree_Destroy();
  listing_.reset();
  finding_.reset();
  reading_.clear();
  whenListed_ = {};
  glance_.Stop();
  main_.preview.bPreviewNoButtons = false;
}

// --- the folder's photos ---------------------------------------------------------------------------------------------

void BrowseFolderLocationForm::SelectedPathChanged(const std::string& path) {
  if (path.empty()) {
    listing_.reset();
    reading_.clear();
    whenListed_ = {};
    ShowNoFolder();
  } else if (listing_ == nullptr && path == File1.Path() && File1.Pattern() != NoPattern) {
    if (MyFiles.ListCount() > 0) MyFiles.SetListIndex(0);
  } else if (path != reading_) {
    whenListed_ = {};
    ReadFolder(path);
  }
}

// A folder of a network, or a sleeping disk, takes its time: the list follows when it answers.
void BrowseFolderLocationForm::ReadFolder(const std::string& path) {
  reading_ = path;
  listing_ = main_.host.folderReader.ReadFiles(path, main_.core.PicturePattern,
                                               [this](const FolderReader::Answer& answer) { Listed(answer); });
}

void BrowseFolderLocationForm::Listed(const FolderReader::Answer& answer) {
  const auto done = std::move(listing_);
  const std::string path = std::exchange(reading_, {});
  const std::function<void()> action = std::exchange(whenListed_, {});
  if (answer.Error != error::None || UCase(answer.Path) != UCase(path)) {
    ShowNoFolder();
    if (action) main_.host.dialogs.Beep();
    return;
  }
  lengths_ = answer.Lengths;
  const bool moved = File1.Path() != answer.Path;
  File1.SetListing(answer.Path, main_.core.PicturePattern, answer.Names);
  if (!moved) File1_PathChange();
  if (MyFiles.ListCount() > 0) MyFiles.SetListIndex(0);
  if (action && IsRunning()) action();
}

// The place is no folder whose photos can be listed. The choice stays the last one that was.
void BrowseFolderLocationForm::ShowNoFolder() {
  File1.SetListing(File1.Path(), NoPattern, {});
  MyFiles.Clear();
  PicCount.SetCaption("Empty");
  ShowLogo();
}

void BrowseFolderLocationForm::File1_PathChange() {
  const int count = File1.ListCount();
  PicCount.SetCaption(count == 0 ? "Empty" : TrimmedStr(count) + " pics");
  std::vector<std::string> names;
  std::size_t longest = 0;
  for (int i = 0; i < count; ++i) {
    names.push_back(ShownNameIn(main_.host, File1.Path(), File1.List(i)));
    longest = std::max(longest, CharacterCount(names.back()));
  }
  MyFiles.Clear();
  for (int i = 0; i < count; ++i) {
    const std::string& name = names[static_cast<std::size_t>(i)];
    const auto length =
        static_cast<std::size_t>(i) < lengths_.size() ? lengths_[static_cast<std::size_t>(i)] : std::nullopt;
    MyFiles.AddItem(name + std::string(longest - CharacterCount(name), ' ') + '\t' + FormatPhotoSize(length));
  }
  ShowLogo();
  PreviousList.SetText(main_.host.files.ShownPath(File1.Path()));
}

void BrowseFolderLocationForm::ShowLogo() {
  glance_.Stop();
  PicPreview.SetStretch(false);
  PicPreview.SetPicture(Drawing(main_.host, "Logo", ThumbnailWidth, ThumbnailHeight));
  PreviewName.SetCaption("");
}

void BrowseFolderLocationForm::MyFiles_Click() {
  const int index = MyFiles.ListIndex();
  if (index < 0 || index >= File1.ListCount()) {
    PicCount.SetCaption("Empty");
    return;
  }
  PicCount.SetCaption(TrimmedStr(index + 1) + " of " + TrimmedStr(File1.ListCount()) + " pics");
  glance_.Show(index);
}

// The thumbnail that is shown is the selected file's: one that is still awaited has no name yet.
void BrowseFolderLocationForm::PicPreview_MouseDown(int mouseButton) {
  const int index = MyFiles.ListIndex();
  if (mouseButton != button::Right || PreviewName.Caption().empty()) return;
  if (index >= 0 && index < File1.ListCount()) DisplayFullSizePreview(main_, File1.FullPath(index));
}

std::string FormatPhotoSize(std::optional<std::int64_t> length) {
  if (!length) return "??";
  const std::int64_t k = *length / 1024;
  if (k < 1001) return FormatText(std::to_string(k), "@@@") + "Kb";
  return FormatText(FormatNumber(static_cast<double>(k) / 1000, "0.0"), "@@@@") + "Mb";
}

// --- the list of earlier folders -------------------------------------------------------------------------------------

std::string BrowseFolderLocationForm::ProgramPathOf(const std::string& typed) const {
  std::string path = Trim(typed);
  const std::string home = main_.host.places.HomeFolder();
  const bool fromHome = path == "~" || path.starts_with("~/") || path.starts_with("~\\");
  if (fromHome && !home.empty()) path = main_.host.files.ShownPath(home) + path.substr(1);
  std::string program = main_.host.files.ProgramPath(path);
  // Both spellings may come together in what was typed after the home folder.
  std::replace(program.begin(), program.end(), '/', '\\');
  return program;
}

// A beep where there is no such folder; what was typed is left as it is.
void BrowseFolderLocationForm::GoTo(const std::string& path) {
  finding_ = main_.host.folderReader.FindFolder(path, [this](const FolderReader::Answer& answer) {
    const auto done = std::move(finding_);
    if (answer.Error != error::None) {
      whenListed_ = {};
      main_.host.dialogs.Beep();
      return;
    }
    ReadFolder(answer.Path);
    DirTree.MyDirTree_SetPath(answer.Path);
    // Where the folder stays the same nothing else brings its text back.
    PreviousList.SetText(main_.host.files.ShownPath(answer.Path));
  });
}

}  // namespace pixorra
