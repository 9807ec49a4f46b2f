#include "drop/UndoLastDrop.h"

#include <algorithm>
#include <memory>

#include "base/Bars.h"
#include "base/Routines.h"
#include "desktop/FolderSlots.h"
#include "desktop/OpenFolderView.h"
#include "desktop/ShownFolders.h"
#include "drop/DragGestures.h"
#include "drop/Duplicates.h"
#include "filmstrip/Scrolling.h"
#include "filmstrip/Views.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Errors.h"
#include "platform/runtime/Numbers.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "preview/PreviewPane.h"
#include "window/CoreState.h"
#include "window/DesktopState.h"
#include "window/DropState.h"
#include "window/FilmStripState.h"
#include "window/MainForm.h"
#include "window/PicturesState.h"
#include "window/PreviewState.h"

namespace pixorra {

namespace {

constexpr const char* AnotherFile = "This is no longer the file that was made, and it stays.";
constexpr const char* PhotoGone = "The photo that was dropped is no longer where it was, so the copy stays.";
constexpr const char* StillMarked = "The photo's mark could not be taken off, so the copy stays.";

// What is undone, as it was when the undo began: what runs meanwhile may remember another drop.
struct LastDrop {
  explicit LastDrop(const DropState& drop)
      : SrcIndex(drop.LastDropSrcIndex),
        Folder(drop.LastDropFolder),
        File(drop.LastDropFile),
        Stamp(drop.LastDropStamp),
        Photo(drop.LastDropPhoto),
        PhotoStamp(drop.LastDropPhotoStamp),
        Source(drop.LastDropSource) {}

  int SrcIndex;
  int Folder;
  std::string File;
  FileStamp Stamp;
  std::string Photo;
  FileStamp PhotoStamp;
  Watch<ImageBox> Source;
};

// Where the folder has been renamed since, the file has another path.
void FollowFolder(MainForm& main, LastDrop& drop) {
  if (!IsSlotInUse(main.desk, drop.Folder)) return;
  const std::string there = JoinPath(main.desk.DestFolderFiles(drop.Folder).Path(), FileNameOf(drop.File));
  ErrorsIgnored([&] {
    Files& files = main.host.files;
    if (!files.NameTaken(drop.File) && files.Open(there, OpenMode::Read)->Stamp() == drop.Stamp) drop.File = there;
  });
}

// The thumbnail of the photo that was dropped, or 0: the strip may have been loaded anew, or be another one.
int SourceSlot(const FilmStripState& strip, const LastDrop& drop) {
  if (drop.SrcIndex < 1) return 0;
  if (drop.Source) {
    const int slot = drop.Source->Index();
    return PhotoOf(strip, slot).empty() ? 0 : slot;
  }
  for (int slot = 1; slot <= strip.SrcSlotCount; ++slot) {
    if (!drop.Photo.empty() && PhotoOf(strip, slot) == drop.Photo) return slot;
  }
  return 0;
}

// The photo that was dropped; empty after a paste. It, or its folder, may have been renamed since.
std::string SourcePhoto(MainForm& main, const LastDrop& drop) {
  const int slot = SourceSlot(main.strip, drop);
  if (slot == 0) return drop.Photo;
  std::string photo = PhotoOf(main.strip, slot);
  return main.host.files.FileExists(photo) || drop.Photo.empty() ? photo : drop.Photo;
}

bool CanBeLookedAt(Files& files, const std::string& photo) {
  return ErrorsIgnored([&] { files.Open(photo, OpenMode::Read); }) == error::None;
}

// Two files, every byte of which is the same.
bool HoldSameBytes(Files& files, const std::string& a, const std::string& b) {
  if (files.IsSameFile(a, b) || !ContentComparison(files, a).SameContent(b)) return false;
  const auto firstOf = [&files](const std::string& path) {
    std::uint8_t first = 0;
    files.Open(path, OpenMode::Read)->ReadAt(0, &first, 1);
    return first;
  };
  return firstOf(a) == firstOf(b);
}

// The file is compared with the photo if that is there still and unchanged: a file can be edited with its date kept,
// and some disks number a file anew after a while. Otherwise the file must be the very one that was made. `now` is the
// stamp that the file has.
bool IsWhatWasMade(Files& files, const LastDrop& drop, const std::string& photo, const FileStamp& now) {
  bool isSame = now == drop.Stamp;
  ErrorsIgnored([&] {
    if (!photo.empty() && files.Open(photo, OpenMode::Read)->Stamp() == drop.PhotoStamp)
      isSame = HoldSameBytes(files, drop.File, photo);
  });
  return isSame && !files.IsLink(drop.File);
}

FileStamp StampOf(Files& files, const std::string& path) {
  return files.Open(path, OpenMode::Read)->Stamp();
}

// `photo` is empty after a paste.
void DeleteWhatWasMade(Files& files, const LastDrop& drop, const std::string& photo) {
  const FileStamp before = StampOf(files, drop.File);
  if (!IsWhatWasMade(files, drop, photo, before)) throw RuntimeError(error::PathAccess, AnotherFile);
  // Deliberate: a file that is write-protected stays, also where the host would delete it.
  if ((files.Attributes(drop.File).value_or(attribute::Normal) & attribute::ReadOnly) != 0)
    throw RuntimeError(error::PathAccess);
  // The comparison of large photos takes its time.
  if (!photo.empty() && (!CanBeLookedAt(files, photo) || files.IsSameFile(photo, drop.File)))
    throw RuntimeError(error::PathAccess, PhotoGone);
  if (StampOf(files, drop.File) != before || files.IsLink(drop.File))
    throw RuntimeError(error::PathAccess, AnotherFile);
  files.Delete(drop.File);
  // What a power cut brings back then is a copy too many.
  ErrorsIgnored([&] { files.FlushFolder(ParentPathOf(drop.File)); });
}

// Returns why the copy stays; empty: it is deleted.
std::string TakeBack(Files& files, const LastDrop& drop, const std::string& photo) {
  try {
    DeleteWhatWasMade(files, drop, photo);
  } catch (const RuntimeError& why) {
    return why.Description();
  }
  return {};
}

void ShowFailure(MainForm& main, const LastDrop& drop, const std::string& description) {
  main.host.dialogs.MsgBox(main.host.files.ShownPath(drop.File) + "\n\n" + description, BoxIcon::Exclamation,
                           BoxButtons::Ok, ApplicationTitle);
}

// The slot that shows the file's folder, or 0. Other folders may have taken slots since.
int SlotOfFolder(const DesktopState& desk, const LastDrop& drop) {
  const auto shows = [&](int slot) {
    return IsSlotInUse(desk, slot) && JoinPath(desk.DestFolderFiles(slot).Path(), FileNameOf(drop.File)) == drop.File;
  };
  if (shows(drop.Folder)) return drop.Folder;
  for (int slot = 1; slot <= TrashcanSlot; ++slot) {
    if (shows(slot)) return slot;
  }
  return 0;
}

// The path of the open folder's photo that has the frame; empty where none has it.
std::string FramedPhoto(const DesktopState& desk) {
  if (!desk.DestThumbFrame.Visible()) return {};
  return OrElse(std::string(), [&] { return PhotoOf(desk, SelectedCell(desk)); });
}

// The frame stays with its photo; where that has no cell any more, none is selected.
void FrameAgain(MainForm& main, const std::string& photo) {
  DesktopState& desk = main.desk;
  for (int cell = 1; cell <= desk.DestSlotCount; ++cell) {
    if (PhotoOf(desk, cell) != photo) continue;
    desk.DestThumbFrame.SetTag(TrimmedStr(cell));
    desk.DestThumbFrame.Move(desk.DestThumbnail(cell).Left(), desk.DestThumbnail(cell).Top());
    return;
  }
  desk.DestThumbFrame.SetVisible(false);
  ResetPreview(main);
}

void TakeOutOfView(MainForm& main, const std::string& file) {
  DesktopState& desk = main.desk;
  const std::string framed = FramedPhoto(desk);
  RemoveDestPhoto(desk, file, main.pictures.InvalidPicture);
  if (!framed.empty()) FrameAgain(main, framed);
}

void ShowFolderWithout(MainForm& main, const LastDrop& drop) {
  DesktopState& desk = main.desk;
  const int slot = SlotOfFolder(desk, drop);
  if (slot != 0) {
    ErrorsIgnored([&] { desk.DestFolderFiles(slot).Refresh(); });
    if (slot != TrashcanSlot)
      ErrorsIgnored([&] { ShowNewestPhoto(main, slot, desk.DestFolderFiles(slot).Path(), Picture()); });
  }
  ErrorsIgnored([&] { desk.DestFileList.Refresh(); });
  // A file that could not be deleted keeps its cell.
  if (!main.host.files.FileExists(drop.File)) ErrorsIgnored([&] { TakeOutOfView(main, drop.File); });
  if (slot != 0 && IsSlotInUse(desk, slot)) ErrorsIgnored([&] { ShowFolderCount(desk, slot); });
}

void RecoverThumbnail(MainForm& main, int slot) {
  FilmStripState& strip = main.strip;
  ImageBox& thumbnail = strip.SrcThumbnail(slot);
  const Watch<ImageBox> alive(thumbnail);
  bool bDragged = false;
  const std::string photo = PhotoOf(strip, slot);
  ErrorsIgnored([&] { PaintThumbnail(main, thumbnail, photo, bDragged); });
  // A long step may have let the strip be cleared.
  if (!alive) return;
  strip.SrcThumbName(slot).SetTag("");
  strip.SrcThumbName(slot).SetForeColor(strip.SrcThumbName(0).ForeColor());
}

// To the left edge of the strip's window, or as near as the bar's range allows.
void ScrollIntoView(FilmStripState& strip, int slot) {
  const ImageBox& background = strip.SrcBackground(slot);
  const double page = static_cast<double>(SrcFrameWidth) * strip.SrcPageBase - SrcFrameWidth;
  // Deliberate: a photo in the first frame of the window, and any on a later page, is moved to the edge too.
  const double place = background.Left() + strip.SrcCanvas.Left() + page;
  const bool kept = place >= 0 && place + background.Width() <= strip.SrcThumbsWindow.Width();
  if (kept && IsInView(strip, slot)) return;
  ScrollBar& bar = strip.SrcScrollbar;
  const double value = RoundHalfEven((background.Left() + 1 + page) / strip.SrcBarScale.Unit);
  bar.SetValue(std::clamp<double>(value, bar.Min(), bar.Max()));
}

void SelectAgain(MainForm& main, int slot) {
  FilmStripState& strip = main.strip;
  ErrorsIgnored([&] {
    ImageBox& thumbnail = strip.SrcThumbnail(slot);
    SrcThumbnail_DragOver(main, slot, thumbnail, DragState::Enter);
  });
  ErrorsIgnored([&] {
    if (strip.SrcThumbnail.IsLoaded(slot)) ScrollIntoView(strip, slot);
  });
}

}  // namespace

void UndoLastDrop(MainForm& main) {
  if (main.drop.LastDropFile.empty() || main.drop.LastDropFolder == 0) {
    main.host.dialogs.Beep();
    return;
  }
  LastDrop drop(main.drop);
  const std::string remembered = drop.File;
  FollowFolder(main, drop);
  const std::string photo = SourcePhoto(main, drop);
  const bool photoThere = photo.empty() || CanBeLookedAt(main.host.files, photo);
  // A mark means that there is a copy: it is cleared, for good, before the copy is deleted.
  if (photoThere && !photo.empty() && !QuickThumbsOf(main).ClearQuickThumbMark(photo)) {
    // Nothing is undone, and it can be tried again.
    ShowFailure(main, drop, StillMarked);
    return;
  }
  const std::string failure = photoThere ? TakeBack(main.host.files, drop, photo) : PhotoGone;
  if (!failure.empty()) ShowFailure(main, drop, failure);
  Toolkit& toolkit = main.host.toolkit;
  if (toolkit.Ended()) return;
  ShowFolderWithout(main, drop);
  if (const int slot = SourceSlot(main.strip, drop); slot != 0) RecoverThumbnail(main, slot);
  if (toolkit.Ended()) return;
  if (main.strip.RemainingOption.Value()) ErrorsIgnored([&] { Redisplay_FilmStrip(main); });
  // Steps on the way let events run: the slot is looked for again.
  if (const int slot = SourceSlot(main.strip, drop); slot != 0) SelectAgain(main, slot);
  if (main.drop.LastDropFile == remembered) main.drop.ForgetLastDrop();
}

void UndoButton_MouseMove(MainForm& main) {
  const bool ready = !main.drop.LastDropFile.empty() && main.drop.LastDropFolder != 0;
  main.strip.UndoButton.SetMouseIcon(ready ? main.strip.BrowseButton.MouseIcon() : main.drop.NotReadyIcon);
}

}  // namespace pixorra
